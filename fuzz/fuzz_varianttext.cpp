// Stream form of variant texts, and the registry's block of them: no input crashes or hangs, and
// what is read is written back in a form that reads as the same.

#include <ZTDrawEngineLib/text/ZTVariantTextManager.h>
#include <ZTMarkDataManager/ZTVariantText.h>

#include <QtCore/QDataStream>
#include <QtCore/QDateTime>
#include <QtCore/QtEndian>

#include <cstdint>
#include <cstdlib>

namespace {

QByteArray bytesOf(const ZTVariantText &text)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << text;
    return bytes;
}

/** Whether updates would look at a file: a drawing under test must not read the machine's. */
bool hasFiles(const ZTVariantText &text)
{
    const auto segments = text.getSegments();
    for (const ZTVariantTextSegment &segment : segments) {
        if (std::holds_alternative<ZTTextFileSegment>(segment))
            return true;
    }
    return false;
}

void readText(const QByteArray &bytes)
{
    QDataStream stream(bytes);
    ZTVariantText text;
    if (!text.load(stream)) {
        if (stream.status() == QDataStream::Ok || text != ZTVariantText())
            std::abort();
        return;
    }
    const QByteArray written = bytesOf(text);
    QDataStream again(written);
    ZTVariantText read;
    if (!read.load(again) || read != text || bytesOf(read) != written)
        std::abort();
    if (hasFiles(text))
        return;
    const QStringList expected = text.preview(3);
    for (const QString &next : expected) {
        text.update();
        if (text.getText() != next)
            std::abort();
    }
    text.isExhausted();
    text.restart();
}

/** Read with few entries, as all that are announced are made, whatever the stream holds. */
void readRegistry(QByteArray bytes)
{
    constexpr qint32 kMostEntries = 50;
    if (bytes.size() < 8)
        return;
    char *count = bytes.data() + 4;
    qToBigEndian(qMin(qFromBigEndian<qint32>(count), kMostEntries), count);
    QDataStream stream(bytes);
    ZTVariantTextManager::getInstance()->load(stream);
    ZTVariantTextManager::release();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    ZTVariantText::setClock([] { return QDateTime(QDate(2024, 2, 29), QTime(1, 2), Qt::UTC); });
    const auto bytes =
        QByteArray::fromRawData(reinterpret_cast<const char *>(data), static_cast<int>(size));
    readText(bytes);
    readRegistry(bytes);
    return 0;
}
