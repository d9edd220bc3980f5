#include <studio/choices/Units.h>
#include <studio/measures/MeasureBox.h>
#include <studio/measures/TypedMeasure.h>

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

namespace units = studio::units;
using studio::LengthUnit;

/** How lengths are told. */
class tst_Units : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { units::choose(LengthUnit::Millimetre, false); }

    void millimetres_haveThreeDecimals()
    {
        QCOMPARE(units::unitMm(), 1.0);
        QCOMPARE(units::number(12.34567), QStringLiteral("12.346"));
        QCOMPARE(units::number(-0.0004), QStringLiteral("0.000"));
        QCOMPARE(units::text(1.0), QStringLiteral("1.000 mm"));
    }

    void inches_showAMicrometre()
    {
        units::choose(LengthUnit::Inch, false);
        QCOMPARE(units::unitMm(), 25.4);
        QCOMPARE(units::text(25.4), QStringLiteral("1.00000 in"));
        QCOMPARE(units::number(0.001), QStringLiteral("0.00004")); // 3.9e-5 in
        QCOMPARE(units::number(-0.0001), QStringLiteral("0.00000"));
    }

    void y_isItsOwnInverse()
    {
        QCOMPARE(units::y(5.0), 5.0);
        units::choose(LengthUnit::Millimetre, true);
        QCOMPARE(units::y(5.0), -5.0);
        QCOMPARE(units::y(units::y(5.0)), 5.0);
        QVERIFY(!std::signbit(units::y(0.0)));
    }

    void box_showsTheUnit_andKeepsItsLength()
    {
        studio::MeasureBox box({0.0, 100.0, 0.5, 3});
        box.setMeasure(12.3456789);
        QCOMPARE(box.text(), QStringLiteral("12.346 mm"));
        units::choose(LengthUnit::Inch, false);
        QTRY_COMPARE(box.text(), QStringLiteral("0.48605 in"));
        QCOMPARE(box.measure(), 12.3456789); // as long as nobody types
        box.setValue(1.0);
        QCOMPARE(box.measure(), 25.4);
        QCOMPARE(box.maximum(), 3.93701); // 100 mm, as far as it shows
        units::choose(LengthUnit::Millimetre, false);
        QTRY_COMPARE(box.text(), QStringLiteral("25.400 mm"));
    }

    void boxOfAPercentage_hasNoUnit()
    {
        studio::MeasureBox box({0.0, 100.0, 5.0, 1}, QStringLiteral(" %"));
        box.setMeasure(50.0);
        units::choose(LengthUnit::Inch, false);
        QCoreApplication::processEvents();
        QCOMPARE(box.text(), QStringLiteral("50.0 %"));
        QCOMPARE(box.measure(), 50.0);
    }
};

QTEST_MAIN(tst_Units)
#include "tst_Units.moc"
