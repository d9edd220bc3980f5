#include <support/BoardFonts.h>
#include <support/OwnFolder.h>
#include <support/SingletonGuard.h>
#include <support/Skip.h>
#include <support/TextProbe.h>
#include <support/WarningGuard.h>

#include <hostkit/items/TextItem.h>
#include <hostkit/setup/Factories.h>
#include <hostkit/text/StrokeFont.h>
#include <hostkit/text/UnicodeStrokes.h>

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cmath>
#include <memory>

using hostkit::MissingCharacters;
using hostkit::TextShape;

// At a height of 240 a unit of the fonts is a tenth of a unit of the Hershey data: "W" is 240 wide
// and capitals are 210 high.

namespace {

constexpr double kHeight = 240.0;

ZTShxFontParam boardPair(const char *regular = "hershey-simplex.shx", double height = kHeight)
{
    ZTShxFontParam font;
    font.enName = QString::fromLatin1(regular);
    font.zhName = QStringLiteral("gb-strokes.shx");
    font.height = height;
    font.parser.init(regular, "gb-strokes.shx");
    hostkit::setStrokeHeight(&font);
    return font;
}

ZTFontParam strokeFont(const ZTShxFontParam &pair)
{
    ZTFontParam font;
    font.fontType = FontType::singleLine;
    font.shxFont = pair;
    return font;
}

QVector<QPainterPath> glyphsOf(const QString &text, double wordSpan = 0.0)
{
    return hostkit::strokeGlyphsOfBoth(text, boardPair(), QPointF(0, 0), wordSpan);
}

QRectF inkOf(const QPainterPath &path)
{
    QRectF box;
    for (const QPolygonF &polygon : path.toSubpathPolygons(QTransform())) {
        if (polygon.size() > 1)
            box |= polygon.boundingRect().adjusted(0, 0, 1e-9, 1e-9);
    }
    return box;
}

QPainterPath pathOf(const QString &text, const ZTShxFontParam &pair = boardPair())
{
    TextShape shape;
    shape.setFont(strokeFont(pair));
    shape.setText(text);
    return shape.getLines();
}

bool isSame(const QPainterPath &a, const QPainterPath &b)
{
    if (a.elementCount() != b.elementCount())
        return false;
    for (int i = 0; i < a.elementCount(); ++i) {
        if (std::abs(a.elementAt(i).x - b.elementAt(i).x) > 1e-6 ||
            std::abs(a.elementAt(i).y - b.elementAt(i).y) > 1e-6)
            return false;
    }
    return true;
}

} // namespace

