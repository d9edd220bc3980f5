#include <support/Geometry.h>
#include <support/OwnFolder.h>
#include <support/SingletonGuard.h>
#include <support/TextProbe.h>
#include <support/WarningGuard.h>

#include <QtCore/QTextCodec>
#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

#include <cmath>
#include <limits>
#include <memory>

using testsupport::addFontTypes;
using testsupport::hasPolygons;
using testsupport::hundredPixelFont;
using testsupport::isFinite;
using testsupport::lineHatch;
using testsupport::makeTinyFonts;
using testsupport::near;
using testsupport::polygon;
using testsupport::polygonsOf;
using testsupport::runInOwnFolder;
using testsupport::same;
using testsupport::setPixelsPerMm;
using testsupport::SingletonGuard;
using testsupport::squareStroke;
using testsupport::strokeText;
using testsupport::TextProbe;
using testsupport::tinyFont;
using testsupport::WarningGuard;

namespace {

/** Draws each character of a line as a square of ten times its place, on the base line. */
class OwnStrokes : public ZTShapeText
{
public:
    using ZTShapeText::getPath;

protected:
    QVector<QPainterPath> strokeGlyphs(const QString &line, const QPointF &pos,
                                       double wordSpan) override
    {
        QVector<QPainterPath> glyphs;
        double x = pos.x();
        for (int i = 1; i <= line.size(); ++i) {
            QPainterPath glyph;
            glyph.addRect(x, 200.0 - pos.y() - 10.0 * i, 10.0 * i, 10.0 * i);
            glyphs.append(glyph);
            x += 10.0 * i + wordSpan;
        }
        return glyphs;
    }
};

} // namespace

