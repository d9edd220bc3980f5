#include <support/ShxRecorder.h>
#include <support/ShxWriter.h>

#include <ZTDrawEngineLib/shx/ZTShxParser.h>

#include <QtCore/QDir>
#include <QtCore/QMap>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <cmath>

using testsupport::bytes;
using testsupport::nearCalls;
using testsupport::ShxGlyph;
using testsupport::ShxRecorder;
using testsupport::ShxWriter;

namespace {

/** A glyph run of tests/data/shx: glyphs, the text that draws them, and the strokes by hand. */
struct GlyphRun
{
    QStringList forms;
    QVector<ShxGlyph> glyphs;
    std::wstring text;
    QString calls;
    double width = 0.0;
    double tolerance = 1e-9;
};

QStringList words(const QString &text) { return text.split(QLatin1Char(' '), Qt::SkipEmptyParts); }

ShxGlyph readGlyph(const QString &key, const QString &value)
{
    const QStringList names = words(key);
    ShxGlyph glyph;
    glyph.code = names[1].toInt();
    glyph.name = names.value(2).toLatin1();
    const QStringList numbers = words(value);
    for (const QString &number : numbers) {
        bool isNumber = false;
        glyph.codes += bytes({number.toInt(&isNumber, 0)});
        if (!isNumber)
            qFatal("no number: %s", qPrintable(number));
    }
    return glyph;
}

GlyphRun readRun(const QString &path)
{
    GlyphRun run;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s", qPrintable(path));
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QString key = line.section(QLatin1Char(':'), 0, 0);
        const QString value = line.section(QLatin1Char(':'), 1).trimmed();
        if (key == QLatin1String("forms"))
            run.forms = words(value);
        else if (key.startsWith(QLatin1String("glyph ")))
            run.glyphs.append(readGlyph(key, value));
        else if (key == QLatin1String("calls"))
            run.calls = value;
        else if (key == QLatin1String("width"))
            run.width = value.toDouble();
        else if (key == QLatin1String("tolerance"))
            run.tolerance = value.toDouble();
        else if (key == QLatin1String("text"))
            for (const QString &code : words(value))
                run.text += static_cast<wchar_t>(code.toInt());
    }
    return run;
}

/** The font of a run with 4 units above the base line, which every form can tell. */
QByteArray write(const GlyphRun &run, const QString &form)
{
    ShxWriter writer;
    writer.above = 4;
    writer.glyphs = run.glyphs;
    if (form == QLatin1String("shapes"))
        return writer.shapes();
    if (form == QLatin1String("shape-only"))
        return writer.shapesOnly();
    if (form == QLatin1String("bigfont"))
        return writer.bigfont();
    return writer.unifont();
}

bool sameNumber(double actual, double expected, double tolerance)
{
    if (std::isinf(expected))
        return std::isinf(actual) && (actual > 0) == (expected > 0);
    return std::abs(actual - expected) <= tolerance;
}

} // namespace

