#include <ZTDrawEngineLib/common/SystemText_p.h>

#include <support/TestFonts.h>

#include <ZTDrawEngineLib/shapes/ZTTdotShape.h>
#include <ZTDrawEngineLib/shapes/ZTVecGraph.h>
#include <ZTDrawEngineLib/text/ZTShapeText.h>

#include <QtGui/QFont>
#include <QtGui/QFontDatabase>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtTest/QTest>

#include <thread>

namespace {

/** Paints letters so that the last one stands at a fraction of a pixel. */
void paintSomewhere(const QFont &font, int step)
{
    QImage image(400, 60, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(font);
    painter.drawText(QPointF(3.0 + 0.25 * step, 40.25), QStringLiteral("iWiVA").left(1 + step));
}

/** The outline with nothing remembered: what Qt lays out. */
QPainterPath plainOutlineOf(const QFont &font, const QString &text, const QPointF &position = {})
{
    QPainterPath path;
    path.addText(position, font, text);
    return path;
}

QPainterPath outlineOf(const QFont &font, const QString &text)
{
    QPainterPath path;
    ztoutline::addText(path, {0.0, 0.0}, font, text);
    return path;
}

/** What `make` draws is the same to the bit after any painting in the font. */
template <typename Make>
void compareAcrossPainting(const QFont &font, Make make)
{
    const QPainterPath fresh = make();
    QVERIFY(!fresh.isEmpty());
    for (int step = 0; step < 5; ++step) {
        paintSomewhere(font, step);
        ztoutline::forgetTexts();
        const QPainterPath after = make();
        QCOMPARE(after.elementCount(), fresh.elementCount());
        for (int i = 0; i < fresh.elementCount(); ++i) {
            // Exactly: fractions of a font unit are what is at stake.
            QVERIFY2(after.elementAt(i).x == fresh.elementAt(i).x &&
                         after.elementAt(i).y == fresh.elementAt(i).y,
                     qPrintable(QStringLiteral("step %1, point %2: %3 instead of %4")
                                    .arg(step)
                                    .arg(i)
                                    .arg(after.elementAt(i).x, 0, 'g', 17)
                                    .arg(fresh.elementAt(i).x, 0, 'g', 17)));
        }
    }
}

} // namespace

class tst_SystemText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addText_freshProcess_asThePathDoes();
    void addText_emptyText_addsNothing();
    void addText_separatorInside_asThePathDoes();
    void addText_again_sameOutline();
    void addText_anyOtherSetting_isToldApart_data();
    void addText_anyOtherSetting_isToldApart();
    void addText_otherPlaceAndText_areToldApart();
    void addText_fontFileGone_isLaidOutAnew();
    void addText_otherThread_sameOutline();
    void addText_afterPainting_sameOutline_data();
    void addText_afterPainting_sameOutline();
    void textShape_afterPainting_sameOutline_data();
    void textShape_afterPainting_sameOutline();
    void tdotShape_afterPainting_sameOutline();
    void emptyVecGraph_afterPainting_sameOutline();
};

void tst_SystemText::addText_freshProcess_asThePathDoes()
{
    const QFont font(QStringLiteral("DejaVu Sans"), 11);
    QPainterPath plain;
    plain.addText(10.5, -3.25, font, QStringLiteral("gA1"));
    QPainterPath ours;
    ztoutline::addText(ours, {10.5, -3.25}, font, QStringLiteral("gA1"));
    QVERIFY(plain.elementCount() > 20);
    QCOMPARE(ours, plain);
}

void tst_SystemText::addText_emptyText_addsNothing()
{
    QVERIFY(outlineOf(QFont(), QString()).isEmpty());
}

void tst_SystemText::addText_separatorInside_asThePathDoes()
{
    const QFont font(QStringLiteral("DejaVu Sans"), 11);
    const QString text = QStringLiteral("ab") + QChar(QChar::LineSeparator) + QStringLiteral("cd");
    QPainterPath plain;
    plain.addText(0.0, 0.0, font, text);
    QCOMPARE(outlineOf(font, text), plain);
}

void tst_SystemText::addText_again_sameOutline()
{
    const QFont font(QStringLiteral("DejaVu Sans"), 12);
    const QString text = QStringLiteral("Again 7");
    for (int time = 0; time < 3; ++time) {
        QPainterPath ours;
        ours.moveTo(1.0, 2.0);
        ours.lineTo(3.0, 4.0);
        QPainterPath plain = ours;
        ztoutline::addText(ours, {5.5, 6.25}, font, text);
        plain.addText(5.5, 6.25, font, text);
        QVERIFY(plain.elementCount() > 20);
        QCOMPARE(ours, plain);
    }
}

void tst_SystemText::addText_anyOtherSetting_isToldApart_data()
{
    QTest::addColumn<QFont>("font");
    const auto row = [](const char *name, auto set) {
        QFont font(QStringLiteral("DejaVu Sans"), 12);
        set(font);
        QTest::newRow(name) << font;
    };
    row("size", [](QFont &font) { font.setPointSizeF(12.5); });
    row("pixel size", [](QFont &font) { font.setPixelSize(12); });
    row("family", [](QFont &font) { font.setFamily(QStringLiteral("DejaVu Serif")); });
    row("bold", [](QFont &font) { font.setBold(true); });
    row("italic", [](QFont &font) { font.setItalic(true); });
    row("underline", [](QFont &font) { font.setUnderline(true); });
    row("overline", [](QFont &font) { font.setOverline(true); });
    row("strike out", [](QFont &font) { font.setStrikeOut(true); });
    row("kerning", [](QFont &font) { font.setKerning(false); });
    row("stretch", [](QFont &font) { font.setStretch(150); });
    row("capitals", [](QFont &font) { font.setCapitalization(QFont::AllUppercase); });
    row("spacing", [](QFont &font) { font.setLetterSpacing(QFont::AbsoluteSpacing, 110); });
    row("spacing by part",
        [](QFont &font) { font.setLetterSpacing(QFont::PercentageSpacing, 110); });
    row("word spacing", [](QFont &font) { font.setWordSpacing(3); });
}