class tst_ZTShapeText_layout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void strokesOfADerivedShape_areWhatIsLaidOut()
    {
        OwnStrokes shape;
        ZTFontParam font;
        font.fontType = FontType::singleLine;
        font.wordSpac = 5.0;
        font.rowSpac = 1.0;
        shape.setFont(font);
        shape.setText(QStringLiteral("xy\nz")); // without any font
        // Squares of 10 and 20, 5 apart; the second line begins 20 + 1 below the first.
        QVERIFY(hasPolygons(shape.getPath(),
                            {QPolygonF(QRectF(0, 10, 10, 10)), QPolygonF(QRectF(15, 0, 20, 20)),
                             QPolygonF(QRectF(0, 31, 10, 10))}));
    }

    void init()
    {
        singletons = std::make_unique<SingletonGuard>();
        warnings = std::make_unique<WarningGuard>();
        setPixelsPerMm(1);
        makeTinyFonts();
    }
    void cleanup()
    {
        warnings.reset();
        singletons.reset();
    }

    void emptyText_givesAnEmptyShape_data() { addFontTypes(); }
    void emptyText_givesAnEmptyShape()
    {
        QFETCH(FontType, type);
        TextProbe shape;
        shape.setFont(tinyFont());
        shape.setText(QStringLiteral("A"));
        shape.setFontType(type);
        shape.setFillParam(lineHatch());
        shape.setText(QString());
        QVERIFY(shape.getPath().isEmpty());
        QVERIFY(shape.getLines().isEmpty());
        QCOMPARE(shape.getFillLines().isEmpty(), true);
    }

    void systemFont_isTheOutlineAtTheOrigin()
    {
        TextProbe shape;
        shape.setFont(hundredPixelFont());
        shape.setText(QStringLiteral("Tg"));
        QPainterPath expected;
        expected.addText(0.0, 0.0, hundredPixelFont(), QStringLiteral("Tg"));
        const QRectF bounds = expected.controlPointRect();
        QVERIFY(bounds.top() < 0); // stands on its base line
        expected.translate(-bounds.left(), -bounds.top());
        QCOMPARE(shape.getPath(), expected);
        QCOMPARE(shape.getPath().controlPointRect().topLeft(), QPointF(0, 0));
    }

    void systemFont_curvesStayCurves()
    {
        TextProbe shape;
        shape.setText(QStringLiteral("O"));
        bool hasCurve = false;
        for (int i = 0; i < shape.getPath().elementCount(); ++i)
            hasCurve |= shape.getPath().elementAt(i).isCurveTo();
        QVERIFY(hasCurve);
    }

    void systemFont_wordSpanIsLetterSpacingInPixels()
    {
        setPixelsPerMm(10);
        TextProbe shape;
        shape.setFont(hundredPixelFont());
        shape.setText(QStringLiteral("II"));
        const double plainWidth = shape.getPath().controlPointRect().width();
        shape.setWordSpan(3.0);
        QCOMPARE(shape.getFont().font.letterSpacing(), 30.0);
        QCOMPARE(shape.getFont().font.letterSpacingType(), QFont::AbsoluteSpacing);
        QCOMPARE(shape.getPath().controlPointRect().width(), plainWidth + 30.0);
    }

    void letterSpacing_isSetWhateverTheType_keptAsTold_data() { addFontTypes(); }
    void letterSpacing_isSetWhateverTheType_keptAsTold()
    {
        QFETCH(FontType, type);
        TextProbe shape;
        shape.setFontType(type);
        shape.setWordSpan(7.0);
        QCOMPARE(shape.getFont().font.letterSpacing(), 7.0);
    }

    void systemFont_linesStandBelowWhatIsDrawn()
    {
        setPixelsPerMm(10);
        TextProbe shape;
        shape.setFont(hundredPixelFont());
        shape.setLineSpan(0.57); // 5.7 pixels
        shape.setText(QStringLiteral("g\nT\nI"));

        QPainterPath expected;
        expected.addText(0.0, 0.0, hundredPixelFont(), QStringLiteral("g"));
        const int second = int(std::floor(expected.controlPointRect().height() + 5.7));
        expected.addText(0.0, second, hundredPixelFont(), QStringLiteral("T"));
        const int third = int(std::floor(expected.controlPointRect().height() + 5.7));
        QVERIFY(third != 2 * second); // no fixed pitch
        expected.addText(0.0, third, hundredPixelFont(), QStringLiteral("I"));
        const QRectF bounds = expected.controlPointRect();
        QVERIFY(bounds.bottom() >= third);
        expected.translate(-bounds.left(), -bounds.top());
        QCOMPARE(shape.getPath(), expected);
    }

    void strokes_areJoinedOnOneBaseLine()
    {
        TextProbe shape = strokeText(QStringLiteral("AB"));
        QVERIFY(hasPolygons(shape.getPath(),
                            (QVector<QPolygonF>{squareStroke(0, 8, 8), squareStroke(10, 8, 4)})));
    }

    void strokes_wordSpanIsConverted()
    {
        setPixelsPerMm(10);
        TextProbe shape = strokeText(QStringLiteral("AB"));
        shape.setWordSpan(0.5);
        QVERIFY(hasPolygons(shape.getPath(),
                            (QVector<QPolygonF>{squareStroke(0, 8, 8), squareStroke(15, 8, 4)})));
    }

    void strokes_beginAtTheRectangle_upsideDown()
    {
        setPixelsPerMm(10);
        TextProbe shape = strokeText(QStringLiteral("LL"));
        shape.setRect(QRectF(50, 7, 10, 10));
        shape.setWordSpan(3.0);
        // The second line has no move before it, and so begins at (0, 0): what is measured from
        // there shows where the text stands, at (50, 200 + 7), and 30 between the characters.
        QVERIFY(hasPolygons(shape.getPath(), (QVector<QPolygonF>{polygon({{50, 207}, {54, 207}}),
                                                                 polygon({{0, 0}, {88, 207}})})));
    }

    void strokes_placeOfTheRectangle_makesNoDifference()
    {
        TextProbe shape = strokeText(QStringLiteral("AB\nA"));
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
        const QVector<QPolygonF> two = {squareStroke(0, 8, 8), squareStroke(0, 18, 8)};
        QTest::newRow("two lines, cut to whole pixels") << QStringLiteral("A\nA") << 2.7 << two;
        // 4 high, next at 4 + 2; then 10 high, next at 10 + 2: squares end at 4, 10, 16 - 0.
        QTest::newRow("three lines")
            << QStringLiteral("B\nA\nA") << 2.7
            << QVector<QPolygonF>{squareStroke(0, 4, 4), squareStroke(0, 10, 8),
                                  squareStroke(0, 16, 8)};
        // 8 - 20.5 is -12.5, cut to -12: the second line ends 12 above the first.
        QTest::newRow("negative span, cut towards 0")
            << QStringLiteral("A\nA") << -20.5
            << QVector<QPolygonF>{squareStroke(0, 20, 8), squareStroke(0, 8, 8)};
        QTest::newRow("empty line between") << QStringLiteral("A\n\nA") << 2.7 << two;
        QTest::newRow("line feed at the end")
            << QStringLiteral("A\n") << 2.7 << QVector<QPolygonF>{squareStroke(0, 8, 8)};
        QTest::newRow("line feed first")
            << QStringLiteral("\nA") << 2.7 << QVector<QPolygonF>{squareStroke(0, 8, 8)};
        QTest::newRow("line feeds alone") << QStringLiteral("\n\n") << 2.7 << QVector<QPolygonF>{};
        QTest::newRow("each line from the left edge")
            << QStringLiteral("AA\nB") << 2.0
            << QVector<QPolygonF>{squareStroke(0, 8, 8), squareStroke(10, 8, 8),
                                  squareStroke(0, 18, 4)};
        // A line of blanks leaves one move, which counts until something replaces it.
        QTest::newRow("line of a blank")
            << QStringLiteral("A\n \nA") << 2.0
            << QVector<QPolygonF>{squareStroke(0, 8, 8), squareStroke(0, 18, 8)};
    }
    void strokes_linesStandBelowWhatIsDrawn()
    {
        QFETCH(QString, text);
        QFETCH(double, lineSpan);
        QFETCH(QVector<QPolygonF>, squares);
        TextProbe shape = strokeText(text);
        shape.setLineSpan(lineSpan);
        QVERIFY(hasPolygons(shape.getPath(), squares));
    }

    void lineSpan_isConverted()
    {
        setPixelsPerMm(10);
        TextProbe shape = strokeText(QStringLiteral("A\nA"));
        shape.setLineSpan(0.27);
        QVERIFY(hasPolygons(shape.getPath(),
                            (QVector<QPolygonF>{squareStroke(0, 8, 8), squareStroke(0, 18, 8)})));
    }

    void manyLines_standWhereTheWholePathSays_data() { addFontTypes(); }
    void manyLines_standWhereTheWholePathSays()
    {
        QFETCH(FontType, type);
        TextProbe shape;
        shape.setFont(tinyFont());
        shape.setFont(hundredPixelFont());
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
        TextProbe shape = strokeText(QString::fromUtf8("A\xE4\xBD\xA0"
                                                       "B\xE5\xA5\xBD"));
        QVERIFY(hasPolygons(shape.getPath(),
                            (QVector<QPolygonF>{squareStroke(0, 8, 8), squareStroke(10, 8, 8),
                                                squareStroke(20, 8, 4), squareStroke(30, 8, 4)})));
    }

    void strokes_outsideTheEncoding_areItsReplacement()
    {
        const QString thai(QChar(0x0E01));
        QCOMPARE(QTextCodec::codecForName("GBK")->fromUnicode(thai), QByteArray("?"));
        TextProbe shape = strokeText(QStringLiteral("A") + thai);
        QVERIFY(hasPolygons(shape.getPath(),
                            (QVector<QPolygonF>{squareStroke(0, 8, 8), squareStroke(10, 8, 2)})));
    }

    void strokes_withoutFonts_giveAnEmptyShape()
    {
        TextProbe shape;
        shape.setText(QStringLiteral("A"));
        QVERIFY(!shape.getPath().isEmpty());
        shape.setFontType(FontType::singleLine);
        QVERIFY(shape.getPath().isEmpty());
        QVERIFY(shape.getLines().isEmpty());
    }

    void strokes_areDrawnAtTheHeightLastSetForTheirFiles_keptAsTold()
    {
        TextProbe shape = strokeText(QStringLiteral("A"));
        tinyFont(20.0); // another text's choice
        QVERIFY(hasPolygons(shape.getPath(), (QVector<QPolygonF>{squareStroke(0, 8, 8)})));
        shape.setUpdate(1);
        shape.paint();
        QVERIFY(hasPolygons(shape.getPath(), (QVector<QPolygonF>{squareStroke(0, 16, 16)})));
    }

    void outlinesAreHatched_strokesAndNoneNever()
    {
        TextProbe shape;
        shape.setFont(tinyFont());
        shape.setFillParam(lineHatch());
        shape.setText(QStringLiteral("A"));
        QVERIFY(!shape.getFillLines().isEmpty());
        shape.takeEvents();
        shape.setFontType(FontType::singleLine);
        QCOMPARE(shape.takeEvents(), QStringLiteral("paint"));
        QVERIFY(shape.getFillLines().isEmpty());
        QVERIFY(!shape.getLines().isEmpty());
    }

    void none_rebuilt_isEmptyWithoutHatch()
    {
        TextProbe shape;
        shape.setFillParam(lineHatch());
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
        TextProbe shape = strokeText(QStringLiteral("AB"));
        shape.setTransformParam(QTransform::fromScale(2.0, 1.0));
        const QList<QPolygonF> lines = polygonsOf(shape.getLines());
        QCOMPARE(lines.size(), 2); // the one further right first
        QVERIFY(near(lines[0], polygon({{200, 80}, {200, 40}, {280, 40}, {280, 80}, {200, 80}})));
        QVERIFY(near(lines[1], polygon({{0, 80}, {0, 0}, {160, 0}, {160, 80}, {0, 80}})));
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
            TextProbe shape;
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
        TextProbe shape;
        shape.setText(QStringLiteral("Ag\nI"));
        shape.setFont(font);
        QVERIFY(isFinite(shape.getLines()));
        shape.setRoundingParam(arcParam(true));
        QVERIFY(isFinite(shape.getLines()));
    }

    void absurdStrokeHeight_isHarmless()
    {
        for (const double height : {1e-300, 1e150, 1e300, 1e308}) {
            TextProbe shape = strokeText(QStringLiteral("A\nB"));
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
        TextProbe shape = strokeText(text);
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
        TextProbe shape;
        shape.setWordSpan(1e9);
        QCOMPARE(shape.getFont().font.letterSpacing(), 1e6);
        QCOMPARE(shape.getWordSpan(), 1e9);
        shape.setWordSpan(-1e9);
        QCOMPARE(shape.getFont().font.letterSpacing(), -1e6);
        shape.setWordSpan(std::numeric_limits<double>::quiet_NaN());
        QCOMPARE(shape.getFont().font.letterSpacing(), 0.0);
    }

private:
    static ZTFontParam absurdBase(FontType type)
    {
        ZTFontParam param;
        param.fontType = type;
        param.font = hundredPixelFont();
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
        TextProbe shape;
        shape.setText(QStringLiteral("AI\nL A"));
        shape.setFillParam(lineHatch());
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
                path.addText(0.0, offset, hundredPixelFont(), line);
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
            const QPolygonF outline =
                squareStroke(penX + 1, penY, character == QLatin1Char('A') ? 8 : 4);
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

    std::unique_ptr<SingletonGuard> singletons;
    std::unique_ptr<WarningGuard> warnings;
};

int main(int argc, char **argv)
{
    const int code = runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QGuiApplication application(argc, argv);
    tst_ZTShapeText_layout test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_ZTShapeText_layout.moc"
