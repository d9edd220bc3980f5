#include <support/EnvironmentGuard.h>
#include <support/ShxRecorder.h>
#include <support/ShxWriter.h>
#include <support/StdoutCapture.h>

#include <ZTDrawEngineLib/shx/ZTShxParser.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <cmath>
#include <limits>

using testsupport::bytes;
using testsupport::EnvironmentGuard;
using testsupport::nearCalls;
using testsupport::ShxRecorder;
using testsupport::ShxWriter;
using testsupport::stdoutOf;

namespace {

/** "A" one wide, "B" two wide, the byte 0xE4 three, and the 16-bit codes 0xE4 and 0x4F60. */
ShxWriter byteFont()
{
    ShxWriter writer;
    writer.glyphs = {
        {0x41, bytes({0x10}), {}}, {0x42, bytes({0x20}), {}}, {0xE4, bytes({0x30}), {}}};
    return writer;
}

ShxWriter wideFont()
{
    ShxWriter writer = byteFont();
    writer.glyphs.append({0x4F60, bytes({0x50}), {}});
    writer.glyphs.append({0xD83D, bytes({0x60}), {}});
    writer.glyphs.append({0xDE00, bytes({0x70}), {}});
    writer.glyphs.append({0xF600, bytes({0xF0}), {}}); // the low half of a code beyond 16 bits
    return writer;
}

constexpr char kNothing[] = "B 0,0 E";

} // namespace

