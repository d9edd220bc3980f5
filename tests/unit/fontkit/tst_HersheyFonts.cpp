#include <support/BoardFonts.h>
#include <support/DrawnStrokes.h>
#include <support/Skip.h>

#include <fontkit/HersheyFonts.h>

#include <ZTDrawEngineLib/shx/ZTShxParser.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using fontkit::DataFolder;
using fontkit::HersheyCharacter;
using fontkit::HersheyFonts;
using fontkit::HersheyGlyph;
using fontkit::HersheyReader;
using testsupport::DrawnStrokes;

namespace {

using Strokes = QVector<QVector<QPointF>>;

DataFolder debianData() { return DataFolder(QByteArrayLiteral(ZT_HERSHEY_DIR)); }

bool hasData() { return debianData().read("futural.jhf").has_value(); }

/** The character at an ASCII code of a file of the data. */
HersheyGlyph glyphIn(const QByteArray &file, int code)
{
    HersheyReader reader;
    reader.read(debianData().read(file).value_or(QByteArray()));
    return reader.glyphs().value(code - ' ');
}

/** Strokes of the data, mirrored, moved to start at `x`, base line to 0; joined where they touch.
 */
Strokes placed(const HersheyGlyph &glyph, double x)
{
    Strokes result;
    for (const QVector<QPoint> &stroke : glyph.strokes) {
        QVector<QPointF> points;
        for (const QPoint &point : stroke) {
            const QPointF place(x + point.x() - glyph.left, 9 - point.y());
            if (points.isEmpty() || points.last() != place)
                points.append(place);
        }
        if (points.size() < 2)
            continue;
        if (!result.isEmpty() && result.last().last() == points.first())
            result.last() += points.mid(1);
        else
            result.append(points);
    }
    return result;
}

/** Strokes and advance of one byte in a font that the build made, at a unit a font unit. */
double draw(const QString &font, int code, Strokes *strokes)
{
    ZTShxParser parser(testsupport::boardFontPath(font).constData());
    parser.setTextHeight(HersheyFonts::kCapHeight);
    DrawnStrokes drawn;
    const char text[] = {static_cast<char>(code), '\0'};
    const double advance = parser.drawText(&drawn, text, 0, 0);
    *strokes = drawn.strokes;
    return advance;
}

/** A folder of data in which every glyph is a line with edges at -5 and 5, but for `change`. */
void writeData(const QTemporaryDir &folder, const QString &name, int count,
               const QByteArray &change)
{
    QByteArray content = change;
    for (int i = content.isEmpty() ? 0 : 1; i < count; ++i)
        content += "12345  3MWRFR[\n";
    QFile file(folder.filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

} // namespace

class tst_HersheyFonts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void make_latinFont_hasTheStrokesOfTheData_data();
    void make_latinFont_hasTheStrokesOfTheData();
    void make_font_tellsItsHeights_data();
    void make_font_tellsItsHeights();
    void character_greek_isTheLetterOfLikeSound_data();
    void character_greek_isTheLetterOfLikeSound();
    void character_cyrillic_followsTheSevenBitCode_data();
    void character_cyrillic_followsTheSevenBitCode();
    void character_cyrillicSmallE_isTheCapitalReduced();
    void make_script_hasACaret();
    void make_twice_givesTheSameBytes();
    void make_withoutData_failsAndTells();
    void make_damagedData_failsAndTells_data();
    void make_damagedData_failsAndTells();
    void make_unknownName_failsAndTells();
};

void tst_HersheyFonts::make_latinFont_hasTheStrokesOfTheData_data()
{
    if (!hasData())
        ZT_SKIP("the Hershey data is missing: install the package hershey-fonts-data");
    QTest::addColumn<QString>("font");
    QTest::addColumn<QByteArray>("data");
    QTest::newRow("simplex") << QStringLiteral("hershey-simplex.shx") << QByteArray("futural.jhf");
    QTest::newRow("duplex") << QStringLiteral("hershey-duplex.shx") << QByteArray("futuram.jhf");
    QTest::newRow("complex") << QStringLiteral("hershey-complex.shx") << QByteArray("timesr.jhf");
    QTest::newRow("triplex") << QStringLiteral("hershey-triplex.shx") << QByteArray("timesrb.jhf");
    QTest::newRow("gothic") << QStringLiteral("hershey-gothic.shx") << QByteArray("gothiceng.jhf");
    QTest::newRow("gothic german")
        << QStringLiteral("hershey-gothic-german.shx") << QByteArray("gothicger.jhf");
    QTest::newRow("gothic italian")
        << QStringLiteral("hershey-gothic-italian.shx") << QByteArray("gothicita.jhf");
    QTest::newRow("italic") << QStringLiteral("hershey-complex-italic.shx")
                            << QByteArray("timesi.jhf");
    QTest::newRow("triplex italic")
        << QStringLiteral("hershey-triplex-italic.shx") << QByteArray("timesib.jhf");
}

void tst_HersheyFonts::make_latinFont_hasTheStrokesOfTheData()
{
    QFETCH(QString, font);
    QFETCH(QByteArray, data);
    for (int code = 32; code <= 126; ++code) {
        const HersheyGlyph glyph = glyphIn(data, code);
        Strokes strokes;
        QCOMPARE(draw(font, code, &strokes), static_cast<double>(glyph.right - glyph.left));
        QCOMPARE(strokes, placed(glyph, 0.0));
        QCOMPARE(strokes.isEmpty(), code == ' ');
    }
}

void tst_HersheyFonts::make_font_tellsItsHeights_data()
{
    if (!hasData())
        ZT_SKIP("the Hershey data is missing: install the package hershey-fonts-data");
    QTest::addColumn<QString>("font");
    QTest::addColumn<int>("below");
    QTest::newRow("brackets reach lowest") << QStringLiteral("hershey-simplex.shx") << 7;
    QTest::newRow("loops of g and y do") << QStringLiteral("hershey-script.shx") << 12;
}

void tst_HersheyFonts::make_font_tellsItsHeights()
{
    QFETCH(QString, font);
    QFETCH(int, below);
    fontkit::FontFile made;
    QString error;
    HersheyFonts fonts(debianData());
    QVERIFY2(fonts.make(font, &made, &error), qPrintable(error));
    QCOMPARE(static_cast<int>(made.information->above), 21); // "H" reaches from y = 9 to y = -12
    QCOMPARE(static_cast<int>(made.information->below), below);
    QCOMPARE(static_cast<int>(made.glyphs.size()), 95);
    QCOMPARE(static_cast<int>(made.form), static_cast<int>(fontkit::FontForm::Shapes));
}

void tst_HersheyFonts::character_greek_isTheLetterOfLikeSound_data()
{
    if (!hasData())
        ZT_SKIP("the Hershey data is missing: install the package hershey-fonts-data");
    QTest::addColumn<char>("code");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("number");
    const QByteArray greek("greeks.jhf");
    const QByteArray latin("futural.jhf");
    // Hershey's catalogue has the simplex Greek alphabet at 527 to 550 and 627 to 650.
    QTest::newRow("alpha") << 'A' << greek << 527;
    QTest::newRow("small gamma") << 'g' << greek << 629;
    QTest::newRow("theta") << 'Q' << greek << 534;
    QTest::newRow("xi") << 'X' << greek << 540;
    QTest::newRow("chi") << 'C' << greek << 548;
    QTest::newRow("psi") << 'Y' << greek << 549;
    QTest::newRow("small omega") << 'w' << greek << 650;
    QTest::newRow("no letter") << 'J' << latin << 12345;
    QTest::newRow("digit") << '7' << latin << 12345;
}

void tst_HersheyFonts::character_greek_isTheLetterOfLikeSound()
{
    QFETCH(char, code);
    QFETCH(QByteArray, file);
    QFETCH(int, number);
    HersheyGlyph expected;
    for (int place = ' '; place <= '~'; ++place) {
        if (number == 12345 ? place == code : glyphIn(file, place).number == number)
            expected = glyphIn(file, place);
    }
    QCOMPARE(expected.number, number);
    Strokes strokes;
    draw(QStringLiteral("hershey-greek.shx"), code, &strokes);
    QCOMPARE(strokes, placed(expected, 0.0));
}

void tst_HersheyFonts::character_cyrillic_followsTheSevenBitCode_data()
{
    if (!hasData())
        ZT_SKIP("the Hershey data is missing: install the package hershey-fonts-data");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<char>("place");
    const QByteArray most("cyrilc_1.jhf");
    const QByteArray last("cyrillic.jhf");
    QTest::newRow("a") << int('A') << most << 'A';
    QTest::newRow("be") << int('B') << most << 'B';
    QTest::newRow("ve") << int('W') << most << 'C';
    QTest::newRow("short i") << int('J') << most << 'J';
    QTest::newRow("small tse") << int('c') << most << 'w';
    QTest::newRow("shcha") << int(']') << most << 'Z';
    QTest::newRow("small che") << int('~') << most << 'x';
    QTest::newRow("yu") << int('@') << last << 'U';
    QTest::newRow("small yu") << int('`') << last << 'u';
    QTest::newRow("ya") << int('Q') << last << '^';
    QTest::newRow("yery") << int('Y') << last << '$';
    QTest::newRow("small soft sign") << int('x') << last << '~';
    QTest::newRow("e") << int('\\') << last << 'C';
    QTest::newRow("hard sign") << int('_') << last << ']';
    QTest::newRow("small hard sign") << 127 << last << '|';
    QTest::newRow("digit") << int('5') << QByteArray("timesr.jhf") << '5';
}

void tst_HersheyFonts::character_cyrillic_followsTheSevenBitCode()
{
    QFETCH(int, code);
    QFETCH(QByteArray, file);
    QFETCH(char, place);
    const HersheyGlyph expected = glyphIn(file, place);
    Strokes strokes;
    QCOMPARE(draw(QStringLiteral("hershey-cyrillic.shx"), code, &strokes),
             static_cast<double>(expected.right - expected.left));
    QCOMPARE(strokes, placed(expected, 0.0));
}

void tst_HersheyFonts::character_cyrillicSmallE_isTheCapitalReduced()
{
    if (!hasData())
        ZT_SKIP("the Hershey data is missing: install the package hershey-fonts-data");
    HersheyFonts fonts(debianData());
    HersheyCharacter capital;
    HersheyCharacter small;
    QVERIFY(fonts.character(QStringLiteral("hershey-cyrillic.shx"), '\\', &capital, nullptr));
    QVERIFY(fonts.character(QStringLiteral("hershey-cyrillic.shx"), '|', &small, nullptr));
    QCOMPARE(small.strokes.size(), capital.strokes.size());
    for (int i = 0; i < small.strokes.size(); ++i) {
        for (int j = 0; j < small.strokes.at(i).size(); ++j) {
            const QPointF exact = QPointF(capital.strokes.at(i).at(j)) * 2 / 3;
            const QPointF off = small.strokes.at(i).at(j) - exact;
            QVERIFY(std::abs(off.x()) <= 0.5 && std::abs(off.y()) <= 0.5);
        }
    }
}

void tst_HersheyFonts::make_script_hasACaret()
{
    if (!hasData())
        ZT_SKIP("the Hershey data is missing: install the package hershey-fonts-data");
    for (const char code : {'^', '_', '`'}) {
        Strokes strokes;
        draw(QStringLiteral("hershey-script.shx"), code, &strokes);
        QCOMPARE(strokes, placed(glyphIn("futural.jhf", code), 0.0));
    }
}

void tst_HersheyFonts::make_twice_givesTheSameBytes()
{
    if (!hasData())
        ZT_SKIP("the Hershey data is missing: install the package hershey-fonts-data");
    for (const QString &name : HersheyFonts::fileNames()) {
        fontkit::FontFile first;
        fontkit::FontFile second;
        HersheyFonts fonts(debianData());
        HersheyFonts again(debianData());
        QVERIFY(fonts.make(name, &first, nullptr));
        QVERIFY(again.make(name, &second, nullptr));
        const QByteArray bytes = fontkit::writeFont(first);
        QVERIFY(!bytes.isEmpty());
        QCOMPARE(fontkit::writeFont(second), bytes);
        QFile made(QString::fromLocal8Bit(testsupport::boardFontPath(name)));
        QVERIFY(made.open(QIODevice::ReadOnly));
        QCOMPARE(made.readAll(), bytes);
    }
}

void tst_HersheyFonts::make_withoutData_failsAndTells()
{
    const QTemporaryDir folder;
    HersheyFonts fonts(DataFolder(QFile::encodeName(folder.path())));
    fontkit::FontFile made;
    QString error;
    QVERIFY(!fonts.make(QStringLiteral("hershey-simplex.shx"), &made, &error));
    QCOMPARE(error, folder.path() + QStringLiteral("/futural.jhf: cannot be read"));
}

void tst_HersheyFonts::make_damagedData_failsAndTells_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QByteArray>("change");
    QTest::addColumn<QString>("problem");
    QTest::newRow("whole") << 95 << QByteArray() << QString();
    QTest::newRow("a record lacks") << 94 << QByteArray() << QStringLiteral("only 94 characters");
    QTest::newRow("empty") << 0 << QByteArray() << QStringLiteral("no Hershey font");
    QTest::newRow("a record is cut short")
        << 95 << QByteArray("12345  9MWRF\n") << QStringLiteral("line 1: 2 pairs of 9");
}

