#include <hostkit/drawing/DrawingStream_p.h>

#include <hostkit/drawing/DrawingBytes_p.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QDataStream>

namespace hostkit {

constexpr int kMaxTextLength = 1'000'000;
const int kStreamVersion = QDataStream::Qt_5_15;

namespace {

constexpr quint32 kNullString = 0xffffffffU;
constexpr quint32 kPointSize = 16;
constexpr quint32 kBaseSize = 214;
constexpr quint32 kRoundingSize = 37;
constexpr quint32 kLeastEntry = 10; // id, version and size of a variant text
constexpr int kMaxTextBytes = 4 + 2 * kMaxTextLength;
constexpr quint32 kLeastRecord = 21; // a polygon

class Walk
{
public:
    explicit Walk(const QByteArray &stream) : reader(stream), bytes(stream) {}

    bool run(DrawingStreamIndex *index, QString *reason)
    {
        const bool isInStep = variantTexts() && items(index);
        if (!isInStep)
            *reason = QStringLiteral("%1 at byte %2 of the drawing's data")
                          .arg(problem.isEmpty() ? QStringLiteral("it ends early") : problem)
                          .arg(reader.offset());
        return isInStep;
    }

private:
    bool fail(const QString &text)
    {
        problem = text;
        return false;
    }

    bool skip(quint32 count)
    {
        reader.skip(count);
        return reader.ok();
    }

    bool string()
    {
        const auto size = reader.number<quint32>();
        if (size == kNullString)
            return reader.ok();
        if (size % 2 != 0)
            return fail(QStringLiteral("half a character"));
        return skip(size);
    }

    bool strings()
    {
        const auto count = reader.number<quint32>();
        for (quint32 i = 0; i < count; ++i) {
            if (!string())
                return false;
        }
        return reader.ok();
    }

    /** A count that what is left of the stream can hold. */
    bool count(quint32 leastSize, qint32 *value)
    {
        *value = reader.number<qint32>();
        if (!reader.ok())
            return false;
        if (*value < 0 || static_cast<quint32>(*value) > reader.left() / leastSize)
            return fail(QStringLiteral("a count of %1").arg(*value));
        return true;
    }

    bool variantText()
    {
        const int from = reader.offset();
        reader.skip(sizeof(quint16));
        const auto size = reader.number<quint32>();
        if (!skip(size))
            return false;
        QDataStream stream(
            QByteArray::fromRawData(bytes.constData() + from, reader.offset() - from));
        ZTVariantText text;
        return text.load(stream) || fail(QStringLiteral("an unknown variant text"));
    }

    bool variantTexts()
    {
        qint32 entries = 0;
        if (!skip(sizeof(qint32)) || !count(kLeastEntry, &entries))
            return false;
        for (qint32 i = 0; i < entries; ++i) {
            if (!skip(sizeof(qint32)) || !variantText())
                return false;
        }
        return true;
    }

    /** As QFont's stream operator writes it in this version of the stream. */
    bool font()
    {
        constexpr quint32 kNumbers = 8 + 4 + 1 + 2 + 3 + 2 + 1 + 4 + 4 + 1 + 1;
        return string() && string() && skip(kNumbers) && strings();
    }

    /** The text that is shown: every character of it becomes an outline. */
    bool shownText()
    {
        const int from = reader.offset();
        if (!string())
            return false;
        return reader.offset() - from <= kMaxTextBytes || fail(QStringLiteral("a text too long"));
    }

    bool text()
    {
        constexpr quint32 kFontNumbers = 4 + 8 + 8;
        return skip(kBaseSize + 1) && shownText() && string() && skip(sizeof(qint32)) &&
               variantText() && skip(kFontNumbers) && font() && string() && string() &&
               skip(sizeof(double) + kRoundingSize);
    }

    bool shape(ShapeType type)
    {
        switch (type) {
        case ShapeType::Rect:
        case ShapeType::Line:
        case ShapeType::Ellipse:
        case ShapeType::TDOT:
            return skip(kBaseSize);
        case ShapeType::Polygon:
            return skip(sizeof(qint32));
        case ShapeType::Text:
            return text();
        case ShapeType::VecGraph:
            return string();
        default:
            return fail(QStringLiteral("an object of kind %1").arg(static_cast<int>(type)));
        }
    }

    bool items(DrawingStreamIndex *index)
    {
        qint32 items = 0;
        index->counters = reader.offset();
        if (!skip(sizeof(qint32)) || !count(kLeastRecord, &items))
            return false;
        index->records.reserve(items);
        for (qint32 i = 0; i < items; ++i) {
            DrawingRecord record;
            record.begin = reader.offset();
            record.type = static_cast<ShapeType>(reader.byte());
            record.shape = record.begin + 1 + static_cast<int>(kPointSize);
            if (!skip(kPointSize) || !shape(record.type))
                return false;
            record.end = reader.offset();
            index->records << record;
        }
        return reader.atEnd() || fail(QStringLiteral("more than it announces"));
    }

    ByteReader reader;
    const QByteArray &bytes;
    QString problem;
};

} // namespace

bool indexDrawingStream(const QByteArray &stream, DrawingStreamIndex *index, QString *reason)
{
    DrawingStreamIndex found;
    if (!Walk(stream).run(&found, reason))
        return false;
    *index = found;
    return true;
}

} // namespace hostkit
