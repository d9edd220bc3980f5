#include <support/OwnFolder.h>
#include <support/ShxWriter.h>
#include <support/TinyFonts.h>
#include <support/WarningGuard.h>

#include <studio/text/FontOffers.h>

#include <hostkit/text/StrokeFont.h>

#include <QtGui/QRawFont>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using studio::FontOffer;
using studio::TextSettings;

class tst_FontOffers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        warnings.reset(new testsupport::WarningGuard);
        testsupport::makeTinyFonts();
        addFontWithC();
        settings = TextSettings();
        settings.kind = FontType::singleLine;
        settings.enName = QStringLiteral("tiny.shx");
        settings.zhName = QStringLiteral("tinybig.shx");
    }
    void cleanup() { warnings.reset(); }

    void nothingMissing_nothingTold()
    {
        QVERIFY(studio::missingCharacters(QStringLiteral("AB你\nA"), settings).isEmpty());
        QCOMPARE(studio::missingCharacters(QStringLiteral("ACA"), settings),
                 QStringList{QStringLiteral("C")});
    }

    void strokePairsThatDrawAll_comeFirst_withTheFontOfTheTextKept()
    {
        const QVector<FontOffer> offers = studio::fontsThatDraw(QStringLiteral("AC你"), settings);
        QVERIFY(!offers.isEmpty());
        QVERIFY(offers.first().kind == FontType::singleLine);
        QCOMPARE(offers.first().enName, QStringLiteral("withc.shx"));
        QCOMPARE(offers.first().zhName, QStringLiteral("tinybig.shx"));
        QCOMPARE(offers.first().shown(), QStringLiteral("withc + tinybig"));
        TextSettings taken = settings;
        offers.first().applyTo(&taken);
        QCOMPARE(taken.enName, QStringLiteral("withc.shx"));
        QVERIFY(studio::missingCharacters(QStringLiteral("AC"), taken).isEmpty());
    }

    void systemFont_isOfferedLast_whereItHasEveryCharacterItself()
    {
        const QVector<FontOffer> offers = studio::fontsThatDraw(QStringLiteral("AЖ"), settings);
        QCOMPARE(offers.size(), 1); // no stroke font here has Cyrillic
        QVERIFY(offers.first().kind == FontType::doubleLine);
        const QRawFont font = QRawFont::fromFont(QFont(offers.first().family));
        QVERIFY2(font.supportsCharacter(0x0416), qPrintable(offers.first().family));
        QCOMPARE(offers.first().shown(), offers.first().family);
        TextSettings taken = settings;
        offers.first().applyTo(&taken);
        QVERIFY(taken.kind == FontType::doubleLine);
        QCOMPARE(taken.font.family(), offers.first().family);
    }

    void whatNoFontDraws_getsNoOffer()
    {
        QVERIFY(studio::fontsThatDraw(QString(QChar(0x0378)), settings).isEmpty());
    }

private:
    static void addFontWithC()
    {
        testsupport::ShxWriter writer;
        writer.above = 10;
        const QByteArray line = testsupport::bytes({0x40});
        writer.glyphs = {{'A', line, QByteArray(700, 'A')}, {'C', line, {}}, {'W', line, {}}};
        testsupport::writeFile(hostkit::strokeFontFolder() + QStringLiteral("/withc.shx"),
                               writer.shapes());
        ZTShxFontManager::release();
        ZTShxFontManager::regFonts();
    }

    TextSettings settings;
    QScopedPointer<testsupport::WarningGuard> warnings;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    const QApplication application(argc, argv);
    tst_FontOffers test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_FontOffers.moc"
