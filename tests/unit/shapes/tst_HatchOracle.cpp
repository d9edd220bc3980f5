#include <support/oracle/PlainHatch.h>
#include <support/oracle/RandomOutlines.h>

#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

#include <QtTest/QTest>

#include <cstring>

using testsupport::RandomOutlines;

namespace {

/** A shape whose outline is given, not painted. */
class OutlineShape : public ZTShapeBase
{
public:
    explicit OutlineShape(const QPainterPath &linesPx) { setLines(linesPx); }
    void paint() override {}
};

QVector<QLineF> hatch(const QPainterPath &linesPx, FillType type, double spac, double angle)
{
    OutlineShape shape(linesPx);
    shape.fillULine(type, spac, angle);
    return shape.getFillLines();
}

bool isSameToTheBit(const QVector<QLineF> &a, const QVector<QLineF> &b)
{
    return a.size() == b.size() &&
           (a.isEmpty() || std::memcmp(a.constData(), b.constData(),
                                       static_cast<std::size_t>(a.size()) * sizeof(QLineF)) == 0);
}

double someAngle(RandomOutlines *random)
{
    const double special[] = {0.0, 90.0, -90.0, 180.0, 45.0, -45.0, 30.0, 360.0, 540.0, 270.0};
    return random->chance(0.5) ? special[random->between(0, 9)] : random->between(-400.0, 400.0);
}

/** Now and then such that scan lines go through the corners of a lattice. */
double someSpacing(RandomOutlines *random, double extent)
{
    const double share =
        random->chance(0.3) ? 1.0 / (1 << random->between(1, 7)) : random->between(0.003, 0.2);
    return share * extent;
}

void addSubpath(RandomOutlines *random, QPainterPath *outline)
{
    const QPointF at(random->between(-40.0, 40.0), random->between(-40.0, 40.0));
    switch (random->between(0, 3)) {
    case 0:
        outline->addRect(QRectF(at, QSizeF(random->between(1.0, 30.0), 20.0)));
        break;
    case 1:
        outline->addEllipse(at, random->between(1.0, 30.0), 12.0);
        break;
    case 2: // an open curve between straight lines
        outline->moveTo(at);
        outline->lineTo(at + QPointF(15, 4));
        outline->quadTo(at + QPointF(30, random->between(-30.0, 30.0)), at + QPointF(3, 25));
        outline->lineTo(at + QPointF(-8, 11));
        break;
    default:
        outline->moveTo(at); // nothing goes on from there
    }
}

} // namespace

class tst_HatchOracle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void randomOutlines_hatchAsThePlainWay_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("rounds");
        QTest::newRow("convex") << int(RandomOutlines::Convex) << 6000;
        QTest::newRow("concave star") << int(RandomOutlines::ConcaveStar) << 6000;
        QTest::newRow("self-crossing") << int(RandomOutlines::SelfCrossing) << 6000;
        QTest::newRow("touching") << int(RandomOutlines::Touching) << 12000;
        QTest::newRow("retraced") << int(RandomOutlines::Retraced) << 8000;
        QTest::newRow("nearly in line") << int(RandomOutlines::NearlyInLine) << 12000;
        QTest::newRow("ring") << int(RandomOutlines::Ring) << 4000;
        QTest::newRow("letters") << int(RandomOutlines::Letters) << 4000;
        QTest::newRow("open") << int(RandomOutlines::Open) << 4000;
        QTest::newRow("tiny gaps") << int(RandomOutlines::TinyGaps) << 12000;
        QTest::newRow("not finite") << int(RandomOutlines::NotFinite) << 6000;
    }

    void randomOutlines_hatchAsThePlainWay()
    {
        QFETCH(int, kind);
        QFETCH(int, rounds);
        const double offsets[] = {0.0, 0.0, 37.0, 1e3, -1e6, 1e12};
        const double scales[] = {1.0, 1.0, 1.0, 0.01, 7.3, 1e5, 1e-6, 1e9};
        qint64 lines = 0;
        for (int seed = 0; seed < rounds; ++seed) {
            RandomOutlines random(static_cast<quint32>(seed * 16 + kind));
            const double scale = scales[random.between(0, 7)];
            const QPointF offset(offsets[random.between(0, 5)], offsets[random.between(0, 5)]);
            const QPainterPath outline =
                random.outline(static_cast<RandomOutlines::Kind>(kind), scale, offset);
            double extent = 100.0 * scale;
            if (extent < 10.0)
                extent = 10.0; // the margin of 10 pixels around is laid out as well
            const double spac = someSpacing(&random, extent);
            const double angle = someAngle(&random);
            for (const FillType type : {FillType::Line, FillType::ULine}) {
                const QVector<QLineF> plain = testsupport::plainHatch(outline, type, spac, angle);
                const QVector<QLineF> fast = hatch(outline, type, spac, angle);
                QVERIFY2(isSameToTheBit(plain, fast),
                         qPrintable(QStringLiteral("seed %1, type %2, spac %3, angle %4: %5 lines "
                                                   "where the plain way gives %6")
                                        .arg(seed)
                                        .arg(int(type))
                                        .arg(spac)
                                        .arg(angle)
                                        .arg(fast.size())
                                        .arg(plain.size())));
                lines += fast.size();
            }
        }
        QVERIFY2(lines > rounds, "the comparison had next to nothing to compare");
    }

    void curvesAndLonePoints_hatchAsThePlainWay()
    {
        for (int seed = 0; seed < 300; ++seed) {
            RandomOutlines random(static_cast<quint32>(seed));
            QPainterPath outline;
            for (int i = random.between(1, 6); i > 0; --i)
                addSubpath(&random, &outline);
            const double spac = random.between(0.5, 4.0);
            const double angle = someAngle(&random);
            for (const FillType type : {FillType::Line, FillType::ULine}) {
                QVERIFY2(isSameToTheBit(testsupport::plainHatch(outline, type, spac, angle),
                                        hatch(outline, type, spac, angle)),
                         qPrintable(QStringLiteral("seed %1").arg(seed)));
            }
        }
    }

    /** So many edges and scan lines that they are taken in several parts. */
    void largeOutlines_hatchAsThePlainWay()
    {
        for (int seed = 0; seed < 12; ++seed) {
            RandomOutlines random(static_cast<quint32>(seed));
            QList<QPolygonF> polygons;
            for (int i = random.between(1, 3); i > 0; --i)
                polygons.append(random.large(static_cast<RandomOutlines::Large>(seed % 4)));
            const QPainterPath outline = testsupport::pathOf(polygons);
            const double spac = random.between(0.3, 0.6);
            const double angle = someAngle(&random);
            for (const FillType type : {FillType::Line, FillType::ULine}) {
                const QVector<QLineF> plain = testsupport::plainHatch(outline, type, spac, angle);
                QVERIFY(plain.size() > 100);
                QVERIFY2(isSameToTheBit(plain, hatch(outline, type, spac, angle)),
                         qPrintable(QStringLiteral("seed %1").arg(seed)));
            }
        }
    }
};

QTEST_APPLESS_MAIN(tst_HatchOracle)
#include "tst_HatchOracle.moc"
