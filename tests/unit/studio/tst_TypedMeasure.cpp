#include <studio/measures/TypedMeasure.h>

#include <QtCore/QRandomGenerator>
#include <QtTest/QTest>

#include <cmath>

using studio::MeasureFault;
using studio::readAngle;
using studio::readLength;
using studio::readNumber;
using studio::TypedMeasure;

Q_DECLARE_METATYPE(studio::MeasureFault)

namespace {

/** A sum made at random, as text and as what it is worth. */
struct Sum
{
    QString text;
    double value;
};

class SumMaker
{
public:
    explicit SumMaker(quint32 seed) : m_random(seed) {}

    Sum make(int depth)
    {
        const int kind = depth == 0 ? 0 : m_random.bounded(6);
        if (kind == 0)
            return number();
        if (kind == 1) {
            const Sum inside = make(depth - 1);
            return {blank() + QStringLiteral("(") + inside.text + QStringLiteral(")"),
                    inside.value};
        }
        const Sum left = bracketed(make(depth - 1));
        const Sum right = bracketed(make(depth - 1));
        switch (kind) {
        case 2:
            return {left.text + QStringLiteral("+") + right.text, left.value + right.value};
        case 3:
            return {left.text + QStringLiteral("-") + right.text, left.value - right.value};
        case 4:
            return {left.text + QStringLiteral("*") + right.text, left.value * right.value};
        default:
            return {left.text + QStringLiteral("/") + right.text, left.value / right.value};
        }
    }

    QString garbage()
    {
        static const QString alphabet = QStringLiteral("0123456789..+-*/()() minchft\"'eE,°µ毫米x");
        QString text;
        for (int i = m_random.bounded(24); i > 0; --i)
            text += alphabet[m_random.bounded(alphabet.size())];
        return text;
    }

private:
    Sum number()
    {
        const int hundredths = m_random.bounded(100000) + 1;
        return {blank() + QString::number(hundredths / 100.0, 'f', 2) + blank(),
                hundredths / 100.0};
    }

    static Sum bracketed(const Sum &sum)
    {
        return {QStringLiteral("(") + sum.text + QStringLiteral(")"), sum.value};
    }

    QString blank() { return QString(m_random.bounded(3), QLatin1Char(' ')); }

    QRandomGenerator m_random;
};

} // namespace

