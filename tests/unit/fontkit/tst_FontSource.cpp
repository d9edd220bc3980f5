#include <support/ShxWriter.h>

#include <fontkit/FontReader.h>
#include <fontkit/FontSource.h>

#include <QtTest/QTest>

using fontkit::FontFile;
using fontkit::FontForm;
using testsupport::bytes;

namespace {

const QByteArray kStart = "form shapes\nprefix \"ZT font 1.0\"\nname \"f\"\nabove 4\nbelow 1\n"
                          "modes 0\n";

FontFile compiled(const QByteArray &source)
{
    QString error;
    const auto font = fontkit::compileFont(source, &error);
    if (!font)
        qFatal("%s", qPrintable(error));
    return *font;
}

/** The program of the only glyph of a source that has but its statements. */
QByteArray programOf(const QByteArray &statements, const QByteArray &form = "shapes")
{
    const FontFile font =
        compiled("form " + form + "\nname \"f\"\nglyph 0x41\n" + statements + "\n");
    return font.glyphs.front().program;
}

/** The statements of a program, as the source form writes them. */
QByteArray statementsOf(const QByteArray &program, FontForm form = FontForm::Shapes)
{
    FontFile font;
    font.form = form;
    font.glyphs.resize(1);
    font.glyphs[0].code = 0x41;
    font.glyphs[0].program = program;
    const QByteArray source = fontkit::decompileFont(font);
    const int glyph = source.indexOf("\nglyph ");
    return source.mid(source.indexOf('\n', glyph + 1) + 1);
}

QString errorOf(const QByteArray &source)
{
    QString error;
    return fontkit::compileFont(source, &error) ? QStringLiteral("compiled") : error;
}

} // namespace

Q_DECLARE_METATYPE(FontForm)

