#include <support/Geometry.h>
#include <support/OwnFolder.h>
#include <support/SingletonGuard.h>
#include <support/TinyFonts.h>
#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/text/ZTShapeText.h>

#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

#include <cmath>
#include <limits>
#include <memory>

using testsupport::near;
using testsupport::polygon;
using testsupport::polygonsOf;
using testsupport::tinyFont;

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kTolerance = 1e-6;

class ArcText : public ZTShapeText
{
public:
    using ZTShapeText::getPath;

    QList<QPolygonF> polygons() const { return polygonsOf(getPath()); }
};

ZTRoundingParam arc(double startDeg, double spanDeg, double diameter = 100.0)
{
    ZTRoundingParam param;
    param.isEnableRounding = true;
    param.startAngle = startDeg;
    param.spanAngle = spanDeg;
    param.diameter = diameter;
    return param;
}

QFont systemFont()
{
    QFont font;
    font.setPixelSize(40);
    return font;
}

ArcText strokeText(const QString &text, const ZTRoundingParam &param)
{
    ArcText shape;
    shape.setFont(tinyFont());
    shape.setFontType(FontType::singleLine);
    shape.setRoundingParam(param);
    shape.setText(text);
    return shape;
}

ArcText outlineText(const QString &text, const ZTRoundingParam &param)
{
    ArcText shape;
    shape.setFont(systemFont());
    shape.setRoundingParam(param);
    shape.setText(text);
    return shape;
}

/** Moves polygons together so that their rectangle begins at (0, 0). */
QList<QPolygonF> atOrigin(QList<QPolygonF> polygons)
{
    QRectF bounds = polygons.value(0).boundingRect();
    for (const QPolygonF &polygon : qAsConst(polygons))
        bounds |= polygon.boundingRect();
    for (QPolygonF &polygon : polygons)
        polygon.translate(-bounds.topLeft());
    return polygons;
}

/**
 * Where a point of a glyph goes when `pivot` of the glyph lands on the circle around `centre`, the
 * glyph's top facing outward; angles clockwise from three o'clock.
 */
QPointF onCircle(const QPointF &point, const QPointF &pivot, double angleDeg, double radius,
                 const QPointF &centre)
{
    const double angle = angleDeg * kPi / 180.0;
    const double turn = angle + kPi / 2;
    const QPointF from = point - pivot;
    return centre + radius * QPointF(std::cos(angle), std::sin(angle)) +
           QPointF(from.x() * std::cos(turn) - from.y() * std::sin(turn),
                   from.x() * std::sin(turn) + from.y() * std::cos(turn));
}

/** What the tiny font draws for "A" (8) or "B" (4) at (0, 200), corner on the circle. */
QPolygonF squareOnCircle(double side, double angleDeg, double radius)
{
    const QPointF corner(1, 200 - side);
    QPolygonF square =
        polygon({{1, 200}, {1, 200 - side}, {1 + side, 200 - side}, {1 + side, 200}});
    square << square.first();
    for (QPointF &point : square)
        point = onCircle(point, corner, angleDeg, radius, QPointF(0, corner.y()));
    return square;
}

/** The straight-edged outline of a character, its own centre on the circle. */
QList<QPolygonF> outlineOnCircle(QChar character, double angleDeg, double radius)
{
    QPainterPath glyph;
    glyph.addText(0.0, 0.0, systemFont(), QString(character));
    QList<QPolygonF> polygons = polygonsOf(glyph);
    const QPointF centre = glyph.controlPointRect().center();
    for (QPolygonF &polygon : polygons) {
        for (QPointF &point : polygon)
            point = onCircle(point, centre, angleDeg, radius, centre);
    }
    return polygons;
}

void compare(const ArcText &shape, const QList<QPolygonF> &expected)
{
    const QList<QPolygonF> actual = shape.polygons();
    const QList<QPolygonF> moved = atOrigin(expected);
    QCOMPARE(actual.size(), moved.size());
    for (int i = 0; i < actual.size(); ++i)
        QVERIFY(near(actual[i], moved[i], kTolerance));
}

void compare(const ArcText &actual, const ArcText &expected)
{
    QVERIFY(!expected.polygons().isEmpty());
    QVERIFY(testsupport::same(actual.polygons(), expected.polygons()));
}

} // namespace

