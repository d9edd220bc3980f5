#include <support/BoardFonts.h>
#include <support/OwnFolder.h>
#include <support/Skip.h>

#include <fontkit/GbStrokesFont.h>
#include <fontkit/HersheyFonts.h>
#include <fontkit/UnicodeStrokesFont.h>

#include <ZTDrawEngineLib/shx/ZTPathGlyphCallback.h>
#include <ZTDrawEngineLib/shx/ZTRegBigFontShxParser.h>
#include <ZTDrawEngineLib/shx/ZTShxFontManager.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QTextCodec>
#include <QtTest/QTest>

#include <algorithm>

namespace {

bool hasHershey() { return !testsupport::boardFonts().isEmpty(); }

QString noteOf(const QString &name)
{
    QFile file(QCoreApplication::applicationDirPath() + QStringLiteral("/font/") + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

class tst_FontsOnBoard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void folder_holdsEveryFontThatCanBeMade();
    void manager_listsThemByKind_simplexFirst();
    void licences_standBesideTheFonts();
    void pair_drawsMixedText();
    void pair_capitalsOfBothFontsAreOfOneSize();
    void fonts_atOneHeight_goTogetherWithoutAPair();
    void textHeight_isThatOfCapitals_data();
    void textHeight_isThatOfCapitals();
};

void tst_FontsOnBoard::initTestCase()
{
    if (!hasHershey())
        ZT_SKIP("no stroke fonts were made: install the package hershey-fonts-data");
    testsupport::installBoardFonts();
}

void tst_FontsOnBoard::folder_holdsEveryFontThatCanBeMade()
{
    QStringList expected = fontkit::HersheyFonts::fileNames();
    expected.append(fontkit::UnicodeStrokesFont::fileName());
    if (testsupport::hasChineseBoardFont())
        expected.append(fontkit::GbStrokesFont::fileName());
    expected.sort();
    QCOMPARE(testsupport::boardFonts(), expected);
}

void tst_FontsOnBoard::manager_listsThemByKind_simplexFirst()
{
    const auto &regular = ZTShxFontManager::regFonts();
    const int kinds = fontkit::HersheyFonts::fileNames().size();
    QCOMPARE(static_cast<int>(regular.size()), kinds + 1);         // and the font of 16-bit codes
    QCOMPARE(regular.front(), std::string("hershey-simplex.shx")); // what a new text gets
    if (!testsupport::hasChineseBoardFont())
        ZT_SKIP("the Chinese font was not made: tools/setup.sh build could not fetch its data");
    QCOMPARE(ZTShxFontManager::bigFonts(), std::vector<std::string>{"gb-strokes.shx"});
}

void tst_FontsOnBoard::licences_standBesideTheFonts()
{
    QVERIFY(noteOf(QStringLiteral("LICENSE-hershey.txt")).contains(QLatin1String("A. V. Hershey")));
    for (const QString &font : testsupport::boardFonts()) {
        const QString family = font.section(QLatin1Char('.'), 0, 0).section(QLatin1Char('-'), 0, 1);
        QVERIFY2(noteOf(QStringLiteral("README.txt")).contains(family), qPrintable(font));
    }
    if (testsupport::hasChineseBoardFont())
        QVERIFY(noteOf(QStringLiteral("ARPHICPL.TXT")).startsWith(QLatin1String("ARPHIC PUBLIC")));
}

void tst_FontsOnBoard::pair_drawsMixedText()
{
    if (!testsupport::hasChineseBoardFont())
        ZT_SKIP("the Chinese font was not made: tools/setup.sh build could not fetch its data");
    ZTRegBigFontShxParser pair("hershey-simplex.shx", "gb-strokes.shx");
    pair.setTextHeight(10.0);
    QCOMPARE(pair.getTextExtent("W"), 10.0);
    const QByteArray text =
        QTextCodec::codecForName("GBK")->fromUnicode(QString::fromUtf8("ABC 你好"));
    ZTPathGlyphCallback callback;
    // A 18, B and C 21, blank 16 of the 24 units of "W"; Chinese 10 each.
    const double width = pair.drawText(&callback, text.constData(), 0, 0, 0);
    QCOMPARE(width, (18 + 21 + 21 + 16) * 10.0 / 24 + 20);
    const QVector<QPainterPath> paths = callback.getPath();
    QCOMPARE(paths.size(), 6);
    double right = 0.0;
    for (int i = 0; i < paths.size(); ++i) {
        if (i == 3)
            continue; // the blank
        const QRectF box = paths.at(i).boundingRect();
        QVERIFY(box.width() > 3.0 && box.height() > 6.0);
        QVERIFY2(box.left() > right - 2.0, qPrintable(QString::number(i)));
        right = box.right();
    }
}

void tst_FontsOnBoard::pair_capitalsOfBothFontsAreOfOneSize()
{
    if (!testsupport::hasChineseBoardFont())
        ZT_SKIP("the Chinese font was not made: tools/setup.sh build could not fetch its data");
    ZTRegBigFontShxParser pair("hershey-simplex.shx", "gb-strokes.shx");
    pair.setTextHeight(24.0);
    ZTPathGlyphCallback callback;
    pair.drawText(&callback, "H\xA3\xC8", 0, 0, 0);
    // A character's path ends in the move to the next one, on the base line.
    QCOMPARE(callback.getPath().at(0).boundingRect().height(), 21.0);
    QCOMPARE(callback.getPath().at(1).boundingRect().height(), 21.0);
    QCOMPARE(pair.getTextHeight(), 21.0);
    QCOMPARE(pair.getDescendHeight(), 7.0);
}

void tst_FontsOnBoard::fonts_atOneHeight_goTogetherWithoutAPair()
{
    if (!testsupport::hasChineseBoardFont())
        ZT_SKIP("the Chinese font was not made: tools/setup.sh build could not fetch its data");
    ZTShxParser *regular = ZTShxFontManager::getFont("hershey-simplex.shx", 50);
    ZTShxParser *big = ZTShxFontManager::getFont("gb-strokes.shx", 50);
    regular->setTextHeight(21.0);
    big->setTextHeight(21.0);
    QCOMPARE(regular->getTextExtent("W"), 24.0);
    QCOMPARE(big->getTextExtent("\xC4\xE3"), 24.0);
}

void tst_FontsOnBoard::textHeight_isThatOfCapitals_data()
{
    QTest::addColumn<QString>("font");
    for (const QString &name : fontkit::HersheyFonts::fileNames())
        QTest::newRow(qPrintable(name)) << name;
}

void tst_FontsOnBoard::textHeight_isThatOfCapitals()
{
    QFETCH(QString, font);
    ZTShxParser *parser = ZTShxFontManager::getFont(font.toStdString(), 50);
    QVERIFY(parser != nullptr);
    QCOMPARE(parser->GetType(), SHX_TYPE::SHX_SHAPES);
    parser->setTextHeight(42.0);
    ZTPathGlyphCallback callback;
    parser->drawText(&callback, "E", 0, 0);
    callback.next();
    const QRectF box = callback.getPath().first().boundingRect();
    // Blackletter and script capitals have flourishes.
    QVERIFY2(std::abs(box.height() - 42.0) <= 2.0, qPrintable(QString::number(box.height())));
}

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QCoreApplication application(argc, argv);
    tst_FontsOnBoard test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_FontsOnBoard.moc"
