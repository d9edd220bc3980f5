// Loads a drawing from any bytes, as any version of the stream may have them, and works with what
// came of it: marking, painting, editing, saving, loading and marking once more, clearing. Nothing
// crashes, hangs or yields coordinates that are no numbers.

#include <support/Factories.h>
#include <support/RoughUse.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QDataStream>
#include <QtCore/QtEndian>
#include <QtWidgets/QApplication>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>

namespace {

// Work is bounded by the input: the large drawings are for the tests, the fine hatches for the
// target of their own.
constexpr std::size_t kMostBytes = 2048;
constexpr qint32 kMostItems = 3;
constexpr qint32 kMostEntries = 3;
constexpr qint32 kMostSides = 1000;
constexpr double kLeastHatchSpacing = 10.0;
constexpr double kMostExtentMm = 150.0;

/** How the stream is set up: first byte of the input. */
struct SetUp
{
    explicit SetUp(std::uint8_t byte)
    {
        constexpr int kVersions[] = {
            QDataStream::Qt_5_15, QDataStream::Qt_5_12, QDataStream::Qt_5_0, QDataStream::Qt_4_6,
            QDataStream::Qt_4_5,  QDataStream::Qt_3_1,  QDataStream::Qt_2_1, QDataStream::Qt_1_0};
        version = kVersions[byte & 7];
        order = (byte & 8) != 0 ? QDataStream::LittleEndian : QDataStream::BigEndian;
        precision = (byte & 16) != 0 ? QDataStream::SinglePrecision : QDataStream::DoublePrecision;
        isBad = (byte & 32) != 0;
    }

    void applyTo(QDataStream &stream) const
    {
        stream.setVersion(version);
        stream.setByteOrder(order);
        stream.setFloatingPointPrecision(precision);
        if (isBad)
            stream.setStatus(QDataStream::ReadCorruptData);
    }

    int version;
    QDataStream::ByteOrder order;
    QDataStream::FloatingPointPrecision precision;
    bool isBad;
};

/** Cuts a count down: all that are announced are made, whatever the stream holds. */
void limitCount(QByteArray &bytes, qint64 at, qint32 most, const SetUp &setUp)
{
    if (at + 4 > bytes.size())
        return;
    char *count = bytes.data() + at;
    if (setUp.order == QDataStream::BigEndian)
        qToBigEndian(qMin(qFromBigEndian<qint32>(count), most), count);
    else
        qToLittleEndian(qMin(qFromLittleEndian<qint32>(count), most), count);
}

bool isSmall(const QTransform &t)
{
    constexpr double kMost = 3.0;
    return t.isAffine() && std::abs(t.m11()) < kMost && std::abs(t.m12()) < kMost &&
           std::abs(t.m21()) < kMost && std::abs(t.m22()) < kMost;
}

/** What decides how many scan lines a hatch has. */
struct Extent
{
    bool isSmall() const
    {
        return rect.width() < kMostExtentMm && rect.height() < kMostExtentMm &&
               ::isSmall(transform) && ::isSmall(rounding) && text.size() < 10 &&
               font.pixelSize() < 100 && font.pointSizeF() < 100;
    }

    QRectF rect;
    QTransform transform;
    QTransform rounding;
    QString text;
    QFont font;
};

/**
 * Walks the records and switches off the hatches that the library lays out although they take
 * long, and cuts polygons down: what is below its limit of a million scan lines is for a fuzz
 * target of its own.
 */
class Hatches
{
public:
    Hatches(QByteArray *drawing, const SetUp &drawingSetUp, qint64 from)
        : bytes(drawing), stream(*drawing), setUp(drawingSetUp)
    {
        drawingSetUp.applyTo(stream);
        stream.device()->seek(from);
    }

    void limit(qint32 items)
    {
        for (; items > 0; --items)
            readItem();
    }

private:
    void readItem()
    {
        quint8 kind = 0;
        stream >> kind;
        const auto type = static_cast<ShapeType>(kind);
        const bool hasFactory = type <= ShapeType::VecGraph && type != ShapeType::Point &&
                                (type < ShapeType::QRCode || type > ShapeType::Pixmap);
        if (!hasFactory)
            return;
        QPointF posPx;
        stream >> posPx;
        qint32 sides = 0;
        QString path;
        if (type == ShapeType::Polygon) {
            limitCount(*bytes, stream.device()->pos(), kMostSides, setUp);
            stream >> sides;
        } else if (type == ShapeType::VecGraph)
            stream >> path;
        else
            readShape(type == ShapeType::Text);
    }

