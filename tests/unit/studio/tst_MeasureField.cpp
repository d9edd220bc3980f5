#include "support/WarningGuard.h"

#include <studio/measures/MeasureField.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QVBoxLayout>

#include <memory>

using studio::MeasureField;

/** A field before a user with a keyboard. Its listener decides what comes of an entry. */
class tst_MeasureField : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        window = std::make_unique<QWidget>();
        auto *layout = new QVBoxLayout(window.get());
        field = new MeasureField(MeasureField::Quantity::Length, {0.001, 100.0});
        other = new QLineEdit;
        layout->addWidget(field);
        layout->addWidget(other);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        QApplication::setActiveWindow(window.get());
        field->showValue(20.0);
        field->setFocus();
        QTRY_VERIFY(field->hasFocus());
    }
    void cleanup() { window.reset(); }

    void return_tellsTheValue_once()
    {
        const QSignalSpy told(field, &MeasureField::committed);
        type("1in+5");
        QVERIFY(field->isEdited());
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(told.count(), 1);
        QCOMPARE(told[0][0].toDouble(), 30.4);
        // What became of it has not been shown yet: neither another Return nor leaving repeats it.
        QTest::keyClick(field, Qt::Key_Return);
        QTest::keyClick(field, Qt::Key_Tab);
        QCOMPARE(told.count(), 1);
        field->showValue(30.4);
        QCOMPARE(field->text(), QStringLiteral("30.4"));
        QVERIFY(!field->isEdited());
    }

    void leaving_commitsWhatIsRight_andKeepsWhatIsWrong()
    {
        const QSignalSpy told(field, &MeasureField::committed);
        type("25");
        QTest::keyClick(field, Qt::Key_Tab);
        QVERIFY(other->hasFocus());
        QCOMPARE(told.count(), 1);
        field->showValue(25.0);
        field->setFocus();
        type("25x");
        QTest::keyClick(field, Qt::Key_Tab);
        QCOMPARE(told.count(), 1);
        QCOMPARE(field->text(), QStringLiteral("25x"));
        QVERIFY(!field->fault().isEmpty());
    }

    void withoutAnEntry_nothingIsTold()
    {
        const QSignalSpy told(field, &MeasureField::committed);
        QTest::keyClick(field, Qt::Key_Return);
        QTest::keyClick(field, Qt::Key_Tab);
        QCOMPARE(told.count(), 0);
    }

    // 33.3333... is shown with four decimals; leaving the field does not make it 33.3333.
    void shownValue_isNotRoundedByBeingLookedAt()
    {
        const QSignalSpy told(field, &MeasureField::committed);
        field->showValue(100.0 / 3.0);
        QCOMPARE(field->text(), QStringLiteral("33.3333"));
        QTest::keyClick(field, Qt::Key_Return);
        QTest::keyClick(field, Qt::Key_Tab);
        QCOMPARE(told.count(), 0);
        QCOMPARE(*field->shown(), 100.0 / 3.0);
    }

    void range_hasBothEnds()
    {
        const QSignalSpy told(field, &MeasureField::committed);
        for (const char *entry : {"0.001", "100", "10cm"}) {
            type(entry);
            QVERIFY2(field->fault().isEmpty(), entry);
        }
        for (const char *entry : {"0.0009", "100.0001", "0", "-1", "1m"}) {
            type(entry);
            QVERIFY2(field->fault().endsWith(QStringLiteral("Permitted: 0.001 to 100 mm")), entry);
            QTest::keyClick(field, Qt::Key_Return);
        }
        QCOMPARE(told.count(), 0);
    }

    void fault_isToldWhenItChanges()
    {
        const QSignalSpy faults(field, &MeasureField::faultChanged);
        type("5");
        QCOMPARE(faults.count(), 0);
        type("5k");
        QCOMPARE(faults.count(), 1);
        type("5km"); // another unknown unit
        QVERIFY(faults.count() >= 2);
        QTest::keyClick(field, Qt::Key_Escape);
        QCOMPARE(faults.last()[0].toString(), QString());
        QCOMPARE(field->text(), QStringLiteral("20"));
    }

    void refused_isWrongUntilAnotherValueOrEntry()
    {
        connect(field, &MeasureField::committed, this,
                [this] { field->refuse(QStringLiteral("No room")); });
        type("30");
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(field->fault(), QStringLiteral("No room"));
        field->showValue(20.0); // the same as before: the entry stays
        QCOMPARE(field->text(), QStringLiteral("30"));
        QCOMPARE(field->fault(), QStringLiteral("No room"));
        QTest::keyClick(field, Qt::Key_Backspace);
        QCOMPARE(field->fault(), QString());
        field->showValue(21.0);
        QCOMPARE(field->text(), QStringLiteral("21"));
    }

    void anEntryThatComesToNothing_isShownAsWhatHolds()
    {
        type("30");
        QTest::keyClick(field, Qt::Key_Return);
        field->showValue(20.0);
        QCOMPARE(field->text(), QStringLiteral("20"));
        field->showDiffering();
        type("30");
        QTest::keyClick(field, Qt::Key_Return);
        field->showDiffering();
        QCOMPARE(field->text(), QString());
    }

    void entryUnderWay_survivesTheSameValueShownAgain()
    {
        type("12");
        field->showValue(20.0);
        QCOMPARE(field->text(), QStringLiteral("12"));
        field->showValue(19.0);
        QCOMPARE(field->text(), QStringLiteral("19"));
    }

    void escape_isLeftToOthers_whenThereIsNothingToTakeBack()
    {
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(field, &escape);
        QVERIFY(!escape.isAccepted());
        type("5");
        QKeyEvent again(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(field, &again);
        QVERIFY(again.isAccepted());
        QCOMPARE(field->text(), QStringLiteral("20"));
    }

    void letterOverAShownValue_isLeftToTheWindow()
    {
        const auto isTaken = [this](int key, Qt::KeyboardModifiers keys = Qt::NoModifier) {
            QKeyEvent asked(QEvent::ShortcutOverride, key, keys, QStringLiteral("x"));
            asked.ignore();
            QApplication::sendEvent(field, &asked);
            return asked.isAccepted();
        };
        field->selectAll();
        QVERIFY(!isTaken(Qt::Key_R)); // no measure begins with a letter
        QVERIFY(isTaken(Qt::Key_5));
        field->end(false);
        QVERIFY(isTaken(Qt::Key_I)); // the unit of what stands there
        type("1");
        QVERIFY(isTaken(Qt::Key_I));
    }

    void undo_isLeftToTheWindow_whenNothingIsTyped()
    {
        QKeyEvent undo(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
        undo.ignore();
        QApplication::sendEvent(field, &undo);
        QVERIFY(!undo.isAccepted());
        type("5");
        QKeyEvent typed(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
        typed.ignore();
        QApplication::sendEvent(field, &typed);
        QVERIFY(typed.isAccepted());
    }

    void differing_andNothing()
    {
        field->showDiffering();
        QCOMPARE(field->text(), QString());
        QCOMPARE(field->placeholderText(), QStringLiteral("differs"));
        QVERIFY(!field->shown());
        const QSignalSpy told(field, &MeasureField::committed);
        QTest::keyClick(field, Qt::Key_Tab);
        QCOMPARE(told.count(), 0);
        field->showNothing();
        QCOMPARE(field->placeholderText(), QString());
    }

    void hint_isTheToolTipWhileTheEntryIsRight()
    {
        field->setHint(QStringLiteral("How wide"));
        QCOMPARE(field->toolTip(), QStringLiteral("How wide"));
        type("x");
        QCOMPARE(field->toolTip(), field->fault());
        field->setHint(QStringLiteral("Wie breit"));
        QCOMPARE(field->toolTip(), field->fault());
        QTest::keyClick(field, Qt::Key_Escape);
        QCOMPARE(field->toolTip(), QStringLiteral("Wie breit"));
    }

private:
    void type(const char *entry)
    {
        field->selectAll();
        QTest::keyClicks(field, QString::fromLatin1(entry));
    }

    testsupport::WarningGuard warnings;
    std::unique_ptr<QWidget> window;
    MeasureField *field = nullptr; ///< the window's
    QLineEdit *other = nullptr;    ///< the window's
};

QTEST_MAIN(tst_MeasureField)
#include "tst_MeasureField.moc"
