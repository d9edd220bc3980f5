#include <support/ShxRecorder.h>
#include <support/ShxWriter.h>

#include <ZTDrawEngineLib/shx/ZTShxParser.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <cmath>

using testsupport::bytes;
using testsupport::nearCalls;
using testsupport::ShxRecorder;
using testsupport::ShxWriter;

namespace {

/** Counts points and checks each; keeps none, so that a flood costs no memory. */
class CountingCallback : public ZTAbstractGlyphCallback
{
public:
    void glBegin() override {}
    void glVertex2d(double x, double y) override
    {
        ++points;
        allFinite = allFinite && std::isfinite(x) && std::isfinite(y);
    }
    void glEnd() override {}
    void next() override {}

    qint64 points = 0;
    bool allFinite = true;
};

/** A font with every code that has operands, subshapes and loops included. */
ShxWriter richFont()
{
    ShxWriter writer;
    writer.above = 4;
    writer.below = 2;
    writer.ranges = {{0x81, 0xFE}};
    writer.glyphs = {
        {65, bytes({0x24, 2, 8, 3, -3, 1, 9, 1, 2, 3, 4, 0, 0, 7, 66, 0, 5, 10, 10, 2, 6}), "A"},
        {66, bytes({3, 2, 11, 10, 20, 1, 4, 0xA2, 4, 2, 12, 5, 5, 64, 14, 9, 1, 1, 0, 0}), {}},
        {0x8141, bytes({13, 5, 5, 127, -5, 5, -127, 3, 3, 0, 0, 0, 14, 14, 7, 65, 0, 0x18}), {}}};
    return writer;
}

/** Everything a host can ask of a font. */
void useFont(ZTShxParser &parser, CountingCallback &callback)
{
    if (parser.GetType() == SHX_TYPE::SHX_UNIFONT) {
        for (const wchar_t *text : {L"A", L"B", L"AB\u8141"}) {
            parser.drawText(&callback, text, 0.0, 0.0);
            parser.getTextExtent(text);
        }
    } else {
        for (const char *text : {"A", "B", "AB\x81\x41", "\x81"}) {
            parser.drawText(&callback, text, 0.0, 0.0);
            parser.getTextExtent(text);
        }
    }
    parser.resetNextGlyph();
    int glyphs = 0;
    while (parser.showNextGlyph(&callback, 0.0, 0.0))
        ++glyphs;
    QVERIFY(glyphs <= 65535);
}

} // namespace

/** Files made by mistake or malice: nothing is read outside them, and every call comes to an end.
 */
