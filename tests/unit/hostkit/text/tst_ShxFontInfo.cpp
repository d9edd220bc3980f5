#include <support/ShxWriter.h>

#include <hostkit/text/ShxFontInfo.h>

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using hostkit::ShxFontInfo;
using hostkit::ShxGlyphInfo;
using testsupport::bytes;
using testsupport::ShxGlyph;
using testsupport::ShxWriter;

namespace {

const ShxGlyph kA{0x41, bytes({0x20}), QByteArrayLiteral("CAPA")};
const ShxGlyph kB{0x42, bytes({0x20, 0x44}), {}};

ShxWriter writerOf(const QVector<ShxGlyph> &glyphs)
{
    ShxWriter writer;
    writer.above = 21;
    writer.below = 7;
    writer.glyphs = glyphs;
    writer.ranges = {{0x81, 0xA0}, {0xB0, 0xFE}};
    return writer;
}

/** "41 CAPA 6, 42 3": code in hexadecimal, name, length, "!" where it cannot be used. */
QString shown(const QVector<ShxGlyphInfo> &glyphs)
{
    QStringList all;
    for (const ShxGlyphInfo &glyph : glyphs) {
        QString text = QString::number(glyph.code, 16);
        if (!glyph.name.isEmpty())
            text += QLatin1Char(' ') + glyph.name;
        text += QStringLiteral(" %1").arg(glyph.length);
        all << (glyph.usable ? text : text + QLatin1Char('!'));
    }
    return all.join(QStringLiteral(", "));
}

} // namespace

