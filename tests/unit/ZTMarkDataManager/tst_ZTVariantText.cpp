#include <support/WarningGuard.h>

#include <ZTMarkDataManager/ZTVariantText.h>

#include <QtCore/QDateTime>
#include <QtTest/QTest>

#include <limits>

namespace {

QDateTime utc(int year, int month, int day, int hour = 12, int minute = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute), Qt::UTC);
}

ZTFixedTextSegment fixed(const char *text) { return {QString::fromUtf8(text)}; }

ZTVariantText textOf(const QVector<ZTVariantTextSegment> &segments)
{
    ZTVariantText text;
    text.setSegments(segments);
    return text;
}

QString updated(ZTVariantText &text)
{
    text.update();
    return text.getText();
}

ZTCounterSegment oneToThree()
{
    ZTCounterSegment counter;
    counter.last = 3;
    return counter;
}

/** Text of a time segment at a moment. */
QString at(const QDateTime &moment, const ZTDateTimeSegment &segment)
{
    ZTVariantText::setClock([moment] { return moment; });
    ZTVariantText text = textOf({segment});
    return updated(text);
}

ZTDateTimeSegment contentOf(ZTDateTimeContent content)
{
    ZTDateTimeSegment segment;
    segment.content = content;
    return segment;
}

} // namespace