void tst_SystemText::addText_anyOtherSetting_isToldApart()
{
    QFETCH(QFont, font);
    const QString text = QStringLiteral("Tell AVA apart");
    const QFont first(QStringLiteral("DejaVu Sans"), 12);
    QCOMPARE(outlineOf(first, text), plainOutlineOf(first, text));
    QVERIFY(plainOutlineOf(font, text) != plainOutlineOf(first, text));
    QCOMPARE(outlineOf(font, text), plainOutlineOf(font, text));
}

void tst_SystemText::addText_otherPlaceAndText_areToldApart()
{
    const QFont font(QStringLiteral("DejaVu Sans"), 12);
    for (const QPointF &position : {QPointF(0, 0), QPointF(0, 1e-3), QPointF(0.5, 0)}) {
        for (const QString &text : {QStringLiteral("a"), QStringLiteral("ab")}) {
            QPainterPath ours;
            ztoutline::addText(ours, position, font, text);
            QCOMPARE(ours, plainOutlineOf(font, text, position));
        }
    }
}

void tst_SystemText::addText_fontFileGone_isLaidOutAnew()
{
    const QString family = QStringLiteral("OwnaVu Sans Mono");
    const QByteArray file = testsupport::renamedMonoFont(family);
    QVERIFY(!file.isEmpty());
    const QString text = QStringLiteral("Gone file");
    const int id = QFontDatabase::addApplicationFontFromData(file);
    QVERIFY(id >= 0);
    const QPainterPath there = outlineOf(QFont(family, 12), text);
    QCOMPARE(there, plainOutlineOf(QFont(QStringLiteral("DejaVu Sans Mono"), 12), text));
    QVERIFY(QFontDatabase::removeApplicationFont(id));
    const QPainterPath gone = outlineOf(QFont(family, 12), text);
    QVERIFY(gone != there);
    QCOMPARE(gone, plainOutlineOf(QFont(family, 12), text));
}

void tst_SystemText::addText_otherThread_sameOutline()
{
    const QFont font(QStringLiteral("DejaVu Sans"), 12);
    const QString text = QStringLiteral("Thread");
    const QPainterPath here = outlineOf(font, text);
    QPainterPath there;
    std::thread([&] { there = outlineOf(font, text); }).join();
    QCOMPARE(there, here);
}

void tst_SystemText::addText_afterPainting_sameOutline_data()
{
    QTest::addColumn<QFont>("font");
    QTest::addColumn<QFont>("painted");
    const QString family = QStringLiteral("DejaVu Sans");
    QFont plain(family, 11);
    QFont unhinted(family, 11);
    unhinted.setHintingPreference(QFont::PreferNoHinting);
    QFont slanted(family, 30, QFont::Normal, true);
    QTest::newRow("same font") << plain << plain;
    QTest::newRow("no hinting") << unhinted << unhinted;
    QTest::newRow("same file, other size") << plain << QFont(family, 7);
    QTest::newRow("same family, other hinting") << plain << unhinted;
    QTest::newRow("slanted") << slanted << slanted;
    QTest::newRow("bold") << QFont(family, 9, QFont::Bold) << QFont(family, 20, QFont::Bold);
}

void tst_SystemText::addText_afterPainting_sameOutline()
{
    QFETCH(QFont, font);
    QFETCH(QFont, painted);
    compareAcrossPainting(painted, [&] { return outlineOf(font, QStringLiteral("Hg 12 é")); });
}

void tst_SystemText::textShape_afterPainting_sameOutline_data()
{
    QTest::addColumn<bool>("isRound");
    QTest::newRow("straight") << false;
    QTest::newRow("on an arc") << true;
}

void tst_SystemText::textShape_afterPainting_sameOutline()
{
    QFETCH(bool, isRound);
    const QFont font(QStringLiteral("DejaVu Sans"), 14);
    compareAcrossPainting(font, [&] {
        ZTShapeText shape;
        shape.setFont(font);
        ZTRoundingParam rounding;
        rounding.isEnableRounding = isRound;
        shape.setRoundingParam(rounding);
        shape.setText(QStringLiteral("Serial 0128"));
        return shape.getLines();
    });
}

void tst_SystemText::tdotShape_afterPainting_sameOutline()
{
    QFont font;
    font.setPointSize(5);
    compareAcrossPainting(font, [] {
        ZTTdotShape shape;
        shape.setRect({0.0, 0.0, 100.0, 100.0});
        shape.paint();
        return shape.getLines();
    });
}

void tst_SystemText::emptyVecGraph_afterPainting_sameOutline()
{
    compareAcrossPainting(QFont(), [] {
        ZTVecGraph shape;
        shape.setRect({0.0, 0.0, 100.0, 100.0});
        shape.paint();
        return shape.getLines();
    });
}

QTEST_MAIN(tst_SystemText)
#include "tst_SystemText.moc"
