#include <support/ShxWriter.h>

#include <fontkit/FontReader.h>

#include <QtTest/QTest>

using fontkit::FontFile;
using fontkit::FontForm;
using fontkit::FontInformation;
using fontkit::GlyphDefinition;
using testsupport::bytes;

Q_DECLARE_METATYPE(FontFile)

namespace {

GlyphDefinition glyph(int code, const QByteArray &program, const QByteArray &name = {})
{
    GlyphDefinition definition;
    definition.code = static_cast<quint16>(code);
    definition.name = name;
    definition.program = program;
    return definition;
}

FontInformation information(const QByteArray &name, int above, int below)
{
    FontInformation result;
    result.name = name;
    result.above = static_cast<quint8>(above);
    result.below = static_cast<quint8>(below);
    return result;
}

FontFile font(FontForm form)
{
    FontFile result;
    result.form = form;
    result.information = information("font", 4, 1);
    return result;
}

QByteArray filling(int size) { return QByteArray(size, '\x1A'); }

/** Bytes of a "shapes" file of one glyph, by hand. */
QByteArray shapesBytes()
{
    return "ZT font 1.0shapes" + filling(11) + bytes({2, 0, 0, 0, 9, 0, 0x41, 0, 4, 0}) + "font" +
           bytes({0, 4, 1, 0, 0}) + bytes({0, 0x44, 2, 0x8C});
}

QByteArray unifontBytes()
{
    return "ZT font 1.0unifont" + filling(7) + bytes({1, 0, 0, 0, 11, 0}) + "font" +
           bytes({0, 4, 1, 0, 0, 0, 0}) + bytes({0x60, 0x4F, 6, 0}) + "you" + bytes({0, 0x10, 0});
}

/** Two glyphs; the data begins at 31 + 4 + 24 = 59. */
QByteArray bigfontBytes()
{
    return "ZT font 1.0bigfont" + filling(9) + bytes({3, 0, 1, 0, 0x81, 0, 0xFE, 0}) +
           bytes({0, 0, 9, 0, 59, 0, 0, 0}) + bytes({0xE3, 0xC4, 3, 0, 68, 0, 0, 0}) +
           bytes({0xC3, 0xBA, 3, 0, 71, 0, 0, 0}) + "font" + bytes({0, 4, 1, 0, 0}) +
           bytes({0, 0x10, 0}) + bytes({0, 0x20, 0});
}

FontFile shapesFont()
{
    FontFile result = font(FontForm::Shapes);
    result.glyphs = {glyph(0x41, bytes({0x44, 2, 0x8C}))};
    return result;
}

FontFile unifontFont()
{
    FontFile result = font(FontForm::Unifont);
    result.glyphs = {glyph(0x4F60, bytes({0x10, 0}), "you")};
    return result;
}

FontFile bigfontFont()
{
    FontFile result = font(FontForm::Bigfont);
    result.ranges = {{0x81, 0xFE}};
    result.glyphs = {glyph(0xC4E3, bytes({0x10, 0})), glyph(0xBAC3, bytes({0x20, 0}))};
    return result;
}

QString writeError(const FontFile &font)
{
    QString error;
    return fontkit::writeFont(font, &error).isEmpty() ? error : QStringLiteral("written");
}

QString readError(const QByteArray &file)
{
    QString error;
    return fontkit::readFont(file, &error) ? QStringLiteral("read") : error;
}

bool isReadAsWritten(const FontFile &font)
{
    const auto read = fontkit::readFont(fontkit::writeFont(font));
    return read && *read == font;
}

void put(QByteArray &file, int offset, std::initializer_list<int> numbers)
{
    file.replace(offset, static_cast<int>(numbers.size()), bytes(numbers));
}

} // namespace

