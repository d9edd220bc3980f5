#include <ZTDrawEngineLib/common/LetterOutlines_p.h>

#include <support/TestFonts.h>

#include <QtGui/QFont>
#include <QtGui/QPainterPath>
#include <QtTest/QTest>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

using testsupport::cubicFont;
using ztoutline::LetterOutlines;

namespace {

QPainterPath laidOutAt(const QPointF &position, const QFont &font, const QString &text)
{
    QPainterPath path;
    path.addText(position, font, text);
    return path;
}

/** Where two outlines differ in any bit of a number; empty: nowhere. */
QString difference(const QPainterPath &ours, const QPainterPath &plain)
{
    if (ours.elementCount() != plain.elementCount() || ours.fillRule() != plain.fillRule())
        return QStringLiteral("%1 points instead of %2")
            .arg(ours.elementCount())
            .arg(plain.elementCount());
    for (int i = 0; i < plain.elementCount(); ++i) {
        const QPainterPath::Element &a = ours.elementAt(i);
        const QPainterPath::Element &b = plain.elementAt(i);
        if (a.type != b.type || std::memcmp(&a.x, &b.x, sizeof a.x) != 0 ||
            std::memcmp(&a.y, &b.y, sizeof a.y) != 0)
            return QStringLiteral("point %1: (%2, %3) instead of (%4, %5)")
                .arg(i)
                .arg(a.x, 0, 'g', 17)
                .arg(a.y, 0, 'g', 17)
                .arg(b.x, 0, 'g', 17)
                .arg(b.y, 0, 'g', 17);
    }
    return {};
}

QString serialNumber(int number)
{
    return QStringLiteral("SN-%1").arg(number, 6, 10, QLatin1Char('0'));
}

QString randomText(std::mt19937 &dice)
{
    // Pairs that move closer, letters that a font may join, and what is no letter at all.
    static const QStringList pieces = {
        QStringLiteral("AV"),  QStringLiteral("To"), QStringLiteral("ffi"), QStringLiteral("fl"),
        QStringLiteral("012"), QStringLiteral("9"),  QStringLiteral(" "),   QStringLiteral("-"),
        QStringLiteral("."),   QStringLiteral("gA"), QStringLiteral("Wj"),  QStringLiteral("~"),
        QStringLiteral("(x)"), QStringLiteral("@#"), QStringLiteral("e")};
    QString text;
    for (int i = 1 + static_cast<int>(dice() % 4); i > 0; --i)
        text += pieces[static_cast<int>(dice() % static_cast<unsigned>(pieces.size()))];
    switch (dice() % 30) {
    case 0:
        return text + QChar(0x4F60);
    case 1:
        return text + QChar(0x05D0) + QStringLiteral("b");
    case 2:
        return text + QLatin1Char('\t') + text;
    case 3:
        return text + QChar(0x0301);
    case 4:
        return {};
    default:
        return text;
    }
}

QPointF randomPlace(std::mt19937 &dice)
{
    std::uniform_real_distribution<double> some(-2000.0, 2000.0);
    switch (dice() % 4) {
    case 0:
        return {some(dice), some(dice)};
    case 1:
        return {std::trunc(some(dice)), std::trunc(some(dice)) / 64.0};
    default:
        return {0.0, std::trunc(some(dice))};
    }
}

} // namespace