/** The interpreter: every code, in every form of file, against strokes worked out by hand. */
class tst_ZTShxParserGlyphs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(folder.isValid()); }

    void run_givesTheStrokesWorkedOutByHand_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("form");
        const QDir runs(QStringLiteral(ZT_TEST_DATA_DIR "/shx"));
        const QFileInfoList files = runs.entryInfoList({QStringLiteral("*.txt")}, QDir::Files);
        QVERIFY(files.size() > 50);
        for (const QFileInfo &file : files) {
            const QStringList forms = readRun(file.filePath()).forms;
            QVERIFY(!forms.isEmpty());
            for (const QString &form : forms) {
                const QString name = file.baseName() + QLatin1Char(' ') + form;
                QTest::newRow(qPrintable(name)) << file.filePath() << form;
            }
        }
    }
    void run_givesTheStrokesWorkedOutByHand()
    {
        QFETCH(QString, path);
        QFETCH(QString, form);
        const GlyphRun run = readRun(path);
        ZTShxParser parser = load(write(run, form));
        parser.setTextHeight(4.0);
        ShxRecorder recorder;
        const double width = parser.drawText(&recorder, run.text.c_str(), 0.0, 0.0);
        QVERIFY(nearCalls(recorder, run.calls, run.tolerance));
        QVERIFY2(sameNumber(width, run.width, run.tolerance), qPrintable(QString::number(width)));
    }

    void measuring_endsWhereDrawingEnds_data() { run_givesTheStrokesWorkedOutByHand_data(); }
    void measuring_endsWhereDrawingEnds()
    {
        QFETCH(QString, path);
        QFETCH(QString, form);
        const GlyphRun run = readRun(path);
        ZTShxParser drawing = load(write(run, form));
        ZTShxParser measuring(drawing);
        drawing.setTextHeight(3.0);
        measuring.setTextHeight(3.0);
        ShxRecorder recorder;
        const double drawn = drawing.drawText(&recorder, run.text.c_str(), 0.0, 0.0);
        QVERIFY(measuring.getTextExtent(run.text.c_str()) == drawn);
    }

    void run_isScaledByTextHeightOverAscender_andMovedToTheStart()
    {
        ShxWriter writer;
        writer.above = 8;
        writer.glyphs = {{65, bytes({0x40, 0x82}), {}}};
        ZTShxParser parser = load(writer.shapes());
        parser.setTextHeight(2.0);
        ShxRecorder recorder;
        const double width = parser.drawText(&recorder, "A", 10.0, 20.0);
        QVERIFY(nearCalls(recorder, QStringLiteral("B 10,20 11,20 13,22 E")));
        QCOMPARE(width, 3.0);
    }

    void scaleChanges_holdUntilTheCallEnds_andNoLonger()
    {
        ShxWriter writer;
        writer.glyphs = {{65, bytes({4, 3, 0x10}), {}}};
        ZTShxParser parser = load(writer.shapes());
        QCOMPARE(parser.getTextExtent("AA"), 12.0);
        QCOMPARE(parser.getTextExtent("A"), 3.0);
    }

    void positionStack_runsOnFromGlyphToGlyph_andNotToTheNextCall()
    {
        ShxWriter writer;
        writer.glyphs = {{65, bytes({0x50, 5}), {}}, {66, bytes({6, 0x10}), {}}};
        ZTShxParser parser = load(writer.shapes());
        QCOMPARE(parser.getTextExtent("AB"), 6.0);
        QCOMPARE(parser.getTextExtent("ABB"), 7.0);
        QCOMPARE(parser.getTextExtent("A"), 5.0);
        QCOMPARE(parser.getTextExtent("B"), 1.0);
    }

    void bulgeSolver_testsTheSecondAxisForEquality()
    {
        // A chord of 0 by 0.001 is refused and comes out straight; a shorter one is an arc.
        ShxWriter writer;
        writer.glyphs = {{65, bytes({12, 0, 1, 64}), {}}};
        ZTShxParser parser = load(writer.shapes());
        parser.setTextHeight(0.001);
        ShxRecorder straight;
        parser.drawText(&straight, "A", 0.0, 0.0);
        QCOMPARE(straight.calls.size(), 4);
        parser.setTextHeight(0.0009);
        ShxRecorder curved;
        parser.drawText(&curved, "A", 0.0, 0.0);
        QVERIFY(curved.calls.size() > 8);
    }

    void bulgeAngles_areInSinglePrecision()
    {
        ShxWriter writer;
        writer.glyphs = {{65, bytes({12, 10, 0, 127}), {}}};
        ZTShxParser parser = load(writer.shapes());
        ShxRecorder recorder;
        parser.drawText(&recorder, "A", 0.0, 0.0);
        // The first point of the arc: five to the left of the centre, at the float next to pi.
        const double start = static_cast<double>(std::atan2(0.0f, -5.0f));
        QVERIFY(recorder.calls[4].x == 5.0 + 5.0 * std::cos(start));
        QVERIFY(recorder.calls[4].y == 5.0 * std::sin(start));
        QVERIFY(recorder.calls[4].y != 5.0 * std::sin(std::atan2(0.0, -5.0)));
    }

    void everyHalfCircle_isDrawn()
    {
        // Rounding takes some quotients above 1, where there is no angle.
        ShxWriter writer;
        for (int dx = 1; dx < 128; ++dx)
            writer.glyphs.append({dx, bytes({12, dx, 128 - dx, 127, 12, -dx, dx, -127}), {}});
        ZTShxParser parser = load(writer.shapes());
        for (const double height : {1.0, 0.37, 1e-3, 12345.678}) {
            parser.setTextHeight(height);
            for (int dx = 1; dx < 128; ++dx) {
                ShxRecorder recorder;
                const char text[] = {static_cast<char>(dx), '\0'};
                parser.drawText(&recorder, text, 0.0, 0.0);
                int points = 0;
                for (const ShxRecorder::Call &call : recorder.calls)
                    points += call.kind == 'V' ? 1 : 0;
                QVERIFY2(points >= 1 + 13 + 13, qPrintable(recorder.text()));
            }
        }
    }

    void codeSevenInAFontOf16BitCodes_takesTwoBytes()
    {
        ShxWriter writer;
        writer.glyphs = {
            {65, bytes({7, 66, 0x10}), {}}, {66, bytes({0x30}), {}}, {0x1042, bytes({0x70}), {}}};
        ZTShxParser oneByte = load(writer.shapes());
        QCOMPARE(oneByte.getTextExtent("A"), 4.0);
        ZTShxParser twoBytes = load(writer.unifont());
        QCOMPARE(twoBytes.getTextExtent(L"A"), 7.0);
    }

private:
    ZTShxParser load(const QByteArray &file)
    {
        const QString path = folder.filePath(QStringLiteral("font.shx"));
        testsupport::writeFile(path, file);
        return ZTShxParser(path.toLocal8Bit().constData());
    }

    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(tst_ZTShxParserGlyphs)
#include "tst_ZTShxParserGlyphs.moc"