/** Text in one font, the conversions between its forms, and the walk over all glyphs. */
class tst_ZTShxParserText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(folder.isValid()); }

    void textHeight_isStoredAsPositive()
    {
        ZTShxParser parser = load(byteFont().shapes());
        QCOMPARE(parser.getTextHeight(), 1.0);
        parser.setTextHeight(-2.5);
        QCOMPARE(parser.getTextHeight(), 2.5);
        QCOMPARE(parser.getTextExtent("A"), 2.5);
        parser.setTextHeight(0.0);
        QCOMPARE(parser.getTextHeight(), 0.0);
        QCOMPARE(parser.getTextExtent("A"), 0.0);
    }

    void emptyText_isOneStrokeOfOnePoint_data() { forms(); }
    void emptyText_isOneStrokeOfOnePoint()
    {
        QFETCH(QByteArray, file);
        ZTShxParser parser = load(file);
        ShxRecorder narrow;
        QCOMPARE(parser.drawText(&narrow, "", 3.0, 4.0), 0.0);
        QVERIFY(nearCalls(narrow, QStringLiteral("B 3,4 E")));
        ShxRecorder wide;
        QCOMPARE(parser.drawText(&wide, L"", 3.0, 4.0), 0.0);
        QVERIFY(nearCalls(wide, QStringLiteral("B 3,4 E")));
    }

    void nullText_countsAsEmpty_data() { forms(); }
    void nullText_countsAsEmpty()
    {
        QFETCH(QByteArray, file);
        ZTShxParser parser = load(file);
        ShxRecorder recorder;
        parser.drawText(&recorder, static_cast<const char *>(nullptr), 0.0, 0.0);
        parser.drawText(&recorder, static_cast<const wchar_t *>(nullptr), 0.0, 0.0);
        QVERIFY(nearCalls(recorder, QStringLiteral("B 0,0 E B 0,0 E")));
    }

    void asciiText_drawsAlikeInBothForms_data() { forms(); }
    void asciiText_drawsAlikeInBothForms()
    {
        QFETCH(QByteArray, file);
        ZTShxParser parser = load(file);
        ShxRecorder narrow;
        QCOMPARE(parser.drawText(&narrow, "AB?A", 0.0, 0.0), 4.0);
        QVERIFY(nearCalls(narrow, QStringLiteral("B 0,0 1,0 3,0 4,0 E")));
        ShxRecorder wide;
        QCOMPARE(parser.drawText(&wide, L"AB?A", 0.0, 0.0), 4.0);
        QCOMPARE(wide.calls, narrow.calls);
        QCOMPARE(parser.getTextExtent("AB"), 3.0);
        QCOMPARE(parser.getTextExtent(L"AB"), 3.0);
    }

    /** A glyph that pops what no glyph of this call has pushed draws nothing. */
    void positionsOfTheCallBefore_areGone()
    {
        ShxWriter writer;
        writer.glyphs = {{0x41, bytes({0x05, 0x50}), {}}, {0x42, bytes({0x06, 0x10}), {}}};
        for (const QByteArray &file : {writer.shapes(), writer.bigfont(), writer.unifont()}) {
            ZTShxParser parser = load(file);
            parser.drawText(nullptr, "A", 100.0, 7.0);
            ShxRecorder recorder;
            QCOMPARE(parser.drawText(&recorder, "B", 0.0, 0.0), 1.0);
            QVERIFY(nearCalls(recorder, QStringLiteral("B 0,0 1,0 E")));

            parser.resetNextGlyph();
            QVERIFY(walk(parser).endsWith(QStringLiteral("E B 0,0 5,0 | E B 0,0 1,0")));
        }
    }

    void next_isNeverCalled_data() { forms(); }
    void next_isNeverCalled()
    {
        QFETCH(QByteArray, file);
        ZTShxParser parser = load(file);
        ShxRecorder recorder;
        parser.drawText(&recorder, "ABAB", 0.0, 0.0);
        parser.drawText(&recorder, L"ABAB", 0.0, 0.0);
        for (const ShxRecorder::Call &call : recorder.calls)
            QVERIFY(call.kind != 'N');
    }

    void bytesAboveAscii_areUnsignedCodes()
    {
        QCOMPARE(load(byteFont().shapes()).getTextExtent("\xE4"), 3.0);
        QCOMPARE(load(byteFont().shapesOnly()).getTextExtent("\xE4") * 4, 3.0);
        QCOMPARE(load(byteFont().bigfont()).getTextExtent("\xE4"), 3.0);
    }

    void twoByteText_takesLeadByteFirst()
    {
        ShxWriter writer = byteFont();
        writer.ranges = {{0x81, 0xFE}};
        writer.glyphs.append({0xC4E3, bytes({0x50}), {}});
        ZTShxParser parser = load(writer.bigfont());
        ShxRecorder recorder;
        parser.drawText(&recorder,
                        "A\xC4\xE3"
                        "B",
                        0.0, 0.0);
        QVERIFY(nearCalls(recorder, QStringLiteral("B 0,0 1,0 6,0 8,0 E")));
    }

    void leadByteAtTheEnd_hasLowByteZero_andTheScanStops()
    {
        ShxWriter writer;
        writer.ranges = {{0x81, 0xFE}};
        writer.glyphs = {{0x8100, bytes({0x50}), {}}, {0x41, bytes({0x10}), {}}};
        ZTShxParser parser = load(writer.bigfont());
        const char text[] = {'A', '\x81', '\0', 'A', 'A', '\0'};
        QCOMPARE(parser.getTextExtent(text), 6.0);
    }

    void everyByteALeadByte_readsToTheEndAndNoFurther()
    {
        ShxWriter writer;
        writer.ranges = {{0x00, 0xFF}};
        writer.glyphs = {{0x4142, bytes({0x10}), {}}, {0x4300, bytes({0x20}), {}}};
        ZTShxParser parser = load(writer.bigfont());
        QCOMPARE(parser.getTextExtent("ABC"), 3.0);
        QCOMPARE(parser.getTextExtent(""), 0.0);
    }

    void shapesText_knowsNoLeadBytes()
    {
        ShxWriter ranges;
        ranges.ranges = {{0x41, 0x41}};
        ZTShxParser parser = load(ranges.bigfont());
        const QString path = write(byteFont().shapes());
        parser.init(path.toLocal8Bit().constData()); // the ranges stay
        QCOMPARE(parser.getTextExtent("AB"), 3.0);
    }

    void unifont_convertsBytesByTheLocale()
    {
        const EnvironmentGuard locale("LC_ALL", "C.UTF-8");
        ZTShxParser parser = load(wideFont().unifont());
        QCOMPARE(parser.getTextExtent("A\xE4\xBD\xA0"), 6.0);
        QCOMPARE(parser.getTextExtent("\xC3\xA4"), 3.0);
    }

    void byteFonts_convertWideTextByTheLocale()
    {
        const EnvironmentGuard locale("LC_ALL", "C.UTF-8");
        ShxWriter writer;
        writer.glyphs = {{0xC3, bytes({0x10}), {}}, {0xA4, bytes({0x40}), {}}};
        QCOMPARE(load(writer.shapes()).getTextExtent(L"\u00E4"), 5.0);
        writer.ranges = {{0xC3, 0xC3}};
        writer.glyphs.append({0xC3A4, bytes({0x70}), {}});
        QCOMPARE(load(writer.bigfont()).getTextExtent(L"\u00E4\u00E4"), 14.0);
    }

    void textThatDoesNotConvert_drawsAsEmptyAndSaysSo_data()
    {
        QTest::addColumn<QByteArray>("locale");
        QTest::addColumn<QByteArray>("narrow");
        QTest::newRow("C") << QByteArray("C") << QByteArray("A\xE4");
        QTest::newRow("malformed") << QByteArray("C.UTF-8")
                                   << QByteArray("A\xFF"
                                                 "B");
    }
    void textThatDoesNotConvert_drawsAsEmptyAndSaysSo()
    {
        QFETCH(QByteArray, locale);
        QFETCH(QByteArray, narrow);
        const EnvironmentGuard guard("LC_ALL", locale);
        ZTShxParser parser = load(wideFont().unifont());
        ShxRecorder recorder;
        double width = -1.0;
        const QByteArray output =
            stdoutOf([&] { width = parser.drawText(&recorder, narrow.constData(), 0.0, 0.0); });
        QCOMPARE(output, QByteArray("convert error!\n"));
        QCOMPARE(width, 0.0);
        QVERIFY(nearCalls(recorder, QLatin1String(kNothing)));
    }

    void wideTextThatDoesNotConvert_drawsAsEmptyAndSaysSo()
    {
        const EnvironmentGuard guard("LC_ALL", "C");
        ZTShxParser parser = load(byteFont().shapes());
        ShxRecorder recorder;
        const QByteArray output =
            stdoutOf([&] { parser.drawText(&recorder, L"A\u4F60", 0.0, 0.0); });
        QCOMPARE(output, QByteArray("convert error!\n"));
        QVERIFY(nearCalls(recorder, QLatin1String(kNothing)));
    }

    void unknownLocale_isTheClassicOne()
    {
        const EnvironmentGuard guard("LC_ALL", "xx_NOWHERE.UTF-8");
        ZTShxParser wide = load(wideFont().unifont());
        ZTShxParser narrow = load(byteFont().shapes());
        double widths[3] = {};
        const QByteArray quiet = stdoutOf([&] {
            widths[0] = wide.getTextExtent("AB");
            widths[1] = narrow.getTextExtent(L"AB");
        });
        QCOMPARE(quiet, QByteArray());
        QCOMPARE(widths[0], 3.0);
        QCOMPARE(widths[1], 3.0);
        const QByteArray loud = stdoutOf([&] { widths[2] = wide.getTextExtent("A\xC3\xA4"); });
        QCOMPARE(loud, QByteArray("convert error!\n"));
        QCOMPARE(widths[2], 0.0);
    }

    void unifont_takesWideTextUnconverted()
    {
        const EnvironmentGuard guard("LC_ALL", "C");
        ZTShxParser parser = load(wideFont().unifont());
        QCOMPARE(parser.getTextExtent(L"\u00E4\u4F60"), 8.0);
    }

    void codesBeyond16Bits_areTwoSurrogates()
    {
        ZTShxParser parser = load(wideFont().unifont());
        QCOMPARE(parser.getTextExtent(L"\U0001F600"), 13.0);
        const wchar_t beyondUnicode[] = {static_cast<wchar_t>(0x7FFFFFFF), L'A', L'\0'};
        QCOMPARE(parser.getTextExtent(beyondUnicode), 1.0);
    }

    void unloadedParser_givesItsLastXLessTheStart()
    {
        ZTShxParser parser = load(byteFont().shapes());
        parser.drawText(nullptr, "AB", 10.0, 0.0);
        ZTShxParser fresh;
        ShxRecorder recorder;
        QCOMPARE(fresh.drawText(&recorder, "AB", 3.0, 0.0), -3.0);
        QCOMPARE(fresh.drawText(&recorder, L"AB", 4.0, 0.0), -4.0);
        QVERIFY(recorder.calls.isEmpty());
        parser.init("/no/such/font.shx"); // puts the pen at 0
        QCOMPARE(parser.drawText(&recorder, "AB", 3.0, 0.0), -3.0);
    }

    void walk_shapes_passesOverTheFontInformation()
    {
        ZTShxParser parser = load(byteFont().shapes());
        parser.resetNextGlyph();
        QCOMPARE(walk(parser), QStringLiteral("E B 0,0 | E B 0,0 1,0 | E B 0,0 2,0 | E B 0,0 3,0"));
        parser.resetNextGlyph();
        QVERIFY(parser.showNextGlyph(nullptr, 0.0, 0.0));
    }

    void walk_shapesOnly_showsAll()
    {
        ZTShxParser parser = load(byteFont().shapesOnly());
        parser.setTextHeight(4.0);
        parser.resetNextGlyph();
        QCOMPARE(walk(parser), QStringLiteral("E B 0,0 1,0 | E B 0,0 2,0 | E B 0,0 3,0"));
    }

    void walk_shapes_testsTheLowByteOfTheCode_kept()
    {
        ShxWriter writer;
        writer.glyphs = {
            {0x101, bytes({0x10}), {}}, {0x100, bytes({0x20}), {}}, {0x41, bytes({0x30}), {}}};
        ZTShxParser parser = load(writer.shapes());
        parser.resetNextGlyph();
        QCOMPARE(walk(parser), QStringLiteral("E B 0,0 | E B 0,0 1,0 | E B 0,0 | E B 0,0 3,0"));
    }

    void walk_bigfont_beginsAtTheSecondRecord_andPassesOverEmptySlots()
    {
        ShxWriter writer;
        writer.glyphs = {
            {0x8141, bytes({0x10}), {}}, {0, bytes({0x20}), {}}, {0x100, bytes({0x30}), "name"}};
        ZTShxParser parser = load(writer.bigfont());
        parser.resetNextGlyph();
        QCOMPARE(walk(parser), QStringLiteral("E B 0,0 1,0 | E B 0,0 | E B 0,0 3,0"));
    }

    void walk_unifont_showsEveryRecord()
    {
        ShxWriter writer;
        writer.glyphs = {
            {0x41, bytes({0x10}), "name"}, {0, bytes({0x20}), {}}, {0x100, bytes({0x30}), {}}};
        ZTShxParser parser = load(writer.unifont());
        parser.resetNextGlyph();
        QCOMPARE(walk(parser), QStringLiteral("E B 0,0 1,0 | E B 0,0 2,0 | E B 0,0 3,0"));
    }

    void walk_countAboveTheRecords_endsWithNothing()
    {
        ShxWriter writer = byteFont();
        writer.count = 5;
        ZTShxParser parser = load(writer.unifont());
        parser.resetNextGlyph();
        QCOMPARE(walk(parser),
                 QStringLiteral("E B 0,0 1,0 | E B 0,0 2,0 | E B 0,0 3,0 | E B 0,0 | E B 0,0"));
    }

    void walk_countBelowTheRecords_stopsThere()
    {
        ShxWriter writer = byteFont();
        writer.count = 2;
        ZTShxParser parser = load(writer.unifont());
        parser.resetNextGlyph();
        QCOMPARE(walk(parser), QStringLiteral("E B 0,0 1,0 | E B 0,0 2,0"));
        QCOMPARE(parser.getTextExtent(L"B\u00E4"), 2.0);
    }

    void walk_afterTheLastGlyph_drawsNoMore_data() { forms(); }
    void walk_afterTheLastGlyph_drawsNoMore()
    {
        QFETCH(QByteArray, file);
        ZTShxParser parser = load(file);
        parser.resetNextGlyph();
        while (parser.showNextGlyph(nullptr, 0.0, 0.0)) {
        }
        ShxRecorder recorder;
        QVERIFY(!parser.showNextGlyph(&recorder, 1.0, 2.0));
        QVERIFY(nearCalls(recorder, QStringLiteral("E B 1,2")));
    }

    void walk_beforeReset_isOver_data() { forms(); }
    void walk_beforeReset_isOver()
    {
        QFETCH(QByteArray, file);
        ZTShxParser parser = load(file);
        ShxRecorder recorder;
        QVERIFY(!parser.showNextGlyph(&recorder, 0.0, 0.0));
        QVERIFY(nearCalls(recorder, QStringLiteral("E B 0,0")));
    }

    void walk_placesAndScalesEachGlyph()
    {
        ShxWriter writer;
        writer.above = 2;
        writer.glyphs = {{0x41, bytes({4, 3, 0x20}), {}}, {0x42, bytes({0x20}), {}}};
        ZTShxParser parser = load(writer.shapes());
        parser.setTextHeight(4.0);
        parser.resetNextGlyph();
        parser.showNextGlyph(nullptr, 0.0, 0.0);
        ShxRecorder recorder;
        QVERIFY(parser.showNextGlyph(&recorder, 5.0, 6.0));
        QVERIFY(!parser.showNextGlyph(&recorder, 7.0, 8.0));
        QVERIFY(nearCalls(recorder, QStringLiteral("E B 5,6 17,6 E B 7,8 11,8")));
    }