class tst_ZTVariantText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        ZTVariantText::setClock([] { return utc(2024, 2, 28, 23, 30); });
        warnings.reset(new testsupport::WarningGuard);
    }

    void cleanup()
    {
        warnings.reset();
        ZTVariantText::setClock({});
    }

    void empty_staysEmpty()
    {
        ZTVariantText text;
        QCOMPARE(text.getText(), QString());
        text.update();
        QCOMPARE(text.getText(), QString());
        QVERIFY(text.getSegments().isEmpty());
        QVERIFY(!text.isExhausted());
        QCOMPARE(text.errorText(), QString());
        QCOMPARE(text.preview(2), QStringList({QString(), QString()}));
        QVERIFY(text == ZTVariantText());
    }

    void update_firstShowsTheStart()
    {
        ZTVariantText text = textOf({fixed("SN-"), oneToThree(), fixed("/x")});
        QCOMPARE(text.getText(), QStringLiteral("SN-1/x"));
        QCOMPARE(updated(text), QStringLiteral("SN-1/x"));
        QCOMPARE(updated(text), QStringLiteral("SN-2/x"));
        QCOMPARE(updated(text), QStringLiteral("SN-3/x"));
        QCOMPARE(updated(text), QStringLiteral("SN-3/x"));
    }

    void getText_neverMovesOn()
    {
        ZTVariantText text = textOf({oneToThree()});
        text.update();
        for (int i = 0; i < 5; ++i)
            QCOMPARE(text.getText(), QStringLiteral("1"));
        QCOMPARE(updated(text), QStringLiteral("2"));
    }

    void update_movesEveryCounterOn()
    {
        ZTCounterSegment slow = oneToThree();
        slow.repeat = 2;
        ZTVariantText text = textOf({slow, fixed(":"), oneToThree()});
        QCOMPARE(updated(text), QStringLiteral("1:1"));
        QCOMPARE(updated(text), QStringLiteral("1:2"));
        QCOMPARE(updated(text), QStringLiteral("2:3"));
    }

    void update_updatesThatCanNoLongerBeCounted_stay()
    {
        ZTCounterSegment counter;
        counter.updates = std::numeric_limits<quint64>::max();
        ZTVariantText text = textOf({counter});
        text.update();
        QCOMPARE(std::get<ZTCounterSegment>(text.getSegments().first()).updates, counter.updates);
    }

    void preview_showsWhatUpdatesMake_withoutMovingOn()
    {
        ZTVariantText text = textOf({fixed("n"), oneToThree()});
        text.update();
        const ZTVariantText before = text;
        const QStringList expected{QStringLiteral("n2"), QStringLiteral("n3"),
                                   QStringLiteral("n3")};
        QCOMPARE(text.preview(3), expected);
        QVERIFY(text == before);
        for (const QString &next : expected)
            QCOMPARE(updated(text), next);
    }

    void preview_countIsBounded()
    {
        const ZTVariantText text = textOf({oneToThree()});
        QVERIFY(text.preview(0).isEmpty());
        QVERIFY(text.preview(-1).isEmpty());
        QCOMPARE(text.preview(std::numeric_limits<int>::max()).size(), 10000);
    }

    void setSegments_takesProgressAsItIs()
    {
        ZTVariantText text = textOf({oneToThree()});
        text.update();
        QVector<ZTVariantTextSegment> segments = text.getSegments();
        std::get<ZTCounterSegment>(segments[0]).width = 3;
        QVERIFY(text.setSegments(segments));
        QCOMPARE(text.getText(), QStringLiteral("002"));
        QCOMPARE(updated(text), QStringLiteral("002"));
    }

    void setSegments_tooMany_changesNothing()
    {
        ZTVariantText text = textOf({oneToThree()});
        const ZTVariantText before = text;
        QVERIFY(!text.setSegments(QVector<ZTVariantTextSegment>(1001, fixed("x"))));
        QVERIFY(text == before);
        QVERIFY(text.setSegments(QVector<ZTVariantTextSegment>(1000, fixed("x"))));
        QCOMPARE(text.getText(), QString(1000, u'x'));
    }

    void restart_goesBackToTheStart()
    {
        ZTVariantText text = textOf({oneToThree()});
        text.update();
        text.update();
        text.restart();
        QCOMPARE(text.getText(), QStringLiteral("1"));
        QCOMPARE(updated(text), QStringLiteral("1"));
        QCOMPARE(updated(text), QStringLiteral("2"));
    }

    void isExhausted_whenACounterHasStopped()
    {
        ZTVariantText text = textOf({fixed("x"), oneToThree()});
        for (int i = 0; i < 3; ++i) {
            QVERIFY(!text.isExhausted());
            text.update();
        }
        QVERIFY(text.isExhausted());
    }

    void copies_areIndependent()
    {
        ZTVariantText text = textOf({oneToThree()});
        text.update();
        ZTVariantText copy(text);
        QVERIFY(copy == text);
        copy.update();
        QVERIFY(copy != text);
        QCOMPARE(copy.getText(), QStringLiteral("2"));
        QCOMPARE(text.getText(), QStringLiteral("1"));
        ZTVariantText assigned;
        assigned = text;
        text = textOf({fixed("other")});
        QCOMPARE(assigned.getText(), QStringLiteral("1"));
        QCOMPARE(updated(assigned), QStringLiteral("2"));
        const ZTVariantText &self = assigned;
        assigned = self;
        QCOMPARE(assigned.getText(), QStringLiteral("2"));
    }

    void equality_comparesSegmentsProgressAndText()
    {
        QVERIFY(textOf({oneToThree()}) == textOf({oneToThree()}));
        QVERIFY(textOf({oneToThree()}) != textOf({oneToThree(), fixed("")}));
        QVERIFY(textOf({fixed("1")}) != textOf({oneToThree()}));
        const ZTVariantText morning = textOf({ZTDateTimeSegment()});
        ZTVariantText::setClock([] { return utc(2030, 1, 1); });
        QVERIFY(morning != textOf({ZTDateTimeSegment()}));
    }

    void clock_isReadOncePerUpdate()
    {
        int calls = 0;
        ZTVariantText::setClock([&calls] { return utc(2024, 1, 1).addDays(calls++); });
        ZTVariantText text = textOf({ZTDateTimeSegment(), fixed(" "), ZTDateTimeSegment()});
        calls = 0;
        QCOMPARE(updated(text), QStringLiteral("2024-01-01 2024-01-01"));
        QCOMPARE(updated(text), QStringLiteral("2024-01-02 2024-01-02"));
        QCOMPARE(text.preview(2), QStringList({QStringLiteral("2024-01-03 2024-01-03"),
                                               QStringLiteral("2024-01-03 2024-01-03")}));
        QCOMPARE(calls, 3);
    }

    void clock_empty_isTheSystems()
    {
        ZTVariantText::setClock({});
        ZTDateTimeSegment segment;
        segment.format = QStringLiteral("yyyy-MM-ddTHH:mm:ss");
        ZTVariantText text = textOf({segment});
        const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
        text.update();
        const QDateTime shown = QDateTime::fromString(text.getText(), Qt::ISODate);
        QVERIFY(shown >= before);
        QVERIFY(shown <= QDateTime::currentDateTime());
    }

    void clock_withoutATime_isToldAndTheRestGoesOn()
    {
        ZTVariantText::setClock([] { return QDateTime(); });
        ZTVariantText text = textOf({fixed("a"), ZTDateTimeSegment(), oneToThree()});
        QCOMPARE(updated(text), QStringLiteral("a1"));
        QCOMPARE(text.errorText(), QStringLiteral("no valid date and time"));
        ZTVariantText::setClock([] { return utc(2024, 1, 1); });
        QCOMPARE(updated(text), QStringLiteral("a2024-01-012"));
        QCOMPARE(text.errorText(), QString());
    }

    void dateTime_content_data()
    {
        QTest::addColumn<QDate>("date");
        QTest::addColumn<QString>("week");
        QTest::addColumn<QString>("weekYear");
        QTest::addColumn<QString>("dayOfYear");
        QTest::addColumn<QString>("julianDay");
        QTest::newRow("a Saturday") << QDate(2000, 1, 1) << "52"
                                    << "1999"
                                    << "001"
                                    << "2451545";
        QTest::newRow("a Monday") << QDate(2024, 12, 30) << "01"
                                  << "2025"
                                  << "365"
                                  << "2460675";
        QTest::newRow("a Sunday") << QDate(2021, 1, 3) << "53"
                                  << "2020"
                                  << "003"
                                  << "2459218";
        QTest::newRow("leap year") << QDate(2024, 3, 1) << "09"
                                   << "2024"
                                   << "061"
                                   << "2460371";
    }

    void dateTime_content()
    {
        QFETCH(QDate, date);
        using Content = ZTDateTimeContent;
        const QDateTime moment(date, QTime(10, 0), Qt::UTC);
        QTEST(at(moment, contentOf(Content::WeekNumber)), "week");
        QTEST(at(moment, contentOf(Content::WeekYear)), "weekYear");
        QTEST(at(moment, contentOf(Content::DayOfYear)), "dayOfYear");
        QTEST(at(moment, contentOf(Content::JulianDay)), "julianDay");
    }

    void dateTime_format_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("expected");
        QTest::newRow("numbers") << "yyMMdd HHmmss"
                                 << ""
                                 << "240305 070809";
        QTest::newRow("names are English") << "dddd d MMM"
                                           << ""
                                           << "Tuesday 5 Mar";
        QTest::newRow("C") << "dddd d MMMM"
                           << "C"
                           << "Tuesday 5 March";
        QTest::newRow("German") << "dddd, d. MMMM"
                                << "de_DE" << QStringLiteral(u"Dienstag, 5. M\u00e4rz");
        QTest::newRow("unknown language") << "dddd"
                                          << "xx_YY"
                                          << "Tuesday";
        QTest::newRow("quoted") << "'day' d"
                                << ""
                                << "day 5";
        QTest::newRow("empty") << ""
                               << ""
                               << "";
    }

    void dateTime_format()
    {
        QFETCH(QString, format);
        QFETCH(QString, locale);
        ZTDateTimeSegment segment;
        segment.format = format;
        segment.locale = locale;
        const QDateTime moment(QDate(2024, 3, 5), QTime(7, 8, 9), Qt::UTC);
        QTEST(at(moment, segment), "expected");
    }

    void dateTime_offset_data()
    {
        QTest::addColumn<int>("days");
        QTest::addColumn<int>("hours");
        QTest::addColumn<int>("minutes");
        QTest::addColumn<QString>("expected");
        QTest::newRow("leap day") << 1 << 0 << 0 << "2024-02-29 23:30";
        QTest::newRow("minutes over midnight") << 0 << 0 << 30 << "2024-02-29 00:00";
        QTest::newRow("hours over the leap day") << 0 << 25 << 0 << "2024-03-01 00:30";
        QTest::newRow("all at once") << 1 << 1 << -90 << "2024-02-29 23:00";
        QTest::newRow("back") << -59 << 0 << 0 << "2023-12-31 23:30";
        QTest::newRow("best before in two years") << 730 << 0 << 0 << "2026-02-27 23:30";
    }

    void dateTime_offset()
    {
        QFETCH(int, days);
        QFETCH(int, hours);
        QFETCH(int, minutes);
        ZTDateTimeSegment segment;
        segment.format = QStringLiteral("yyyy-MM-dd HH:mm");
        segment.offsetDays = days;
        segment.offsetHours = hours;
        segment.offsetMinutes = minutes;
        QTEST(at(utc(2024, 2, 28, 23, 30), segment), "expected");
    }

    void dateTime_widestOffsets_areHarmless()
    {
        for (const qint32 offset :
             {std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max()}) {
            for (const auto content : {ZTDateTimeContent::Formatted, ZTDateTimeContent::WeekNumber,
                                       ZTDateTimeContent::WeekYear, ZTDateTimeContent::DayOfYear}) {
                ZTDateTimeSegment segment = contentOf(content);
                segment.offsetDays = segment.offsetHours = segment.offsetMinutes = offset;
                QVERIFY(!at(utc(2024, 2, 28), segment).isEmpty());
                at(QDateTime(QDate(2024, 2, 28), QTime(1, 0), Qt::LocalTime), segment);
            }
        }
    }

private:
    QScopedPointer<testsupport::WarningGuard> warnings;
};

QTEST_GUILESS_MAIN(tst_ZTVariantText)
#include "tst_ZTVariantText.moc"