class tst_LetterOutlines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void outlineOf_anyText_asThePathDoes_data()
    {
        QTest::addColumn<QFont>("font");
        const QFont usual(QStringLiteral("DejaVu Sans"), 11);
        const auto add = [&usual](const char *name, void (*change)(QFont &)) {
            QFont font = usual;
            change(font);
            QTest::newRow(name) << font;
        };
        add("usual", [](QFont &) {});
        add("in pixels", [](QFont &font) { font.setPixelSize(100); });
        add("tiny", [](QFont &font) { font.setPixelSize(2); });
        add("huge", [](QFont &font) { font.setPixelSize(3000); });
        add("serif", [](QFont &font) { font.setFamily(QStringLiteral("DejaVu Serif")); });
        add("fixed", [](QFont &font) { font.setFamily(QStringLiteral("DejaVu Sans Mono")); });
        add("bold", [](QFont &font) { font.setBold(true); });
        add("black", [](QFont &font) { font.setWeight(QFont::Black); });
        add("slanted", [](QFont &font) { font.setItalic(true); });
        add("underlined", [](QFont &font) { font.setUnderline(true); });
        add("struck out", [](QFont &font) { font.setStrikeOut(true); });
        add("stretched", [](QFont &font) { font.setStretch(150); });
        add("not hinted", [](QFont &font) { font.setHintingPreference(QFont::PreferNoHinting); });
        add("no pairs", [](QFont &font) { font.setKerning(false); });
        add("spaced", [](QFont &font) { font.setLetterSpacing(QFont::AbsoluteSpacing, 3.7); });
        add("backwards", [](QFont &font) { font.setLetterSpacing(QFont::AbsoluteSpacing, -90); });
        add("words apart", [](QFont &font) { font.setWordSpacing(5.3); });
        add("small capitals", [](QFont &font) { font.setCapitalization(QFont::SmallCaps); });
        add("capitals", [](QFont &font) { font.setCapitalization(QFont::AllUppercase); });
    }

    void outlineOf_anyText_asThePathDoes()
    {
        QFETCH(QFont, font);
        LetterOutlines letters(font);
        std::mt19937 dice(3);
        for (int i = 0; i < 1000; ++i) {
            const QString text = randomText(dice);
            const QPointF place = randomPlace(dice);
            const QString what =
                difference(letters.outlineOf(text, place), laidOutAt(place, font, text));
            QVERIFY2(what.isEmpty(), qPrintable(text + QStringLiteral(": ") + what));
        }
    }

    void outlineOf_fontOfCubicCurves_asThePathDoes_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("pixels");
        for (const char *file : {"C059-Roman.otf", "NimbusSans-Regular.otf",
                                 "NimbusRoman-Italic.t1", "URWBookman-Light.t1"}) {
            for (const int pixels : {7, 40, 53, 300})
                QTest::addRow("%s, %d", file, pixels) << QString::fromLatin1(file) << pixels;
        }
    }

    /** Single letters at the origin first, which are not moved. */
    void outlineOf_fontOfCubicCurves_asThePathDoes()
    {
        QFETCH(QString, file);
        QFETCH(int, pixels);
        const QFont font = cubicFont(file, pixels);
        QVERIFY2(QFontInfo(font).exactMatch(), "the package fonts-urw-base35 is missing");
        LetterOutlines letters(font);
        std::mt19937 dice(11);
        for (int i = 0; i < 400; ++i) {
            const QString text =
                i < 100 ? QString(QLatin1Char(static_cast<char>('0' + i % 75))) : randomText(dice);
            const QPointF place = i < 200 ? QPointF() : randomPlace(dice);
            const QString what =
                difference(letters.outlineOf(text, place), laidOutAt(place, font, text));
            QVERIFY2(what.isEmpty(), qPrintable(text + QStringLiteral(": ") + what));
        }
    }

    void outlineOf_fontOfCubicCurves_laysOutFew()
    {
        LetterOutlines letters(cubicFont(QStringLiteral("C059-Roman.otf"), 40));
        for (int i = 0; i < 1000; ++i)
            letters.outlineOf(serialNumber(i * 997), {});
        QVERIFY2(letters.layoutCount() < 70, qPrintable(QString::number(letters.layoutCount())));
    }

    void outlineOf_manySerialNumbers_laysOutFew()
    {
        const QFont font(QStringLiteral("DejaVu Sans"), 40);
        LetterOutlines letters(font);
        for (int i = 0; i < 1000; ++i)
            letters.outlineOf(serialNumber(i * 997), {});
        // The first ones, then thirteen letters, and the texts that they were new in.
        QVERIFY2(letters.layoutCount() < 70, qPrintable(QString::number(letters.layoutCount())));
        QVERIFY(letters.layoutCount() > 32);
    }

    void outlineOf_fewTexts_learnsNoLetters()
    {
        LetterOutlines letters(QFont(QStringLiteral("DejaVu Sans"), 40));
        for (int i = 0; i < 32; ++i)
            letters.outlineOf(serialNumber(i), {});
        QCOMPARE(letters.layoutCount(), 32);
    }

    /** A line under a text is no line under each letter. */
    void outlineOf_fontWhoseLettersAreNotItsTexts_isLaidOutAlways()
    {
        QFont font(QStringLiteral("DejaVu Sans"), 40);
        font.setUnderline(true);
        LetterOutlines letters(font);
        for (int i = 0; i < 100; ++i)
            letters.outlineOf(serialNumber(i), {});
        const int before = letters.layoutCount();
        letters.outlineOf(serialNumber(7), {});
        QCOMPARE(letters.layoutCount(), before + 1);
        QCOMPARE(difference(letters.outlineOf(serialNumber(7), {}),
                            laidOutAt({}, font, serialNumber(7))),
                 QString());
    }

    void outlineOf_blanksOnly_areLaidOutAndSayNothingOfTheFont()
    {
        const QFont font(QStringLiteral("DejaVu Sans"), 40);
        LetterOutlines letters(font);
        for (int i = 0; i < 200; ++i)
            letters.outlineOf(serialNumber(i * 997), {});
        const QString blanks = QStringLiteral("   ");
        QCOMPARE(difference(letters.outlineOf(blanks, {3, 4}), laidOutAt({3, 4}, font, blanks)),
                 QString());
        const int before = letters.layoutCount();
        letters.outlineOf(serialNumber(123456), {});
        QCOMPARE(letters.layoutCount(), before);
    }

    void outlineOf_notANumber_doesNotCrash()
    {
        const double none = std::numeric_limits<double>::quiet_NaN();
        LetterOutlines letters(QFont(QStringLiteral("DejaVu Sans"), 11));
        for (int i = 0; i < 50; ++i) {
            letters.outlineOf(serialNumber(i), {none, 0.0});
            letters.outlineOf(serialNumber(i), {0.0, std::numeric_limits<double>::infinity()});
        }
    }
};

QTEST_MAIN(tst_LetterOutlines)
#include "tst_LetterOutlines.moc"
