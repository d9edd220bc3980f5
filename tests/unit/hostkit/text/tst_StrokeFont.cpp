#include <support/OwnFolder.h>
#include <support/ShxWriter.h>
#include <support/TinyFonts.h>
#include <support/WarningGuard.h>

#include <hostkit/text/StrokeFont.h>

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using hostkit::MissingCharacters;
using testsupport::ShxWriter;

class tst_StrokeFont : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        warnings.reset(new testsupport::WarningGuard);
        testsupport::makeTinyFonts();
    }
    void cleanup() { warnings.reset(); }

    void pair_isLoaded_atTheUsualHeight()
    {
        ZTShxFontParam font = found("tiny.shx", "tinybig.shx");
        QCOMPARE(font.enName, QStringLiteral("tiny.shx"));
        QCOMPARE(font.zhName, QStringLiteral("tinybig.shx"));
        QCOMPARE(font.height, 100.0);
        QCOMPARE(font.parser.getTextExtent("W"), 100.0);
        QCOMPARE(font.parser.getTextExtent("\xC4\xE3"), 100.0);
    }

    void withoutBigName_theFirstBigFontIsTaken()
    {
        QCOMPARE(found("tiny.shx", "").zhName, QStringLiteral("tinybig.shx"));
    }

    void unusableFont_isNamed_withThePlacesWhereItWasSought_data()
    {
        QTest::addColumn<QString>("regularName");
        QTest::addColumn<QString>("bigName");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char *regular, const char *big, const char *reason) {
            QTest::newRow(reason) << QString::fromLatin1(regular) << QString::fromLatin1(big)
                                  << QString::fromLatin1(reason);
        };
        row("none.shx", "tinybig.shx", "no stroke font none.shx in A, B");
        row("tiny.shx", "none.shx", "no stroke font none.shx in A, B");
        row("tinybig.shx", "tinybig.shx", "tinybig.shx is a big font, no regular one");
        row("tiny.shx", "tiny.shx", "tiny.shx is a regular font, no big one");
        row("text.shx", "tinybig.shx", "text.shx is no stroke font");
        row("now.shx", "tinybig.shx",
            "now.shx has no \"W\", by whose width fonts are brought to a height");
    }

    void unusableFont_isNamed_withThePlacesWhereItWasSought()
    {
        QFETCH(QString, regularName);
        QFETCH(QString, bigName);
        QFETCH(QString, reason);
        write("text.shx", "no font at all");
        write("now.shx", fontOf('A').shapes());
        ZTShxFontManager::release();
        hostkit::Failure failure;
        ZTShxFontParam font;
        QVERIFY(!hostkit::strokeFont(regularName, bigName,
                                     {QStringLiteral("A"), QStringLiteral("B")}, &font, &failure));
        QCOMPARE(failure.reason, reason);
    }

    void bigFontWithoutItsReference_isNamed()
    {
        ShxWriter writer = fontOf(0xBAC3);
        writer.ranges = {{0x81, 0xFE}};
        write("other.shx", writer.bigfont());
        ZTShxFontManager::release();
        hostkit::Failure failure;
        ZTShxFontParam font;
        QVERIFY(!hostkit::strokeFont(QStringLiteral("tiny.shx"), QStringLiteral("other.shx"), {},
                                     &font, &failure));
        QCOMPARE(failure.reason,
                 QStringLiteral("other.shx has no \"你\", by whose width fonts are brought "
                                "to a height"));
    }

    void noBigFontAtAll_isTold()
    {
        QVERIFY(QFile::remove(hostkit::strokeFontFolder() + QStringLiteral("/tinybig.shx")));
        ZTShxFontManager::release();
        hostkit::Failure failure;
        ZTShxFontParam font;
        QVERIFY(!hostkit::strokeFont(QStringLiteral("tiny.shx"), {}, {QStringLiteral("here")},
                                     &font, &failure));
        QCOMPARE(failure.reason, QStringLiteral("no big font in here"));
    }

    void missingCharacters_areNamedOnce_inTheirOrder()
    {
        ZTFontParam font;
        font.fontType = FontType::singleLine;
        font.shxFont = found("tiny.shx", "tinybig.shx");
        const MissingCharacters missing = hostkit::missingCharacters(
            QStringLiteral("CA B\nC你好吗吗?") + QString::fromUtf8("\xF0\x9F\x98\x80"), font);
        QCOMPARE(missing.noGlyph, (QStringList{QStringLiteral("C"), QStringLiteral("吗")}));
        QCOMPARE(missing.notEncoded, QStringList{QString::fromUtf8("\xF0\x9F\x98\x80")});
    }

    void systemFont_missesWhatItCannotShow()
    {
        ZTFontParam font;
        font.font = QFont(QStringLiteral("DejaVu Sans"));
        const QString unassigned(QChar(0x0378));
        const MissingCharacters missing =
            hostkit::missingCharacters(QStringLiteral("A\nß") + unassigned, font);
        QCOMPARE(missing.noGlyph, QStringList{unassigned});
        QVERIFY(missing.notEncoded.isEmpty());
    }

private:
    static ZTShxFontParam found(const char *regularName, const char *bigName)
    {
        ZTShxFontParam font;
        hostkit::Failure failure;
        hostkit::strokeFont(QString::fromLatin1(regularName), QString::fromLatin1(bigName), {},
                            &font, &failure);
        if (!failure.reason.isEmpty())
            qWarning("%s", qPrintable(failure.reason));
        return font;
    }

    static void write(const char *name, const QByteArray &content)
    {
        testsupport::writeFile(
            hostkit::strokeFontFolder() + QLatin1Char('/') + QString::fromLatin1(name), content);
    }

    /** A font whose only glyph is a line. */
    static ShxWriter fontOf(int code)
    {
        ShxWriter writer;
        writer.above = 10;
        writer.glyphs = {{code, testsupport::bytes({0x40}), {}}};
        return writer;
    }

    QScopedPointer<testsupport::WarningGuard> warnings;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    const QApplication application(argc, argv);
    tst_StrokeFont test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_StrokeFont.moc"
