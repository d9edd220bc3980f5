#include <hostkit/drawing/DrawingFrame_p.h>

#include <hostkit/drawing/DrawingBytes_p.h>

#include <QtCore/QCoreApplication>

#include <zlib.h>

namespace hostkit {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(hostkit::DrawingFile)
};

const QByteArray kMagic = QByteArrayLiteral("\x89ZTD\r\n\x1a\n");
constexpr int kHeaderSize = 32;
constexpr int kHeaderSummed = 28; // all but its checksum
constexpr int kTagSize = 4;
constexpr int kSectionHead = 12; // tag and length
constexpr int kSumSize = 4;

template <class Number>
void append(QByteArray *bytes, Number number)
{
    char raw[sizeof(Number)];
    qToBigEndian(number, raw);
    bytes->append(raw, static_cast<int>(sizeof(Number)));
}

void appendSum(QByteArray *bytes, int from)
{
    append(bytes, drawingChecksum(bytes->constData() + from, bytes->size() - from));
}

/** The tag as people can read it. */
QString nameOf(const QByteArray &tag)
{
    QString name;
    for (const char c : tag)
        name += c > ' ' && c < '\x7f' ? QLatin1Char(c) : QLatin1Char('?');
    return name;
}

bool checkHeader(const QByteArray &bytes, quint32 *sectionCount, DrawingFrame *frame,
                 Failure *failure)
{
    if (bytes.isEmpty())
        return fail(failure, Failure::Kind::OtherFormat, Texts::tr("is empty"));
    if (bytes.left(kMagic.size()) != kMagic.left(bytes.size()))
        return fail(failure, Failure::Kind::OtherFormat, Texts::tr("is not a drawing"));
    if (bytes.size() < kHeaderSize)
        return failDamaged(failure, Texts::tr("it ends after %1 bytes").arg(bytes.size()));
    ByteReader reader(bytes);
    reader.skip(static_cast<quint64>(kMagic.size()));
    frame->version = reader.number<quint16>();
    frame->streamVersion = reader.number<quint16>();
    const auto flags = reader.number<quint32>();
    const auto length = reader.number<quint64>();
    *sectionCount = reader.number<quint32>();
    if (reader.number<quint32>() != drawingChecksum(bytes.constData(), kHeaderSummed))
        return failDamaged(failure, Texts::tr("its header does not match its checksum"));
    if (frame->version < 1 || frame->version > kDrawingFormatVersion || flags != 0)
        return fail(failure, Failure::Kind::NewerVersion,
                    Texts::tr("was saved by a newer version of the program (file format %1, "
                              "this program reads %2)")
                        .arg(frame->version)
                        .arg(kDrawingFormatVersion));
    const auto size = static_cast<quint64>(bytes.size());
    if (size < length)
        return failDamaged(failure,
                           Texts::tr("it ends after %1 of %2 bytes").arg(size).arg(length));
    if (size > length)
        return failDamaged(failure, Texts::tr("%1 bytes follow its end").arg(size - length));
    return true;
}

bool readSection(ByteReader &reader, const QByteArray &bytes, DrawingSection *section,
                 Failure *failure)
{
    const int from = reader.offset();
    section->tag = reader.bytes(kTagSize);
    const auto length = reader.number<quint64>();
    section->bytes = reader.bytes(length);
    const qint64 summed = reader.offset() - from;
    const auto sum = reader.number<quint32>();
    if (!reader.ok())
        return failDamaged(failure, Texts::tr("a section is longer than the file"));
    if (sum != drawingChecksum(bytes.constData() + from, summed))
        return failDamaged(
            failure, Texts::tr("section %1 does not match its checksum").arg(nameOf(section->tag)));
    return true;
}

} // namespace

bool failDamaged(Failure *failure, const QString &what)
{
    return fail(failure, Failure::Kind::Damaged, Texts::tr("the drawing is damaged: %1").arg(what));
}

bool hasDrawingMagic(const QByteArray &start) { return start.startsWith(kMagic); }

quint32 drawingChecksum(const char *bytes, qint64 count)
{
    // Limit: kMaxDrawingBytes is less than what one call takes.
    return static_cast<quint32>(
        crc32(0, reinterpret_cast<const Bytef *>(bytes), static_cast<uInt>(count)));
}

QByteArray joinFrame(const DrawingFrame &frame)
{
    qint64 size = kHeaderSize;
    for (const DrawingSection &section : frame.sections)
        size += kSectionHead + qint64(section.bytes.size()) + kSumSize;
    if (size > kMaxDrawingBytes)
        return {};
    QByteArray bytes;
    bytes.reserve(static_cast<int>(size));
    bytes.append(kMagic);
    append(&bytes, frame.version);
    append(&bytes, frame.streamVersion);
    append(&bytes, quint32(0));
    append(&bytes, static_cast<quint64>(size));
    append(&bytes, static_cast<quint32>(frame.sections.size()));
    appendSum(&bytes, 0);
    for (const DrawingSection &section : frame.sections) {
        const int from = bytes.size();
        bytes.append(section.tag.leftJustified(kTagSize, '\0', true));
        append(&bytes, static_cast<quint64>(section.bytes.size()));
        bytes.append(section.bytes);
        appendSum(&bytes, from);
    }
    return bytes;
}

bool splitFrame(const QByteArray &bytes, DrawingFrame *frame, Failure *failure)
{
    quint32 sectionCount = 0;
    if (!checkHeader(bytes, &sectionCount, frame, failure))
        return false;
    ByteReader reader(bytes);
    reader.skip(kHeaderSize);
    for (quint32 i = 0; i < sectionCount; ++i) {
        DrawingSection section;
        if (!readSection(reader, bytes, &section, failure))
            return false;
        frame->sections << section;
    }
    if (!reader.atEnd())
        return failDamaged(failure, Texts::tr("its sections end before the file"));
    return true;
}

} // namespace hostkit
