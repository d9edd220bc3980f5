#include <support/ShxRecorder.h>
#include <support/ShxWriter.h>

#include <fontkit/FontSource.h>

#include <ZTDrawEngineLib/shx/ZTShxParser.h>

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using testsupport::nearCalls;
using testsupport::ShxRecorder;

namespace {

const char *const kForms[] = {"shapes", "bigfont", "unifont"};

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s", qPrintable(path));
    return file.readAll();
}

/** What stands behind "# key:" in a source. */
QString told(const QByteArray &source, const char *key)
{
    const QByteArray mark = QByteArray("# ") + key + ": ";
    const QList<QByteArray> lines = source.split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(mark))
            return QString::fromLatin1(line.mid(mark.size()));
    }
    return {};
}

} // namespace

/** Glyphs of every statement through the compiler, the writer and the interpreter. */
class tst_GlyphRuns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void run_drawsTheStrokesWorkedOutByHand_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QByteArray>("form");
        const QDir runs(QStringLiteral(ZT_TEST_DATA_DIR "/fonts"));
        const QStringList names = runs.entryList({QStringLiteral("*.txt")});
        QVERIFY(names.size() >= 22);
        for (const QString &name : names) {
            for (const char *form : kForms)
                QTest::newRow(qPrintable(name + QLatin1Char(' ') + QLatin1String(form)))
                    << runs.filePath(name) << QByteArray(form);
        }
    }

    void run_drawsTheStrokesWorkedOutByHand()
    {
        QFETCH(QString, path);
        QFETCH(QByteArray, form);
        QByteArray source = contentOf(path);
        const QString tolerance = told(source, "tolerance");
        source.replace("form shapes", "form " + form);

        ShxRecorder recorder;
        ZTShxParser parser(fontOf(source).constData());
        const double advance = parser.drawText(&recorder, "A", 0.0, 0.0);

        const double near = tolerance.isEmpty() ? 1e-9 : tolerance.toDouble();
        QVERIFY(nearCalls(recorder, told(source, "calls"), near));
        QVERIFY(std::abs(advance - told(source, "advance").toDouble()) <= 1e-9);
    }

    void characterInQuotes_hasTheCodeOfTheForm_data()
    {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<QString>("text");
        QTest::newRow("bigfont") << QByteArray("form bigfont\nname \"big\"\nabove 1\n"
                                               "range 0x81 to 0xFE\nglyph '\xE4\xBD\xA0'\n"
                                               "line e 3\n")
                                 << QString::fromLatin1("\xC4\xE3");
        QTest::newRow("shapes") << QByteArray("form shapes\nname \"f\"\nabove 1\nglyph '#'\n"
                                              "line e 3\n")
                                << QStringLiteral("#");
    }

    void characterInQuotes_hasTheCodeOfTheForm()
    {
        QFETCH(QByteArray, source);
        QFETCH(QString, text);
        ShxRecorder recorder;
        ZTShxParser parser(fontOf(source).constData());
        parser.drawText(&recorder, text.toLatin1().constData(), 0.0, 0.0);
        QVERIFY(nearCalls(recorder, QStringLiteral("B 0,0 3,0 E")));
    }

    void characterInQuotes_isUnicodeInAUnifont()
    {
        ShxRecorder recorder;
        ZTShxParser parser(fontOf("form unifont\nname \"u\"\nabove 1\nglyph '\xE4\xBD\xA0'\n"
                                  "subshape '\xE5\xA5\xBD'\nglyph 0x597D\nline e 3\n")
                               .constData());
        parser.drawText(&recorder, L"\u4F60", 0.0, 0.0);
        QVERIFY(nearCalls(recorder, QStringLiteral("B 0,0 3,0 E")));
    }

private:
    /** Path of the font that a source makes. */
    QByteArray fontOf(const QByteArray &source)
    {
        QString error;
        const auto font = fontkit::compileFont(source, &error);
        const QByteArray bytes = font ? fontkit::writeFont(*font, &error) : QByteArray();
        if (bytes.isEmpty())
            qFatal("%s", qPrintable(error));
        const QString path = folder.filePath(QStringLiteral("font.shx"));
        testsupport::writeFile(path, bytes);
        return path.toLocal8Bit();
    }

    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(tst_GlyphRuns)
#include "tst_GlyphRuns.moc"
