#include <hostkit/text/TextPlaces.h>

#include <QtTest/QTest>

using hostkit::readTextPlaces;
using hostkit::TextPlaces;

namespace {

/** The segments as one line: fixed texts in quotes, counters by their start, dates by format. */
QString shown(const TextPlaces &places)
{
    QStringList parts;
    for (const ZTVariantTextSegment &segment : places.segments) {
        if (const auto *fixed = std::get_if<ZTFixedTextSegment>(&segment))
            parts << QLatin1Char('"') + fixed->text + QLatin1Char('"');
        else if (const auto *counter = std::get_if<ZTCounterSegment>(&segment))
            parts << QStringLiteral("#%1").arg(counter->start);
        else if (const auto *date = std::get_if<ZTDateTimeSegment>(&segment))
            parts << QLatin1Char('@') + date->format;
        else
            parts << QStringLiteral("file");
    }
    return parts.join(QLatin1Char(' '));
}

} // namespace

class tst_TextPlaces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typedText_isTakenApart_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("segments");
        QTest::addColumn<bool>("hasSerial");
        const auto row = [](const char *typed, const char *segments, bool hasSerial = false) {
            QTest::newRow(*typed == '\0' ? "nothing" : typed)
                << QString::fromUtf8(typed) << QString::fromUtf8(segments) << hasSerial;
        };
        row("", "");
        row("ABC 你好", "\"ABC 你好\"");
        row("{serial}", "#7", true);
        row("{}", "#7", true);
        row("SN-{serial}/{}", "\"SN-\" #7 \"/\" #7", true);
        row("{date}", "@yyyy-MM-dd");
        row("{date:dd.MM.yy} x", "@dd.MM.yy \" x\"");
        row("{date:}", "@");
        row("{dates} {Serial} {x}", "\"{dates} {Serial} {x}\"");
        row("{", "\"{\"");
        row("}{", "\"}{\"");
        row("{{serial}}", "\"{\" #7 \"}\"", true);
        row("\\{serial}", "\"{serial}\"");
        row("a\\nb", "\"a\nb\"");
        row("a\nb", "\"a\nb\"");
        row("a\r\nb\rc", "\"a\nb\nc\"");
        row("a\\\\nb", "\"a\\nb\"");
        row("\\", "\"\\\"");
        row("C:\\temp", "\"C:\\temp\"");
    }

    void typedText_isTakenApart()
    {
        QFETCH(QString, typed);
        QFETCH(QString, segments);
        QFETCH(bool, hasSerial);
        ZTCounterSegment counter;
        counter.start = 7;
        const TextPlaces places = readTextPlaces(typed, counter);
        QCOMPARE(shown(places), segments);
        QCOMPARE(places.hasSerial, hasSerial);
    }
};

QTEST_GUILESS_MAIN(tst_TextPlaces)
#include "tst_TextPlaces.moc"
