#include <support/ShxRecorder.h>
#include <support/ShxWriter.h>

#include <ZTDrawEngineLib/shx/ZTShxParser.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <limits>
#include <sys/stat.h>

using testsupport::bytes;
using testsupport::nearCalls;
using testsupport::ShxRecorder;
using testsupport::ShxWriter;

namespace {

/** One glyph for "A", two units wide. */
ShxWriter writerOfA(int above)
{
    ShxWriter writer;
    writer.above = above;
    writer.glyphs = {{65, bytes({0x20}), {}}};
    return writer;
}

} // namespace

/** The file: which form it has, what its header says, and who holds its image. */
class tst_ZTShxParser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(folder.isValid()); }

    void typeNumbers_arePartOfTheInterface()
    {
        QCOMPARE(static_cast<int>(SHX_TYPE::SHX_SHAPES), 0);
        QCOMPARE(static_cast<int>(SHX_TYPE::SHX_UNIFONT), 1);
        QCOMPARE(static_cast<int>(SHX_TYPE::SHX_BIGFONT), 2);
        QCOMPARE(static_cast<int>(SHX_TYPE::SHX_SHAPE_ONLY), 3);
        QCOMPARE(static_cast<int>(SHX_TYPE::SHX_NONE), 4);
    }

    void newParser_holdsNothing()
    {
        ZTShxParser parser;
        QCOMPARE(parser.GetType(), SHX_TYPE::SHX_NONE);
        QCOMPARE(parser.getTextHeight(), 0.0);
        QCOMPARE(parser.getTextExtent("A"), 0.0);
        parser.cleanup();
        parser.resetNextGlyph();
        QVERIFY(!parser.showNextGlyph(nullptr, 0.0, 0.0));
    }

    void init_withoutUsablePath_leavesNone_data()
    {
        QTest::addColumn<QByteArray>("path");
        const QString pipe = folder.filePath(QStringLiteral("pipe"));
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QTest::newRow("null") << QByteArray();
        QTest::newRow("empty") << QByteArray("");
        QTest::newRow("missing") << QByteArray("/no/such/font.shx");
        QTest::newRow("folder") << QFile::encodeName(folder.path());
        QTest::newRow("device") << QByteArray("/dev/zero");
        QTest::newRow("pipe") << QFile::encodeName(pipe);
        QTest::newRow("too long") << QByteArray(100000, 'x');
    }
    void init_withoutUsablePath_leavesNone()
    {
        QFETCH(QByteArray, path);
        const char *name = path.isNull() ? nullptr : path.constData();
        ZTShxParser parser(name);
        QCOMPARE(parser.GetType(), SHX_TYPE::SHX_NONE);
        QCOMPARE(parser.getTextHeight(), 1.0);
        parser.cleanup();
        QCOMPARE(parser.getTextExtent("A"), 0.0);
    }

    void init_hugeFile_isLeftAlone()
    {
        const QString path = folder.filePath(QStringLiteral("huge.shx"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(writerOfA(1).shapes());
        QVERIFY(file.resize(qint64(1) << 40)); // no blocks on disk, only a size
        file.close();
        ZTShxParser parser(path.toLocal8Bit().constData());
        QCOMPARE(parser.GetType(), SHX_TYPE::SHX_NONE);
        QVERIFY(file.remove());
    }

    void keyword_tellsTheForm_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<int>("type");
        const auto withKeyword = [](const char *keyword) {
            return QByteArray(11, 'p') + keyword + QByteArray(300, '\1');
        };
        QTest::newRow("shapes") << writerOfA(1).shapes() << 0;
        QTest::newRow("unifont") << writerOfA(1).unifont() << 1;
        QTest::newRow("bigfont") << writerOfA(1).bigfont() << 2;
        QTest::newRow("shapes only") << writerOfA(1).shapesOnly() << 3;
        QTest::newRow("six letters suffice") << withKeyword("shapesXYZ") << 3;
        QTest::newRow("unknown") << withKeyword("symbols") << 4;
        QTest::newRow("upper case") << withKeyword("SHAPES") << 4;
        QTest::newRow("six of seven letters") << withKeyword("bigfon ") << 4;
        QTest::newRow("a byte early") << QByteArray(10, 'p') + "shapes" + QByteArray(99, '\1') << 4;
        QTest::newRow("empty") << QByteArray("") << 4;
        QTest::newRow("prefix alone") << QByteArray(11, 'p') << 4;
    }
    void keyword_tellsTheForm()
    {
        QFETCH(QByteArray, file);
        QFETCH(int, type);
        ZTShxParser parser = load(file);
        QCOMPARE(static_cast<int>(parser.GetType()), type);
    }

    void exampleOfTheFormatDescription_isAFont()
    {
        const QByteArray file = QByteArray::fromHex("5A5420666F6E7420312E30"
                                                    "736861706573"
                                                    "1A1A1A1A1A1A1A1A1A1A1A"
                                                    "0200"
                                                    "00000900"
                                                    "41000400"
                                                    "666F6E740004010000"
                                                    "0044028C");
        ZTShxParser parser = load(file);
        QCOMPARE(parser.GetType(), SHX_TYPE::SHX_SHAPES);
        parser.setTextHeight(4.0);
        ShxRecorder recorder;
        parser.drawText(&recorder, "A", 0.0, 0.0);
        QVERIFY(nearCalls(recorder, QStringLiteral("B 0,0 0,4 E B 0,-4 E")));
    }

    void firstElevenBytes_areFree()
    {
        ShxWriter writer = writerOfA(1);
        writer.prefix = bytes({0, 10, 13, 26, 255, 0, 0, 1, 2, 3, 4});
        QCOMPARE(load(writer.shapes()).GetType(), SHX_TYPE::SHX_SHAPES);
        QCOMPARE(load(writer.unifont()).GetType(), SHX_TYPE::SHX_UNIFONT);
        QCOMPARE(load(writer.bigfont()).GetType(), SHX_TYPE::SHX_BIGFONT);
    }

    void bytesBetweenKeywordAndCount_areFree()
    {
        QByteArray shapes = writerOfA(1).shapes();
        shapes.replace(17, 11, QByteArray(11, '\0'));
        QCOMPARE(load(shapes).getTextExtent("A"), 2.0);
        QByteArray bigfont = writerOfA(1).bigfont();
        bigfont.replace(18, 9, QByteArray(9, '\0'));
        QCOMPARE(load(bigfont).getTextExtent("A"), 2.0);
        QByteArray unifont = writerOfA(1).unifont();
        unifont.replace(18, 7, QByteArray(7, '\0'));
        QCOMPARE(load(unifont).getTextExtent(L"A"), 2.0);
    }

    void unifontDescription_endsAtTheFirstNulFromByte31()
    {
        QByteArray file = writerOfA(1).unifont();
        file.replace(27, 4, QByteArray(4, '\0')); // before it: not the end
        QCOMPARE(load(file).getTextExtent(L"A"), 2.0);
        file.remove(31, 8); // "unifont" and the line end: no description at all
        QCOMPARE(file[31], '\0');
        QCOMPARE(load(file).getTextExtent(L"A"), 2.0);
    }

    void bytesOfTheFile_areNotTranslated()
    {
        // Line ends and the old end mark inside a definition.
        ShxWriter writer = writerOfA(1);
        writer.glyphs = {{65, bytes({8, 13, 10, 8, 26, 0}), {}}};
        QCOMPARE(load(writer.shapes()).getTextExtent("A"), 39.0);
    }

    void ascender_dividesTheScale_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<double>("extentOfA");
        ShxWriter writer = writerOfA(8);
        QTest::newRow("shapes") << writer.shapes() << 2.0 / 8;
        QTest::newRow("unifont") << writer.unifont() << 2.0 / 8;
        QTest::newRow("bigfont") << writer.bigfont() << 2.0 / 8;
        QTest::newRow("shapes only: 4") << writer.shapesOnly() << 2.0 / 4;
        writer.above = 0;
        writer.below = 5;
        QTest::newRow("shapes, 0: descender") << writer.shapes() << 2.0 / 5;
        QTest::newRow("unifont, 0: descender") << writer.unifont() << 2.0 / 5;
        QTest::newRow("bigfont, 0: next byte") << writer.bigfont() << 2.0 / 5;
        writer.above = 200;
        QTest::newRow("unsigned") << writer.shapes() << 2.0 / 200;
        writer.above = 0;
        writer.below = 0;
        const double infinity = std::numeric_limits<double>::infinity();
        QTest::newRow("none at all") << writer.shapes() << infinity;
    }
    void ascender_dividesTheScale()
    {
        QFETCH(QByteArray, file);
        QFETCH(double, extentOfA);
        ZTShxParser parser = load(file);
        QVERIFY(parser.getTextExtent("A") == extentOfA);
    }

    void withoutAscender_noPointIsGiven()
    {
        ZTShxParser parser = load(writerOfA(0).shapes());
        ShxRecorder recorder;
        parser.drawText(&recorder, "A", 3.0, 4.0);
        QVERIFY(nearCalls(recorder, QStringLiteral("B 3,4 E")));
    }

    void startThatIsNotFinite_isNoPoint()
    {
        ZTShxParser parser = load(writerOfA(2).shapes());
        ShxRecorder recorder;
        parser.drawText(&recorder, "A", std::numeric_limits<double>::quiet_NaN(), 4.0);
        parser.resetNextGlyph();
        parser.showNextGlyph(&recorder, 0.0, std::numeric_limits<double>::infinity());
        QVERIFY(nearCalls(recorder, QStringLiteral("B E E B")));
    }

    void failedInit_leavesAParserThatCanLoadAgain()
    {
        ZTShxParser parser = load(writerOfA(8).shapes());
        parser.init("/no/such/font.shx");
        QCOMPARE(parser.GetType(), SHX_TYPE::SHX_NONE);
        QCOMPARE(parser.getTextHeight(), 1.0);
        const QString path = write(QStringLiteral("other"), writerOfA(2).shapes());
        parser.init(path.toLocal8Bit().constData());
        QCOMPARE(parser.getTextExtent("A"), 1.0);
    }

    void leadByteRanges_readTwoBytesOfFour()
    {
        ShxWriter writer;
        writer.ranges = {{0x81, 0x83}, {0xF0, 0xF0}};
        writer.glyphs = {{0x8141, bytes({0x20}), {}},
                         {0x8341, bytes({0x30}), {}},
                         {0xF041, bytes({0x40}), {}},
                         {0x41, bytes({0x10}), {}}};
        ZTShxParser parser = load(writer.bigfont());
        QCOMPARE(parser.getTextExtent("\x81\x41"), 2.0);
        QCOMPARE(parser.getTextExtent("\x83\x41"), 3.0);
        QCOMPARE(parser.getTextExtent("\xF0\x41"), 4.0);
        // Outside the ranges, also between the ignored bytes 0x55 and 0xAA of a range.
        for (const char *text : {"\x80\x41", "\x84\x41", "\xEF\x41", "\xF1\x41", "\x56\x41"})
            QCOMPARE(parser.getTextExtent(text), 1.0);
    }

    void leadByteRanges_backwards_holdNothing()
    {
        ShxWriter writer;
        writer.ranges = {{0x90, 0x80}};
        writer.glyphs = {{0x41, bytes({0x10}), {}}, {0x8541, bytes({0x20}), {}}};
        QCOMPARE(load(writer.bigfont()).getTextExtent("\x85\x41"), 1.0);
    }

    void leadByteRanges_addUpOverInits_kept()
    {
        ShxWriter writer;
        writer.ranges = {{0x81, 0x81}};
        writer.glyphs = {{0x8141, bytes({0x20}), {}}, {0x9141, bytes({0x30}), {}}};
        ZTShxParser parser = load(writer.bigfont());
        QCOMPARE(parser.getTextExtent("\x91\x41"), 0.0);
        writer.ranges = {{0x91, 0x91}};
        const QString path = write(QStringLiteral("second"), writer.bigfont());
        parser.init(path.toLocal8Bit().constData());
        QCOMPARE(parser.getTextExtent("\x81\x41"), 2.0);
        QCOMPARE(parser.getTextExtent("\x91\x41"), 3.0);
    }

    void secondInit_readsTheNewFileAlone()
    {
        ZTShxParser parser = load(writerOfA(1).shapes());
        QCOMPARE(parser.getTextExtent("A"), 2.0);
        ShxWriter other;
        other.glyphs = {{66, bytes({0x50}), {}}, {67, {}, {}}, {68, {}, {}}, {69, {}, {}}};
        const QString path = write(QStringLiteral("second"), other.unifont());
        parser.setTextHeight(7.0);
        parser.resetNextGlyph();
        parser.init(path.toLocal8Bit().constData());
        QCOMPARE(parser.GetType(), SHX_TYPE::SHX_UNIFONT);
        QCOMPARE(parser.getTextHeight(), 1.0);
        QCOMPARE(parser.getTextExtent(L"A"), 0.0);
        QCOMPARE(parser.getTextExtent(L"B"), 5.0);
        QVERIFY(!parser.showNextGlyph(nullptr, 0.0, 0.0));
    }

    void cleanup_dropsTheGlyphs_andKeepsTheRest()
    {
        ZTShxParser parser = load(writerOfA(1).shapes());
        parser.setTextHeight(3.0);
        parser.resetNextGlyph();
        parser.cleanup();
        parser.cleanup();
        QCOMPARE(parser.GetType(), SHX_TYPE::SHX_SHAPES);
        QCOMPARE(parser.getTextHeight(), 3.0);
        ShxRecorder recorder;
        QCOMPARE(parser.drawText(&recorder, "A", 0.0, 0.0), 0.0);
        QVERIFY(nearCalls(recorder, QStringLiteral("B 0,0 E")));
        QVERIFY(!parser.showNextGlyph(nullptr, 0.0, 0.0));
        parser.resetNextGlyph();
        QVERIFY(!parser.showNextGlyph(nullptr, 0.0, 0.0));
        const QString path = write(QStringLiteral("again"), writerOfA(1).shapes());
        parser.init(path.toLocal8Bit().constData());
        QCOMPARE(parser.getTextExtent("A"), 2.0);
    }

    void copies_shareTheImageAndNothingElse()
    {
        ZTShxParser copy;
        {
            ZTShxParser source = load(writerOfA(1).shapes());
            source.setTextHeight(3.0);
            copy = source;
            source.setTextHeight(5.0);
            source.cleanup();
            QCOMPARE(source.getTextExtent("A"), 0.0);
        }
        QCOMPARE(copy.getTextHeight(), 3.0);
        QCOMPARE(copy.getTextExtent("A"), 6.0);
        const ZTShxParser *self = &copy;
        copy = *self;
        QCOMPARE(copy.getTextExtent("A"), 6.0);
        ZTShxParser second(copy);
        second.init(nullptr);
        QCOMPARE(copy.getTextExtent("A"), 6.0);
    }

    void copies_haveTheirOwnWalk()
    {
        ShxWriter writer;
        writer.glyphs = {{65, bytes({0x10}), {}}, {66, bytes({0x20}), {}}};
        ZTShxParser first = load(writer.shapesOnly());
        first.resetNextGlyph();
        QVERIFY(first.showNextGlyph(nullptr, 0.0, 0.0));
        ZTShxParser second(first);
        QVERIFY(!first.showNextGlyph(nullptr, 0.0, 0.0));
        QVERIFY(!second.showNextGlyph(nullptr, 0.0, 0.0));
    }

    void fileOnDisk_isNotReadAgain()
    {
        const QString path = write(QStringLiteral("gone"), writerOfA(1).shapes());
        ZTShxParser parser(path.toLocal8Bit().constData());
        QVERIFY(QFile::remove(path));
        QCOMPARE(parser.getTextExtent("A"), 2.0);
    }

private:
    QString write(const QString &name, const QByteArray &file)
    {
        const QString path = folder.filePath(name + QStringLiteral(".shx"));
        testsupport::writeFile(path, file);
        return path;
    }

    ZTShxParser load(const QByteArray &file)
    {
        return ZTShxParser(write(QStringLiteral("font"), file).toLocal8Bit().constData());
    }

    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(tst_ZTShxParser)
#include "tst_ZTShxParser.moc"
