#include <ZTMarkDataManager/ZTVariantTextSegment.h>

#include <QtTest/QTest>

#include <limits>

namespace {

constexpr qint64 kMin = std::numeric_limits<qint64>::min();
constexpr qint64 kMax = std::numeric_limits<qint64>::max();
constexpr quint64 kMaxUpdates = std::numeric_limits<quint64>::max();

/** The values of the next updates, oldest first. */
QVector<qint64> take(ZTCounterSegment counter, int count)
{
    QVector<qint64> values;
    for (int i = 0; i < count; ++i) {
        values << counter.nextValue();
        ++counter.updates;
    }
    return values;
}

ZTCounterSegment counter(qint64 start, qint64 step, std::optional<qint64> last = {},
                         ZTVariantTextEnd atEnd = ZTVariantTextEnd::Stop)
{
    ZTCounterSegment segment;
    segment.start = start;
    segment.step = step;
    segment.last = last;
    segment.atEnd = atEnd;
    return segment;
}

/** Whether a change to a default segment makes it another one. */
template <class Segment, class Change>
bool differs(Change change)
{
    Segment changed;
    change(changed);
    return changed != Segment() && !(changed == Segment()) && changed == changed;
}

constexpr auto kStop = ZTVariantTextEnd::Stop;
constexpr auto kWrap = ZTVariantTextEnd::Wrap;
using Values = QVector<qint64>;

} // namespace

