#include <support/Geometry.h>
#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/model/ZTPointSort.h>
#include <ZTDrawEngineLib/shapes/ZTRectShape.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

#include <QtCore/QDataStream>
#include <QtTest/QTest>

#include <limits>
#include <memory>
#include <random>

using testsupport::near;
using testsupport::polygonsOf;

namespace {

constexpr double kUlp = std::numeric_limits<double>::epsilon();

QPainterPath randomStraightPath(std::mt19937 &random)
{
    const auto next = [&random](int limit) { return static_cast<int>(random() % limit); };
    QPainterPath path;
    const int subpathCount = 1 + next(200);
    const int columns = 1 + next(100);
    for (int i = 0; i < subpathCount; ++i) {
        path.moveTo(next(columns) / 3.0, next(100) / 7.0);
        for (int k = next(6); k > 0; --k)
            path.lineTo(next(100) / 3.0, next(100) / 7.0);
    }
    return path;
}

/** A shape of given subpaths that counts what the base calls. */
class ProbeShape : public ZTShapeBase
{
public:
    explicit ProbeShape(const QPainterPath &path = {}) : source(path) { setUpdate(1); }

    void paint() override
    {
        ++paints;
        if (!isUpdate())
            return;
        setUpdate(0);
        getPath() = source;
        path2Lines(sorted);
        fill();
    }

    void fill() override
    {
        ++fills;
        ZTShapeBase::fill();
    }

    void fillULine(FillType type, double spac, double angle) override
    {
        hatchCalls << QString::fromLatin1("%1 %2 %3").arg(int(type)).arg(spac).arg(angle);
        ZTShapeBase::fillULine(type, spac, angle);
    }

    void fillLine() override { ++plainHatches; }

    using ZTShapeBase::setFillLines;
    using ZTShapeBase::setLines;

    QPainterPath source;
    bool sorted = true;
    int paints = 0;
    int fills = 0;
    int plainHatches = 0;
    QStringList hatchCalls;
};

QPainterPath squaresAt(const QList<double> &xs)
{
    QPainterPath path;
    for (const double x : xs)
        path.addRect(x, 0, 1, 1);
    return path;
}

QList<double> firstXs(const QPainterPath &lines)
{
    QList<double> xs;
    for (const QPolygonF &polygon : polygonsOf(lines))
        xs << polygon.first().x();
    return xs;
}

/** The bytes of a base record that a stream gave field by field, as a shape keeps it after load. */
QByteArray rereadByFields(QDataStream &in)
{
    QRectF rect;
    QTransform transform;
    QTransform rounding;
    ZTFillParam fill;
    qint32 shapeType = 0;
    qint32 update = 0;
    qint32 id = 0;
    bool isLocked = false;
    qint32 penId = 0;
    in >> rect >> transform >> rounding >> fill >> shapeType >> update >> id >> isLocked >> penId;
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << rect << transform << rounding << fill << shapeType << qint32(1) << id << isLocked
        << penId;
    return bytes;
}

QByteArray reread(QDataStream &in)
{
    ZTRectShape shape;
    shape.load(in);
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    shape.save(out);
    return bytes;
}

} // namespace