class tst_ShxFontInfo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { folder.reset(new QTemporaryDir); }

    void shapes_areTakenApart()
    {
        const ShxFontInfo info = read(writerOf({kA, kB}).shapes());
        QCOMPARE(info.type, SHX_TYPE::SHX_SHAPES);
        QCOMPARE(info.form(), QStringLiteral("shapes"));
        QCOMPARE(info.name, QStringLiteral("font"));
        QCOMPARE(info.above, 21);
        QCOMPARE(info.below, 7);
        QVERIFY(!info.isBig());
        QCOMPARE(shown(info.glyphs), QStringLiteral("0 font 9!, 41 CAPA 6, 42 3"));
        QCOMPARE(info.usableGlyphs(), 2);
        QCOMPARE(info.problems, QStringList());
    }

    void shapesWithoutInformation_areFourHigh()
    {
        const ShxFontInfo info = read(writerOf({kA}).shapesOnly());
        QCOMPARE(info.type, SHX_TYPE::SHX_SHAPE_ONLY);
        QCOMPARE(info.form(), QStringLiteral("shapes"));
        QCOMPARE(info.above, 4);
        QCOMPARE(info.below, 0);
        QCOMPARE(shown(info.glyphs), QStringLiteral("41 CAPA 6"));
    }

    void bigfont_isTakenApart()
    {
        const ShxFontInfo info = read(writerOf({{0xC4E3, bytes({0x20}), {}}}).bigfont());
        QCOMPARE(info.type, SHX_TYPE::SHX_BIGFONT);
        QCOMPARE(info.form(), QStringLiteral("bigfont"));
        QCOMPARE(info.name, QStringLiteral("big"));
        QCOMPARE(info.above, 21);
        QCOMPARE(info.below, 0); // a big font has no descender
        QVERIFY(info.isBig());
        QCOMPARE(info.ranges, (QVector<QPair<int, int>>{{0x81, 0xA0}, {0xB0, 0xFE}}));
        QCOMPARE(shown(info.glyphs), QStringLiteral("0 big 8!, c4e3 2"));
        QCOMPARE(info.problems, QStringList());
    }

    void unifont_isTakenApart()
    {
        const ShxFontInfo info = read(writerOf({kA, {0x4F60, bytes({0x20}), {}}}).unifont());
        QCOMPARE(info.type, SHX_TYPE::SHX_UNIFONT);
        QCOMPARE(info.form(), QStringLiteral("unifont"));
        QCOMPARE(info.name, QStringLiteral("unifont"));
        QCOMPARE(info.above, 21);
        QCOMPARE(info.below, 7);
        QCOMPARE(shown(info.glyphs), QStringLiteral("41 CAPA 6, 4f60 2"));
        QCOMPARE(info.problems, QStringList());
    }

    void ascenderOfZero_isTheDescender()
    {
        ShxWriter writer = writerOf({kA});
        writer.above = 0;
        for (const QByteArray &file : {writer.shapes(), writer.bigfont(), writer.unifont()})
            QCOMPARE(read(file).above, 7);
    }

    void damage_isTold_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QStringList>("problems");
        const auto row = [](const char *name, const QByteArray &file, const QStringList &problems) {
            QTest::newRow(name) << file << problems;
        };
        row("the same code twice", writerOf({kA, kA}).shapes(),
            {QStringLiteral("glyph 0x0041 stands there once more, this one is never drawn")});
        row("cut short", writerOf({kA, kB}).shapes().chopped(1),
            {QStringLiteral("glyph 0x0042 reaches beyond the end of the file")});
        row("cut short, big font", writerOf({kA, kB}).bigfont().chopped(1),
            {QStringLiteral("glyph 0x0042 reaches beyond the end of the file")});
        row("cut short, unifont", writerOf({kA, kB}).unifont().chopped(1),
            {QStringLiteral("glyph 0x0042 reaches beyond the end of the file")});
        ShxWriter liar = writerOf({});
        liar.count = 9;
        row("more records claimed", liar.unifont(),
            {QStringLiteral("the index ends after 0 of 9 records")});
        liar.ranges = {{0xFE, 0x81}};
        liar.count = -1;
        row("range the wrong way round", liar.bigfont(),
            {QStringLiteral("range 1 of lead bytes is empty")});
        liar.above = 0;
        liar.below = 0;
        row("no size", liar.unifont(), {});
        row("no size, shapes", liar.shapes(),
            {QStringLiteral("the ascender is 0: the font has no size")});
        QByteArray endless = writerOf({kB}).shapes();
        row("a name without an end", endless.replace(QByteArray("\0\x20\x44", 3), "abc"),
            {QStringLiteral("glyph 0x0042 is nothing but a name without an end")});
        QByteArray headOnly = writerOf({kA}).shapes().left(34);
        row("definitions cut off", headOnly,
            {QStringLiteral("the index ends after 1 of 2 records"),
             QStringLiteral("the font information is cut short")});
    }

    void damage_isTold()
    {
        QFETCH(QByteArray, file);
        QFETCH(QStringList, problems);
        const ShxFontInfo info = read(file);
        QCOMPARE(info.problems, problems);
        QCOMPARE(info.problemCount, problems.size());
    }

    void muchDamage_isCounted_andTheFirstTold()
    {
        const ShxFontInfo info = read(writerOf(QVector<ShxGlyph>(31, kA)).shapes());
        QCOMPARE(info.problemCount, 30);
        QCOMPARE(info.problems.size(), ShxFontInfo::kMaxProblems);
    }

    void anyPrefix_neitherCrashes_norClaimsMoreThanThereIs()
    {
        const ShxWriter writer = writerOf({kA, kB});
        for (const QByteArray &file : {writer.shapes(), writer.bigfont(), writer.unifont()}) {
            for (int size = 0; size < file.size(); ++size) {
                write(file.left(size));
                ShxFontInfo info;
                hostkit::Failure failure;
                if (hostkit::readShxFontInfo(path(), &info, &failure))
                    QVERIFY(info.usableGlyphs() < 2);
                else
                    QCOMPARE(failure.reason, QStringLiteral("is no stroke font"));
            }
        }
    }

    void otherFiles_areNoFonts_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("a text that speaks of shapes");
        QTest::newRow("keyword alone") << QByteArray("ZT font 1.0shapes");
    }

    void otherFiles_areNoFonts()
    {
        QFETCH(QByteArray, content);
        write(content);
        ShxFontInfo info;
        hostkit::Failure failure;
        QVERIFY(!hostkit::readShxFontInfo(path(), &info, &failure));
        QCOMPARE(failure.reason, QStringLiteral("is no stroke font"));
    }

    void missingFileAndFolder_areTold()
    {
        ShxFontInfo info;
        hostkit::Failure failure;
        QVERIFY(!hostkit::readShxFontInfo(path(), &info, &failure));
        QVERIFY(failure.kind == hostkit::Failure::Kind::CannotRead);
        QCOMPARE(failure.reason, QStringLiteral("cannot be read: No such file or directory"));
        QVERIFY(!hostkit::readShxFontInfo(folder->path(), &info, &failure));
        QVERIFY(failure.kind == hostkit::Failure::Kind::OtherFormat);
        QCOMPARE(failure.reason, QStringLiteral("is no stroke font"));
    }

    void list_holdsTheFontsOfAllFolders_byName()
    {
        const QDir dir(folder->path());
        QVERIFY(dir.mkdir(QStringLiteral("one")) && dir.mkdir(QStringLiteral("two")));
        const auto put = [&](const char *name, const QByteArray &content) {
            testsupport::writeFile(dir.filePath(QLatin1String(name)), content);
        };
        put("one/b.shx", writerOf({kA}).shapes());
        put("one/a.SHX", writerOf({kA, kB}).bigfont());
        put("one/none.shx", "no font");
        put("one/font.txt", writerOf({kA}).shapes());
        put("two/c.shx", writerOf({kA}).unifont());
        const QVector<hostkit::ShxFontFileInfo> fonts =
            hostkit::listShxFonts({dir.filePath(QStringLiteral("one")),
                                   dir.filePath(QStringLiteral("two")), QStringLiteral("/none")});
        QStringList names;
        for (const hostkit::ShxFontFileInfo &font : fonts)
            names << font.fileName + QLatin1Char(' ') + font.info.form();
        QCOMPARE(names,
                 (QStringList{QStringLiteral("a.SHX bigfont"), QStringLiteral("b.shx shapes"),
                              QStringLiteral("c.shx unifont")}));
        QCOMPARE(fonts.last().folder, dir.filePath(QStringLiteral("two")));
    }

private:
    QString path() const { return folder->filePath(QStringLiteral("font.shx")); }
    void write(const QByteArray &content) const { testsupport::writeFile(path(), content); }

    ShxFontInfo read(const QByteArray &content) const
    {
        write(content);
        ShxFontInfo info;
        hostkit::Failure failure;
        if (!hostkit::readShxFontInfo(path(), &info, &failure))
            qWarning("%s", qPrintable(failure.reason));
        return info;
    }

    QScopedPointer<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_ShxFontInfo)
#include "tst_ShxFontInfo.moc"