class tst_ZTVariantTextSegment : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void counter_values_data()
    {
        QTest::addColumn<qint64>("start");
        QTest::addColumn<qint64>("step");
        QTest::addColumn<bool>("hasLast");
        QTest::addColumn<qint64>("last");
        QTest::addColumn<bool>("wraps");
        QTest::addColumn<Values>("expected");
        const auto row = [](const char *name, const ZTCounterSegment &c, const Values &values) {
            QTest::newRow(name) << c.start << c.step << c.last.has_value() << c.last.value_or(0)
                                << (c.atEnd == kWrap) << values;
        };
        row("new", ZTCounterSegment(), {1, 2, 3, 4});
        row("stops on last", counter(1, 1, 3), {1, 2, 3, 3, 3});
        row("stops before a last that it would pass", counter(1, 3, 9), {1, 4, 7, 7});
        row("wraps", counter(8, 1, 10, kWrap), {8, 9, 10, 8, 9, 10, 8});
        row("wraps before a last that it would pass", counter(1, 3, 9, kWrap), {1, 4, 7, 1});
        row("down", counter(2, -2, -3), {2, 0, -2, -2});
        row("down and wrap", counter(1, -1, -1, kWrap), {1, 0, -1, 1});
        row("one value", counter(5, 1, 5), {5, 5});
        row("one value wrapping", counter(5, 1, 5, kWrap), {5, 5});
        row("leads away from last", counter(5, 1, 4), {5, 5, 5});
        row("leads away downwards", counter(5, -1, 6, kWrap), {5, 5, 5});
        row("step 0", counter(5, 0, 9), {5, 5, 5});
        row("up to the end of 64 bits", counter(kMax - 1, 1), {kMax - 1, kMax, kMax});
        row("over the end of 64 bits", counter(kMax - 1, 2), {kMax - 1, kMax - 1});
        row("around the end of 64 bits", counter(kMax - 1, 1, {}, kWrap),
            {kMax - 1, kMax, kMax - 1});
        row("down to the end of 64 bits", counter(kMin + 1, -1), {kMin + 1, kMin, kMin});
        row("widest step down", counter(kMax, kMin), {kMax, -1, -1});
        row("widest step up", counter(kMin, kMax), {kMin, -1, kMax - 1, kMax - 1});
    }

    void counter_values()
    {
        QFETCH(qint64, start);
        QFETCH(qint64, step);
        QFETCH(bool, hasLast);
        QFETCH(qint64, last);
        QFETCH(bool, wraps);
        QFETCH(Values, expected);
        const ZTCounterSegment c =
            counter(start, step, hasLast ? std::optional<qint64>(last) : std::nullopt,
                    wraps ? kWrap : kStop);
        QCOMPARE(take(c, expected.size()), expected);
    }

    void counter_repeat_showsEachValueThatOften()
    {
        ZTCounterSegment c = counter(1, 1, 3, kWrap);
        c.repeat = 3;
        QCOMPARE(take(c, 11), Values({1, 1, 1, 2, 2, 2, 3, 3, 3, 1, 1}));
        c.repeat = 0;
        QCOMPARE(take(c, 4), Values({1, 2, 3, 1}));
    }

    void counter_fullRangeAtTheLastUpdate_hasNoOverflow()
    {
        ZTCounterSegment c = counter(kMin, 1);
        c.updates = kMaxUpdates;
        QCOMPARE(c.nextValue(), kMax);
        c.atEnd = kWrap;
        QCOMPARE(c.nextValue(), kMax);
        c.step = -1;
        c.start = kMax;
        QCOMPARE(c.nextValue(), kMin);
        c.repeat = std::numeric_limits<quint32>::max();
        QVERIFY(!c.isExhausted());
    }

    void counter_isExhausted_onceNoNewValueIsLeft()
    {
        ZTCounterSegment c = counter(1, 1, 2);
        c.repeat = 2;
        for (const bool expected : {false, false, false, false, true, true}) {
            QCOMPARE(c.isExhausted(), expected);
            ++c.updates;
        }
        c.atEnd = kWrap;
        QVERIFY(!c.isExhausted());
        c.atEnd = kStop;
        c.step = 0;
        QVERIFY(!c.isExhausted());
    }

    void counter_setNextValue_startsItsRepetitions()
    {
        ZTCounterSegment c = counter(10, 5, 100, kWrap);
        c.repeat = 2;
        c.updates = 7;
        QVERIFY(c.setNextValue(95));
        QCOMPARE(take(c, 5), Values({95, 95, 100, 100, 10}));
        QVERIFY(c.setNextValue(10));
        QCOMPARE(c.updates, quint64(0));
    }

    void counter_setNextValue_down()
    {
        ZTCounterSegment c = counter(10, -5, -100);
        QVERIFY(c.setNextValue(-15));
        QCOMPARE(c.updates, quint64(5));
        QVERIFY(!c.setNextValue(15));
        QVERIFY(!c.setNextValue(-105));
        QCOMPARE(c.updates, quint64(5));
    }

    void counter_setNextValue_unreachable_changesNothing()
    {
        ZTCounterSegment c = counter(10, 5, 100);
        c.updates = 3;
        for (const qint64 value : {qint64(9), qint64(5), qint64(12), qint64(105), kMin, kMax}) {
            QVERIFY(!c.setNextValue(value));
            QCOMPARE(c.updates, quint64(3));
        }
        c.step = 0;
        QVERIFY(!c.setNextValue(11));
        QVERIFY(c.setNextValue(10));
        QCOMPARE(c.updates, quint64(0));
    }

    void counter_setNextValue_moreUpdatesThanCanBeCounted_isRefused()
    {
        ZTCounterSegment c = counter(kMin, 1);
        c.repeat = 2;
        QVERIFY(!c.setNextValue(kMax));
        QVERIFY(c.setNextValue(-1)); // 2 * (2^63 - 1) updates
        QCOMPARE(c.nextValue(), qint64(-1));
    }

    void counter_format_data()
    {
        QTest::addColumn<qint64>("value");
        QTest::addColumn<int>("radix");
        QTest::addColumn<int>("width");
        QTest::addColumn<QChar>("pad");
        QTest::addColumn<QString>("expected");
        const QChar none;
        QTest::newRow("plain") << qint64(7) << 10 << 0 << none << "7";
        QTest::newRow("zeros") << qint64(7) << 10 << 4 << none << "0007";
        QTest::newRow("wider") << qint64(12345) << 10 << 4 << none << "12345";
        QTest::newRow("negative") << qint64(-7) << 10 << 4 << none << "-007";
        QTest::newRow("negative, explicit 0") << qint64(-7) << 10 << 4 << QChar(u'0') << "-007";
        QTest::newRow("blanks") << qint64(-7) << 10 << 4 << QChar(u' ') << "  -7";
        QTest::newRow("negative width") << qint64(7) << 10 << -5 << none << "7";
        QTest::newRow("hexadecimal") << qint64(0xBEEF) << 16 << 6 << none << "00BEEF";
        QTest::newRow("negative hexadecimal") << qint64(-255) << 16 << 0 << none << "-FF";
        QTest::newRow("least") << kMin << 10 << 0 << none << "-9223372036854775808";
        QTest::newRow("least hexadecimal") << kMin << 16 << 0 << none << "-8000000000000000";
        QTest::newRow("A is zero") << qint64(0) << 26 << 0 << none << "A";
        QTest::newRow("Z") << qint64(25) << 26 << 0 << none << "Z";
        QTest::newRow("BA") << qint64(26) << 26 << 0 << none << "BA";
        QTest::newRow("ZZ") << qint64(675) << 26 << 0 << none << "ZZ";
        QTest::newRow("AAB") << qint64(1) << 26 << 3 << none << "AAB";
        QTest::newRow("letters, padded otherwise") << qint64(1) << 26 << 3 << QChar(u'.') << "..B";
        QTest::newRow("negative letters") << qint64(-1) << 26 << 3 << none << "-AB";
        QTest::newRow("no known radix") << qint64(12) << 7 << 0 << none << "12";
    }

    void counter_format()
    {
        QFETCH(qint64, value);
        QFETCH(int, radix);
        QFETCH(int, width);
        QFETCH(QChar, pad);
        QFETCH(QString, expected);
        ZTCounterSegment c;
        c.radix = static_cast<ZTCounterRadix>(radix);
        c.width = width;
        c.pad = pad;
        QCOMPARE(c.format(value), expected);
    }

    void counter_width_hasALimit()
    {
        ZTCounterSegment c;
        c.width = 256;
        QCOMPARE(c.format(1).size(), 256);
        c.width = std::numeric_limits<qint32>::max();
        QCOMPARE(c.format(1).size(), 256);
    }

    void equality_looksAtEveryField()
    {
        QVERIFY(differs<ZTFixedTextSegment>(
            [](ZTFixedTextSegment &s) { s.text = QStringLiteral("x"); }));
        QVERIFY(differs<ZTCounterSegment>([](ZTCounterSegment &s) { s.start = 0; }));
        QVERIFY(differs<ZTCounterSegment>([](ZTCounterSegment &s) { s.step = 0; }));
        QVERIFY(differs<ZTCounterSegment>([](ZTCounterSegment &s) { s.last = 0; }));
        QVERIFY(differs<ZTCounterSegment>([](ZTCounterSegment &s) { s.atEnd = kWrap; }));
        QVERIFY(differs<ZTCounterSegment>([](ZTCounterSegment &s) { s.width = 1; }));
        QVERIFY(differs<ZTCounterSegment>([](ZTCounterSegment &s) { s.pad = u'x'; }));
        QVERIFY(differs<ZTCounterSegment>(
            [](ZTCounterSegment &s) { s.radix = ZTCounterRadix::Letters; }));
        QVERIFY(differs<ZTCounterSegment>([](ZTCounterSegment &s) { s.repeat = 2; }));
        QVERIFY(differs<ZTCounterSegment>([](ZTCounterSegment &s) { s.updates = 1; }));
        QVERIFY(differs<ZTDateTimeSegment>([](ZTDateTimeSegment &s) { s.format.clear(); }));
        QVERIFY(differs<ZTDateTimeSegment>(
            [](ZTDateTimeSegment &s) { s.content = ZTDateTimeContent::WeekYear; }));
        QVERIFY(differs<ZTDateTimeSegment>([](ZTDateTimeSegment &s) { s.offsetDays = 1; }));
        QVERIFY(differs<ZTDateTimeSegment>([](ZTDateTimeSegment &s) { s.offsetHours = 1; }));
        QVERIFY(differs<ZTDateTimeSegment>([](ZTDateTimeSegment &s) { s.offsetMinutes = 1; }));
        QVERIFY(differs<ZTDateTimeSegment>(
            [](ZTDateTimeSegment &s) { s.locale = QStringLiteral("de"); }));
        QVERIFY(
            differs<ZTTextFileSegment>([](ZTTextFileSegment &s) { s.path = QStringLiteral("x"); }));
        QVERIFY(differs<ZTTextFileSegment>([](ZTTextFileSegment &s) { s.column = 0; }));
        QVERIFY(differs<ZTTextFileSegment>([](ZTTextFileSegment &s) { s.separator = u';'; }));
        QVERIFY(differs<ZTTextFileSegment>(
            [](ZTTextFileSegment &s) { s.encoding = QStringLiteral("GBK"); }));
        QVERIFY(differs<ZTTextFileSegment>([](ZTTextFileSegment &s) { s.firstRow = 1; }));
        QVERIFY(differs<ZTTextFileSegment>([](ZTTextFileSegment &s) { s.nextRow = 1; }));
        QVERIFY(differs<ZTTextFileSegment>([](ZTTextFileSegment &s) { s.atEnd = kWrap; }));
    }
};

QTEST_GUILESS_MAIN(tst_ZTVariantTextSegment)
#include "tst_ZTVariantTextSegment.moc"