/** The writer and the reader of font files. */
class tst_FontFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void form_isWrittenAndReadByteByByte_data()
    {
        QTest::addColumn<FontFile>("font");
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("shapes") << shapesFont() << shapesBytes();
        QTest::newRow("unifont") << unifontFont() << unifontBytes();
        QTest::newRow("bigfont") << bigfontFont() << bigfontBytes();
        FontFile plain = shapesFont();
        plain.information = std::nullopt;
        QTest::newRow("shape file")
            << plain
            << "ZT font 1.0shapes" + filling(11) + bytes({1, 0, 0x41, 0, 4, 0, 0, 0x44, 2, 0x8C});
        FontFile nothing = font(FontForm::Shapes);
        nothing.information = std::nullopt;
        QTest::newRow("nothing") << nothing << "ZT font 1.0shapes" + filling(11) + bytes({0, 0});
    }

    void form_isWrittenAndReadByteByByte()
    {
        QFETCH(FontFile, font);
        QFETCH(QByteArray, file);
        QString error;
        QCOMPARE(fontkit::writeFont(font, &error).toHex(), file.toHex());
        const auto read = fontkit::readFont(file, &error);
        QVERIFY2(read.has_value(), qPrintable(error));
        QVERIFY(*read == font);
    }

    void writeFont_matchesTheTestsOwnWriter()
    {
        testsupport::ShxWriter writer;
        writer.above = 4;
        writer.below = 1;
        writer.glyphs = {{0x41, bytes({0x44, 2, 0x8C}), {}}};
        QCOMPARE(fontkit::writeFont(shapesFont()).toHex(), writer.shapes().toHex());
    }

    void shapes_keepsWhatAForeignFileHas()
    {
        QByteArray file = shapesBytes();
        file.replace(0, 11,
                     QByteArray("\x00\xFF"
                                "foreign \n",
                                11));
        put(file, 17, {'1', '.', '0', 13, 10, 26, 0, 26, 'x', 26, 26});
        put(file, 38 + 5, {0, 9, 2, 7}); // ascender 0, and no 0 at the end
        file += "EOF";
        const auto read = fontkit::readFont(file);
        QVERIFY(read.has_value());
        QCOMPARE(read->prefix, QByteArray("\x00\xFF"
                                          "foreign \n",
                                          11));
        QCOMPARE(read->version, QByteArray("1.0\r\n\x1A\x00\x1Ax", 9));
        QCOMPARE(int(read->information->above), 0);
        QCOMPARE(int(read->information->below), 9);
        QCOMPARE(int(read->information->modes), 2);
        QCOMPARE(int(read->information->last), 7);
        QCOMPARE(read->trailing, QByteArray("EOF"));
        QCOMPARE(fontkit::writeFont(*read).toHex(), file.toHex());
    }

    void shapes_informationOfAnotherShapeIsAGlyph()
    {
        FontFile odd = shapesFont();
        odd.information = std::nullopt;
        odd.glyphs.insert(odd.glyphs.begin(), glyph(0, bytes({4, 1, 2, 0, 0}), "font"));
        QVERIFY(isReadAsWritten(odd));
        odd.glyphs[0].program = bytes({4, 1, 0, 0});
        const auto read = fontkit::readFont(fontkit::writeFont(odd));
        QVERIFY(read && read->information);
        QCOMPARE(read->glyphs.size(), size_t(1));
    }

    void definitionWithoutNul_isBare()
    {
        FontFile odd = shapesFont();
        odd.glyphs[0] = glyph(0x41, bytes({0x44, 2}));
        odd.glyphs[0].bare = true;
        odd.glyphs.push_back(glyph(0x42, {}));
        odd.glyphs.back().bare = true; // of no bytes at all
        const QByteArray file = fontkit::writeFont(odd);
        QCOMPARE(file.size(), 28 + 2 + 3 * 4 + 9 + 2);
        QVERIFY(*fontkit::readFont(file) == odd);
    }

    void unifont_keepsACountWithTheInformation()
    {
        QByteArray file = unifontBytes();
        put(file, 25, {2, 0});
        for (const QByteArray &end : {QByteArray(), QByteArray("\x1A"), QByteArray("EOF")}) {
            const auto read = fontkit::readFont(file + end);
            QVERIFY(read.has_value());
            QVERIFY(read->countsInformation);
            QCOMPARE(read->trailing, end);
            QCOMPARE(fontkit::writeFont(*read).toHex(), (file + end).toHex());
        }
        QCOMPARE(readError(file + "more"),
                 QStringLiteral("offset 56: the file ends within glyph 0x6F6D"));
        put(file, 27, {1, 0}); // no sign of a counted information
        QCOMPARE(readError(file), QStringLiteral("offset 52: the file ends within record 2 of 2"));
    }

    void unifont_keepsItsUnusedBytesAndFigures()
    {
        QByteArray file = unifontBytes() + "tail";
        put(file, 27, {1, 2, 3, 4});
        put(file, 36, {4, 1, 5, 6, 7, 8});
        const auto read = fontkit::readFont(file);
        QVERIFY(read.has_value());
        QCOMPARE(read->unused, bytes({1, 2, 3, 4}));
        QCOMPARE(int(read->information->encoding), 6);
        QCOMPARE(int(read->information->embedding), 7);
        QCOMPARE(int(read->information->last), 8);
        QCOMPARE(read->trailing, QByteArray("tail"));
        QCOMPARE(fontkit::writeFont(*read).toHex(), file.toHex());
    }

    void bigfont_keepsGapsOrderEmptySlotsAndSharedDefinitions()
    {
        // Six records; the data begins at 31 + 48 = 79.
        const QByteArray index = bytes({0, 0, 9, 0, 79, 0, 0, 0}) +       // information
                                 bytes({0xC3, 0xBA, 3, 0, 93, 0, 0, 0}) + // second in the data
                                 bytes({0, 0, 0, 0, 0, 0, 0, 0}) +        // empty
                                 bytes({0xE3, 0xC4, 3, 0, 90, 0, 0, 0}) + // first, after a gap
                                 bytes({0xE4, 0xC4, 2, 0, 94, 0, 0, 0}) + // inside another
                                 bytes({0xE5, 0xC4, 5, 0, 3, 0, 0, 0});   // in the header
        const QByteArray file = "ZT font 1.0bigfont" + filling(9) + bytes({6, 0, 0, 0}) + index +
                                "font" + bytes({0, 4, 1, 0, 0}) + "xy" + bytes({0, 0x10, 0}) +
                                bytes({0, 0x20, 0}) + "z";
        QString error;
        const auto read = fontkit::readFont(file, &error);
        QVERIFY2(read.has_value(), qPrintable(error));
        QVERIFY(read->information == information("font", 4, 1));
        QCOMPARE(read->glyphs.size(), size_t(2));
        QCOMPARE(int(read->glyphs[0].code), 0xC4E3);
        QCOMPARE(read->glyphs[0].gapBefore, QByteArray("xy"));
        QCOMPARE(read->glyphs[0].slot, 3);
        QCOMPARE(int(read->glyphs[1].code), 0xBAC3);
        QCOMPARE(read->glyphs[1].slot, 1);
        QCOMPARE(read->entries.size(), size_t(3));
        QCOMPARE(read->entries[0].slot, 2);
        QCOMPARE(read->entries[1].offset, 94u);
        QCOMPARE(int(read->entries[2].length), 5);
        QCOMPARE(read->trailing, QByteArray("z"));
        QCOMPARE(fontkit::writeFont(*read).toHex(), file.toHex());
    }

    void bigfont_withoutInformationInItsPlace_hasGlyphsAlone()
    {
        FontFile odd = bigfontFont();
        odd.information = std::nullopt;
        const QByteArray file = fontkit::writeFont(odd);
        QVERIFY(*fontkit::readFont(file) == odd);
    }

    void resolveSlots_goesOnBehindTheGlyphBefore()
    {
        FontFile font = bigfontFont();
        font.entries = {{1, 0, 0, 0}, {4, 0, 0, 0}};
        font.glyphs.push_back(glyph(1, {}));
        font.glyphs[1].slot = 5;
        font.glyphs[2].slot = 3;
        QString error;
        const auto slotOfGlyph = fontkit::resolveSlots(font, &error);
        QVERIFY2(slotOfGlyph.has_value(), qPrintable(error));
        QVERIFY((*slotOfGlyph == std::vector<int>{2, 5, 3}));
    }

    void writeFont_refusesWhatAFileCannotHold_data()
    {
        QTest::addColumn<FontFile>("font");
        QTest::addColumn<QString>("error");
        const auto row = [](const char *error, FontFile font, auto change) {
            change(font);
            QTest::newRow(error) << font << QString::fromLatin1(error);
        };
        const FontFile shapes = shapesFont();
        const FontFile big = bigfontFont();
        const FontFile uni = unifontFont();
        const auto many = [](FontFile &f) { f.glyphs.resize(65535); };
        row("the prefix has 3 bytes, not 11", shapes, [](FontFile &f) { f.prefix = "abc"; });
        row("the version has 12 bytes, at most 11 in this form", shapes,
            [](FontFile &f) { f.version = QByteArray(12, 'v'); });
        row("the version has 10 bytes, at most 9 in this form", big,
            [](FontFile &f) { f.version = QByteArray(10, 'v'); });
        row("the version has 8 bytes, at most 7 in this form", uni,
            [](FontFile &f) { f.version = QByteArray(8, 'v'); });
        row("a unifont needs its font information", uni,
            [](FontFile &f) { f.information = std::nullopt; });
        row("the font's name holds a NUL", shapes,
            [](FontFile &f) { f.information->name = QByteArray(2, '\0'); });
        row("the font's name is too long", shapes,
            [](FontFile &f) { f.information->name = QByteArray(65531, 'n'); });
        row("there are 4 unused bytes, not 3", uni, [](FontFile &f) { f.unused = "abc"; });
        row("only a bigfont has ranges of lead bytes", shapes, [](FontFile &f) {
            f.ranges = {{1, 2}};
        });
        row("only a bigfont has slots and gaps", uni, [](FontFile &f) { f.entries = {{}}; });
        row("only a bigfont has slots and gaps ", uni, [](FontFile &f) { f.glyphs[0].slot = 0; });
        row("only a bigfont has slots and gaps  ", shapes,
            [](FontFile &f) { f.glyphs[0].gapBefore = "g"; });
        row("only a unifont has unused bytes and counts its information", big,
            [](FontFile &f) { f.countsInformation = true; });
        row("65536 glyphs are too many, at most 65535", shapes, many);
        row("65536 ranges are too many, at most 65535", big,
            [](FontFile &f) { f.ranges.resize(65536); });
        row("glyph 0x41: a name holds no NUL", shapes,
            [](FontFile &f) { f.glyphs[0].name = QByteArray(1, '\0'); });
        row("glyph 0x41: a bare glyph has no name and no byte 0", shapes, [](FontFile &f) {
            f.glyphs[0].bare = true;
            f.glyphs[0].program += '\0';
        });
        row("glyph 0x4F60: longer than 65535 bytes", uni,
            [](FontFile &f) { f.glyphs[0].program = QByteArray(65532, 'x'); });
        row("the file would be larger than 64 MiB", shapes,
            [](FontFile &f) { f.trailing = QByteArray((64 << 20) + 1, 'x'); });
        row("slot 0 is taken twice", big, [](FontFile &f) { f.glyphs[1].slot = 0; });
        row("slot 3 is outside the index of 3 records", big,
            [](FontFile &f) { f.glyphs[1].slot = 3; });
        row("slot 3 is outside the index of 3 records ", big,
            [](FontFile &f) { f.glyphs[0].slot = 2; });
    }

    void writeFont_refusesWhatAFileCannotHold()
    {
        QFETCH(FontFile, font);
        QFETCH(QString, error);
        QCOMPARE(writeError(font), error.trimmed());
        QCOMPARE(fontkit::writeFont(font), QByteArray());
    }

    void writeFont_takesTheMostAFileCanCount()
    {
        FontFile font = unifontFont();
        font.glyphs.resize(65535);
        QVERIFY(isReadAsWritten(font));
        font.glyphs[0].name.clear();
        font.glyphs[0].program = QByteArray(65534, 'x');
        font.information->name = QByteArray(fontkit::longestName(FontForm::Unifont), 'n');
        QVERIFY(isReadAsWritten(font));
        font.information->name += 'n';
        QCOMPARE(writeError(font), QStringLiteral("the font's name is too long"));
    }

    void readFont_tellsWhereAFileIsDamaged_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("error");
        const auto row = [](const char *error, const QByteArray &file) {
            QTest::newRow(error) << file << QString::fromLatin1(error);
        };
        const auto changed = [](QByteArray file, int offset, std::initializer_list<int> numbers) {
            put(file, offset, numbers);
            return file;
        };
        row("offset 11: neither shapes, bigfont nor unifont stands here", {});
        row("offset 11: neither shapes, bigfont nor unifont stands here ",
            changed(shapesBytes(), 12, {'H'}));
        row("offset 17: the file ends within the header", shapesBytes().left(27));
        row("offset 28: the file ends within the count of glyphs", shapesBytes().left(29));
        row("offset 36: the file ends within the index of 2 glyphs", shapesBytes().left(37));
        row("offset 38: the file ends within glyph 0x00", shapesBytes().left(46));
        row("offset 47: the file ends within glyph 0x41", shapesBytes().left(50));
        row("offset 52: the file ends within the index of 9 glyphs",
            changed(shapesBytes() + 'x', 28, {9}).left(52));
        row("offset 27: the file ends within the header", unifontBytes().left(30));
        row("offset 31: the font's name has no end", unifontBytes().left(35));
        row("offset 36: the file ends within the font information", unifontBytes().left(41));
        row("offset 42: the file ends within record 1 of 2",
            changed(unifontBytes(), 25, {2}).left(43));
        row("offset 46: the file ends within glyph 0x4F60", unifontBytes().left(51));
        row("offset 31: the font's name is 65529 bytes long, at most 65528",
            unifontBytes().left(31) + QByteArray(65529, 'n') + QByteArray(6, '\0'));
        row("offset 29: the file ends within the count of lead-byte ranges",
            bigfontBytes().left(30));
        row("offset 33: the file ends within the 1 lead-byte ranges", bigfontBytes().left(34));
        row("offset 51: the file ends within the index of 3 glyphs", bigfontBytes().left(52));
        row("offset 55: glyph 0xBAC3 lies at 71 to 74, the file has 73 bytes",
            bigfontBytes().left(73));
        row("offset 47: glyph 0xC4E3 lies at 4294967040 to 4294967043, the file has 74 bytes",
            changed(bigfontBytes(), 47, {0, 0xFF, 0xFF, 0xFF}));
        row("the file is larger than 64 MiB", QByteArray((64 << 20) + 1, 'x'));
    }

    void readFont_tellsWhereAFileIsDamaged()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, error);
        QCOMPARE(readError(file), error.trimmed());
        QVERIFY(!fontkit::readFont(file));
    }

    void readFont_cutAnywhere_isRefused()
    {
        for (const QByteArray &file : {shapesBytes(), unifontBytes(), bigfontBytes()}) {
            for (int size = 0; size < file.size(); ++size) {
                QString error;
                const auto read = fontkit::readFont(file.left(size), &error);
                const bool isWholeButForOneRecord = size >= 42 && size < 46 && file[11] == 'u';
                QCOMPARE(read.has_value(), isWholeButForOneRecord);
                QVERIFY(read || error.startsWith(QStringLiteral("offset ")));
                QVERIFY(!read || fontkit::writeFont(*read) == file.left(size));
            }
        }
    }
};

QTEST_GUILESS_MAIN(tst_FontFile)
#include "tst_FontFile.moc"
