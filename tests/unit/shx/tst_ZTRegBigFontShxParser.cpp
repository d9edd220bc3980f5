#include <support/EnvironmentGuard.h>
#include <support/OwnFolder.h>
#include <support/ShxRecorder.h>
#include <support/ShxWriter.h>
#include <support/StdoutCapture.h>

#include <ZTDrawEngineLib/shx/ZTPathGlyphCallback.h>
#include <ZTDrawEngineLib/shx/ZTRegBigFontShxParser.h>
#include <ZTDrawEngineLib/shx/ZTShxFontManager.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtTest/QTest>

#include <cmath>
#include <utility>

using testsupport::bytes;
using testsupport::EnvironmentGuard;
using testsupport::nearCalls;
using testsupport::ShxRecorder;
using testsupport::ShxWriter;
using testsupport::stdoutOf;

namespace {

constexpr char kYou[] = "\xC4\xE3";

/** Ten units high, two below: "W" 8 wide, "A" 4, "s" halves the scale, "u" goes 3 up and 1 along.
 */
ShxWriter regularFont()
{
    ShxWriter writer;
    writer.above = 10;
    writer.below = 2;
    writer.glyphs = {{'W', bytes({0x80}), {}},  {'A', bytes({0x40}), {}},
                     {'s', bytes({3, 2}), {}},  {'u', bytes({0x34, 0x10}), {}},
                     {0xC4, bytes({0x10}), {}}, {0xE3, bytes({0x20}), {}}};
    return writer;
}

/** Twenty units high: the reference character 16 wide, 0xB0A1 10, 0xB0A2 doubles the scale. */
ShxWriter bigFont()
{
    ShxWriter writer;
    writer.above = 20;
    writer.ranges = {{0x81, 0xFE}};
    writer.glyphs = {{0xC4E3, bytes({8, 16, 0}), {}},
                     {0xB0A1, bytes({0xA0}), {}},
                     {0xB0A2, bytes({4, 2}), {}},
                     {0xB000, bytes({0x60}), {}},
                     {'A', bytes({0xF0}), {}}};
    return writer;
}

} // namespace

