#include <support/Geometry.h>
#include <support/OwnFolder.h>
#include <support/SingletonGuard.h>
#include <support/TinyFonts.h>
#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/shx/ZTShxFontManager.h>
#include <ZTDrawEngineLib/text/ZTShapeText.h>
#include <ZTMarkDataManager/ZTVariantText.h>

#include <QtCore/QDataStream>
#include <QtCore/QTextCodec>
#include <QtGui/QFontMetrics>
#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

#include <cmath>
#include <limits>
#include <memory>

using testsupport::near;
using testsupport::polygon;
using testsupport::polygonsOf;
using testsupport::same;
using testsupport::tinyFont;

Q_DECLARE_METATYPE(QPolygonF)

namespace {

/** A text that writes down what happens to it. */
class Probe : public ZTShapeText
{
public:
    using ZTShapeText::getPath;
    using ZTShapeText::setFillLines;

    void setRect(const QRectF &rectMm) override
    {
        events << QStringLiteral("rect");
        ZTShapeText::setRect(rectMm);
    }
    void paint() override
    {
        events << (isUpdate() ? QStringLiteral("paint") : QStringLiteral("idle"));
        ZTShapeText::paint();
    }
    void fill() override
    {
        events << (isUpdate() ? QStringLiteral("marked fill") : QStringLiteral("fill"));
        ZTShapeText::fill();
    }

    QString takeEvents()
    {
        const QString taken = events.join(QLatin1Char(' '));
        events.clear();
        return taken;
    }

    QStringList events;
};

/** What one rebuild looks like in each font type. */
const QString kDouble = QStringLiteral("paint fill");
const QString kSingle = QStringLiteral("paint");

/** A square that a tiny font draws, given by its lower left corner. */
QPolygonF square(double left, double bottom, double side)
{
    return polygon({{left, bottom},
                    {left, bottom - side},
                    {left + side, bottom - side},
                    {left + side, bottom},
                    {left, bottom}});
}

/** 100 pixels high, and no letter spacing unless told. */
QFont systemFont(double letterSpacingPx = 0.0)
{
    QFont font;
    font.setPixelSize(100);
    font.setLetterSpacing(QFont::AbsoluteSpacing, letterSpacingPx);
    return font;
}

bool isFinite(const QPainterPath &path)
{
    for (int i = 0; i < path.elementCount(); ++i) {
        if (!std::isfinite(path.elementAt(i).x) || !std::isfinite(path.elementAt(i).y))
            return false;
    }
    return true;
}

/** Checks each polygon against the one expected. */
void compare(const QPainterPath &path, const QVector<QPolygonF> &expected)
{
    const QList<QPolygonF> actual = polygonsOf(path);
    QCOMPARE(actual.size(), expected.size());
    for (int i = 0; i < actual.size(); ++i)
        QVERIFY(near(actual[i], expected[i]));
}

QByteArray saved(const ZTShapeText &shape)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    shape.save(stream);
    return bytes;
}

} // namespace