class tst_ZTShapeBase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard = std::make_unique<testsupport::SingletonGuard>();
        // Ten scene pixels a millimetre.
        ZTCoord::getInstance()->setHeight(1930.0);
    }
    void cleanup() { guard.reset(); }

    void controlPointRect_followsEveryOutline_alsoOfCopies()
    {
        QPainterPath curve;
        curve.cubicTo(0, 30, 20, 30, 20, 0);
        ProbeShape shape;
        shape.setLines(curve);
        QCOMPARE(shape.controlPointRect(), QRectF(0, 0, 20, 30));
        ProbeShape copy(shape);
        ProbeShape sharing;
        sharing = shape;
        shape.setLines(QPainterPath());
        QVERIFY(shape.controlPointRect().isNull());
        QCOMPARE(copy.controlPointRect(), QRectF(0, 0, 20, 30));
        QVERIFY(sharing.controlPointRect().isNull());
    }

    void newRect_hasTheDefaults()
    {
        ZTRectShape shape;
        QCOMPARE(shape.getRect(), QRectF(0, 0, 10, 10));
        QCOMPARE(shape.getPenId(), 1);
        QCOMPARE(shape.getId(), 0);
        QVERIFY(shape.isUpdate());
        QVERIFY(!shape.getLockAspectRatio());
        QVERIFY(shape.getLines().isEmpty());
        QVERIFY(shape.getFillLines().isEmpty());
        QVERIFY(shape.controlPointRect().isEmpty());
        QVERIFY(shape.getTransformParam().isIdentity());
        QVERIFY(shape.getRoundingTransformParam().isIdentity());
        QCOMPARE(shape.getShapeType(), ShapeType::Rect);
        QVERIFY(shape.getFillParam() == ZTFillParam());
        QCOMPARE(shape.text(), QString());
        shape.setText(QStringLiteral("ignored"));
        QCOMPARE(shape.text(), QString());
    }

    void baseConstructor_leavesTypeNoneAndNoMark()
    {
        struct Bare : ZTShapeBase
        {
            void paint() override {}
        } shape;
        QVERIFY(!shape.isUpdate());
        QCOMPARE(shape.getShapeType(), ShapeType::None);
    }

    void paint_rect_givesItsOutlineInPixels()
    {
        ZTRectShape shape;
        shape.setRect(QRectF(1, 2, 3, 4));
        shape.paint();
        QVERIFY(!shape.isUpdate());
        const QList<QPolygonF> polygons = polygonsOf(shape.getLines());
        QCOMPARE(polygons.size(), 1);
        QVERIFY(near(polygons[0],
                     testsupport::polygon({{10, 20}, {40, 20}, {40, 60}, {10, 60}, {10, 20}})));
        QCOMPARE(shape.controlPointRect(), QRectF(10, 20, 30, 40));
        QCOMPARE(shape.getRect(), QRectF(1, 2, 3, 4));
    }

    void paint_twice_rebuildsAndFillsOnce()
    {
        ProbeShape shape(squaresAt({0}));
        shape.setFillParam({FillType::Line, 0.05, 0.0, true});
        shape.paint();
        const QPainterPath lines = shape.getLines();
        const QVector<QLineF> fillLines = shape.getFillLines();
        shape.source = squaresAt({5, 6});
        shape.paint();
        QCOMPARE(shape.fills, 1);
        QCOMPARE(shape.getLines(), lines);
        QCOMPARE(shape.getFillLines(), fillLines);
    }

    void setRect_sameRectangle_doesNotMark()
    {
        ZTRectShape shape;
        shape.paint();
        shape.setRect(QRectF(0, 0, 10, 10));
        QVERIFY(!shape.isUpdate());
        shape.setRect(QRectF(0, 0, 10, 11));
        QVERIFY(shape.isUpdate());
    }

    void scale_resizesWithoutMarking()
    {
        ZTRectShape shape;
        shape.setRect(QRectF(1, 2, 10, 10));
        shape.paint();
        const QPainterPath lines = shape.getLines();
        shape.scale(2, 3);
        QCOMPARE(shape.getRect(), QRectF(1, 2, 20, 30));
        QVERIFY(!shape.isUpdate());
        shape.paint();
        QCOMPARE(shape.getLines(), lines);
        shape.setUpdate(1);
        shape.paint();
        QCOMPARE(shape.controlPointRect(), QRectF(10, 20, 200, 300));
    }

    void setTransformParam_paintsAtOnce()
    {
        ProbeShape shape(squaresAt({0}));
        shape.setTransformParam(QTransform::fromScale(2, 3));
        QCOMPARE(shape.paints, 1);
        QVERIFY(!shape.isUpdate());
        QCOMPARE(shape.controlPointRect(), QRectF(0, 0, 20, 30));
        QCOMPARE(shape.getTransformParam(), QTransform::fromScale(2, 3));
    }

    void setTransformParam_rotation_turnsTheOutlineOnly()
    {
        ZTRectShape shape;
        shape.setRect(QRectF(0, 0, 2, 1));
        shape.setTransformParam(QTransform(0, 1, -1, 0, 0, 0));
        QCOMPARE(shape.controlPointRect(), QRectF(-10, 0, 10, 20));
        QCOMPARE(shape.getRect(), QRectF(0, 0, 2, 1));
    }

    void getTransformParam_isTheMemberItself()
    {
        ZTRectShape shape;
        shape.paint();
        shape.getTransformParam() = QTransform::fromTranslate(1, 1);
        QVERIFY(!shape.isUpdate());
        shape.setUpdate(1);
        shape.paint();
        QCOMPARE(shape.controlPointRect(), QRectF(10, 10, 100, 100));
        shape.getRoundingTransformParam() = QTransform::fromScale(2, 2);
        shape.setUpdate(1);
        shape.paint();
        QCOMPARE(shape.controlPointRect(), QRectF(10, 10, 200, 200));
    }

    void setRoundingTransformParam_takesEffectAtTheNextRebuild()
    {
        ZTRectShape shape;
        shape.setTransformParam(QTransform::fromTranslate(1, 0));
        shape.setRoundingTransformParam(QTransform::fromScale(2, 2));
        QVERIFY(!shape.isUpdate());
        shape.paint();
        QCOMPARE(shape.controlPointRect(), QRectF(10, 0, 100, 100));
        shape.setUpdate(1);
        shape.paint();
        // The rounding transform comes first, so the shift of 1 mm is not doubled.
        QCOMPARE(shape.controlPointRect(), QRectF(10, 0, 200, 200));
    }

    void setFillParam_marksAndDoesNotPaint()
    {
        ProbeShape shape(squaresAt({0}));
        shape.paint();
        shape.setFillParam(ZTFillParam());
        QVERIFY(shape.isUpdate());
        QCOMPARE(shape.paints, 1);
    }

    void fill_passesTheSpacingThroughPixels()
    {
        ProbeShape shape(squaresAt({0}));
        shape.setFillParam({FillType::ULine, 0.5, 30.0, true});
        shape.paint();
        QCOMPARE(shape.hatchCalls, QStringList{QStringLiteral("1 5 30")});
        QCOMPARE(shape.plainHatches, 0);
    }

    void fill_noneOrNoSpacing_keepsTheOldHatch()
    {
        ProbeShape shape(squaresAt({0}));
        const QVector<QLineF> old = {QLineF(1, 2, 3, 4)};
        shape.setFillLines(old);
        shape.setFillParam({FillType::None, 0.5, 0.0, true});
        shape.paint();
        QCOMPARE(shape.getFillLines(), old);
        shape.setFillParam({FillType::Line, 0.0, 0.0, true});
        shape.paint();
        QCOMPARE(shape.getFillLines(), old);
        QVERIFY(shape.hatchCalls.isEmpty());
    }

    void path2Lines_keepsTheHatch()
    {
        ProbeShape shape(squaresAt({0}));
        const QVector<QLineF> old = {QLineF(1, 2, 3, 4)};
        shape.setFillLines(old);
        shape.paint();
        QCOMPARE(shape.getFillLines(), old);
    }

    void path2Lines_ordersPolygonsByTheSortKind_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QList<double>>("xs");
        QTest::newRow("0") << 0 << QList<double>{30, 20, 10};
        QTest::newRow("1") << 1 << QList<double>{30, 20, 10};
        QTest::newRow("2") << 2 << QList<double>{10, 20, 30};
        QTest::newRow("3") << 3 << QList<double>{30, 20, 10};
        QTest::newRow("4") << 4 << QList<double>{30, 20, 10};
        QTest::newRow("5") << 5 << QList<double>{30, 20, 10};
    }

    void path2Lines_ordersPolygonsByTheSortKind()
    {
        QFETCH(int, kind);
        QFETCH(QList<double>, xs);
        ZTPointSort::getInstance()->setShapeMarkSort(static_cast<EShapeSortType>(kind));
        ProbeShape shape(squaresAt({2, 1, 3}));
        shape.paint();
        QCOMPARE(firstXs(shape.getLines()), xs);
    }

    /** Many subpaths, many of them with the same first x, a few of them of one point only. */
    void path2Lines_straightLines_areWhatTheListOfSubpathsGives()
    {
        std::mt19937 random(1);
        for (int trial = 0; trial < 2000; ++trial) {
            const auto kind = static_cast<EShapeSortType>(trial % 6);
            ZTPointSort::getInstance()->setShapeMarkSort(kind);
            ProbeShape shape(randomStraightPath(random));
            shape.sorted = trial % 5 != 0;
            shape.setTransformParam(QTransform().rotate(trial % 3 * 45.0).scale(1.7, -0.3));
            shape.setUpdate(1);
            shape.paint();
            const QTransform toPx =
                shape.getTransformParam() * ZTCoord::getInstance()->getMm2pixTransform();
            QList<QPolygonF> polygons = shape.source.toSubpathPolygons(toPx);
            if (shape.sorted)
                ZTPointSort::getInstance()->sort(polygons);
            QPainterPath expected;
            for (const QPolygonF &polygon : polygons)
                expected.addPolygon(polygon);
            QVERIFY(testsupport::same(polygonsOf(shape.getLines()), polygonsOf(expected)));
        }
    }

    void path2Lines_unsorted_keepsThePathsOrder()
    {
        ProbeShape shape(squaresAt({2, 1, 3}));
        shape.sorted = false;
        shape.paint();
        QCOMPARE(firstXs(shape.getLines()), (QList<double>{20, 10, 30}));
    }

    void path2Lines_curves_becomeQtsOwnPolygons()
    {
        QPainterPath circle;
        circle.addEllipse(0, 0, 10, 10);
        ProbeShape shape(circle);
        shape.paint();
        const QTransform toPx = QTransform::fromScale(10, 10);
        QVERIFY(testsupport::same(polygonsOf(shape.getLines()), circle.toSubpathPolygons(toPx)));
        for (int i = 0; i < shape.getLines().elementCount(); ++i)
            QVERIFY(!shape.getLines().elementAt(i).isCurveTo());
    }

    void path2Lines_straightRun_isQtsOwnPolygon_shortAndLong()
    {
        for (const int corners : {2, 5, 63, 64, 65, 200}) {
            QPainterPath path(QPointF(0.1, 0.2));
            for (int i = 1; i < corners; ++i)
                path.lineTo(i * 0.3, (i % 7) * 0.7);
            QCOMPARE(path.elementCount(), corners);
            ProbeShape shape(path);
            shape.setTransformParam(QTransform().rotate(33.0).scale(1.1, 0.9));
            const QTransform toPx = QTransform(shape.getTransformParam()) *
                                    ZTCoord::getInstance()->getMm2pixTransform();
            QVERIFY(testsupport::same(polygonsOf(shape.getLines()), path.toSubpathPolygons(toPx)));
            QCOMPARE(shape.controlPointRect(), shape.getLines().controlPointRect());
        }
    }

    // The outline is made anew in the memory of the one before.
    void path2Lines_straightRun_leavesWhatOthersHold()
    {
        ProbeShape shape(squaresAt({1}));
        QPainterPath winding;
        winding.setFillRule(Qt::WindingFill);
        shape.setLines(winding);
        shape.setUpdate(1);
        shape.paint();
        const QPainterPath held = shape.getLines();
        QCOMPARE(held.fillRule(), Qt::OddEvenFill);
        const ProbeShape copy(shape);
        shape.source = squaresAt({4});
        shape.setUpdate(1);
        shape.paint();
        QCOMPARE(firstXs(shape.getLines()), QList<double>{40});
        QCOMPARE(firstXs(held), QList<double>{10});
        QCOMPARE(firstXs(copy.getLines()), QList<double>{10});
    }

    void path2Lines_straightRun_outOfReachIsNothing()
    {
        ProbeShape shape(squaresAt({1}));
        shape.paint();
        shape.setTransformParam(QTransform::fromScale(1e300, 1e300));
        QVERIFY(shape.getLines().isEmpty());
        QCOMPARE(shape.getLines().elementCount(), 0);
        QVERIFY(shape.controlPointRect().isNull());
    }

    void emptyPath_givesEmptyLines()
    {
        ProbeShape shape;
        shape.paint();
        QVERIFY(shape.getLines().isEmpty());
        QVERIFY(shape.controlPointRect().isEmpty());
    }

    void copy_isIndependentAndCarriesMarkAndId()
    {
        auto source = std::make_unique<ZTRectShape>();
        source->setId(5);
        source->setPenId(3);
        source->setLockAspectRatio(true);
        source->setRect(QRectF(0, 0, 2, 2));
        ZTRectShape copy(*source);
        QCOMPARE(copy.getId(), 5);
        QCOMPARE(copy.getPenId(), 3);
        QVERIFY(copy.getLockAspectRatio());
        QVERIFY(copy.isUpdate());
        copy.setId(6);
        QCOMPARE(source->getId(), 5);
        source.reset();
        copy.paint();
        QCOMPARE(copy.controlPointRect(), QRectF(0, 0, 20, 20));
    }

    void assignment_sharesTheRecord()
    {
        ZTRectShape a;
        {
            ZTRectShape b;
            b.setId(1);
            a = b;
            QCOMPARE(a.getId(), 1);
            a.setId(2);
            QCOMPARE(b.getId(), 2);
            b.setRect(QRectF(0, 0, 4, 4));
        }
        a.paint();
        QCOMPARE(a.controlPointRect(), QRectF(0, 0, 40, 40));
        a = *&a;
        QCOMPARE(a.getId(), 2);
    }

    void moved_carriesOnAndLeavesSomethingAssignable()
    {
        ZTRectShape source;
        source.setId(8);
        ZTRectShape target(std::move(source));
        QCOMPARE(target.getId(), 8);
        ZTRectShape other;
        other.setId(9);
        source = other;
        QCOMPARE(source.getId(), 9);
        other = std::move(target);
        QCOMPARE(other.getId(), 8);
        QCOMPARE(source.getId(), 9);
    }

    void stream_holdsTheBaseRecord()
    {
        ZTRectShape shape;
        shape.setRect(QRectF(1, 2, 3, 4));
        shape.getTransformParam() = QTransform::fromTranslate(5, 6);
        shape.setId(7);
        shape.setPenId(2);
        shape.setLockAspectRatio(true);
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        shape.save(out);
        QCOMPARE(bytes.size(), 214);
        QCOMPARE(bytes.right(17).toHex(), QByteArray("00000000" // shape type
                                                     "00000001" // mark
                                                     "00000007" // id
                                                     "01"       // aspect lock
                                                     "00000002" // pen
                                                     ));

        ZTRectShape read;
        read.paint();
        QDataStream in(bytes);
        QVERIFY(read.load(in));
        QVERIFY(read.isUpdate());
        QCOMPARE(read.getRect(), QRectF(1, 2, 3, 4));
        QCOMPARE(read.getTransformParam(), QTransform::fromTranslate(5, 6));
        QCOMPARE(read.getId(), 7);
        QCOMPARE(read.getPenId(), 2);
        QVERIFY(read.getLockAspectRatio());
    }

    void load_cutAnywhere_isAsFieldByField_data()
    {
        QTest::addColumn<int>("order");
        QTest::addColumn<int>("precision");
        QTest::newRow("as files have it")
            << int(QDataStream::BigEndian) << int(QDataStream::DoublePrecision);
        QTest::newRow("turned") << int(QDataStream::LittleEndian)
                                << int(QDataStream::DoublePrecision);
        QTest::newRow("short") << int(QDataStream::BigEndian) << int(QDataStream::SinglePrecision);
    }
    void load_cutAnywhere_isAsFieldByField()
    {
        QFETCH(int, order);
        QFETCH(int, precision);
        const auto setUp = [&](QDataStream &stream) {
            stream.setByteOrder(QDataStream::ByteOrder(order));
            stream.setFloatingPointPrecision(QDataStream::FloatingPointPrecision(precision));
        };
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        setUp(out);
        const QTransform turn(0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9);
        out << QRectF(1.5, -2.5, 3.25, 1e100) << turn << turn * 2.0
            << ZTFillParam{FillType::ULine, 0.1, -30.0, false} << qint32(3) << qint32(0)
            << qint32(77) << true << qint32(5) << QByteArray("what follows");
        for (int size = 0; size <= bytes.size(); ++size) {
            QDataStream asFields(bytes.left(size));
            QDataStream asRecord(bytes.left(size));
            setUp(asFields);
            setUp(asRecord);
            QCOMPARE(reread(asRecord).toHex(), rereadByFields(asFields).toHex());
            QCOMPARE(asRecord.status(), asFields.status());
            QCOMPARE(asRecord.device()->pos(), asFields.device()->pos());
        }
    }

    /** A scale of 1 but for rounding is none for Qt, unless the matrix was made as a scale. */
    void load_outlineIsTheSavedOne_toTheLastBit()
    {
        QPainterPath path(QPointF(0.1, 0.3));
        path.lineTo(33.7, 71.9);
        path.lineTo(-12.3, 45.1);
        ProbeShape saved(path);
        saved.setTransformParam(QTransform::fromScale(1.0 - 2.0 * kUlp, 1.0 + 2.0 * kUlp));
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        saved.save(out);
        ProbeShape loaded(path);
        QDataStream in(bytes);
        loaded.load(in);
        loaded.paint();
        QCOMPARE(loaded.getTransformParam().m11(), saved.getTransformParam().m11());
        for (int i = 0; i < 3; ++i) {
            QVERIFY(loaded.getLines().elementAt(i).x == saved.getLines().elementAt(i).x);
            QVERIFY(loaded.getLines().elementAt(i).y == saved.getLines().elementAt(i).y);
        }
    }

    void load_marksWhateverTheStreamSays()
    {
        ZTRectShape shape;
        shape.paint();
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        shape.save(out);
        ZTRectShape read;
        read.paint();
        QDataStream in(bytes);
        read.load(in);
        QVERIFY(read.isUpdate());
        QDataStream nothing(QByteArray{});
        QVERIFY(read.load(nothing));
    }

    void load_shapeType_countsInItsLowEightBits()
    {
        ZTRectShape shape;
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        shape.save(out);
        bytes[214 - 17] = 1;
        bytes[214 - 14] = 4;
        QDataStream in(bytes);
        shape.load(in);
        QCOMPARE(shape.getShapeType(), ShapeType::Polygon);
    }

    void displayRatioOfZero_hatchEndsAtOnce()
    {
        ZTCoord::getInstance()->setDisplayRatio(0.0);
        ProbeShape shape(squaresAt({0}));
        shape.setFillParam({FillType::ULine, 0.5, 30.0, true});
        shape.paint();
        QVERIFY(shape.getFillLines().isEmpty());
    }

    void absurdTransforms_areHarmless_data()
    {
        QTest::addColumn<QTransform>("transform");
        const double nan = std::numeric_limits<double>::quiet_NaN();
        const double inf = std::numeric_limits<double>::infinity();
        QTest::newRow("nan") << QTransform(nan, nan, nan, nan, nan, nan);
        QTest::newRow("inf") << QTransform(inf, 0, 0, inf, inf, -inf);
        QTest::newRow("huge") << QTransform(1e300, 0, 0, 1e300, 1e300, 1e300);
        QTest::newRow("projective") << QTransform(1, 0, -1e3, 0, 1, 1e-3, 0, 0, 1);
        QTest::newRow("zero") << QTransform(0, 0, 0, 0, 0, 0, 0, 0, 0);
    }

    void absurdTransforms_areHarmless()
    {
        QFETCH(QTransform, transform);
        QPainterPath path = squaresAt({0, 2});
        path.addEllipse(0, 0, 10, 10);
        ProbeShape shape(path);
        shape.setFillParam({FillType::ULine, 0.5, 30.0, true});
        shape.setTransformParam(transform);
        shape.controlPointRect();
        QVERIFY(!shape.isUpdate());
    }

private:
    std::unique_ptr<testsupport::SingletonGuard> guard;
};

QTEST_GUILESS_MAIN(tst_ZTShapeBase)
#include "tst_ZTShapeBase.moc"