class tst_ZTShxParserHostile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(folder.isValid()); }

    void fileCutAtAnyLength_isReadToItsEnd_data() { forms(); }
    void fileCutAtAnyLength_isReadToItsEnd()
    {
        QFETCH(QByteArray, file);
        for (int length = 0; length <= file.size(); ++length) {
            ZTShxParser parser = load(file.left(length));
            CountingCallback callback;
            useFont(parser, callback);
            QVERIFY(callback.allFinite);
        }
    }

    void anyByteReplaced_isHarmless_data() { forms(); }
    void anyByteReplaced_isHarmless()
    {
        QFETCH(QByteArray, file);
        for (int at = 11; at < file.size(); ++at) {
            for (const int byte : {0x00, 0x07, 0x09, 0x0D, 0x0E, 0x7F, 0xFF}) {
                QByteArray damaged = file;
                damaged[at] = static_cast<char>(byte);
                ZTShxParser parser = load(damaged);
                CountingCallback callback;
                useFont(parser, callback);
                QVERIFY(callback.allFinite);
            }
        }
    }

    void countsBeyondTheFile_keepTheGlyphsThatAreThere()
    {
        ShxWriter writer;
        writer.ranges = {{0x81, 0xFE}};
        writer.glyphs = {{65, bytes({0x20}), {}}};
        writer.count = 65535;
        QCOMPARE(load(writer.unifont()).getTextExtent(L"A"), 2.0);
        QCOMPARE(load(writer.bigfont()).getTextExtent("A"), 2.0);
        // The data area of a "shapes" file stands behind as many records as it claims: outside.
        QCOMPARE(load(writer.shapesOnly()).getTextExtent("A"), 0.0);
        writer.rangeCount = 65535;
        QCOMPARE(load(writer.bigfont()).GetType(), SHX_TYPE::SHX_NONE);
    }

    void oneOffsetOutside_leavesTheOtherGlyphs()
    {
        ShxWriter writer;
        writer.glyphs = {{65, bytes({0x20}), {}}, {66, bytes({0x30}), {}}};
        QByteArray file = writer.bigfont();
        file.replace(31 + 8 + 4, 4, bytes({0xFF, 0xFF, 0xFF, 0xFF}));
        ZTShxParser parser = load(file);
        QCOMPARE(parser.getTextExtent("A"), 0.0);
        QCOMPARE(parser.getTextExtent("B"), 3.0);
    }

    void codeCutByTheEndOfTheFile_isLeftOut_data()
    {
        QTest::addColumn<QByteArray>("codes");
        QTest::newRow("3") << bytes({3});
        QTest::newRow("4") << bytes({4});
        QTest::newRow("7") << bytes({7});
        QTest::newRow("8") << bytes({8, 5});
        QTest::newRow("9") << bytes({9, 5});
        QTest::newRow("10") << bytes({10, 5});
        QTest::newRow("11") << bytes({11, 0, 0, 0, 5});
        QTest::newRow("12") << bytes({12, 5, 5});
        QTest::newRow("12, one operand") << bytes({12, 5});
        QTest::newRow("13") << bytes({13, 5, 5});
        QTest::newRow("14") << bytes({14});
        QTest::newRow("14 14 14") << bytes({14, 14, 14});
        QTest::newRow("14 8") << bytes({14, 8, 1});
    }
    void codeCutByTheEndOfTheFile_isLeftOut()
    {
        QFETCH(QByteArray, codes);
        ShxWriter writer;
        writer.glyphs = {{65, bytes({0x20}) + codes, {}}};
        for (const QByteArray &file : {writer.shapes(), writer.bigfont()}) {
            ZTShxParser parser = load(file);
            ShxRecorder recorder;
            QCOMPARE(parser.drawText(&recorder, "A", 0.0, 0.0), 2.0);
            QVERIFY(nearCalls(recorder, QStringLiteral("B 0,0 2,0 E")));
            QCOMPARE(parser.getTextExtent("A"), 2.0);
        }
    }

    void operandsBehindTheDefinition_areReadFromTheFile_kept()
    {
        // The length ends a definition between codes alone: the pair list runs on into the next.
        ShxWriter writer;
        writer.glyphs = {{65, bytes({9, 1, 1}), {}}, {66, bytes({5, 5, 0, 0}), "ab"}};
        ZTShxParser parser = load(writer.shapes());
        ShxRecorder recorder;
        parser.drawText(&recorder, "A", 0.0, 0.0);
        QVERIFY(nearCalls(recorder, QStringLiteral("B 0,0 1,1 98,99 98,104 103,104 E")));
        QCOMPARE(parser.getTextExtent("A"), 103.0);
    }

    void nameWithoutEnd_leavesNoCodes()
    {
        ShxWriter writer;
        writer.glyphs = {{65, bytes({0x20}), {}}, {66, bytes({0x30}), {}}};
        QByteArray file = writer.shapes();
        const int definitionOfA = file.size() - 4;
        file[definitionOfA] = 'n'; // "n", 0x20, and the name of the next one ends it
        ZTShxParser parser = load(file);
        QCOMPARE(parser.getTextExtent("A"), 0.0);
        QCOMPARE(parser.getTextExtent("B"), 3.0);
        file.chop(2);
        QCOMPARE(load(file).getTextExtent("A"), 0.0);
    }

    void unifontDescriptionWithoutEnd_isNoFont()
    {
        QByteArray file = richFont().unifont().left(39);
        file.replace('\0', 'x');
        QCOMPARE(load(file).GetType(), SHX_TYPE::SHX_NONE);
    }

    void subshapeCycle_comesToAnEnd_data() { byteForms(); }
    void subshapeCycle_comesToAnEnd()
    {
        QFETCH(int, form);
        ShxWriter writer;
        writer.glyphs = {{65, bytes({0x10, 7, 66, 0}), {}}, {66, bytes({0x20, 7, 65, 0}), {}}};
        ZTShxParser parser = load(write(writer, form));
        CountingCallback callback;
        const double width = draw(parser, &callback);
        QVERIFY(width > 0.0);
        QCOMPARE(callback.points, qint64(1 + 1000));
    }

    void subshapeFanOut_isBounded_data() { byteForms(); }
    void subshapeFanOut_isBounded()
    {
        QFETCH(int, form);
        ShxWriter writer;
        writer.glyphs = {{65, bytes({7, 65, 0, 7, 65, 0, 0x10}), {}}};
        ZTShxParser parser = load(write(writer, form));
        CountingCallback callback;
        draw(parser, &callback);
        QVERIFY(callback.points < 2100000);
        draw(parser, nullptr);
    }

    void subshapeFanOutOfArcs_isBounded()
    {
        ShxWriter writer;
        writer.glyphs = {{65, bytes({7, 65, 10, 5, 0, 7, 65}), {}}};
        ZTShxParser parser = load(writer.shapes());
        CountingCallback callback;
        draw(parser, &callback);
        QVERIFY(callback.points < 2100000);
    }

    void subshapeFanOutWithLongNames_isBounded()
    {
        ShxWriter writer;
        writer.glyphs = {{65, bytes({7, 65, 7, 65}), QByteArray(60000, 'n')}};
        ZTShxParser parser = load(writer.shapes());
        draw(parser, nullptr);
    }

    void everyCharacter_hasWorkOfItsOwn()
    {
        // However much the first ones took, honest characters behind them are drawn.
        ShxWriter writer;
        writer.glyphs = {{65, bytes({7, 65, 7, 65}), {}}, {66, bytes({0x10}), {}}};
        ZTShxParser parser = load(writer.shapes());
        CountingCallback callback;
        parser.drawText(&callback, "ABBB", 0.0, 0.0);
        QCOMPARE(callback.points, qint64(4));
    }

    void longText_isDrawnToItsEnd()
    {
        ShxWriter writer;
        writer.glyphs = {{65, QByteArray(100, '\x10'), {}}};
        ZTShxParser parser = load(writer.shapes());
        const QByteArray text(100000, 'A'); // five times the work of a call without characters
        QCOMPARE(parser.getTextExtent(text.constData()), 1e7);
        CountingCallback callback;
        QCOMPARE(parser.drawText(&callback, text.constData(), 0.0, 0.0), 1e7);
        QCOMPARE(callback.points, qint64(10000001));
    }

    void chainOfHundredsOfSubshapes_works()
    {
        ShxWriter writer;
        for (int code = 1; code <= 900; ++code)
            writer.glyphs.append({code, bytes({0x10, 7, code + 1, (code + 1) >> 8, 0x10}), {}});
        ZTShxParser parser = load(writer.unifont());
        QCOMPARE(parser.getTextExtent(L"\u0001"), 1800.0);
    }

    void skipsByTheThousand_areOne()
    {
        ShxWriter writer;
        writer.glyphs = {{65, QByteArray(65000, '\x0E') + bytes({0x20, 0x30}), {}}};
        ZTShxParser parser = load(writer.shapes());
        QCOMPARE(parser.getTextExtent("A"), 3.0);
        CountingCallback callback;
        QCOMPARE(parser.drawText(&callback, "A", 0.0, 0.0), 3.0);
    }

    void skippedCycle_comesToAnEnd()
    {
        ShxWriter writer;
        writer.glyphs = {{65, bytes({14, 7, 65, 14, 7, 65, 0x10}), {}}};
        ZTShxParser parser = load(writer.shapes());
        CountingCallback callback;
        draw(parser, &callback);
        QVERIFY(callback.allFinite);
    }

    void pushesWithoutEnd_keepTheLastMillions()
    {
        ShxWriter writer;
        writer.glyphs = {{65, QByteArray(900, '\5') + bytes({0x10}), {}},
                         {66, bytes({6, 0x10}), {}}};
        ZTShxParser parser = load(writer.shapes());
        const QByteArray text(6000, 'A'); // 5,400,000 positions
        QCOMPARE(parser.getTextExtent(text + 'B'), 6000.0);
        QCOMPARE(parser.getTextExtent(text + "BB"), 6000.0);
    }

    void scaleThatIsNotFinite_givesNoPoint_data()
    {
        QTest::addColumn<QByteArray>("codes");
        const QByteArray byZero = bytes({3, 0});
        QTest::newRow("vector") << byZero + bytes({0x20, 0x33});
        QTest::newRow("pair") << byZero + bytes({8, 3, 4, 9, 1, 1, 0, 0});
        QTest::newRow("octant arc") << byZero + bytes({10, 5, 2});
        QTest::newRow("octant arc of no radius") << byZero + bytes({10, 0, 2});
        QTest::newRow("fractional arc") << byZero + bytes({11, 1, 2, 3, 4, 5});
        QTest::newRow("bulge") << byZero + bytes({12, 5, 5, 127, 13, 1, 2, 3, 0, 0});
        QTest::newRow("zero of it") << byZero + bytes({4, 0, 0x20});
        QTest::newRow("overflow") << [] {
            QByteArray codes;
            for (int i = 0; i < 200; ++i)
                codes += bytes({4, 255});
            return codes + bytes({0x20, 10, 5, 2, 11, 1, 2, 3, 4, 5, 12, 5, 5, 127});
        }();
        QTest::newRow("underflow") << [] {
            QByteArray codes;
            for (int i = 0; i < 200; ++i)
                codes += bytes({3, 255, 12, 5, 5, 127, 12, 5, -5, -1});
            return codes;
        }();
    }
    void scaleThatIsNotFinite_givesNoPoint()
    {
        QFETCH(QByteArray, codes);
        ShxWriter writer;
        writer.glyphs = {{65, codes, {}}};
        ZTShxParser parser = load(writer.shapes());
        for (const double height : {1.0, 0.0, 1e300, 1e-300, HUGE_VAL, std::nan("")}) {
            parser.setTextHeight(height);
            CountingCallback callback;
            parser.drawText(&callback, "A", 0.0, 0.0);
            parser.getTextExtent("A");
            QVERIFY(callback.allFinite);
        }
    }

private:
    void forms()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("shapes") << richFont().shapes();
        QTest::newRow("shapes only") << richFont().shapesOnly();
        QTest::newRow("bigfont") << richFont().bigfont();
        QTest::newRow("unifont") << richFont().unifont();
    }

    void byteForms()
    {
        QTest::addColumn<int>("form");
        QTest::newRow("shapes") << 0;
        QTest::newRow("bigfont") << 1;
        QTest::newRow("unifont") << 2;
    }

    static QByteArray write(const ShxWriter &writer, int form)
    {
        return form == 0 ? writer.shapes() : form == 1 ? writer.bigfont() : writer.unifont();
    }

    static double draw(ZTShxParser &parser, ZTAbstractGlyphCallback *callback)
    {
        return parser.drawText(callback, "A", 0.0, 0.0);
    }

    ZTShxParser load(const QByteArray &file)
    {
        const QString path = folder.filePath(QStringLiteral("font.shx"));
        testsupport::writeFile(path, file);
        return ZTShxParser(path.toLocal8Bit().constData());
    }

    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(tst_ZTShxParserHostile)
#include "tst_ZTShxParserHostile.moc"