class tst_ZTShapeText : public QObject
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

    void newShape_isAnEmptyPaintedText()
    {
        Probe shape;
        QVERIFY(shape.getShapeType() == ShapeType::Text);
        QCOMPARE(shape.text(), QString());
        QVERIFY(shape.getFont().fontType == FontType::doubleLine);
        QVERIFY(shape.getWordSpan() == 0.0);
        QVERIFY(shape.getFont().shxFont == ZTShxFontParam());
        QVERIFY(shape.getRoundingParam() == ZTRoundingParam());
        QVERIFY(!shape.isUpdate());
        QVERIFY(shape.getPath().isEmpty());
        QVERIFY(shape.getLines().isEmpty());
        QCOMPARE(shape.getFont().font.letterSpacingType(), QFont::AbsoluteSpacing); // was painted
    }

    void newShape_lineSpanIsThePixelsOfOneMillimetre_keptAsTold()
    {
        QCOMPARE(Probe().getLineSpan(), 1.0);
        setPixelsPerMm(10);
        QCOMPARE(Probe().getLineSpan(), 10.0);
        QCOMPARE(Probe().getFont().rowSpac, 10.0);
    }

    void setText_rebuildsTwice_keptAsTold_data() { fontTypes(); }
    void setText_rebuildsTwice_keptAsTold()
    {
        QFETCH(FontType, type);
        Probe shape;
        shape.setFontType(type);
        shape.takeEvents();
        shape.setText(QStringLiteral("A"));
        QCOMPARE(shape.text(), QStringLiteral("A"));
        QCOMPARE(shape.takeEvents(), setUpOf(type) + rebuildOf(type));
    }

    void setText_sameText_doesNothing()
    {
        Probe shape;
        shape.setText(QStringLiteral("A"));
        shape.takeEvents();
        shape.setText(QStringLiteral("A"));
        QCOMPARE(shape.takeEvents(), QString());
        shape.setText(QStringLiteral("a")); // case counts
        QVERIFY(!shape.events.isEmpty());
    }

    void spans_rebuildEveryTime()
    {
        Probe shape;
        shape.setLineSpan(2.5);
        QCOMPARE(shape.takeEvents(), kDouble);
        shape.setLineSpan(2.5);
        QCOMPARE(shape.takeEvents(), kDouble);
        QCOMPARE(shape.getLineSpan(), 2.5);
        QCOMPARE(shape.getFont().rowSpac, 2.5);
        shape.setWordSpan(1.25);
        QCOMPARE(shape.takeEvents(), kDouble);
        QCOMPARE(shape.getWordSpan(), 1.25);
        QCOMPARE(shape.getFont().wordSpac, 1.25);
    }

    void setFontType_sameType_doesNothing()
    {
        Probe shape;
        shape.setFontType(FontType::doubleLine);
        QCOMPARE(shape.takeEvents(), QString());
    }

    void setFontType_setsUpTheFont()
    {
        Probe shape;
        shape.setFontType(FontType::singleLine);
        QCOMPARE(shape.takeEvents(), kSingle);
        shape.setFontType(FontType::doubleLine);
        QCOMPARE(shape.takeEvents(), QStringLiteral("rect ") + kDouble);
    }

    void setFontType_none_isOnlyStored_keptAsTold()
    {
        Probe shape;
        shape.setText(QStringLiteral("I"));
        const QPainterPath before = shape.getLines();
        shape.takeEvents();
        shape.setFontType(FontType::None);
        QCOMPARE(shape.takeEvents(), QString());
        QVERIFY(!shape.isUpdate());
        QVERIFY(shape.getFont().fontType == FontType::None);
        QCOMPARE(shape.getLines(), before);
    }

    void setFont_record_isTakenWhole_andItsFontSetUp_data() { fontTypes(); }
    void setFont_record_isTakenWhole_andItsFontSetUp()
    {
        QFETCH(FontType, type);
        ZTFontParam param;
        param.fontType = type;
        param.wordSpac = 3.0;
        param.rowSpac = 4.0;
        param.font = systemFont(3.0);
        param.shxFont = tinyFont(20.0);
        Probe shape;
        shape.setFont(param);
        QCOMPARE(shape.takeEvents(), setUpOf(type).trimmed());
        QVERIFY(shape.getFont() == param);
        QCOMPARE(shape.getFont().shxFont.parser.getTextExtent("W"), 20.0);
    }

    void setFont_ofItsOwn_changesNothing()
    {
        Probe shape;
        shape.setFontType(FontType::singleLine);
        shape.setFont(tinyFont());
        shape.setText(QStringLiteral("AB"));
        const QPainterPath before = shape.getPath();
        shape.setFont(shape.getFont());
        QCOMPARE(shape.getPath(), before);
        QVERIFY(shape.getFont().shxFont == tinyFont());
    }

    void setFont_systemFont_givesTheShapeTheTextsRectangle()
    {
        Probe shape;
        shape.setText(QStringLiteral("Ig"));
        shape.takeEvents();
        QFont font = systemFont();
        font.setPixelSize(37);
        shape.setFont(font);
        QCOMPARE(shape.takeEvents(), QStringLiteral("rect ") + kDouble); // the rectangle first
        const QRect bounds = QFontMetrics(font).boundingRect(QStringLiteral("Ig"));
        QVERIFY(bounds.width() > 0);
        QCOMPARE(shape.getRect(), QRectF(0, 0, bounds.width(), bounds.height()));
        QCOMPARE(shape.getFont().font, font);
    }

    void setFont_systemFont_rebuildsWhateverTheType()
    {
        Probe shape;
        shape.setFontType(FontType::None);
        shape.setFont(systemFont());
        QCOMPARE(shape.takeEvents(), QStringLiteral("rect paint"));
        QVERIFY(shape.getPath().isEmpty());
    }

    void setFont_strokeFont_keepsRectangleAndTheParsersHeight()
    {
        Probe shape;
        shape.setFontType(FontType::singleLine);
        shape.setText(QStringLiteral("A"));
        shape.takeEvents();
        const QRectF rectMm = shape.getRect();
        ZTShxFontParam param = tinyFont(10.0);
        param.height = 99.0; // what nobody handed to the parser
        shape.setFont(param);
        QCOMPARE(shape.takeEvents(), kSingle);
        QCOMPARE(shape.getRect(), rectMm);
        compare(shape.getPath(), {square(0, 8, 8)});
    }

    void setRoundingParam_setsUpTheFont_andRebuildsOnceMore_keptAsTold_data() { fontTypes(); }
    void setRoundingParam_setsUpTheFont_andRebuildsOnceMore_keptAsTold()
    {
        QFETCH(FontType, type);
        Probe shape;
        shape.setFontType(type);
        shape.takeEvents();
        ZTRoundingParam param;
        param.spanAngle = 30;
        param.roundingFlag = 4;
        shape.setRoundingParam(param);
        QVERIFY(shape.getRoundingParam() == param);
        QCOMPARE(shape.takeEvents(), setUpOf(type) + rebuildOf(type));
    }

    void setFillParam_rebuildsAtOnce()
    {
        Probe shape;
        shape.setText(QStringLiteral("I"));
        shape.takeEvents();
        shape.setFillParam(hatch());
        QCOMPARE(shape.takeEvents(), kDouble);
        QVERIFY(shape.getFillParam() == hatch());
        QVERIFY(!shape.getFillLines().isEmpty());
    }

    void setTransformParam_rebuildsTwice_keptAsTold()
    {
        Probe shape;
        shape.setText(QStringLiteral("I"));
        const double widthPx = shape.controlPointRect().width();
        shape.takeEvents();
        const QTransform twice = QTransform::fromScale(2.0, 2.0);
        shape.setTransformParam(twice);
        QCOMPARE(shape.takeEvents(), kDouble + QLatin1Char(' ') + kDouble);
        QCOMPARE(shape.getTransformParam(), twice);
        QCOMPARE(shape.controlPointRect().width(), 2.0 * widthPx);
    }

    void getTransformParam_isWritable()
    {
        Probe shape;
        shape.getTransformParam() = QTransform::fromScale(3.0, 1.0);
        QVERIFY(!shape.isUpdate());
        QCOMPARE(shape.getTransformParam().m11(), 3.0);
    }

    void paint_unmarked_costsNothing()
    {
        Probe shape;
        shape.setText(QStringLiteral("I"));
        shape.takeEvents();
        shape.setFillLines({QLineF(0, 0, 1, 1)});
        shape.paint();
        QCOMPARE(shape.takeEvents(), QStringLiteral("idle"));
        QCOMPARE(shape.getFillLines().size(), 1);
    }

    void emptyText_givesAnEmptyShape_data() { fontTypes(); }
    void emptyText_givesAnEmptyShape()
    {
        QFETCH(FontType, type);
        Probe shape;
        shape.setFont(tinyFont());
        shape.setText(QStringLiteral("A"));
        shape.setFontType(type);
        shape.setFillParam(hatch());
        shape.setText(QString());
        QVERIFY(shape.getPath().isEmpty());
        QVERIFY(shape.getLines().isEmpty());
        QCOMPARE(shape.getFillLines().isEmpty(), true);
    }

    void systemFont_isTheOutlineAtTheOrigin()
    {
        Probe shape;
        shape.setFont(systemFont());
        shape.setText(QStringLiteral("Tg"));
        QPainterPath expected;
        expected.addText(0.0, 0.0, systemFont(), QStringLiteral("Tg"));
        const QRectF bounds = expected.controlPointRect();
        QVERIFY(bounds.top() < 0); // stands on its base line
        expected.translate(-bounds.left(), -bounds.top());
        QCOMPARE(shape.getPath(), expected);
        QCOMPARE(shape.getPath().controlPointRect().topLeft(), QPointF(0, 0));
    }

    void systemFont_curvesStayCurves()
    {
        Probe shape;
        shape.setText(QStringLiteral("O"));
        bool hasCurve = false;
        for (int i = 0; i < shape.getPath().elementCount(); ++i)
            hasCurve |= shape.getPath().elementAt(i).isCurveTo();
        QVERIFY(hasCurve);
    }

    void systemFont_wordSpanIsLetterSpacingInPixels()
    {
        setPixelsPerMm(10);
        Probe shape;
        shape.setFont(systemFont());
        shape.setText(QStringLiteral("II"));
        const double plainWidth = shape.getPath().controlPointRect().width();
        shape.setWordSpan(3.0);
        QCOMPARE(shape.getFont().font.letterSpacing(), 30.0);
        QCOMPARE(shape.getFont().font.letterSpacingType(), QFont::AbsoluteSpacing);
        QCOMPARE(shape.getPath().controlPointRect().width(), plainWidth + 30.0);
    }

    void letterSpacing_isSetWhateverTheType_keptAsTold_data() { fontTypes(); }
    void letterSpacing_isSetWhateverTheType_keptAsTold()
    {
        QFETCH(FontType, type);
        Probe shape;
        shape.setFontType(type);
        shape.setWordSpan(7.0);
        QCOMPARE(shape.getFont().font.letterSpacing(), 7.0);
    }

    void systemFont_linesStandBelowWhatIsDrawn()
    {
        setPixelsPerMm(10);
        Probe shape;
        shape.setFont(systemFont());
        shape.setLineSpan(0.57); // 5.7 pixels
        shape.setText(QStringLiteral("g\nT\nI"));

        QPainterPath expected;
        expected.addText(0.0, 0.0, systemFont(), QStringLiteral("g"));
        const int second = int(std::floor(expected.controlPointRect().height() + 5.7));
        expected.addText(0.0, second, systemFont(), QStringLiteral("T"));
        const int third = int(std::floor(expected.controlPointRect().height() + 5.7));
        QVERIFY(third != 2 * second); // no fixed pitch
        expected.addText(0.0, third, systemFont(), QStringLiteral("I"));
        const QRectF bounds = expected.controlPointRect();
        QVERIFY(bounds.bottom() >= third);
        expected.translate(-bounds.left(), -bounds.top());
        QCOMPARE(shape.getPath(), expected);
    }

    void strokes_areJoinedOnOneBaseLine()
    {
        Probe shape = strokeText(QStringLiteral("AB"));
        compare(shape.getPath(), {square(0, 8, 8), square(10, 8, 4)});
    }

    void strokes_wordSpanIsConverted()
    {
        setPixelsPerMm(10);
        Probe shape = strokeText(QStringLiteral("AB"));
        shape.setWordSpan(0.5);
        compare(shape.getPath(), {square(0, 8, 8), square(15, 8, 4)});
    }

    void strokes_beginAtTheRectangle_upsideDown()
    {
        setPixelsPerMm(10);
        Probe shape = strokeText(QStringLiteral("LL"));
        shape.setRect(QRectF(50, 7, 10, 10));
        shape.setWordSpan(3.0);
        // The second line has no move before it, and so begins at (0, 0): what is measured from
        // there shows where the text stands, at (50, 200 + 7), and 30 between the characters.
        compare(shape.getPath(), {polygon({{50, 207}, {54, 207}}), polygon({{0, 0}, {88, 207}})});
    }

    void strokes_placeOfTheRectangle_makesNoDifference()
    {
        Probe shape = strokeText(QStringLiteral("AB\nA"));
        const QList<QPolygonF> before = polygonsOf(shape.getPath());
        shape.setRect(QRectF(-64, 32, 5, 5));
        shape.paint();
        QVERIFY(same(polygonsOf(shape.getPath()), before));
    }

    void strokes_linesStandBelowWhatIsDrawn_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("lineSpan");
        QTest::addColumn<QVector<QPolygonF>>("squares");
        const QVector<QPolygonF> two = {square(0, 8, 8), square(0, 18, 8)};
        QTest::newRow("two lines, cut to whole pixels") << QStringLiteral("A\nA") << 2.7 << two;
        // 4 high, next at 4 + 2; then 10 high, next at 10 + 2: squares end at 4, 10, 16 - 0.
        QTest::newRow("three lines")
            << QStringLiteral("B\nA\nA") << 2.7
            << QVector<QPolygonF>{square(0, 4, 4), square(0, 10, 8), square(0, 16, 8)};
        // 8 - 20.5 is -12.5, cut to -12: the second line ends 12 above the first.
        QTest::newRow("negative span, cut towards 0")
            << QStringLiteral("A\nA") << -20.5
            << QVector<QPolygonF>{square(0, 20, 8), square(0, 8, 8)};
        QTest::newRow("empty line between") << QStringLiteral("A\n\nA") << 2.7 << two;
        QTest::newRow("line feed at the end")
            << QStringLiteral("A\n") << 2.7 << QVector<QPolygonF>{square(0, 8, 8)};
        QTest::newRow("line feed first")
            << QStringLiteral("\nA") << 2.7 << QVector<QPolygonF>{square(0, 8, 8)};
        QTest::newRow("line feeds alone") << QStringLiteral("\n\n") << 2.7 << QVector<QPolygonF>{};
        QTest::newRow("each line from the left edge")
            << QStringLiteral("AA\nB") << 2.0
            << QVector<QPolygonF>{square(0, 8, 8), square(10, 8, 8), square(0, 18, 4)};
        // A line of blanks leaves one move, which counts until something replaces it.
        QTest::newRow("line of a blank") << QStringLiteral("A\n \nA") << 2.0
                                         << QVector<QPolygonF>{square(0, 8, 8), square(0, 18, 8)};
    }
    void strokes_linesStandBelowWhatIsDrawn()
    {
        QFETCH(QString, text);
        QFETCH(double, lineSpan);
        QFETCH(QVector<QPolygonF>, squares);
        Probe shape = strokeText(text);
        shape.setLineSpan(lineSpan);
        compare(shape.getPath(), squares);
    }

    void lineSpan_isConverted()
    {
        setPixelsPerMm(10);
        Probe shape = strokeText(QStringLiteral("A\nA"));
        shape.setLineSpan(0.27);
        compare(shape.getPath(), {square(0, 8, 8), square(0, 18, 8)});
    }

    void manyLines_standWhereTheWholePathSays_data() { fontTypes(); }
    void manyLines_standWhereTheWholePathSays()
    {
        QFETCH(FontType, type);
        Probe shape;
        shape.setFont(tinyFont());
        shape.setFont(systemFont());
        shape.setLineSpan(-3.3);
        shape.setFontType(type);
        QStringList lines;
        for (int i = 0; i < 40; ++i)
            lines << QStringLiteral("A") << QStringLiteral("BB ") << QString()
                  << QStringLiteral(" ") << QStringLiteral("g") << QStringLiteral("L");
        shape.setText(lines.join(QLatin1Char('\n')));
        const QPainterPath expected = plainLayout(lines, type, -3.3, shape.getRect());
        QCOMPARE(polygonsOf(expected).isEmpty(), type == FontType::None);
        QVERIFY(same(polygonsOf(shape.getPath()), polygonsOf(expected)));
    }

    void strokes_areEncodedForTheBigFont()
    {
        Probe shape = strokeText(QString::fromUtf8("A\xE4\xBD\xA0"
                                                   "B\xE5\xA5\xBD"));
        compare(shape.getPath(),
                {square(0, 8, 8), square(10, 8, 8), square(20, 8, 4), square(30, 8, 4)});
    }

    void strokes_outsideTheEncoding_areItsReplacement()
    {
        const QString thai(QChar(0x0E01));
        QCOMPARE(QTextCodec::codecForName("GBK")->fromUnicode(thai), QByteArray("?"));
        Probe shape = strokeText(QStringLiteral("A") + thai);
        compare(shape.getPath(), {square(0, 8, 8), square(10, 8, 2)});
    }

    void strokes_withoutFonts_giveAnEmptyShape()
    {
        Probe shape;
        shape.setText(QStringLiteral("A"));
        QVERIFY(!shape.getPath().isEmpty());
        shape.setFontType(FontType::singleLine);
        QVERIFY(shape.getPath().isEmpty());
        QVERIFY(shape.getLines().isEmpty());
    }

    void strokes_areDrawnAtTheHeightLastSetForTheirFiles_keptAsTold()
    {
        Probe shape = strokeText(QStringLiteral("A"));
        tinyFont(20.0); // another text's choice
        compare(shape.getPath(), {square(0, 8, 8)});
        shape.setUpdate(1);
        shape.paint();
        compare(shape.getPath(), {square(0, 16, 16)});
    }

    void outlinesAreHatched_strokesAndNoneNever()
    {
        Probe shape;
        shape.setFont(tinyFont());
        shape.setFillParam(hatch());
        shape.setText(QStringLiteral("A"));
        QVERIFY(!shape.getFillLines().isEmpty());
        shape.takeEvents();
        shape.setFontType(FontType::singleLine);
        QCOMPARE(shape.takeEvents(), kSingle);
        QVERIFY(shape.getFillLines().isEmpty());
        QVERIFY(!shape.getLines().isEmpty());
    }

    void none_rebuilt_isEmptyWithoutHatch()
    {
        Probe shape;
        shape.setFillParam(hatch());
        shape.setText(QStringLiteral("I"));
        shape.setFontType(FontType::None);
        QVERIFY(!shape.getFillLines().isEmpty());
        shape.takeEvents();
        shape.setLineSpan(1.0);
        QCOMPARE(shape.takeEvents(), QStringLiteral("paint"));
        QVERIFY(shape.getPath().isEmpty());
        QVERIFY(shape.getLines().isEmpty());
        QVERIFY(shape.getFillLines().isEmpty());
    }

    void lines_areInPixelsAndSorted()
    {
        setPixelsPerMm(10);
        Probe shape = strokeText(QStringLiteral("AB"));
        shape.setTransformParam(QTransform::fromScale(2.0, 1.0));
        const QList<QPolygonF> lines = polygonsOf(shape.getLines());
        QCOMPARE(lines.size(), 2); // the one further right first
        QVERIFY(near(lines[0], polygon({{200, 80}, {200, 40}, {280, 40}, {280, 80}, {200, 80}})));
        QVERIFY(near(lines[1], polygon({{0, 80}, {0, 0}, {160, 0}, {160, 80}, {0, 80}})));
    }

    void copy_isIndependent()
    {
        Probe shape = strokeText(QStringLiteral("AB"));
        shape.setWordSpan(2.0);
        ZTRoundingParam arc;
        arc.diameter = 33;
        shape.setRoundingParam(arc);
        Probe copied(shape);
        QVERIFY(copied.getFont() == shape.getFont());
        QVERIFY(copied.getRoundingParam() == arc);
        QCOMPARE(copied.text(), QStringLiteral("AB"));
        QCOMPARE(copied.getPath(), shape.getPath());
        copied.setText(QStringLiteral("B"));
        QCOMPARE(shape.text(), QStringLiteral("AB"));
        compare(copied.getPath(), {square(0, 4, 4)});
        compare(shape.getPath(), {square(0, 8, 8), square(12, 8, 4)});
    }

    void assignment_sharesTheRecord()
    {
        Probe shape = strokeText(QStringLiteral("AB"));
        Probe assigned;
        assigned = shape;
        QVERIFY(assigned.getFont() == shape.getFont());
        QCOMPARE(assigned.text(), QStringLiteral("AB"));
        assigned.setId(12);
        QCOMPARE(shape.getId(), 12);
    }

    void variantText_isShownThroughSetText()
    {
        Probe shape = strokeText(QString());
        ZTVariantText source;
        ZTFixedTextSegment segment;
        segment.text = QStringLiteral("AB");
        source.setSegments({segment});
        shape.cloneVariantText(&source);
        shape.setEnableVariantText(true);
        shape.takeEvents();
        shape.fromVariantTextUpdateText();
        QCOMPARE(shape.takeEvents(), QStringLiteral("paint paint"));
        compare(shape.getPath(), {square(0, 8, 8), square(10, 8, 4)});
    }

    void save_isTheTextRecord_thenFont_thenArc()
    {
        Probe shape = sampleText();
        QByteArray expected;
        QDataStream stream(&expected, QIODevice::WriteOnly);
        shape.ZTTextShapeBase::save(stream);
        QVERIFY(expected.size() > 214);
        stream << shape.getFont() << shape.getRoundingParam();
        QCOMPARE(saved(shape), expected);
    }

    void load_givesTheText_drawn()
    {
        Probe shape = sampleText();
        const QByteArray bytes = saved(shape);
        tinyFont(10.0); // the height comes from the stream
        Probe loaded;
        QDataStream stream(bytes);
        loaded.takeEvents();
        QVERIFY(loaded.load(stream));
        QVERIFY(stream.atEnd());
        QCOMPARE(loaded.takeEvents(), kSingle);
        QVERIFY(loaded.getFont() == shape.getFont());
        QVERIFY(loaded.getRoundingParam() == shape.getRoundingParam());
        QCOMPARE(loaded.text(), shape.text());
        QCOMPARE(loaded.getFixedText(), shape.getFixedText());
        QCOMPARE(loaded.getId(), 7);
        QVERIFY(!loaded.isUpdate());
        QCOMPARE(loaded.getPath(), shape.getPath());
        QCOMPARE(saved(loaded), bytes);
    }

    void load_systemFont_setsTheRectangleAnew()
    {
        Probe shape;
        shape.setText(QStringLiteral("Ig"));
        const QRectF rectMm = shape.getRect();
        shape.ZTShapeText::setRect(QRectF(1, 2, 3, 4));
        const QByteArray bytes = saved(shape);
        Probe loaded;
        QDataStream stream(bytes);
        loaded.takeEvents();
        QVERIFY(loaded.load(stream));
        QCOMPARE(loaded.takeEvents(), QStringLiteral("rect ") + kDouble);
        QCOMPARE(loaded.getRect(), rectMm);
        QCOMPARE(loaded.getPath(), shape.getPath());
    }

    void load_none_leavesTheDrawingToTheNextPaint()
    {
        Probe shape;
        shape.setText(QStringLiteral("I"));
        shape.setFontType(FontType::None);
        Probe loaded;
        const QByteArray bytes = saved(shape);
        QDataStream stream(bytes);
        loaded.takeEvents();
        QVERIFY(loaded.load(stream));
        QCOMPARE(loaded.takeEvents(), QString());
        QVERIFY(loaded.isUpdate());
        loaded.paint();
        QVERIFY(loaded.getLines().isEmpty());
    }

    void load_cutAnywhere_isHarmless()
    {
        const QByteArray whole = saved(sampleText());
        for (int size = 0; size < whole.size(); size += 3) {
            ZTShapeText loaded;
            QDataStream stream(whole.left(size));
            QVERIFY(loaded.load(stream));
            QVERIFY(isFinite(loaded.getLines()));
        }
    }

    void load_unknownFontType_drawsNothing()
    {
        ZTFontParam param = sampleText().getFont();
        param.fontType = static_cast<FontType>(77);
        Probe shape = sampleText();
        shape.setFont(param);
        Probe loaded;
        const QByteArray bytes = saved(shape);
        QDataStream stream(bytes);
        QVERIFY(loaded.load(stream));
        loaded.paint();
        QVERIFY(loaded.getLines().isEmpty());
    }

    void absurdNumbers_giveFiniteGeometry_data()
    {
        QTest::addColumn<FontType>("type");
        QTest::addColumn<bool>("arc");
        QTest::newRow("system font") << FontType::doubleLine << false;
        QTest::newRow("system font, arc") << FontType::doubleLine << true;
        QTest::newRow("stroke font") << FontType::singleLine << false;
        QTest::newRow("stroke font, arc") << FontType::singleLine << true;
    }
    void absurdNumbers_giveFiniteGeometry()
    {
        QFETCH(FontType, type);
        QFETCH(bool, arc);
        using Limits = std::numeric_limits<double>;
        const double absurd[] = {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(),
                                 Limits::max(),       Limits::lowest(),   1e20,
                                 Limits::denorm_min()};
        double ZTFontParam::*const fontFields[] = {&ZTFontParam::wordSpac, &ZTFontParam::rowSpac};
        double ZTRoundingParam::*const arcFields[] = {
            &ZTRoundingParam::startAngle, &ZTRoundingParam::spanAngle, &ZTRoundingParam::diameter};
        setPixelsPerMm(5);
        for (const double value : absurd) {
            for (auto field : fontFields) {
                ZTFontParam font = absurdBase(type);
                font.*field = value;
                checkFinite(font, arcParam(arc));
            }
            for (auto field : arcFields) {
                ZTRoundingParam param = arcParam(arc);
                param.*field = value;
                checkFinite(absurdBase(type), param);
            }
            Probe shape;
            shape.setFont(absurdBase(type));
            shape.setRoundingParam(arcParam(arc));
            shape.setText(QStringLiteral("AI\nL"));
            shape.setRect(QRectF(value, value, value, value));
            shape.paint();
            QVERIFY(isFinite(shape.getPath()));
            QVERIFY(isFinite(shape.getLines()));
        }
        for (const QString &message : warnings->take()) // the hatch may decline what is so large
            QVERIFY2(message.startsWith(QLatin1String("no hatch")), qPrintable(message));
    }

    void absurdFontSizes_areHarmless_data()
    {
        QTest::addColumn<int>("pixelSize");
        QTest::newRow("1") << 1;
        QTest::newRow("65536") << 65536;
        QTest::newRow("largest") << std::numeric_limits<int>::max();
    }
    void absurdFontSizes_areHarmless()
    {
        QFETCH(int, pixelSize);
        QFont font;
        font.setPixelSize(pixelSize);
        Probe shape;
        shape.setText(QStringLiteral("Ag\nI"));
        shape.setFont(font);
        QVERIFY(isFinite(shape.getLines()));
        shape.setRoundingParam(arcParam(true));
        QVERIFY(isFinite(shape.getLines()));
    }

    void absurdStrokeHeight_isHarmless()
    {
        for (const double height : {1e-300, 1e150, 1e300, 1e308}) {
            Probe shape = strokeText(QStringLiteral("A\nB"));
            tinyFont(height);
            shape.setUpdate(1);
            shape.paint();
            QVERIFY(isFinite(shape.getPath()));
            QVERIFY(isFinite(shape.getLines()));
        }
    }

    void reachBeyondAnyField_givesAnEmptyShape_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("wordSpan");
        QTest::addColumn<double>("lineSpan");
        QTest::addColumn<bool>("empty");
        QTest::newRow("wide") << QStringLiteral("AA") << 1e9 << 0.0 << true;
        QTest::newRow("high") << QStringLiteral("A\nA") << 0.0 << 1e9 << true;
        QTest::newRow("as wide as it may be")
            << QStringLiteral("AA") << 999999980.0 << 0.0 << false;
    }
    void reachBeyondAnyField_givesAnEmptyShape()
    {
        QFETCH(QString, text);
        QFETCH(double, wordSpan);
        QFETCH(double, lineSpan);
        QFETCH(bool, empty);
        Probe shape = strokeText(text);
        shape.setWordSpan(wordSpan);
        shape.setLineSpan(lineSpan);
        QCOMPARE(shape.getPath().isEmpty(), empty);
        QCOMPARE(shape.getLines().isEmpty(), empty);
        shape.setWordSpan(0);
        shape.setLineSpan(0);
        QVERIFY(!shape.getPath().isEmpty());
    }

    void hugeLetterSpacing_isBounded()
    {
        Probe shape;
        shape.setWordSpan(1e9);
        QCOMPARE(shape.getFont().font.letterSpacing(), 1e6);
        QCOMPARE(shape.getWordSpan(), 1e9);
        shape.setWordSpan(-1e9);
        QCOMPARE(shape.getFont().font.letterSpacing(), -1e6);
        shape.setWordSpan(std::numeric_limits<double>::quiet_NaN());
        QCOMPARE(shape.getFont().font.letterSpacing(), 0.0);
    }