class tst_ZTShapeText_arc : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        singletons = std::make_unique<testsupport::SingletonGuard>();
        warnings = std::make_unique<testsupport::WarningGuard>();
        setPixelsPerMm(1);
        testsupport::makeTinyFonts();
    }
    void cleanup()
    {
        warnings.reset();
        singletons.reset();
    }

    /** Worked out by hand: circle of 100 around (0, 0), each corner at the point of its quarter. */
    void strokes_fourQuarters_runClockwise_topsOutward()
    {
        const ArcText shape = strokeText(QStringLiteral("AAAA"), arc(-135, 360));
        compare(shape, {polygon({{0, -92}, {0, -100}, {8, -100}, {8, -92}, {0, -92}}),
                        polygon({{92, 0}, {100, 0}, {100, 8}, {92, 8}, {92, 0}}),
                        polygon({{0, 92}, {0, 100}, {-8, 100}, {-8, 92}, {0, 92}}),
                        polygon({{-92, 0}, {-100, 0}, {-100, -8}, {-92, -8}, {-92, 0}})});
    }

    void strokes_negativeSpan_runCounterClockwise_topsStillOutward()
    {
        const ArcText shape = strokeText(QStringLiteral("AAAA"), arc(-45, -360));
        compare(shape, {polygon({{0, -92}, {0, -100}, {8, -100}, {8, -92}, {0, -92}}),
                        polygon({{-92, 0}, {-100, 0}, {-100, -8}, {-92, -8}, {-92, 0}}),
                        polygon({{0, 92}, {0, 100}, {-8, 100}, {-8, 92}, {0, 92}}),
                        polygon({{92, 0}, {100, 0}, {100, 8}, {92, 8}, {92, 0}})});
    }

    /** All on the ray upward, each by its own corner: tops differ by what the glyphs' tops do. */
    void strokes_spanOfZero_standOnTopOfOneAnother()
    {
        const ArcText shape = strokeText(QStringLiteral("AB"), arc(-90, 0));
        compare(shape, {polygon({{0, 8}, {0, 0}, {8, 0}, {8, 8}, {0, 8}}),
                        polygon({{0, 8}, {0, 4}, {4, 4}, {4, 8}, {0, 8}})});
    }

    void strokes_anyAngles_beginInTheMiddleOfTheirShare()
    {
        // 50 degrees for each: 10 + 25, 10 + 75.
        const ArcText shape = strokeText(QStringLiteral("AB"), arc(10, 100, 37.5));
        compare(shape, {squareOnCircle(8, 35, 37.5), squareOnCircle(4, 85, 37.5)});
    }

    void strokes_oneCharacter_standsAtHalfTheSpan()
    {
        // Together with a mark at a known place: a second character 40 further on.
        const ArcText one = strokeText(QStringLiteral("A"), arc(20, 60));
        compare(one, {squareOnCircle(8, 50, 100)});
    }

    void strokes_defaultRecord_isAQuarterOfRadius200()
    {
        ZTRoundingParam param;
        param.isEnableRounding = true;
        const ArcText shape = strokeText(QStringLiteral("AB"), param);
        compare(shape, {squareOnCircle(8, 22.5, 200), squareOnCircle(4, 67.5, 200)});
    }

    void strokes_spanBeyondATurn_overprints()
    {
        const ArcText shape = strokeText(QStringLiteral("AA"), arc(0, 720));
        QCOMPARE(shape.polygons().size(), 2);
        QVERIFY(near(shape.polygons()[0], shape.polygons()[1], kTolerance));
    }

    void strokes_blank_takesItsShareAndAddsNothing()
    {
        const ArcText shape = strokeText(QStringLiteral("A B"), arc(0, 90));
        compare(shape, {squareOnCircle(8, 15, 100), squareOnCircle(4, 75, 100)});
    }

    void strokes_lineFeed_isABlank()
    {
        compare(strokeText(QStringLiteral("A\nB"), arc(0, 90)),
                strokeText(QStringLiteral("A B"), arc(0, 90)));
    }

    void strokes_chineseCharacter_takesOneShare()
    {
        const ArcText shape = strokeText(QString::fromUtf8("\xE4\xBD\xA0"
                                                           "B"),
                                         arc(0, 90));
        compare(shape, {squareOnCircle(8, 22.5, 100), squareOnCircle(4, 67.5, 100)});
    }

    /** U+1F600 is two units of the text and one replacement in the encoding: four shares. */
    void strokes_sharesAreCountedInUnitsOfTheText_keptAsTold()
    {
        const QString text = QStringLiteral("A") + QString::fromUtf8("\xF0\x9F\x98\x80");
        const ArcText shape = strokeText(text + QStringLiteral("B"), arc(0, 80));
        compare(shape, {squareOnCircle(8, 10, 100), squareOnCircle(2, 30, 100),
                        squareOnCircle(4, 50, 100)});
    }

    /**
     * A glyph that begins without a move begins at (0, 0), so that its size tells where the text
     * was drawn: at (0, 200 - 7), the second character 4 + 3 further, whatever a millimetre is.
     */
    void strokes_wordSpanAndTop_areTakenAsTheyStand_keptAsTold()
    {
        setPixelsPerMm(10);
        ArcText shape = strokeText(QStringLiteral("LL"), arc(-90, 0));
        shape.setRect(QRectF(50, 7, 10, 10));
        shape.setWordSpan(3.0);
        compare(shape, {polygon({{0, 193}, {4, 193}}), polygon({{0, 0}, {11, 193}})});
    }

    void strokes_wordSpan_movesNoGlyphOfItsOwn()
    {
        ArcText shape = strokeText(QStringLiteral("AB"), arc(10, 100));
        shape.setWordSpan(12.5);
        compare(shape, {squareOnCircle(8, 35, 100), squareOnCircle(4, 85, 100)});
    }

    void strokes_withoutFonts_giveAnEmptyShape()
    {
        ArcText shape;
        shape.setFontType(FontType::singleLine);
        shape.setRoundingParam(arc(0, 90));
        shape.setText(QStringLiteral("A"));
        QVERIFY(shape.getPath().isEmpty());
    }

    void strokes_areNotHatched()
    {
        ArcText shape = strokeText(QStringLiteral("A"), arc(0, 90));
        ZTFillParam hatch;
        hatch.fillType = FillType::Line;
        shape.setFillParam(hatch);
        QVERIFY(shape.getFillLines().isEmpty());
    }

    void outlines_anyAngles_haveTheirCentresOnTheCircle()
    {
        // 40 degrees for each, of letters that are made of straight edges.
        const ArcText shape = outlineText(QStringLiteral("ILT"), arc(10, 120, 150));
        compare(shape, outlineOnCircle(QLatin1Char('I'), 30, 150) +
                           outlineOnCircle(QLatin1Char('L'), 70, 150) +
                           outlineOnCircle(QLatin1Char('T'), 110, 150));
    }

    /** Upright above and upside down below; seen by where the foot of the L points. */
    void outlines_topsFaceOutward()
    {
        const QPolygonF above = outlineText(QStringLiteral("L"), arc(-90, 0)).polygons().value(0);
        const QPolygonF below = outlineText(QStringLiteral("L"), arc(90, 0)).polygons().value(0);
        QPainterPath upright;
        upright.addText(0.0, 0.0, systemFont(), QStringLiteral("L"));
        QVERIFY(near(above, atOrigin(polygonsOf(upright)).value(0), kTolerance));
        QPolygonF turned;
        const QPointF corner(above.boundingRect().bottomRight());
        for (const QPointF &point : above)
            turned << corner - point;
        QVERIFY(near(below, turned, kTolerance));
    }

    void outlines_negativeSpan_runCounterClockwise()
    {
        const ArcText shape = outlineText(QStringLiteral("IL"), arc(10, -100));
        compare(shape, outlineOnCircle(QLatin1Char('I'), -15, 100) +
                           outlineOnCircle(QLatin1Char('L'), -65, 100));
    }

    void outlines_spanOfZero_shareOneRay()
    {
        const ArcText shape = outlineText(QStringLiteral("IL"), arc(33, 0));
        compare(shape, outlineOnCircle(QLatin1Char('I'), 33, 100) +
                           outlineOnCircle(QLatin1Char('L'), 33, 100));
    }

    void outlines_sameLetterTwice_isPlacedTwice()
    {
        const ArcText shape = outlineText(QStringLiteral("II"), arc(0, 180));
        compare(shape, outlineOnCircle(QLatin1Char('I'), 45, 100) +
                           outlineOnCircle(QLatin1Char('I'), 135, 100));
    }

    void outlines_blankAndLineFeed_takeTheirShare()
    {
        const ArcText shape = outlineText(QStringLiteral("I L"), arc(0, 90));
        compare(shape, outlineOnCircle(QLatin1Char('I'), 15, 100) +
                           outlineOnCircle(QLatin1Char('L'), 75, 100));
        compare(outlineText(QStringLiteral("I\nL"), arc(0, 90)), shape);
    }

    void outlines_surrogatesAreTakenApart_keptAsTold()
    {
        const QString text = QStringLiteral("I") + QString::fromUtf8("\xF0\x9F\x98\x80");
        const ArcText shape = outlineText(text + QStringLiteral("L"), arc(0, 80));
        QList<QPolygonF> expected;
        expected += outlineOnCircle(QLatin1Char('I'), 10, 100);
        expected += outlineOnCircle(text[1], 30, 100);
        expected += outlineOnCircle(text[2], 50, 100);
        expected += outlineOnCircle(QLatin1Char('L'), 70, 100);
        compare(shape, expected);
    }

    void outlines_letterSpacing_hasNoEffect()
    {
        ArcText spaced = outlineText(QStringLiteral("IL"), arc(0, 90));
        spaced.setWordSpan(12.5);
        compare(spaced, outlineText(QStringLiteral("IL"), arc(0, 90)));
    }

    void outlines_curvesAreFlattened()
    {
        const ArcText shape = outlineText(QStringLiteral("O"), arc(0, 90));
        QVERIFY(shape.getPath().elementCount() > 16);
        for (int i = 0; i < shape.getPath().elementCount(); ++i)
            QVERIFY(!shape.getPath().elementAt(i).isCurveTo());
    }

    void outlines_areHatched()
    {
        ArcText shape = outlineText(QStringLiteral("I"), arc(0, 90));
        ZTFillParam hatch;
        hatch.fillType = FillType::Line;
        hatch.spac = 1.0;
        shape.setFillParam(hatch);
        QVERIFY(!shape.getFillLines().isEmpty());
    }

    void rotationAndFlagOfTheRecord_haveNoEffect_data() { fontTypes(); }
    void rotationAndFlagOfTheRecord_haveNoEffect()
    {
        QFETCH(FontType, type);
        ZTRoundingParam turned = arc(0, 90);
        turned.itemRotate = 30;
        turned.roundingFlag = 1;
        compare(textOf(type, QStringLiteral("AB"), turned),
                textOf(type, QStringLiteral("AB"), arc(0, 90)));
    }

    void emptyText_givesAnEmptyShape_data() { fontTypes(); }
    void emptyText_givesAnEmptyShape()
    {
        QFETCH(FontType, type);
        ArcText shape = textOf(type, QStringLiteral("A"), arc(0, 90));
        QVERIFY(!shape.getPath().isEmpty());
        shape.setText(QString());
        QVERIFY(shape.getPath().isEmpty());
        QVERIFY(shape.getLines().isEmpty());
    }

    void anglesThatAreNoNumbers_giveAnEmptyShape_data() { fontTypes(); }
    void anglesThatAreNoNumbers_giveAnEmptyShape()
    {
        QFETCH(FontType, type);
        const double noNumber = std::numeric_limits<double>::quiet_NaN();
        const double infinite = std::numeric_limits<double>::infinity();
        for (const double value : {noNumber, infinite, -infinite}) {
            for (const ZTRoundingParam &param :
                 {arc(value, 90), arc(0, value), arc(0, 90, value)}) {
                const ArcText shape = textOf(type, QStringLiteral("A"), param);
                QVERIFY(shape.getPath().isEmpty());
                QVERIFY(shape.getLines().isEmpty());
            }
        }
    }

    void longText_isLaidOut_data() { fontTypes(); }
    void longText_isLaidOut()
    {
        QFETCH(FontType, type);
        const ArcText shape = textOf(
            type, QString(5000, QLatin1Char('I')).replace(4999, 1, QLatin1Char('A')), arc(0, 360));
        QVERIFY(!shape.getPath().isEmpty());
    }

private:
    static void setPixelsPerMm(double ratio) { ZTCoord::getInstance()->setHeight(193.0 * ratio); }

    static void fontTypes()
    {
        QTest::addColumn<FontType>("type");
        QTest::newRow("stroke font") << FontType::singleLine;
        QTest::newRow("system font") << FontType::doubleLine;
    }

    static ArcText textOf(FontType type, const QString &text, const ZTRoundingParam &param)
    {
        return type == FontType::singleLine ? strokeText(text, param) : outlineText(text, param);
    }

    std::unique_ptr<testsupport::SingletonGuard> singletons;
    std::unique_ptr<testsupport::WarningGuard> warnings;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QGuiApplication application(argc, argv);
    tst_ZTShapeText_arc test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_ZTShapeText_arc.moc"
