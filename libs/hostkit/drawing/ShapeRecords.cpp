#include <hostkit/drawing/ShapeRecords_p.h>

#include <hostkit/drawing/DrawingBytes_p.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDataStream>

#include <array>

namespace hostkit {

constexpr int kMaxTextLength = 1'000'000;
const int kStreamVersion = QDataStream::Qt_5_15;

namespace {

constexpr quint32 kNullString = 0xffffffffU;
constexpr quint32 kBaseSize = 214;
constexpr quint32 kRoundingSize = 37;
constexpr quint32 kLeastEntry = 10; // id, version and size of a variant text
constexpr int kMaxTextBytes = 4 + 2 * kMaxTextLength;
constexpr quint32 kLeastRecord = 21; // a polygon

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(hostkit::DrawingFile)
};

constexpr std::array<ShapeType, 7> kLibraryKinds{
    ShapeType::Rect, ShapeType::Line, ShapeType::Ellipse, ShapeType::Polygon,
    ShapeType::Text, ShapeType::TDOT, ShapeType::VecGraph};

class Walk
{
public:
    explicit Walk(const QByteArray &stream) : m_reader(stream), m_bytes(stream) {}

    bool stream(QByteArray *counters, QVector<DrawingItem> *found)
    {
        if (!variantTexts() || !skip(sizeof(qint32)))
            return false;
        *counters = copied(0);
        return items(found);
    }

    bool onlyShape(ShapeType type) { return shape(type) && isAtEnd(); }

    bool onlyCounters() { return variantTexts() && skip(sizeof(qint32)) && isAtEnd(); }

    /** What was in the way, after one of the above was false. */
    QString reason() const
    {
        return Texts::tr("%1 at byte %2 of the drawing's data")
            .arg(m_problem.isEmpty() ? Texts::tr("it ends early") : m_problem)
            .arg(m_reader.offset());
    }

private:
    bool fail(const QString &text)
    {
        m_problem = text;
        return false;
    }

    bool skip(quint32 count)
    {
        m_reader.skip(count);
        return m_reader.ok();
    }

    bool string()
    {
        const auto size = m_reader.number<quint32>();
        if (size == kNullString)
            return m_reader.ok();
        if (size % 2 != 0)
            return fail(Texts::tr("half a character"));
        return skip(size);
    }

    bool strings()
    {
        const auto count = m_reader.number<quint32>();
        for (quint32 i = 0; i < count; ++i) {
            if (!string())
                return false;
        }
        return m_reader.ok();
    }

    /** A count that what is left of the stream can hold. */
    bool count(quint32 leastSize, qint32 *value)
    {
        *value = m_reader.number<qint32>();
        if (!m_reader.ok())
            return false;
        if (*value < 0 || static_cast<quint32>(*value) > m_reader.left() / leastSize)
            return fail(Texts::tr("a count of %1").arg(*value));
        return true;
    }

    bool variantText()
    {
        const int from = m_reader.offset();
        m_reader.skip(sizeof(quint16));
        const auto size = m_reader.number<quint32>();
        if (!skip(size))
            return false;
        QDataStream stream(
            QByteArray::fromRawData(m_bytes.constData() + from, m_reader.offset() - from));
        ZTVariantText text;
        return text.load(stream) || fail(Texts::tr("an unknown variant text"));
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
        const int from = m_reader.offset();
        if (!string())
            return false;
        return m_reader.offset() - from <= kMaxTextBytes || fail(Texts::tr("a text too long"));
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
            return fail(Texts::tr("an object of kind %1").arg(static_cast<int>(type)));
        }
    }

    bool items(QVector<DrawingItem> *found)
    {
        qint32 items = 0;
        if (!count(kLeastRecord, &items))
            return false;
        found->reserve(items);
        for (qint32 i = 0; i < items; ++i) {
            DrawingItem item;
            item.type = static_cast<ShapeType>(m_reader.byte());
            item.kind = ShapeType2String(item.type);
            const double x = m_reader.real();
            item.posPx = QPointF(x, m_reader.real());
            const int from = m_reader.offset();
            if (!shape(item.type))
                return false;
            item.shape = copied(from);
            *found << item;
        }
        return isAtEnd();
    }

    bool isAtEnd() { return m_reader.atEnd() || fail(Texts::tr("more than it announces")); }

    /** The bytes from an offset to where the walk is. */
    QByteArray copied(int from) const { return m_bytes.mid(from, m_reader.offset() - from); }

    ByteReader m_reader;
    const QByteArray &m_bytes;
    QString m_problem;
};

} // namespace

std::optional<ShapeType> libraryKind(const QByteArray &kind)
{
    for (const ShapeType type : kLibraryKinds) {
        if (kind == ShapeType2String(type))
            return type;
    }
    return {};
}

bool lacksBase(const QByteArray &kind)
{
    const std::optional<ShapeType> type = libraryKind(kind);
    return !type || type == ShapeType::Polygon || type == ShapeType::VecGraph;
}

bool checkShapeRecord(ShapeType kind, const QByteArray &record, QString *reason)
{
    Walk walk(record);
    const bool isInStep = walk.onlyShape(kind);
    if (!isInStep)
        *reason = walk.reason();
    return isInStep;
}

bool checkCounters(const QByteArray &counters, QString *reason)
{
    Walk walk(counters);
    const bool isInStep = walk.onlyCounters();
    if (!isInStep)
        *reason = walk.reason();
    return isInStep;
}

bool splitStream(const QByteArray &stream, QByteArray *counters, QVector<DrawingItem> *items,
                 QString *reason)
{
    Walk walk(stream);
    const bool isInStep = walk.stream(counters, items);
    if (!isInStep)
        *reason = walk.reason();
    return isInStep;
}

} // namespace hostkit
