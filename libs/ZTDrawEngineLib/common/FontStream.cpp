#include <ZTDrawEngineLib/common/FontStream_p.h>

#include <QtCore/QDataStream>
#include <QtCore/QStringList>
#include <QtGui/QFont>

#include <cmath>

namespace {

constexpr int kMaxFamilies = 100;
constexpr int kMaxSize = 65535; // the most pixels that letters come out at
constexpr double kMaxWordSpacing = 1000000.0;

/** Hands fields on from one stream to another of the same kind. */
template <class... Fields>
void relay(QDataStream &from, QDataStream &to)
{
    const auto one = [&](auto field) {
        from >> field;
        to << field;
    };
    (one(Fields{}), ...);
}

// A list is read as long as nothing is wrong, whatever was wrong before it; only a transaction
// that has failed reads nothing more.
QStringList readFamilies(QDataStream &stream)
{
    const QDataStream::Status before = stream.status();
    if (stream.device() == nullptr || !stream.device()->isTransactionStarted())
        stream.resetStatus();
    qint32 count = 0;
    stream >> count;
    if (count < 0) // more than a list can hold
        stream.setStatus(QDataStream::ReadCorruptData);
    QStringList families;
    for (qint32 i = 0; i < count; ++i) {
        QString family;
        stream >> family;
        if (stream.status() != QDataStream::Ok) {
            families.clear();
            break;
        }
        if (families.size() < kMaxFamilies)
            families << family;
    }
    if (before != QDataStream::Ok) {
        stream.resetStatus();
        stream.setStatus(before);
    }
    return families;
}

/** Takes the fields apart and puts them together again, with no more families than there are. */
void readWithFamilies(QDataStream &stream, QFont &font)
{
    QByteArray bytes;
    QDataStream checked(&bytes, QIODevice::WriteOnly);
    const auto setUpAlike = [&stream](QDataStream &other) {
        other.setVersion(stream.version());
        other.setByteOrder(stream.byteOrder());
        other.setFloatingPointPrecision(stream.floatingPointPrecision());
    };
    setUpAlike(checked);
    relay<QString, QString>(stream, checked);                        // family, style name
    relay<double, qint32>(stream, checked);                          // sizes in points and pixels
    relay<quint8, quint16>(stream, checked);                         // style hint and strategy
    relay<quint8, quint8, quint8, quint16, quint8>(stream, checked); // up to stretch, more bits
    relay<qint32, qint32>(stream, checked);                          // letter and word spacing
    relay<quint8, quint8>(stream, checked);                          // hinting, capitals
    checked << readFamilies(stream);
    QDataStream fields(bytes);
    setUpAlike(fields);
    fields >> font;
}

// Sizes below zero say that the other one counts.
void cutToSize(QFont &font)
{
    if (std::isnan(font.pointSizeF()))
        font.setPointSizeF(1.0);
    else if (font.pointSizeF() > kMaxSize)
        font.setPointSizeF(kMaxSize);
    if (font.pixelSize() > kMaxSize)
        font.setPixelSize(kMaxSize);
    if (std::abs(font.wordSpacing()) > kMaxWordSpacing)
        font.setWordSpacing(std::copysign(kMaxWordSpacing, font.wordSpacing()));
}

} // namespace

void ztstream::readFont(QDataStream &stream, QFont &font)
{
    if (stream.version() >= QDataStream::Qt_5_13)
        readWithFamilies(stream, font);
    else
        stream >> font;
    cutToSize(font);
}
