#include <hostkit/files/NumberText.h>

#include <QtTest/QTest>

#include <cmath>
#include <limits>
#include <random>

class tst_NumberText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shortest_readsBackAsTheSameDouble_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("zero") << 0.0 << QByteArray("0");
        QTest::newRow("whole") << 20000.0 << QByteArray("20000");
        QTest::newRow("tenth") << 0.1 << QByteArray("0.1");
        QTest::newRow("noise") << 0.1 + 0.2 << QByteArray("0.30000000000000004");
        QTest::newRow("negative") << -2.5 << QByteArray("-2.5");
        QTest::newRow("huge") << 1e300 << QByteArray("1e+300");
        QTest::newRow("least") << std::numeric_limits<double>::denorm_min() << QByteArray("5e-324");
        QTest::newRow("not a number")
            << std::numeric_limits<double>::quiet_NaN() << QByteArray("nan");
        QTest::newRow("infinite") << -std::numeric_limits<double>::infinity() << QByteArray("-inf");
    }

    void shortest_readsBackAsTheSameDouble()
    {
        QFETCH(double, value);
        QByteArray text("=");
        hostkit::appendShortest(text, value);
        QTEST(text.mid(1), "text");
    }

    void rounded_hasNoDigitThatSaysNothing_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("whole") << 40.0 << 4 << QByteArray("40");
        QTest::newRow("ends in zeros") << 1200.0 << 0 << QByteArray("1200");
        QTest::newRow("quarter") << 0.25 << 4 << QByteArray("0.25");
        QTest::newRow("rounds up") << 19.99996 << 4 << QByteArray("20");
        QTest::newRow("keeps four") << 1.00005001 << 4 << QByteArray("1.0001");
        QTest::newRow("rounding noise") << -1e-15 << 4 << QByteArray("0");
        QTest::newRow("negative") << -0.5 << 4 << QByteArray("-0.5");
        QTest::newRow("zero") << 0.0 << 4 << QByteArray("0");
        QTest::newRow("zeros behind the point") << 0.0012 << 4 << QByteArray("0.0012");
        QTest::newRow("negative zeros") << -0.00304 << 4 << QByteArray("-0.003");
        QTest::newRow("zeros within") << 10.0201 << 4 << QByteArray("10.0201");
        QTest::newRow("nines") << 0.9999 << 3 << QByteArray("1");
        QTest::newRow("beyond steps") << 9007199254740993.5 << 4 << QByteArray("9007199254740994");
        QTest::newRow("no powers of ten") << 1e20 << 2 << QByteArray("100000000000000000000");
    }

    void rounded_hasNoDigitThatSaysNothing()
    {
        QFETCH(double, value);
        QFETCH(int, decimals);
        QByteArray text("=");
        hostkit::appendRounded(text, value, decimals);
        QTEST(text.mid(1), "text");
    }

    void rounded_randomNumbers_areOffByHalfAStepAtMost()
    {
        std::mt19937_64 random(7);
        std::uniform_real_distribution<double> mantissa(-1.0, 1.0);
        std::uniform_int_distribution<int> exponent(-12, 14);
        for (int i = 0; i < 100000; ++i) {
            const double value = mantissa(random) * std::pow(10.0, exponent(random));
            QByteArray text;
            hostkit::appendRounded(text, value, 4);
            const double error = std::abs(text.toDouble() - value);
            QVERIFY2(error <= 0.5e-4 * (1 + 1e-9) + std::abs(value) * 1e-15, text);
            QVERIFY2(!text.contains('.') || !text.endsWith('0'), text);
        }
    }

    void whole_isPlain()
    {
        QByteArray text;
        hostkit::appendWhole(text, -1234567890123LL);
        QCOMPARE(text, QByteArray("-1234567890123"));
    }

    void rounded_largestDouble_fits()
    {
        QByteArray text;
        hostkit::appendRounded(text, std::numeric_limits<double>::lowest(), 9);
        QCOMPARE(text.size(), 310);
        QVERIFY(text.startsWith("-179769"));
    }
};

QTEST_GUILESS_MAIN(tst_NumberText)
#include "tst_NumberText.moc"
