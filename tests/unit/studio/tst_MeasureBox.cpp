#include <studio/choices/Units.h>
#include <studio/measures/MeasureBox.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

using studio::LengthUnit;
using studio::MeasureBox;

/** A box with arrows for a measure, typed into as people do. */
class tst_MeasureBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        dialog = std::make_unique<QDialog>();
        box = new MeasureBox({0.0, 100.0, 0.5, 3}, dialog.get());
        go = new QPushButton(QStringLiteral("Go"), dialog.get());
        go->setDefault(true);
        auto *rows = new QVBoxLayout(dialog.get());
        rows->addWidget(box);
        rows->addWidget(go);
        dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
        dialog->activateWindow();
    }
    void cleanup()
    {
        dialog.reset();
        studio::units::choose(LengthUnit::Millimetre, false);
    }

    void entries_haveUnitsAndSums_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("mm");
        QTest::newRow("plain") << QStringLiteral("12.5") << 12.5;
        QTest::newRow("inch") << QStringLiteral("1in") << 25.4;
        QTest::newRow("sum") << QStringLiteral("20+5") << 25.0;
        QTest::newRow("third") << QStringLiteral("100/3") << 100.0 / 3.0;
        QTest::newRow("fine") << QStringLiteral("0.001") << 0.001;
        QTest::newRow("mixed") << QStringLiteral("1in+5") << 30.4;
        QTest::newRow("limit") << QStringLiteral("100") << 100.0;
    }

    void entries_haveUnitsAndSums()
    {
        QFETCH(QString, text);
        QFETCH(double, mm);
        type(text);
        QCOMPARE(box->fault(), QString());
        QCOMPARE(box->measure(), mm);
        QTest::keyClick(box, Qt::Key_Tab);
        QCOMPARE(box->measure(), mm); // not what it shows rounded
        QVERIFY(box->text().endsWith(QStringLiteral(" mm")));
    }

    void wrongEntry_saysWhy_changesNothing_andStays_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("reason");
        const QString range = QStringLiteral(". Permitted: 0 to 100 mm");
        QTest::newRow("large") << QStringLiteral("101") << QStringLiteral("Too large") + range;
        QTest::newRow("small") << QStringLiteral("-0.001") << QStringLiteral("Too small") + range;
        QTest::newRow("word") << QStringLiteral("5x")
                              << QStringLiteral("\"x\" is no unit of this field") + range;
        QTest::newRow("open") << QStringLiteral("2*(3")
                              << QStringLiteral("A bracket has no counterpart") + range;
    }

    void wrongEntry_saysWhy_changesNothing_andStays()
    {
        QFETCH(QString, text);
        QFETCH(QString, reason);
        box->setMeasure(7.0);
        const QColor right = box->palette().color(QPalette::Base);
        type(text);
        QCOMPARE(box->fault(), reason);
        QCOMPARE(box->toolTip(), reason);
        QVERIFY(box->palette().color(QPalette::Base) != right);
        QTest::keyClick(box, Qt::Key_Tab);
        QVERIFY(go->hasFocus());
        QVERIFY(box->text().startsWith(text));
        QCOMPARE(box->fault(), reason);
        QCOMPARE(MeasureBox::wrongIn(*dialog), box);
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Escape); // takes back, and closes nothing
        QVERIFY(dialog->isVisible());
        QCOMPARE(box->text(), QStringLiteral("7.000 mm"));
        QCOMPARE(box->fault(), QString());
        QCOMPARE(box->measure(), 7.0);
        QVERIFY(MeasureBox::wrongIn(*dialog) == nullptr);
        QCOMPARE(box->palette().color(QPalette::Base), right);
    }

    void returnWithAWrongEntry_pressesNoButton()
    {
        QSignalSpy pressed(go, &QPushButton::clicked);
        type(QStringLiteral("1000"));
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(pressed.count(), 0);
        type(QStringLiteral("10"));
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(pressed.count(), 1);
        QCOMPARE(box->measure(), 10.0);
    }

    void sumOnItsWay_isNoEntryYet()
    {
        QSignalSpy told(box, qOverload<double>(&QDoubleSpinBox::valueChanged));
        type(QStringLiteral("20+5"));
        QList<double> values;
        for (const QList<QVariant> &one : told)
            values << one.first().toDouble();
        QCOMPARE(values, QList<double>({2.0, 20.0, 0.0, 25.0})); // "20+" says nothing yet
    }

    void inInches_rangeAndEntriesAreInInches()
    {
        studio::units::choose(LengthUnit::Inch, false);
        QTRY_COMPARE(box->suffix(), QStringLiteral(" in"));
        type(QStringLiteral("1"));
        QCOMPARE(box->measure(), 25.4);
        type(QStringLiteral("3mm"));
        QVERIFY(qAbs(box->measure() - 3.0) < 1e-12);
        type(QStringLiteral("4"));
        QVERIFY2(box->fault().startsWith(QStringLiteral("Too large. Permitted: 0 to 3.937008 in")),
                 qPrintable(box->fault()));
        // The limit itself can be reached, and not passed, by the arrows.
        type(QStringLiteral("3.9"));
        for (int i = 0; i < 5; ++i)
            QTest::keyClick(box, Qt::Key_Up);
        QCOMPARE(box->measure(), 100.0);
        QCOMPARE(box->fault(), QString());
    }

    void arrows_stepFromTheLastValue_afterAWrongEntry()
    {
        box->setMeasure(7.0);
        type(QStringLiteral("1000"));
        QTest::keyClick(box, Qt::Key_Up);
        QCOMPARE(box->measure(), 7.5);
        QCOMPARE(box->fault(), QString());
    }

    void wrongEntryOutOfSight_isTakenBack()
    {
        box->setMeasure(7.0);
        type(QStringLiteral("1000"));
        QVERIFY(!box->fault().isEmpty());
        box->hide();
        QCOMPARE(box->fault(), QString());
        QCOMPARE(box->measure(), 7.0);
    }

    void counts_areWholeAndLarge()
    {
        MeasureBox count({-9007199254740991.0, 9007199254740991.0, 1.0, 0}, QString());
        count.show();
        enter(count, QStringLiteral("123456789012"));
        QCOMPARE(count.fault(), QString());
        QCOMPARE(count.measure(), 123456789012.0);
        QTest::keyClick(&count, Qt::Key_Return);
        enter(count, QStringLiteral("1.5"));
        QVERIFY2(count.fault().startsWith(QStringLiteral("Not a whole number")),
                 qPrintable(count.fault()));
        QCOMPARE(count.measure(), 123456789012.0);
    }

    void numbersOutsideTheRange_canBeShown()
    {
        box->setMeasure(250.0);
        QCOMPARE(box->measure(), 250.0);
        QCOMPARE(box->fault(), QString());
    }

private:
    static void enter(MeasureBox &into, const QString &text)
    {
        into.setFocus();
        into.selectAll();
        QTest::keyClicks(&into, text);
    }
    void type(const QString &text) { enter(*box, text); }

    std::unique_ptr<QDialog> dialog;
    MeasureBox *box = nullptr;
    QPushButton *go = nullptr;
};

QTEST_MAIN(tst_MeasureBox)
#include "tst_MeasureBox.moc"
