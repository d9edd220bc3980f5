#include <support/ShxWriter.h>

#include <hostkit/text/FontSheet.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtTest/QTest>

using hostkit::FontSheet;
using testsupport::bytes;
using testsupport::ShxGlyph;
using testsupport::ShxWriter;

namespace {

/** A line as long as the ascender, upward, and one to the right, pen up between them. */
const QByteArray kTwoStrokes = bytes({0xA4, 2, 0x2C, 1, 0x50});

ShxWriter writerOf(const QVector<int> &codes)
{
    ShxWriter writer;
    writer.above = 10;
    writer.ranges = {{0x81, 0xFE}};
    for (const int code : codes)
        writer.glyphs.append({code, kTwoStrokes, {}});
    return writer;
}

} // namespace

class tst_FontSheet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { folder.reset(new QTemporaryDir); }

    void glyphs_areDrawnInTheirCells_inAllForms_data()
    {
        QTest::addColumn<QByteArray>("file");
        const ShxWriter writer = writerOf({0x41, 0xC4E3});
        QTest::newRow("shapes") << writer.shapes();
        QTest::newRow("shapes only") << writer.shapesOnly();
        QTest::newRow("bigfont") << writer.bigfont();
        QTest::newRow("unifont") << writer.unifont();
    }

    void glyphs_areDrawnInTheirCells_inAllForms()
    {
        QFETCH(QByteArray, file);
        const FontSheet sheet = read(file);
        QCOMPARE(sheet.glyphs().size(), 2);
        QCOMPARE(sheet.glyphs()[0].code, 0x41);
        QCOMPARE(sheet.glyphs()[1].code, 0xC4E3);
        // A font without information is 4 units high instead of 10.
        const double unit = 0.5 / sheet.font().above;
        const QVector<QLineF> expected{{0.2, 0.7, 0.2, 0.7 - 10 * unit},
                                       {0.2, 0.7 - 8 * unit, 0.2 + 5 * unit, 0.7 - 8 * unit}};
        for (const hostkit::FontSheetGlyph &glyph : sheet.glyphs()) {
            QCOMPARE(glyph.strokes.size(), 2);
            for (int i = 0; i < 2; ++i) {
                QCOMPARE(glyph.strokes[i].first(), expected[i].p1());
                QCOMPARE(glyph.strokes[i].last(), expected[i].p2());
            }
        }
    }

    void grid_hasSixteenColumns_andMoreForManyGlyphs()
    {
        QVector<int> codes;
        const auto gridOf = [&codes](int count) {
            while (codes.size() < count)
                codes.append(codes.size() + 1);
            return codes.size();
        };
        QCOMPARE(gridOf(17), 17);
        QCOMPARE(read(writerOf(codes).unifont()).grid(), QSize(16, 2));
        QCOMPARE(gridOf(768), 768); // 16 columns, three times as many rows
        QCOMPARE(read(writerOf(codes).unifont()).grid(), QSize(16, 48));
        QCOMPARE(gridOf(769), 769);
        QCOMPARE(read(writerOf(codes).unifont()).grid(), QSize(32, 25));
    }

    void svg_holdsStrokesAndCodes()
    {
        const FontSheet sheet = read(writerOf({0x41}).shapes());
        hostkit::Failure failure;
        QVERIFY(sheet.save(path("sheet.svg"), QStringLiteral("a<b"), &failure));
        const QByteArray svg = content("sheet.svg");
        QVERIFY(svg.contains("viewBox=\"0 0 16 2\""));
        QVERIFY(svg.contains("<path d=\"M0.2 1.7L0.2 1.2M0.2 1.3L0.45 1.3\"/>"));
        QVERIFY(svg.contains("<text x=\"0.2\" y=\"1.95\">41</text>"));
        QVERIFY(svg.contains(">a&lt;b</text>"));
    }

    void png_showsTheStrokes()
    {
        const FontSheet sheet = read(writerOf({0x41}).shapes());
        hostkit::Failure failure;
        QVERIFY(sheet.save(path("sheet.PNG"), QString(), &failure));
        const QImage image(path("sheet.PNG"));
        QCOMPARE(image.size(), QSize(16 * 64, 2 * 64));
        // Half way up the upright line, and beside it.
        const int y = static_cast<int>((1.0 + 0.5) * 64);
        QVERIFY(qGray(image.pixel(static_cast<int>(0.2 * 64), y)) < 128);
        QCOMPARE(qGray(image.pixel(40, y)), 255);
    }

    void damagedGlyph_hasAnEmptyCell_andTheOthersStand()
    {
        const QByteArray file = writerOf({0x41, 0x42}).unifont();
        const FontSheet sheet = read(file.chopped(kTwoStrokes.size()));
        QCOMPARE(sheet.glyphs().size(), 2);
        QCOMPARE(sheet.glyphs()[0].strokes.size(), 2);
        QVERIFY(sheet.glyphs()[1].strokes.isEmpty());
    }

    void unusableFonts_areTold()
    {
        FontSheet sheet;
        hostkit::Failure failure;
        QVERIFY(!sheet.read(path("none.shx"), &failure));
        QCOMPARE(failure.reason, QStringLiteral("cannot be read: No such file or directory"));
        testsupport::writeFile(path("font.shx"), writerOf({}).unifont());
        QVERIFY(!sheet.read(path("font.shx"), &failure));
        QCOMPARE(failure.reason, QStringLiteral("the font has no glyphs"));
    }

    void unwritableFile_isTold()
    {
        const FontSheet sheet = read(writerOf({0x41}).shapes());
        hostkit::Failure failure;
        QVERIFY(!sheet.save(path("none/sheet.svg"), QString(), &failure));
        QCOMPARE(failure.reason, QStringLiteral("the folder does not exist"));
    }

    void ninethousandGlyphs_areDrawnInATrice()
    {
        QVector<int> codes;
        for (int i = 0; i < 9500; ++i)
            codes.append(0xB000 + i);
        QElapsedTimer timer;
        timer.start();
        const FontSheet sheet = read(writerOf(codes).bigfont());
        QCOMPARE(sheet.glyphs().size(), 9500);
        hostkit::Failure failure;
        QVERIFY(sheet.save(path("sheet.svg"), QString(), &failure));
        QCOMPARE(sheet.grid(), QSize(64, 149));
        QVERIFY2(timer.elapsed() < 10000, qPrintable(QString::number(timer.elapsed())));
    }

    void extension_tellsTheForm()
    {
        QVERIFY(FontSheet::hasExtension(QStringLiteral("a.svg")));
        QVERIFY(FontSheet::hasExtension(QStringLiteral("a.Png")));
        QVERIFY(!FontSheet::hasExtension(QStringLiteral("a.json")));
    }

private:
    QString path(const char *name) const { return folder->filePath(QLatin1String(name)); }

    QByteArray content(const char *name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    FontSheet read(const QByteArray &file) const
    {
        testsupport::writeFile(path("font.shx"), file);
        FontSheet sheet;
        hostkit::Failure failure;
        if (!sheet.read(path("font.shx"), &failure))
            qWarning("%s", qPrintable(failure.reason));
        return sheet;
    }

    QScopedPointer<QTemporaryDir> folder;
};

QTEST_MAIN(tst_FontSheet)
#include "tst_FontSheet.moc"