class tst_UnicodeStrokes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (!testsupport::hasChineseBoardFont())
            ZT_SKIP("the Chinese font was not made: tools/setup.sh build could not fetch its data");
        testsupport::installBoardFonts();
        hostkit::registerFactories();
    }
    void init()
    {
        warnings.reset(new testsupport::WarningGuard);
        singletons.reset(new testsupport::SingletonGuard);
        testsupport::setPixelsPerMm(1);
        ZTShxFontManager::regFonts(); // the guard forgets them
    }
    void cleanup()
    {
        singletons.reset();
        warnings.reset();
    }

    void whatGbkLacks_comesFromTheOtherFont()
    {
        const ZTShxFontParam pair = boardPair();
        for (const QChar c : QStringLiteral("Øµ²³½€£¥©®™ÄöŁžőțşЉґέϋ⌀"))
            QVERIFY2(hostkit::isFromUnicodeFont(c, pair), qPrintable(QString(c)));
        for (const QChar c : QStringLiteral("A0 你かカ、。“”—①Ⅳ㎏┌"))
            QVERIFY2(!hostkit::isFromUnicodeFont(c, pair), qPrintable(QString(c)));
        QVERIFY(!hostkit::isFromUnicodeFont(QChar(0xD83D), pair)); // half of an emoji
        QVERIFY(!hostkit::isFromUnicodeFont(QChar(0x0E01), pair)); // Thai is in neither
    }

    void lettersThatBothHave_areTakenWhereTheyMatchTheLettersBesideThem()
    {
        ZTShxFontParam pair = boardPair();
        for (const QChar c : QStringLiteral("éüāΩжМ°±×"))
            QVERIFY2(hostkit::isFromUnicodeFont(c, pair), qPrintable(QString(c)));
        pair.zhName = QStringLiteral("mine.shx"); // as foreign big fonts draw them
        for (const QChar c : QStringLiteral("éüāΩжМ°±×"))
            QVERIFY2(!hostkit::isFromUnicodeFont(c, pair), qPrintable(QString(c)));
        QVERIFY(hostkit::isFromUnicodeFont(QChar(0xD8), pair));
    }

    void widths_addUp_asOneText()
    {
        // A 180, Ø 220, B 210, the Chinese character 240, ° 115.
        const QVector<QPainterPath> glyphs = glyphsOf(QStringLiteral("AØB你°"));
        QCOMPARE(glyphs.size(), 5);
        const QVector<double> ends{180, 400, 610, 850, 965};
        for (int i = 0; i < 5; ++i)
            QVERIFY2(std::abs(glyphs.at(i).currentPosition().x() - ends.at(i)) < 1e-6,
                     qPrintable(QString::number(i)));
        // Each further by the word span of those before it.
        const QVector<QPainterPath> wide = glyphsOf(QStringLiteral("AØB你°"), 10.0);
        QVERIFY(std::abs(wide.last().currentPosition().x() - (965 + 40)) < 1e-6);
    }

    void heightsAndBaseLines_agree_inEveryRegularFont_data()
    {
        QTest::addColumn<QByteArray>("regular");
        for (const char *font : {"hershey-simplex.shx", "hershey-duplex.shx", "hershey-triplex.shx",
                                 "hershey-complex-italic.shx", "hershey-greek.shx"})
            QTest::newRow(font) << QByteArray(font);
    }
    void heightsAndBaseLines_agree_inEveryRegularFont()
    {
        QFETCH(QByteArray, regular);
        const ZTShxFontParam pair = boardPair(regular.constData());
        const QVector<QPainterPath> glyphs =
            hostkit::strokeGlyphsOfBoth(QStringLiteral("HĦ"), pair, QPointF(0, 0), 0.0);
        const QRectF latin = inkOf(glyphs.at(0));
        const QRectF barred = inkOf(glyphs.at(1));
        QVERIFY2(std::abs(latin.top() - barred.top()) < 1e-3,
                 qPrintable(QString::number(latin.top() - barred.top())));
        QVERIFY(std::abs(latin.bottom() - barred.bottom()) < 1e-3);
        QVERIFY(latin.height() > 150.0);
    }

    void lettersOfTheOtherFont_areThoseOfThePairWhereBothHaveThem()
    {
        // e of the regular font; e with its accent from the other: the same strokes under it.
        const QVector<QPainterPath> glyphs = glyphsOf(QStringLiteral("eë"));
        const QRectF plain = inkOf(glyphs.at(0));
        const QRectF marked = inkOf(glyphs.at(1));
        QCOMPARE(qRound(marked.width()), qRound(plain.width()));
        QCOMPARE(qRound(marked.bottom()), qRound(plain.bottom()));
        QVERIFY(marked.top() < plain.top() - 30.0);
    }

    void heightOfTheOtherFont_isAsBefore()
    {
        ZTShxParser *font = ZTShxFontManager::getFont("unicode-strokes.shx", 1);
        QVERIFY(font != nullptr);
        font->setTextHeight(77.0);
        glyphsOf(QStringLiteral("Ø"));
        QCOMPARE(font->getTextHeight(), 77.0);
    }

    void otherFontAsTheRegularOneToo_drawsTheSame()
    {
        const QPainterPath simplex = pathOf(QStringLiteral("AØ1"));
        const QPainterPath unicode =
            pathOf(QStringLiteral("AØ1"), boardPair("unicode-strokes.shx"));
        // As many strokes of one size; a long line takes several codes in the finer units.
        QCOMPARE(unicode.toSubpathPolygons().size(), simplex.toSubpathPolygons().size());
        const QRectF first = simplex.controlPointRect();
        const QRectF second = unicode.controlPointRect();
        QVERIFY(std::abs(first.width() - second.width()) < 1e-6);
        QVERIFY(std::abs(first.height() - second.height()) < 1e-6);
    }

    void asciiAndChinese_areDrawnByTheLibraryAlone()
    {
        for (const QString &text :
             {QStringLiteral("ABC 123"), QStringLiteral("你好、A①"), QStringLiteral("かなカナ")}) {
            ZTShapeText plain;
            boardPair();
            plain.setFont(strokeFont(boardPair()));
            plain.setText(text);
            QVERIFY2(isSame(pathOf(text), plain.getLines()), qPrintable(text));
        }
    }

    void decomposedLetters_areComposed()
    {
        const QString decomposed = QStringLiteral("Zu\u0308rich");
        QVERIFY(isSame(pathOf(decomposed), pathOf(QStringLiteral("Zürich"))));
    }

    void onAnArc_everyCharacterHasItsShare()
    {
        TextShape shape;
        shape.setFont(strokeFont(boardPair()));
        ZTRoundingParam arc;
        arc.isEnableRounding = true;
        arc.startAngle = 0.0;
        arc.spanAngle = 360.0;
        arc.diameter = 5000.0;
        shape.setRoundingParam(arc);
        shape.setText(QStringLiteral("IŁII")); // in the middle of their shares: 45, 135, 225, 315
        ZTShapeText plain;
        plain.setFont(strokeFont(boardPair()));
        plain.setRoundingParam(arc);
        plain.setText(QStringLiteral("IIII"));
        // Where the letters are the same they stand at the same place, to the size of a letter.
        const QRectF mixed = shape.getLines().controlPointRect();
        const QRectF alike = plain.getLines().controlPointRect();
        QVERIFY(std::abs(mixed.width() - alike.width()) < 250.0);
        QVERIFY(mixed.width() > 6000.0);
        QCOMPARE(shape.getLines().toSubpathPolygons().size(),
                 plain.getLines().toSubpathPolygons().size() + 1); // the stroke through L
    }

    void whatNeitherHas_staysAReplacement_andIsTold()
    {
        const ZTFontParam font = strokeFont(boardPair());
        const QString text = QStringLiteral("A\u0E01Ø") + QString::fromUtf8("\xF0\x9F\x98\x80");
        const MissingCharacters missing = hostkit::missingCharacters(text, font);
        QCOMPARE(missing.notEncoded,
                 (QStringList{QString(QChar(0x0E01)), QString::fromUtf8("\xF0\x9F\x98\x80")}));
        QVERIFY(missing.noGlyph.isEmpty());
        QCOMPARE(glyphsOf(text).size(), 4); // "?" for each of the two
        TextShape shape;
        shape.setFont(font);
        shape.setText(text);
        QCOMPARE(shape.notReadyReason(),
                 QStringLiteral("characters missing in its stroke fonts: \u0E01 ") +
                     QString::fromUtf8("\xF0\x9F\x98\x80"));
        shape.setText(
            QStringLiteral("Ø 12,5 ±0,05 µm Größe Ženeva Łódź Ωμέγα Москва かなカナ ½ € ©"));
        QCOMPARE(shape.notReadyReason(), QString());
    }

    void savedAndLoaded_aPlainHostShowsAsMuchAsItCan()
    {
        TextShape shape;
        shape.setFont(strokeFont(boardPair()));
        shape.setText(QStringLiteral("Ø12 µm"));
        QByteArray bytes;
        QDataStream writing(&bytes, QIODevice::WriteOnly);
        shape.save(writing);
        TextShape loaded;
        QDataStream reading(bytes);
        loaded.load(reading);
        QCOMPARE(loaded.text(), QStringLiteral("Ø12 µm"));
        QVERIFY(isSame(loaded.getLines(), shape.getLines()));
        ZTShapeText plain;
        QDataStream again(bytes);
        plain.load(again);
        QCOMPARE(plain.text(), QStringLiteral("Ø12 µm"));
        QVERIFY(!plain.getLines().isEmpty());
        QByteArray resaved;
        QDataStream rewriting(&resaved, QIODevice::WriteOnly);
        plain.save(rewriting);
        QCOMPARE(resaved.size(), bytes.size());
    }

    void withoutTheOtherFont_everythingIsAsTheLibraryDrawsIt()
    {
        QVERIFY(QFile::rename(hostkit::strokeFontFolder() + QStringLiteral("/unicode-strokes.shx"),
                              hostkit::strokeFontFolder() + QStringLiteral("/away.txt")));
        ZTShxFontManager::release();
        ZTShxFontManager::regFonts();
        const MissingCharacters missing =
            hostkit::missingCharacters(QStringLiteral("Øé"), strokeFont(boardPair()));
        QCOMPARE(missing.notEncoded, QStringList{QStringLiteral("Ø")}); // é is in GBK
        ZTShapeText plain;
        plain.setFont(strokeFont(boardPair()));
        plain.setText(QStringLiteral("AØB"));
        QVERIFY(isSame(pathOf(QStringLiteral("AØB")), plain.getLines()));
        QVERIFY(
            QFile::rename(hostkit::strokeFontFolder() + QStringLiteral("/away.txt"),
                          hostkit::strokeFontFolder() + QStringLiteral("/unicode-strokes.shx")));
        ZTShxFontManager::release();
        ZTShxFontManager::regFonts();
    }

private:
    QScopedPointer<testsupport::WarningGuard> warnings;
    QScopedPointer<testsupport::SingletonGuard> singletons;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    const QApplication application(argc, argv);
    tst_UnicodeStrokes test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_UnicodeStrokes.moc"