private:
    void forms()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("shapes") << byteFont().shapes();
        ShxWriter unscaled = byteFont();
        for (testsupport::ShxGlyph &glyph : unscaled.glyphs)
            glyph.codes.prepend(bytes({4, 4})).append(bytes({3, 4}));
        QTest::newRow("shapes only") << unscaled.shapesOnly();
        QTest::newRow("bigfont") << byteFont().bigfont();
        QTest::newRow("unifont") << byteFont().unifont();
    }

    /** The calls of every glyph, up to and with the one that tells of no more. */
    static QString walk(ZTShxParser &parser)
    {
        QStringList glyphs;
        for (bool more = true; more && glyphs.size() < 100;) {
            ShxRecorder recorder;
            more = parser.showNextGlyph(&recorder, 0.0, 0.0);
            glyphs << recorder.text();
        }
        return glyphs.join(QStringLiteral(" | "));
    }

    QString write(const QByteArray &file)
    {
        const QString path = folder.filePath(QStringLiteral("font.shx"));
        testsupport::writeFile(path, file);
        return path;
    }

    ZTShxParser load(const QByteArray &file)
    {
        return ZTShxParser(write(file).toLocal8Bit().constData());
    }

    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(tst_ZTShxParserText)
#include "tst_ZTShxParserText.moc"