private:
    static void setPixelsPerMm(double ratio) { ZTCoord::getInstance()->setHeight(193.0 * ratio); }

    static void fontTypes()
    {
        QTest::addColumn<FontType>("type");
        QTest::newRow("stroke font") << FontType::singleLine;
        QTest::newRow("system font") << FontType::doubleLine;
        QTest::newRow("none") << FontType::None;
    }

    /** What setting up the active font looks like, with a blank behind it if there is anything. */
    static QString setUpOf(FontType type)
    {
        if (type == FontType::doubleLine)
            return QStringLiteral("rect paint fill ");
        return type == FontType::singleLine ? QStringLiteral("paint ") : QString();
    }

    static QString rebuildOf(FontType type)
    {
        return type == FontType::doubleLine ? kDouble : kSingle;
    }

    static ZTFillParam hatch()
    {
        ZTFillParam param;
        param.fillType = FillType::Line;
        param.spac = 1.0;
        return param;
    }

    static Probe strokeText(const QString &text)
    {
        Probe shape;
        shape.setFont(tinyFont());
        shape.setFontType(FontType::singleLine);
        shape.setText(text);
        return shape;
    }

    static Probe sampleText()
    {
        Probe shape = strokeText(QStringLiteral("AB\nB"));
        shape.setFont(tinyFont(20.0));
        shape.setWordSpan(2.0);
        shape.setLineSpan(3.0);
        shape.setFixedText(QStringLiteral("typed"));
        shape.setId(7);
        ZTRoundingParam arc;
        arc.startAngle = 12;
        shape.setRoundingParam(arc);
        return shape;
    }

    static ZTFontParam absurdBase(FontType type)
    {
        ZTFontParam param;
        param.fontType = type;
        param.font = systemFont();
        param.shxFont = tinyFont();
        return param;
    }

    static ZTRoundingParam arcParam(bool on)
    {
        ZTRoundingParam param;
        param.isEnableRounding = on;
        return param;
    }

    static void checkFinite(const ZTFontParam &font, const ZTRoundingParam &arc)
    {
        Probe shape;
        shape.setText(QStringLiteral("AI\nL A"));
        shape.setFillParam(hatch());
        shape.setFont(font);
        shape.setRoundingParam(arc);
        QVERIFY(isFinite(shape.getPath()));
        QVERIFY(isFinite(shape.getLines()));
    }

    /** The layout told plainly: the whole path is measured after each line. */
    static QPainterPath plainLayout(const QStringList &lines, FontType type, double spanPx,
                                    const QRectF &rectMm)
    {
        QPainterPath path;
        int offset = 0;
        for (const QString &line : lines) {
            if (type == FontType::doubleLine)
                path.addText(0.0, offset, systemFont(), line);
            double penX = rectMm.left();
            const double penY = 200.0 + rectMm.top() + offset;
            for (int i = 0; type == FontType::singleLine && i < line.size(); ++i)
                path.addPath(tinyGlyph(line[i], i == 0, penX, penY));
            offset = int(path.controlPointRect().height() + spanPx);
        }
        const QRectF bounds = path.controlPointRect();
        path.translate(-bounds.left(), -bounds.top());
        return path;
    }

    /** A glyph of the tiny font as it is drawn at the pen, which it moves. */
    static QPainterPath tinyGlyph(QChar character, bool isFirst, double &penX, double penY)
    {
        QPainterPath glyph;
        if (isFirst)
            glyph.moveTo(penX, penY);
        if (character == QLatin1Char('L')) {
            penX += 4;
            glyph.lineTo(penX, penY);
        } else if (character == QLatin1Char('A') || character == QLatin1Char('B')) {
            glyph.moveTo(penX + 1, penY);
            const QPolygonF outline = square(penX + 1, penY, character == QLatin1Char('A') ? 8 : 4);
            for (int i = 1; i < outline.size(); ++i)
                glyph.lineTo(outline[i]);
            penX += 10;
            glyph.moveTo(penX, penY);
        } else if (character == QLatin1Char(' ')) {
            penX += 10;
            glyph.moveTo(penX, penY);
        }
        return glyph;
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
    tst_ZTShapeText test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_ZTShapeText.moc"