    void readShape(bool isText)
    {
        Extent extent;
        stream >> extent.rect >> extent.transform >> extent.rounding;
        const qint64 fillAt = stream.device()->pos();
        ZTFillParam fill;
        qint32 number = 0;
        bool flag = false;
        stream >> fill >> number >> number >> number >> flag >> number;
        if (isText) {
            ZTVariantText variant;
            QString fixed;
            ZTFontParam font;
            ZTRoundingParam arc;
            stream >> flag >> extent.text >> fixed >> number >> variant >> font >> arc;
            extent.font = font.font;
        }
        const bool isRefused = !(fill.spac > 1e-10);
        if (!isRefused && (fill.spac < kLeastHatchSpacing || !extent.isSmall()))
            switchOff(fillAt);
    }

    void switchOff(qint64 fillAt)
    {
        const qint32 none = static_cast<qint32>(FillType::None);
        if (fillAt + 4 > bytes->size())
            return;
        char *fillType = bytes->data() + fillAt;
        if (setUp.order == QDataStream::BigEndian)
            qToBigEndian(none, fillType);
        else
            qToLittleEndian(none, fillType);
    }

    QByteArray *bytes;
    QDataStream stream;
    SetUp setUp;
};

/** The bytes with few entries and items announced, and no hatch that takes seconds. */
QByteArray limited(QByteArray bytes, const SetUp &setUp)
{
    limitCount(bytes, 4, kMostEntries, setUp);
    QDataStream stream(bytes);
    setUp.applyTo(stream);
    ZTVariantTextManager::getInstance()->load(stream);
    ZTVariantTextManager::release();
    limitCount(bytes, stream.device()->pos() + 4, kMostItems, setUp);
    qint32 nextId = 0;
    qint32 items = 0;
    stream >> nextId >> items;
    Hatches(&bytes, setUp, stream.device()->pos()).limit(qMin(items, kMostItems));
    return bytes;
}

void load(ZTShapeManager &manager, const QByteArray &bytes, const SetUp &setUp)
{
    QDataStream stream(bytes);
    setUp.applyTo(stream);
    if (!manager.load(stream))
        std::abort();
}

void check(bool holds)
{
    if (!holds)
        std::abort();
}

void checkFinite(const QPointF &point)
{
    check(std::isfinite(point.x()) && std::isfinite(point.y()));
}

void checkMarks(const ZTMarkGraph &graph)
{
    for (const ZTMarkObject &object : graph.objects) {
        for (const QPolygonF &polygon : object.lines) {
            for (const QPointF &point : polygon)
                checkFinite(point);
        }
        for (const QLineF &line : object.fillLines) {
            checkFinite(line.p1());
            checkFinite(line.p2());
        }
    }
}

QByteArray saved(ZTShapeManager &manager)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    manager.save(stream);
    return bytes;
}

int prepare()
{
    static int argc = 1;
    static char name[] = "fuzz_stream";
    static char *argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    static const QApplication app(argc, argv);
    testsupport::registerFactories();
    return 0;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const int prepared = prepare();
    if (size < 1 || size > kMostBytes)
        return prepared;
    const SetUp setUp(data[0]);
    const QByteArray bytes = limited(
        QByteArray(reinterpret_cast<const char *>(data) + 1, static_cast<int>(size) - 1), setUp);

    // One manager and one view for all inputs: an empty one is like a new one, as is checked below.
    static ZTShapeManager manager(nullptr);
    static testsupport::RoughUser user(*manager.scene());
    static const int itemsOfEmptyScene = manager.scene()->items().size();
    load(manager, bytes, setUp);
    checkMarks(manager.getShapeLines());
    user.use();
    const QByteArray written = saved(manager);
    manager.clear();

    load(manager, written, SetUp(0));
    checkMarks(manager.getShapeLines());
    manager.clear();
    check(manager.getShapeList().isEmpty());
    check(manager.scene()->items().size() == itemsOfEmptyScene);
    ZTVariantTextManager::release();
    return 0;
}