class tst_ZTRegBigFontShxParser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        const QDir folder(QCoreApplication::applicationDirPath() + QStringLiteral("/font"));
        QVERIFY(QDir(folder).removeRecursively());
        QVERIFY(folder.mkpath(QStringLiteral(".")));
        write("reg.shx", regularFont().shapes());
        write("uni.shx", regularFont().unifont());
        write("big.shx", bigFont().bigfont());
        write("none.shx", "no font");
        ShxWriter empty;
        empty.above = 10;
        write("empty.shx", empty.shapes());
        empty.above = 0;
        write("flat.shx", empty.shapes());
        ZTShxFontManager::release();
        ZTShxFontManager::regFonts();
    }

    void newPair_hasNoFonts()
    {
        ZTRegBigFontShxParser pair;
        verifyUnusable(pair);
    }

    void init_beforeAScan_leavesThePairUnusable()
    {
        ZTShxFontManager::release();
        ZTRegBigFontShxParser pair("reg.shx", "big.shx");
        verifyUnusable(pair);
    }

    void init_oneUnknownName_leavesThePairUnusable()
    {
        ZTRegBigFontShxParser noBig("reg.shx", "missing.shx");
        QCOMPARE(noBig.getTextExtent("W"), 0.0);
        QCOMPARE(noBig.getTextHeight(), 50.0); // the regular font is there
        ZTRegBigFontShxParser noRegular("missing.shx", "big.shx");
        verifyUnusable(noRegular);
    }

    void init_nullOrEmptyName_keepsTheFonts()
    {
        ZTRegBigFontShxParser pair("reg.shx", "big.shx");
        pair.init(nullptr, "big.shx");
        pair.init("reg.shx", nullptr);
        pair.init("", "big.shx");
        pair.init("uni.shx", "");
        QCOMPARE(pair.getTextExtent("W"), 40.0);
    }

    void newlyLoadedFonts_areFiftyHigh()
    {
        ZTRegBigFontShxParser pair("reg.shx", "big.shx");
        QCOMPARE(pair.getTextHeight(), 50.0);
        QCOMPARE(pair.getTextExtent("W"), 40.0);  // 8 of 10 units
        QCOMPARE(pair.getTextExtent(kYou), 40.0); // 16 of 20 units
        QCOMPARE(pair.getDescendHeight(), 10.0);  // 2 of 10 units
    }

    void setTextHeight_makesBothReferencesThatWide()
    {
        ZTRegBigFontShxParser pair("reg.shx", "big.shx");
        pair.setTextHeight(12.0);
        QCOMPARE(pair.getTextExtent("W"), 12.0);
        QCOMPARE(pair.getTextExtent(kYou), 12.0);
        QCOMPARE(pair.getTextHeight(), 15.0); // 12 / 9.6 x 12
        QCOMPARE(pair.getDescendHeight(), 3.0);
        QCOMPARE(pair.getTextExtent("A"), 6.0);
        QCOMPARE(pair.getTextExtent("\xB0\xA1"), 7.5);
    }

    void setTextHeight_sharedFonts_holdsForEveryPair()
    {
        ZTRegBigFontShxParser first("reg.shx", "big.shx");
        ZTRegBigFontShxParser second("reg.shx", "big.shx");
        first.setTextHeight(12.0);
        QCOMPARE(second.getTextExtent("W"), 12.0);
        QCOMPARE(second.getTextHeight(), 15.0);
    }

    void setTextHeight_negative_isPositive()
    {
        ZTRegBigFontShxParser pair("reg.shx", "big.shx");
        pair.setTextHeight(-12.0);
        QCOMPARE(pair.getTextHeight(), 15.0);
    }

    void setTextHeight_withoutReference_isInfinite_andGivesNoPoint()
    {
        ZTRegBigFontShxParser pair("empty.shx", "big.shx");
        pair.setTextHeight(12.0);
        QVERIFY(std::isinf(pair.getTextHeight()));
        ShxRecorder recorder;
        pair.drawText(&recorder, "A", 1.0, 2.0, 0.0);
        QVERIFY(nearCalls(recorder, QStringLiteral("B 1,2 N E")));
        QCOMPARE(pair.getTextExtent(kYou), 12.0);
    }

    void drawText_mixed_runsOnOnePen()
    {
        ZTRegBigFontShxParser pair("reg.shx", "big.shx");
        setUnits();
        ShxRecorder recorder;
        const double width = pair.drawText(&recorder,
                                           "Au\xB0\xA1"
                                           "A",
                                           100.0, 20.0, 0.0);
        QVERIFY(nearCalls(recorder, QStringLiteral("B 100,20 104,20 N 104,23 105,23 N 115,23 N "
                                                   "119,23 N E")));
        QCOMPARE(width, 19.0);
    }

    void drawText_empty_isOneStrokeOfOnePoint()
    {
        ZTRegBigFontShxParser pair("reg.shx", "big.shx");
        for (const char *text : {"", static_cast<const char *>(nullptr)}) {
            ShxRecorder recorder;
            QCOMPARE(pair.drawText(&recorder, text, 3.0, 4.0, 9.0), 0.0);
            QVERIFY(nearCalls(recorder, QStringLiteral("B 3,4 E")));
        }
        ShxRecorder wide;
        QCOMPARE(pair.drawText(&wide, static_cast<const wchar_t *>(nullptr), 3.0, 4.0, 9.0), 0.0);
        QVERIFY(nearCalls(wide, QStringLiteral("B 3,4 E")));
    }

    void drawText_wordSpan_standsBehindEachCharacter_butNotInMeasures()
    {
        ZTRegBigFontShxParser pair("reg.shx", "big.shx");
        setUnits();
        ShxRecorder recorder;
        const double width = pair.drawText(&recorder,
                                           "A\xB0\xA1"
                                           "A",
                                           0.0, 0.0, 5.0);
        QVERIFY(nearCalls(recorder, QStringLiteral("B 0,0 4,0 N 19,0 N 28,0 N E")));
        QCOMPARE(width, 33.0);
        QCOMPARE(pair.getTextExtent("A\xB0\xA1"
                                    "A"),
                 18.0);
        QCOMPARE(pair.drawText(nullptr, "AA", 0.0, 0.0, 5.0), 8.0);
    }

    void drawText_oneFontInBothPlaces_addsTheSpanOnce()
    {
        ZTRegBigFontShxParser pair("big.shx", "big.shx");
        ZTShxFontManager::getFont("big.shx", 1)->setTextHeight(20.0);
        ShxRecorder recorder;
        QCOMPARE(pair.drawText(&recorder, "A\xB0\xA1", 0.0, 0.0, 5.0), 35.0);
        QVERIFY(nearCalls(recorder, QStringLiteral("B 0,0 15,0 N 30,0 N E")));
    }

    void drawText_missingGlyph_stillEndsACharacter()
    {
        ZTRegBigFontShxParser pair("reg.shx", "big.shx");
        setUnits();
        ZTPathGlyphCallback paths;
        pair.drawText(&paths,
                      "A?\xB0\xFF"
                      "A\n",
                      0.0, 0.0, 0.0);
        QCOMPARE(paths.getPath().size(), 5);
        QVERIFY(!paths.getPath()[0].isEmpty());
        QVERIFY(paths.getPath()[1].isEmpty());
        QVERIFY(paths.getPath()[2].isEmpty());
        QVERIFY(paths.getPath()[4].isEmpty());
    }

    void drawText_scaleChange_isCarriedToTheOtherFont()
    {
        ZTRegBigFontShxParser pair("reg.shx", "big.shx");
        setUnits();
        QCOMPARE(pair.getTextExtent("s\xB0\xA1"), 5.0);
        QCOMPARE(pair.getTextExtent("\xB0\xA2"
                                    "A"),
                 8.0);
        QCOMPARE(pair.getTextExtent("s\xB0\xA2"
                                    "A\xB0\xA1"),
                 14.0);
        QCOMPARE(pair.getTextExtent("A\xB0\xA1"), 14.0); // until the call ends
    }

    void drawText_scaleChange_isCarriedAsAShareOfEachFontsOwn()
    {
        ZTRegBigFontShxParser pair("reg.shx", "big.shx");
        ZTShxFontManager::getFont("reg.shx", 1)->setTextHeight(30.0); // 3 a unit
        ZTShxFontManager::getFont("big.shx", 1)->setTextHeight(10.0); // 0.5 a unit
        QCOMPARE(pair.getTextExtent("s\xB0\xA1"
                                    "A"),
                 2.5 + 6.0);
    }

    void drawText_bigFontThatIsNoFont_sendsEveryByteToTheRegularOne()
    {
        ZTRegBigFontShxParser pair("reg.shx", "none.shx");
        ZTShxFontManager::getFont("reg.shx", 1)->setTextHeight(10.0);
        ShxRecorder recorder;
        QCOMPARE(pair.drawText(&recorder, kYou, 0.0, 0.0, 0.0), 3.0);
        QVERIFY(nearCalls(recorder, QStringLiteral("B 0,0 1,0 N 3,0 N E")));
    }

    void drawText_regularFontThatIsNoFont_drawsTheBigOne()
    {
        ZTRegBigFontShxParser pair("none.shx", "big.shx");
        ZTShxFontManager::getFont("big.shx", 1)->setTextHeight(20.0);
        QCOMPARE(pair.getTextExtent("A\xB0\xA1"
                                    "A\xB0\xA1"),
                 20.0);
        QCOMPARE(pair.getDescendHeight(), 0.0);
    }

    void drawText_leadByteAtTheEnd_stopsThere()
    {
        ZTRegBigFontShxParser pair("reg.shx", "big.shx");
        setUnits();
        const char text[] = {'A', '\xB0', '\0', 'A', '\0'};
        QCOMPARE(pair.getTextExtent(text), 10.0);
    }

    void drawText_wide_isConvertedByTheLocale()
    {
        const EnvironmentGuard guard("LC_ALL", "C.UTF-8");
        ZTRegBigFontShxParser pair("reg.shx", "big.shx");
        setUnits();
        QCOMPARE(pair.getTextExtent(L"AWA"), 16.0);
        ShxRecorder recorder;
        QCOMPARE(pair.drawText(&recorder, L"AA", 0.0, 0.0, 1.0), 10.0);
        QVERIFY(nearCalls(recorder, QStringLiteral("B 0,0 4,0 N 9,0 N E")));
        // In UTF-8 these two are the bytes C4 A3 and C3 A3: codes of the big font, without glyphs.
        ShxRecorder two;
        pair.drawText(&two, L"\u0123\u00E3", 0.0, 0.0, 0.0);
        QVERIFY(nearCalls(two, QStringLiteral("B 0,0 N N E")));
    }

    void drawText_wideThatDoesNotConvert_isEmptyAndSaysSo()
    {
        const EnvironmentGuard guard("LC_ALL", "C");
        ZTRegBigFontShxParser pair("reg.shx", "big.shx");
        ShxRecorder recorder;
        const QByteArray output =
            stdoutOf([&] { pair.drawText(&recorder, L"A\u4F60", 0.0, 0.0, 0.0); });
        QCOMPARE(output, QByteArray("convert error!\n"));
        QVERIFY(nearCalls(recorder, QStringLiteral("B 0,0 E")));
        ZTRegBigFontShxParser empty;
        QCOMPARE(stdoutOf([&] { empty.drawText(nullptr, L"\u4F60", 0.0, 0.0, 0.0); }), output);
    }

    void drawText_unifontInAPair_getsByteCodes()
    {
        ZTRegBigFontShxParser pair("uni.shx", "big.shx");
        ZTShxFontManager::getFont("uni.shx", 1)->setTextHeight(10.0);
        QCOMPARE(pair.getTextExtent("WA"), 12.0);
    }

    void measuring_isDrawingWithoutSpan()
    {
        ZTRegBigFontShxParser pair("reg.shx", "big.shx");
        pair.setTextHeight(7.3);
        ShxRecorder recorder;
        const double drawn = pair.drawText(&recorder,
                                           "AuWs\xB0\xA1\xB0\xA2"
                                           "A",
                                           0.0, 0.0, 0.0);
        QVERIFY(pair.getTextExtent("AuWs\xB0\xA1\xB0\xA2"
                                   "A") == drawn);
    }

    void font_withoutAscender_hasNoDescender()
    {
        ZTRegBigFontShxParser pair("flat.shx", "big.shx");
        QCOMPARE(pair.getDescendHeight(), 0.0);
    }

    void cleanup_emptiesTheFontsOfEveryPair()
    {
        ZTRegBigFontShxParser first("reg.shx", "big.shx");
        ZTRegBigFontShxParser second("reg.shx", "big.shx");
        first.cleanup();
        first.cleanup();
        QCOMPARE(second.getTextExtent("W"), 0.0);
        QCOMPARE(second.getTextHeight(), 50.0);
        ZTRegBigFontShxParser().cleanup();
    }

    void copiesAndMoves_pointAtTheSameFonts()
    {
        ZTRegBigFontShxParser pair("reg.shx", "big.shx");
        ZTRegBigFontShxParser copy(pair);
        ZTRegBigFontShxParser assigned;
        assigned = copy;
        ZTRegBigFontShxParser moved(std::move(copy));
        ZTRegBigFontShxParser last;
        last = std::move(moved);
        pair.setTextHeight(12.0);
        QCOMPARE(assigned.getTextExtent("W"), 12.0);
        QCOMPARE(last.getTextExtent("W"), 12.0);
    }

private:
    static void verifyUnusable(ZTRegBigFontShxParser &pair)
    {
        ShxRecorder recorder;
        QCOMPARE(pair.drawText(&recorder, "W", 3.0, 4.0, 5.0), 0.0);
        QCOMPARE(pair.drawText(&recorder, L"W", 3.0, 4.0, 5.0), 0.0);
        QVERIFY(recorder.calls.isEmpty());
        pair.setTextHeight(9.0);
        QCOMPARE(pair.getTextHeight(), 0.0);
        QCOMPARE(pair.getDescendHeight(), 0.0);
        pair.cleanup();
    }

    /** One drawing unit a font unit, in both fonts. */
    static void setUnits()
    {
        ZTShxFontManager::getFont("reg.shx", 1)->setTextHeight(10.0);
        ZTShxFontManager::getFont("big.shx", 1)->setTextHeight(20.0);
    }

    static void write(const char *name, const QByteArray &content)
    {
        const QString folder = QCoreApplication::applicationDirPath() + QStringLiteral("/font/");
        testsupport::writeFile(folder + QLatin1String(name), content);
    }
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QCoreApplication application(argc, argv);
    tst_ZTRegBigFontShxParser test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_ZTRegBigFontShxParser.moc"