class tst_TypedMeasure : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void length_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("mm");
        const auto row = [](const char *text, double mm) {
            QTest::newRow(text) << QString::fromUtf8(text) << mm;
        };
        row("20", 20.0);
        row(" 20.125 ", 20.125);
        row(".5", 0.5);
        row("5.", 5.0);
        row("-3", -3.0);
        row("--3", 3.0);
        row("+3", 3.0);
        row("1e2", 100.0);
        row("1.5e-3", 0.0015);
        row("20+5", 25.0);
        row("20 - 5 - 5", 10.0);
        row("2+3*4", 14.0);
        row("(2+3)*4", 20.0);
        row("12/4/3", 1.0);
        row("100/3", 100.0 / 3.0);
        row("1in", 25.4);
        row("1 IN", 25.4);
        row("2\"", 50.8);
        row("2″", 50.8);
        row("1'", 304.8);
        row("1ft+2in", 355.6);
        row("1in+5", 30.4);
        row("5+1in", 30.4);
        row("2*3in", 152.4);
        row("2*(3+4)mm", 14.0);
        row("(1+1)in", 50.8);
        row("3cm", 30.0);
        row("0.02m", 20.0);
        row("500um", 0.5);
        row("500µm", 0.5);
        row("10mil", 0.254);
        row("72pt", 25.4);
        row("1in/1mm", 25.4);
        row("5毫米", 5.0);
        row("1英寸+1厘米", 35.4);
        row("２０＋５", 25.0);
        row("（２＋３）×4", 20.0);
        row("9÷3", 3.0);
        row("7−2", 5.0);
        row("-0", 0.0);
    }

    void length()
    {
        QFETCH(QString, text);
        QFETCH(double, mm);
        const TypedMeasure measure = readLength(text);
        QVERIFY2(measure.isRight(), qPrintable(studio::faultText(measure)));
        QVERIFY2(std::abs(measure.value - mm) <= 1e-13 * qMax(1.0, std::abs(mm)),
                 qPrintable(QString::number(measure.value, 'g', 17)));
        QVERIFY(studio::faultText(measure).isEmpty());
    }

    void fault_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<MeasureFault>("fault");
        QTest::addColumn<QString>("part");
        const auto row = [](const char *text, MeasureFault fault, const char *part = "") {
            QTest::newRow(*text == '\0' ? "empty" : text)
                << QString::fromUtf8(text) << fault << QString::fromUtf8(part);
        };
        row("", MeasureFault::Empty);
        row("   ", MeasureFault::Empty);
        row("20+", MeasureFault::Unfinished);
        row("-", MeasureFault::Unfinished);
        row("(", MeasureFault::Unfinished);
        row("(20", MeasureFault::Bracket);
        row("20)", MeasureFault::Bracket);
        row("()", MeasureFault::Bracket);
        row("2 3", MeasureFault::Unexpected, "3");
        row("20;5", MeasureFault::Unexpected, ";");
        row("*5", MeasureFault::Unexpected, "*");
        row(".", MeasureFault::Unexpected, ".");
        row("1.2.3", MeasureFault::Unexpected, ".");
        row("20,5", MeasureFault::Comma);
        row("1,000", MeasureFault::Comma);
        row("20kg", MeasureFault::Unit, "kg");
        row("20 mmm", MeasureFault::Unit, "mmm");
        row("45°", MeasureFault::Unit, "°");
        row("1/0", MeasureFault::Division);
        row("1/(2-2)", MeasureFault::Division);
        row("1in*1in", MeasureFault::Dimension);
        row("1/2in", MeasureFault::Dimension);
        row("(1in)mm", MeasureFault::Dimension);
        row("1e10", MeasureFault::Huge);
        row("1e999", MeasureFault::Huge);
    }

    void fault()
    {
        QFETCH(QString, text);
        QFETCH(MeasureFault, fault);
        QFETCH(QString, part);
        const TypedMeasure measure = readLength(text);
        QCOMPARE(measure.fault, fault);
        QCOMPARE(measure.part, part);
        QVERIFY(!studio::faultText(measure).isEmpty());
    }

    void tooLong_isRefused()
    {
        const QString nested =
            QString(500, QLatin1Char('(')) + QLatin1Char('1') + QString(500, QLatin1Char(')'));
        QCOMPARE(readLength(nested).fault, MeasureFault::Long);
        // One character that stands for many.
        QCOMPARE(readLength(QString(199, QChar(0xfdfa))).fault, MeasureFault::Long);
    }

    void plainNumber_countsInTheUnitOfTheField()
    {
        QCOMPARE(readLength(QStringLiteral("2"), 25.4).value, 50.8);
        QCOMPARE(readLength(QStringLiteral("2mm"), 25.4).value, 2.0);
        QCOMPARE(readLength(QStringLiteral("1+25.4mm"), 25.4).value, 50.8);
    }

    void angle()
    {
        QCOMPARE(readAngle(QStringLiteral("45")).value, 45.0);
        QCOMPARE(readAngle(QStringLiteral("90°/2")).value, 45.0);
        QCOMPARE(readAngle(QStringLiteral("45 deg")).value, 45.0);
        QCOMPARE(readAngle(QStringLiteral("30度")).value, 30.0);
        QVERIFY(std::abs(readAngle(QStringLiteral("3.141592653589793rad")).value - 180.0) < 1e-12);
        QCOMPARE(readAngle(QStringLiteral("45mm")).fault, MeasureFault::Unit);
    }

    void number()
    {
        QCOMPARE(readNumber(QStringLiteral("2*3")).value, 6.0);
        QCOMPARE(readNumber(QStringLiteral("6mm")).fault, MeasureFault::Unit);
    }

    void anySum_isWorthWhatItIs()
    {
        SumMaker maker(20);
        int compared = 0;
        for (int i = 0; i < 5000; ++i) {
            const Sum sum = maker.make(3);
            if (!std::isfinite(sum.value) || std::abs(sum.value) > 1e9 || sum.text.size() > 200)
                continue;
            const TypedMeasure measure = readLength(sum.text);
            QVERIFY2(measure.isRight(), qPrintable(sum.text));
            QVERIFY2(measure.value == sum.value, qPrintable(sum.text));
            ++compared;
        }
        QVERIFY(compared > 3000);
    }

    void anyText_isReadOrRefusedWithAReason()
    {
        SumMaker maker(21);
        int refused = 0;
        for (int i = 0; i < 20000; ++i) {
            const QString text = maker.garbage();
            const TypedMeasure measure = readLength(text);
            QVERIFY2(std::isfinite(measure.value), qPrintable(text));
            QVERIFY2(measure.isRight() == studio::faultText(measure).isEmpty(), qPrintable(text));
            refused += measure.isRight() ? 0 : 1;
        }
        QVERIFY(refused > 1000 && refused < 20000);
    }

    void measureText_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("whole") << 20.0 << QStringLiteral("20");
        QTest::newRow("noise") << 20.000000000000004 << QStringLiteral("20");
        QTest::newRow("hundreds") << 100.0 << QStringLiteral("100");
        QTest::newRow("a micrometre") << 0.001 << QStringLiteral("0.001");
        QTest::newRow("third") << 100.0 / 3.0 << QStringLiteral("33.3333");
        QTest::newRow("negative nothing") << -0.00001 << QStringLiteral("0");
        QTest::newRow("negative") << -1.5 << QStringLiteral("-1.5");
    }

    void measureText()
    {
        QFETCH(double, value);
        QFETCH(QString, text);
        QCOMPARE(studio::measureText(value), text);
        QVERIFY(std::abs(readLength(studio::measureText(value)).value - value) <= 0.5e-4);
    }
};

QTEST_MAIN(tst_TypedMeasure)
#include "tst_TypedMeasure.moc"
