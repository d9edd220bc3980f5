#include <support/BoardFonts.h>
#include <support/DrawnStrokes.h>
#include <support/Skip.h>

#include <fontkit/UnicodeStrokesFont.h>

#include <ZTDrawEngineLib/shx/ZTShxParser.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <algorithm>
#include <array>

using fontkit::DataFolder;
using fontkit::UnicodeStrokesFont;
using testsupport::DrawnStrokes;

namespace {

using Strokes = QVector<QVector<QPointF>>;

#define SKIP_WITHOUT_DATA()                                                                        \
    if (testsupport::boardFonts().isEmpty())                                                       \
    ZT_SKIP("no stroke fonts were made: install the package hershey-fonts-data")

/** The font that the build made, a drawing unit a font unit. */
class UnicodeFont
{
public:
    UnicodeFont() : parser(testsupport::boardFontPath(UnicodeStrokesFont::fileName()).constData())
    {
        parser.setTextHeight(UnicodeStrokesFont::kAbove);
    }

    double draw(uint character, Strokes *strokes)
    {
        const std::array<wchar_t, 2> text{static_cast<wchar_t>(character), L'\0'};
        DrawnStrokes drawn;
        const double advance = parser.drawText(&drawn, text.data(), 0, 0);
        *strokes = drawn.strokes;
        return advance;
    }

    double advanceOf(uint character)
    {
        Strokes strokes;
        return draw(character, &strokes);
    }

    double topOf(uint character)
    {
        Strokes strokes;
        draw(character, &strokes);
        double top = -1e9;
        for (const QVector<QPointF> &stroke : strokes) {
            for (const QPointF &point : stroke)
                top = std::max(top, point.y());
        }
        return top;
    }

    ZTShxParser parser;
};

} // namespace

class tst_UnicodeStrokesFont : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void font_isOf16BitCodes_withTheMeasuresOfTheOthers()
    {
        SKIP_WITHOUT_DATA();
        UnicodeFont font;
        QCOMPARE(font.parser.GetType(), SHX_TYPE::SHX_UNIFONT);
        QCOMPARE(font.advanceOf('W'), 240.0); // as the character of the big font
        QCOMPARE(font.topOf('H'), 210.0);
        QCOMPARE(font.topOf('x'), 140.0);
    }

    void blocks_areComplete_data()
    {
        QTest::addColumn<uint>("first");
        QTest::addColumn<uint>("last");
        QTest::newRow("ASCII") << 0x20U << 0x7EU;
        QTest::newRow("Latin-1") << 0xA0U << 0xFFU;
        QTest::newRow("Latin Extended-A") << 0x100U << 0x17FU;
        QTest::newRow("Cyrillic") << 0x400U << 0x45FU;
        QTest::newRow("Vietnamese") << 0x1EA0U << 0x1EF9U;
        QTest::newRow("Greek") << 0x386U << 0x3CEU;
        QTest::newRow("small katakana") << 0xFF61U << 0xFF9FU;
    }
    void blocks_areComplete()
    {
        SKIP_WITHOUT_DATA();
        QFETCH(uint, first);
        QFETCH(uint, last);
        UnicodeFont font;
        for (uint code = first; code <= last; ++code) {
            const bool isUnassigned = code == 0x38B || code == 0x38D || code == 0x3A2;
            const bool isInvisible = code == 0xAD;  // soft hyphen
            const bool isOtherSign = code == 0x387; // a point, which Unicode calls another one's
            if (isUnassigned || isInvisible || isOtherSign)
                continue;
            Strokes strokes;
            QVERIFY2(font.draw(code, &strokes) > 0.0, qPrintable(QString::number(code, 16)));
            const bool isBlank = code == 0x20 || code == 0xA0;
            QVERIFY2(!strokes.isEmpty() || isBlank, qPrintable(QString::number(code, 16)));
        }
    }

    void wordsOfTheTask_areAllThere()
    {
        SKIP_WITHOUT_DATA();
        UnicodeFont font;
        // What was asked for by name, Latin-2 and the euro among it.
        for (const QChar wanted : QStringLiteral(
                 "Øµ²³½±°€£¥©®™ĄąŁłŚśŠšŤťŹźŽžŻżĎďĚěŇňŘřŮůŐőŰűȘșȚț"
                 "¼¾×÷§¶⅓⅛⌀≤≥≠≈∞√∑∆∫†‡•‰№₽₹¡¿«»"))
            QVERIFY2(font.advanceOf(wanted.unicode()) > 0.0, qPrintable(QString(wanted)));
    }

    void letterWithMark_isTheLetterUnderIt()
    {
        SKIP_WITHOUT_DATA();
        UnicodeFont font;
        Strokes plain;
        Strokes marked;
        for (const char *pair : {"eé", "AÄ", "ZŽ", "oő", "иЙ"}) {
            const QString letters = QString::fromUtf8(pair).toLower();
            const double width = font.draw(letters.at(0).unicode(), &plain);
            QCOMPARE(font.draw(letters.at(1).unicode(), &marked), width);
            QVERIFY2(marked.size() > plain.size(), pair);
            for (int i = 0; i < plain.size(); ++i)
                QCOMPARE(marked.at(i), plain.at(i));
            QVERIFY2(font.topOf(letters.at(1).unicode()) > 160.0, pair);
        }
    }

    void diameter_isCrossedByItsStroke()
    {
        SKIP_WITHOUT_DATA();
        UnicodeFont font;
        Strokes strokes;
        QCOMPARE(font.draw(0xD8, &strokes), 220.0);
        QCOMPARE(strokes.last().first(), QPointF(25, -15)); // a long line takes several codes
        QCOMPARE(strokes.last().last(), QPointF(195, 225));
    }

    void strokes_areWithinTheirWidth()
    {
        SKIP_WITHOUT_DATA();
        const UnicodeStrokesFont maker(DataFolder(QByteArrayLiteral(ZT_HERSHEY_DIR)));
        const auto all = maker.characters(nullptr);
        QVERIFY(all.size() > 800);
        for (const auto &[code, drawn] : all) {
            for (const QVector<QPointF> &stroke : drawn.strokes) {
                for (const QPointF &point : stroke) {
                    const bool isInside = point.x() > -60 && point.x() < drawn.advance + 60 &&
                                          point.y() > -120 && point.y() < 380;
                    QVERIFY2(isInside, qPrintable(QString::number(code, 16)));
                }
            }
        }
    }

    void make_twice_givesTheSameBytes()
    {
        SKIP_WITHOUT_DATA();
        fontkit::FontFile font;
        const UnicodeStrokesFont maker(DataFolder(QByteArrayLiteral(ZT_HERSHEY_DIR)));
        QVERIFY(maker.make(&font, nullptr));
        QFile file(
            QString::fromLocal8Bit(testsupport::boardFontPath(UnicodeStrokesFont::fileName())));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll() == fontkit::writeFont(font));
    }

    void make_withoutData_failsAndTells()
    {
        const QTemporaryDir folder;
        fontkit::FontFile font;
        QString error;
        const UnicodeStrokesFont maker(DataFolder(QFile::encodeName(folder.path())));
        QVERIFY(!maker.make(&font, &error));
        QCOMPARE(error, folder.path() + QStringLiteral("/futural.jhf: cannot be read"));
    }
};

QTEST_GUILESS_MAIN(tst_UnicodeStrokesFont)
#include "tst_UnicodeStrokesFont.moc"