/** The source form: what each statement compiles to, and what comes back. */
class tst_FontSource : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void statement_compilesToItsCodesAndBack_data()
    {
        QTest::addColumn<QByteArray>("statement");
        QTest::addColumn<QByteArray>("codes");
        const auto row = [](const char *statement, std::initializer_list<int> codes) {
            QTest::newRow(statement) << QByteArray(statement) << bytes(codes);
        };
        row("end", {0});
        row("down", {1});
        row("up", {2});
        row("scale-down 2", {3, 2});
        row("scale-up 255", {4, 255});
        row("push", {5});
        row("pop", {6});
        row("subshape 0x41", {7, 0x41});
        row("line 1 -128", {8, 1, -128});
        row("line 0 0", {8, 0, 0});
        row("lines 1,2 -3,127", {9, 1, 2, -3, 127, 0, 0});
        row("lines 0,1 1,0", {9, 0, 1, 1, 0, 0, 0});
        row("lines", {9, 0, 0});
        row("arc 0 from 0 over 8", {0xA, 0, 0});
        row("arc 255 from 7 over 7 clockwise", {0xA, 255, 0xF7});
        row("arc 5 from 0 over 8 clockwise", {0xA, 5, 0x80});
        row("fractional-arc 65535 from 3 over 2 start 55 end 255", {0xB, 55, 255, 255, 255, 0x32});
        row("fractional-arc 5 from 0 over 8 clockwise start 0 end 1", {0xB, 0, 1, 0, 5, 0x80});
        row("bulge 1 -2 127", {0xC, 1, -2, 127});
        row("bulge 0 0", {0xC, 0, 0});
        row("bulges 1,0,-127 0,2,3", {0xD, 1, 0, -127, 0, 2, 3, 0, 0});
        row("bulges", {0xD, 0, 0});
        row("vertical", {0xE});
        row("raw 0F", {0xF});
        row("line e 1", {0x10});
        row("line ene 2", {0x21});
        row("line ne 3", {0x32});
        row("line nne 4", {0x43});
        row("line n 5", {0x54});
        row("line nnw 6", {0x65});
        row("line nw 7", {0x76});
        row("line wnw 8", {0x87});
        row("line w 9", {0x98});
        row("line wsw 10", {0xA9});
        row("line sw 11", {0xBA});
        row("line ssw 12", {0xCB});
        row("line s 13", {0xDC});
        row("line sse 14", {0xED});
        row("line se 15", {0xFE});
        row("line ese 15", {0xFF});
    }

    void statement_compilesToItsCodesAndBack()
    {
        QFETCH(QByteArray, statement);
        QFETCH(QByteArray, codes);
        QCOMPARE(programOf(statement).toHex(), codes.toHex());
        QCOMPARE(statementsOf(codes), "  " + statement + '\n');
    }

    void subshape_isWideInAUnifontAlone()
    {
        QCOMPARE(programOf("subshape 0x4F60", "unifont"), bytes({7, 0x60, 0x4F}));
        QCOMPARE(statementsOf(bytes({7, 0x60, 0x4F}), FontForm::Unifont),
                 QByteArray("  subshape 0x4F60\n"));
        QCOMPARE(statementsOf(bytes({7, 0x60, 0x4F}), FontForm::Bigfont),
                 QByteArray("  subshape 0x60\n  line ese 4\n"));
    }

    void codesThatNoStatementWrites_areRaw_data()
    {
        QTest::addColumn<QByteArray>("codes");
        QTest::addColumn<QByteArray>("statements");
        const auto row = [](const char *statements, std::initializer_list<int> codes) {
            QTest::newRow(statements) << bytes(codes) << QByteArray(statements);
        };
        row("  raw 03\n", {3});
        row("  raw 03 00\n  up\n", {3, 0, 2});
        row("  raw 04 00\n", {4, 0});
        row("  raw 07\n", {7});
        row("  raw 08 01\n", {8, 1});
        row("  raw 09 01 02 00\n", {9, 1, 2, 0});
        row("  raw 09 01 02\n", {9, 1, 2});
        row("  raw 0A 05\n", {0xA, 5});
        row("  raw 0A 05 18\n  up\n", {0xA, 5, 0x18, 2});
        row("  raw 0B 01 02 03 04\n", {0xB, 1, 2, 3, 4});
        row("  raw 0B 01 02 03 04 08\n", {0xB, 1, 2, 3, 4, 8});
        row("  raw 0C 00\n", {0xC, 0});
        row("  raw 0C 01 02\n", {0xC, 1, 2});
        row("  raw 0D 01 02 03 00\n", {0xD, 1, 2, 3, 0});
        row("  raw 0D 01 02\n", {0xD, 1, 2});
    }

    void codesThatNoStatementWrites_areRaw()
    {
        QFETCH(QByteArray, codes);
        QFETCH(QByteArray, statements);
        QCOMPARE(statementsOf(codes), statements);
        QCOMPARE(programOf(statements).toHex(), codes.toHex());
    }

    void longList_goesOnInTheNextLine()
    {
        const QByteArray codes = bytes({9}) + bytes({1, 2}).repeated(11) + bytes({0, 0});
        const QByteArray statements =
            "  lines" + QByteArray(" 1,2").repeated(10) + " \\\n" + "    1,2\n";
        QCOMPARE(statementsOf(codes), statements);
        QCOMPARE(programOf(statements).toHex(), codes.toHex());
    }

    void rawBytes_areBrokenAfter24()
    {
        const QByteArray codes = bytes({9}) + bytes({1}).repeated(24);
        QCOMPARE(statementsOf(codes), "  raw 09" + QByteArray(" 01").repeated(23) + "\n  raw 01\n");
    }

    void wholeFont_isAsTheManualShowsIt()
    {
        const QByteArray source = "form bigfont\n"
                                  "prefix \"ZT font 1.0\"\n"
                                  "version \"1\\r\\n\\t\\x00\\\"\\\\\"\n"
                                  "name \"b\\xC4\"\n"
                                  "above 8\n"
                                  "below 2\n"
                                  "modes 3\n"
                                  "last 9\n"
                                  "range 0x81 to 0xFE\n"
                                  "range 0x5501 to 0xAA02\n"
                                  "entry 2 code 0x07 length 5 offset 4294967295\n"
                                  "empty 4\n"
                                  "empty 6 to 7\n"
                                  "\n"
                                  "glyph 0x41 \"a\"  # A\n"
                                  "  end\n"
                                  "\n"
                                  "gap 01 0F\n"
                                  "glyph 0xC4E3 slot 5  # \xE4\xBD\xA0\n"
                                  "\n"
                                  "glyph 0xFFFF bare slot 3\n"
                                  "\n"
                                  "trailing 45 4F 46\n";
        const FontFile font = compiled(source);
        QCOMPARE(font.version, QByteArray("1\r\n\t\0\"\\", 7));
        QCOMPARE(font.information->name, QByteArray("b\xC4"));
        QCOMPARE(int(font.information->above), 8);
        QCOMPARE(int(font.information->below), 2);
        QCOMPARE(int(font.information->modes), 3);
        QCOMPARE(int(font.information->last), 9);
        QVERIFY(
            (font.ranges == std::vector<fontkit::LeadByteRange>{{0x81, 0xFE}, {0x5501, 0xAA02}}));
        QVERIFY(
            (font.entries == std::vector<fontkit::IndexEntry>{
                                 {2, 7, 5, 0xFFFFFFFF}, {4, 0, 0, 0}, {6, 0, 0, 0}, {7, 0, 0, 0}}));
        QCOMPARE(font.glyphs.size(), size_t(3));
        QCOMPARE(font.glyphs[0].name, QByteArray("a"));
        QCOMPARE(font.glyphs[0].slot, -1);
        QCOMPARE(font.glyphs[1].gapBefore, bytes({1, 15}));
        QCOMPARE(font.glyphs[1].slot, 5);
        QVERIFY(font.glyphs[2].bare);
        QCOMPARE(font.trailing, QByteArray("EOF"));
        QCOMPARE(fontkit::decompileFont(font), source);
    }

    void unifontHeader_comesBack()
    {
        const QByteArray source = "form unifont\n"
                                  "prefix \"ZT font 1.0\"\n"
                                  "name \"\"\n"
                                  "above 8\n"
                                  "below 2\n"
                                  "modes 0\n"
                                  "encoding 1\n"
                                  "embedding 2\n"
                                  "unused 01 02 03 04\n"
                                  "counts-information\n"
                                  "\n"
                                  "glyph 0x4F60  # \xE4\xBD\xA0\n";
        const FontFile font = compiled(source);
        QCOMPARE(int(font.information->encoding), 1);
        QCOMPARE(int(font.information->embedding), 2);
        QCOMPARE(font.unused, bytes({1, 2, 3, 4}));
        QVERIFY(font.countsInformation);
        QCOMPARE(fontkit::decompileFont(font), source);
    }

    void withoutInformation_itIsAPlainShapeFile()
    {
        const QByteArray source = "form shapes\nprefix \"ZT font 1.0\"\n\nglyph 0xFF \"box\"\n"
                                  "  line e 4\n";
        QVERIFY(!compiled(source).information);
        QCOMPARE(fontkit::decompileFont(compiled(source)), source);
    }

    void layoutOfTheText_saysNothing()
    {
        const QByteArray plain = kStart + "glyph 0x23 \"#\"\n  lines 1,2 3,4\n  raw 0F AB\n";
        const QByteArray loose = "\xEF\xBB\xBF# a font\r\n\r\n form\tshapes # comment \\\r\n"
                                 "modes 0x0\nbelow +1\nabove 0X4\nname\\\n\"f\"\n"
                                 "glyph '#' \"#\"# no number sign\n"
                                 "lines 1,2 \\ \n  \\\n 3,4 # the end \\\nraw 0f\nraw aB";
        QCOMPARE(fontkit::writeFont(compiled(loose)).toHex(),
                 fontkit::writeFont(compiled(plain)).toHex());
    }

    void version_endsBeforeItsFilling()
    {
        const FontFile font = compiled(kStart + "version \"1.0\\x1A\\x1A\"\n");
        QCOMPARE(font.version, QByteArray("1.0"));
    }

    void character_hasTheCodeOfTheForm_data()
    {
        QTest::addColumn<QByteArray>("form");
        QTest::addColumn<QByteArray>("character");
        QTest::addColumn<int>("code");
        QTest::newRow("ascii") << QByteArray("shapes") << QByteArray("'A'") << 0x41;
        QTest::newRow("quote") << QByteArray("shapes") << QByteArray("'''") << 0x27;
        QTest::newRow("blank") << QByteArray("shapes") << QByteArray("' '") << 0x20;
        QTest::newRow("gbk") << QByteArray("bigfont") << QByteArray("'\xE4\xBD\xA0'") << 0xC4E3;
        QTest::newRow("big ascii") << QByteArray("bigfont") << QByteArray("'z'") << 0x7A;
        QTest::newRow("unicode") << QByteArray("unifont") << QByteArray("'\xE4\xBD\xA0'") << 0x4F60;
        QTest::newRow("latin") << QByteArray("unifont") << QByteArray("'\xC3\x84'") << 0xC4;
    }

    void character_hasTheCodeOfTheForm()
    {
        QFETCH(QByteArray, form);
        QFETCH(QByteArray, character);
        const FontFile font = compiled("form " + form + "\nname \"f\"\nglyph " + character + "\n");
        QTEST(int(font.glyphs.front().code), "code");
    }

    void error_namesTheLine_data()
    {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<QString>("error");
        int count = 0;
        const auto row = [&count](const QByteArray &source, const char *error) {
            QTest::newRow(qPrintable(QStringLiteral("%1: ").arg(++count) + QLatin1String(error)))
                << source << QString::fromUtf8(error);
        };
        const QByteArray glyph = kStart + "glyph 0x41\n";
        const QByteArray big = "form bigfont\nname \"b\"\n";
        const QByteArray uni = "form unifont\nname \"u\"\n";
        row("", "line 1: there is no statement");
        row("# nothing\n", "line 1: there is no statement");
        row("\n\nname \"x\"\n",
            "line 3: the first statement is form shapes, form bigfont or form unifont");
        row("form\n", "line 1: a form is missing behind \"form\"");
        row("form square\n", "line 1: \"square\" is no form: form shapes, form bigfont or form "
                             "unifont");
        row("form shapes bigfont\n", "line 1: \"bigfont\" is too much behind \"form\"");
        row(kStart + "size 3\n", "line 7: \"size\" is no statement of a font");
        row(kStart + "line e 3\n", "line 7: \"line\" is no statement of a font");
        row(kStart + "trailing 00\nline e 3\n", "line 8: \"line\" stands in no glyph");
        row(glyph + "lien e 3\n", "line 8: \"lien\" is no statement");
        row(glyph + "above 3\n", "line 8: \"above\" stands before the first glyph");
        row(kStart + "above 3\n", "line 7: \"above\" is told twice");
        row("form shapes\nabove\n", "line 2: a number is missing behind \"above\"");
        row("form shapes\nabove x\n", "line 2: \"x\" is no whole number");
        row("form shapes\nabove 1.5\n", "line 2: \"1.5\" is no whole number");
        row("form shapes\nabove 0x\n", "line 2: \"0x\" is no whole number");
        row("form shapes\nabove 0x-1\n", "line 2: \"0x-1\" is no whole number");
        row("form shapes\nabove 99999999999\n", "line 2: \"99999999999\" is no whole number");
        row("form shapes\nabove \"3\"\n", "line 2: \"3\" in quotes is no number");
        row("form shapes\nabove 256\n", "line 2: 256 is not in 0 to 255");
        row("form shapes\nabove -1\n", "line 2: -1 is not in 0 to 255");
        row("form shapes\nname f\n", "line 2: the name stands in double quotes, \"f\" does not");
        row("form shapes\nname \"f\n", "line 2: a text in double quotes has no end");
        row("form shapes\nname \"\\q\"\n", "line 2: behind \\ comes one of \" \\ n r t or x and "
                                           "two hexadecimal digits");
        row("form shapes\nname \"\\x1\"\n", "line 2: behind \\ comes one of \" \\ n r t or x and "
                                            "two hexadecimal digits");
        row("form shapes\nname \"\\", "line 2: behind \\ comes one of \" \\ n r t or x and "
                                      "two hexadecimal digits");
        row("form shapes\nname \"a\\x00\"\n", "line 2: a name holds no byte 0");
        row("form shapes\nname \"" + QByteArray(65531, 'n') + "\"\n",
            "line 2: the name is too long");
        row("form shapes\nprefix \"short\"\n", "line 2: the prefix has 5 bytes, not 11");
        row("form unifont\nversion \"12345678\"\n",
            "line 2: the version has 8 bytes, at most 7 in this form");
        row("form shapes\nencoding 1\n", "line 2: only a unifont has an encoding");
        row("form shapes\nembedding 1\n", "line 2: only a unifont has an embedding");
        row("form shapes\nunused 00 00 00 00\n", "line 2: only a unifont has unused bytes");
        row("form bigfont\ncounts-information\n",
            "line 2: only a unifont has a count with the information");
        row("form unifont\nunused 00\n", "line 2: there are 4 unused bytes, not 1");
        row("form unifont\nglyph 0x41\nend\n", "line 3: a unifont needs a name and above");
        row("form unifont\nrange 1 to 2\n", "line 2: only a bigfont has ranges of lead bytes");
        row(uni + "gap 00\n", "line 3: only a bigfont has gaps");
        row(uni + "empty 3\n", "line 3: only a bigfont has empty index entries");
        row(uni + "entry 3\n", "line 3: only a bigfont has index entries of their own");
        row(uni + "glyph 5 slot 3\n", "line 3: only a bigfont has slots");
        row(big + "range 0x81 0xFE\n", "line 3: \"0xFE\" where \"to\" should be");
        row(big + "range 0x81\n", "line 3: \"to\" is missing behind \"0x81\"");
        row(big + "range 0 to 65536\n", "line 3: 65536 is not in 0 to 65535");
        row(big + "gap 0\n", "line 3: \"0\" is no byte of two hexadecimal digits");
        row(big + "gap 0G\n", "line 3: \"0G\" is no byte of two hexadecimal digits");
        row(big + "gap\n", "line 3: a byte is missing behind \"gap\"");
        row(big + "gap \"00\"\n", "line 3: \"00\" in quotes is not a byte");
        row(big + "gap 00\ntrailing 00\n", "line 3: no glyph stands behind this gap");
        row(big + "glyph 1 slot 0\n", "line 3: slot 0 is that of the font information");
        row(big + "glyph 1 slot 1\n\nempty 1\n", "line 5: slot 1 is taken in line 3");
        row(big + "empty 1 to 3\nempty 3\n", "line 4: slot 3 is taken in line 3");
        row(big + "empty 3 to 2\n", "line 3: 2 is not in 3 to 65534");
        row(big + "glyph 1\nglyph 2 slot 9\nend\n",
            "line 4: slot 9 is outside the index of 3 records");
        row(big + "glyph 1 slot 2\nglyph 2\nend\n",
            "line 5: slot 3 is outside the index of 3 records");
        row(big + "entry 1 code 2 length 65536\n", "line 3: 65536 is not in 0 to 65535");
        row(big + "entry 1 code 2 length 3 offset -4\n",
            "line 3: \"-4\" is no whole number of 32 bits");
        row("form bigfont\nempty 0 to 65534\nglyph 5\n",
            "line 3: more glyphs than a font can count: 65535");
        row(kStart + "glyph 0x10000\n", "line 7: 65536 is not in 0 to 65535");
        row(kStart + "glyph 'AB'\n",
            "line 7: 'AB' has no code in a shapes font; give it as a number");
        row(kStart + "glyph '\xC3\x84'\n",
            "line 7: '\xC3\x84' has no code in a shapes font; give it as a number");
        row(uni + "glyph '\xF0\x9F\x98\x80'\n",
            "line 3: '\xF0\x9F\x98\x80' has no code in a unifont font; give it as a number");
        row(big + "glyph '\xF0\x9F\x98\x80'\n",
            "line 3: '\xF0\x9F\x98\x80' has no code in a bigfont font; give it as a number");
        row(kStart + "glyph '\xFF'\n", "line 7: the character in quotes is not in UTF-8");
        row(kStart + "glyph 'A\n\n'", "line 7: a character in single quotes has no end");
        row(kStart + "glyph ''\n", "line 7: a character in single quotes has no end");
        row(kStart + "glyph 5 \"a\\x00\"\n", "line 7: a name holds no byte 0");
        row(kStart + "glyph 5 \"a\" bare\n", "line 7: a bare glyph has no name");
        row(kStart + "glyph 5 bare\nup\nend\nglyph 6\n", "line 7: a bare glyph holds no byte 0");
        row(kStart + "glyph 5 \"a\" \"b\"\n", "line 7: \"b\" is too much behind \"glyph\"");
        row(kStart + "glyph 5\nraw" + QByteArray(" FF").repeated(65535) + "\n",
            "line 7: the glyph takes 65536 bytes, at most 65535 with its name");
        row(glyph + "line x 3\n", "line 8: \"x\" is no direction such as n, ne or nne");
        row(glyph + "line\n", "line 8: a direction is missing behind \"line\"");
        row(glyph + "line n\n", "line 8: a number is missing behind \"n\"");
        row(glyph + "line n 16\n", "line 8: a length of 16 is not in 1 to 15");
        row(glyph + "line 1\n", "line 8: a number is missing behind \"1\"");
        row(glyph + "line 1 128\n", "line 8: a step of 128 is not in -128 to 127");
        row(glyph + "line 1 2 3\n", "line 8: \"3\" is too much behind \"line\"");
        row(glyph + "lines 1,2,3\n", "line 8: \"1,2,3\" should be 2 numbers with commas");
        row(glyph + "lines 1,\n", "line 8: \"\" is no whole number");
        row(glyph + "lines 1,2 \\\n 3,4 \\\n 0,0\n", "line 8: 0,0 ends the list");
        row(glyph + "lines 1,2 \\ 3,4\n", "line 8: \\ stands at the end of a line only");
        row(glyph + "arc 3 over 2\n", "line 8: \"over\" where \"from\" should be");
        row(glyph + "arc 3 from 8 over 2\n", "line 8: octant 8 is not in 0 to 7");
        row(glyph + "arc 3 from 1 over 0\n", "line 8: a span of 0 is not in 1 to 8");
        row(glyph + "arc 3 from 1 over 2 widdershins\n",
            "line 8: \"widdershins\" is too much behind \"arc\"");
        row(glyph + "fractional-arc 3 from 1 over 2\n",
            "line 8: \"start\" is missing behind \"2\"");
        row(glyph + "bulge 1 2\n", "line 8: a number is missing behind \"2\"");
        row(glyph + "bulge 0 0 3\n", "line 8: 0 0 has no bulge");
        row(glyph + "bulge 1 2 128\n", "line 8: a bulge of 128 is not in -128 to 127");
        row(glyph + "bulges 1,2\n", "line 8: \"1,2\" should be 3 numbers with commas");
        row(glyph + "subshape 256\n", "line 8: subshape 256 is not in 0 to 255");
        row(glyph + "scale-up 0\n", "line 8: a scale of 0 is not in 1 to 255");
        row(glyph + "end up\n", "line 8: \"up\" is too much behind \"end\"");
        row(glyph + "u\x01p\n", "line 8: a control character stands outside of quotes");
        row(glyph + QByteArray(50, 'w') + "\n",
            "line 8: \"wwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwww...\" is no statement");
    }

    void error_namesTheLine()
    {
        QFETCH(QByteArray, source);
        QFETCH(QString, error);
        QCOMPARE(errorOf(source), error);
        QVERIFY(!fontkit::compileFont(source));
    }

    void examplesOfTheManual_compile()
    {
        QFile manual(QStringLiteral(ZT_TEST_DATA_DIR "/../../docs/formats/font-source.md"));
        QVERIFY(manual.open(QIODevice::ReadOnly));
        const QList<QByteArray> parts = manual.readAll().replace("```", "\a").split('\a');
        QCOMPARE(parts.size(), 5);
        QCOMPARE(compiled(parts[1]).glyphs.size(), size_t(2));
        const FontFile big = compiled(parts[3]);
        QCOMPARE(int(big.glyphs[0].code), 0xC4E3);
        QCOMPARE(big.trailing, QByteArray("EOF"));
        QVERIFY(!fontkit::writeFont(big).isEmpty());
    }

    void unwrittenNulByte_isNoWayOutOfTheText()
    {
        QByteArray source = kStart + "glyph 5\nup\n";
        source[source.size() - 2] = '\0';
        QCOMPARE(errorOf(source),
                 QStringLiteral("line 8: a control character stands outside of quotes"));
    }
};

QTEST_GUILESS_MAIN(tst_FontSource)
#include "tst_FontSource.moc"