void tst_HersheyFonts::make_damagedData_failsAndTells()
{
    QFETCH(int, count);
    QFETCH(QByteArray, change);
    QFETCH(QString, problem);
    const QTemporaryDir folder;
    writeData(folder, QStringLiteral("futural.jhf"), count, change);
    HersheyFonts fonts(DataFolder(QFile::encodeName(folder.path())));
    fontkit::FontFile made;
    QString error;
    QCOMPARE(fonts.make(QStringLiteral("hershey-simplex.shx"), &made, &error), problem.isEmpty());
    if (!problem.isEmpty())
        QCOMPARE(error, folder.path() + QStringLiteral("/futural.jhf: ") + problem);
}

void tst_HersheyFonts::make_unknownName_failsAndTells()
{
    HersheyFonts fonts(debianData());
    fontkit::FontFile made;
    QString error;
    QVERIFY(!fonts.make(QStringLiteral("simplex.shx"), &made, &error));
    QCOMPARE(error, QStringLiteral("simplex.shx: no such font"));
    HersheyCharacter character;
    QVERIFY(!fonts.character(QStringLiteral("hershey-simplex.shx"), 127, &character, &error));
    QVERIFY(!fonts.character(QStringLiteral("hershey-simplex.shx"), 31, &character, &error));
}

QTEST_GUILESS_MAIN(tst_HersheyFonts)
#include "tst_HersheyFonts.moc"
