#include <support/WarningGuard.h>

#include <QtPropertyBrowser/QtVariantEditorFactory.h>
#include <QtPropertyBrowser/QtVariantProperty.h>
#include <QtPropertyBrowser/QtVariantPropertyManager.h>

#include <QtCore/QMap>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDateTimeEdit>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QFontDialog>
#include <QtWidgets/QKeySequenceEdit>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QToolButton>

#include <memory>

using Manager = QtVariantPropertyManager;

namespace {

QString str(const char *text) { return QString::fromUtf8(text); }

} // namespace

class tst_QtVariantEditorFactory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::WarningGuard);
        manager.reset(new Manager);
        factory.reset(new QtVariantEditorFactory);
        factory->addPropertyManager(manager.data());
        host.reset(new QWidget);
        host->resize(300, 100);
        told.reset(new QSignalSpy(manager.data(), &Manager::valueChanged));
    }

    void cleanup()
    {
        host.reset();
        factory.reset();
        told.reset();
        manager.reset();
        guard.reset();
    }

    void editors_haveTheirClasses_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QByteArray>("widget");
        QTest::newRow("int") << int(QMetaType::Int) << QByteArray("QSpinBox");
        QTest::newRow("double") << int(QMetaType::Double) << QByteArray("QDoubleSpinBox");
        QTest::newRow("bool") << int(QMetaType::Bool) << QByteArray("QtBoolEdit");
        QTest::newRow("list") << Manager::enumTypeId() << QByteArray("QComboBox");
        QTest::newRow("text") << int(QMetaType::QString) << QByteArray("QLineEdit");
        QTest::newRow("char") << int(QMetaType::QChar) << QByteArray("QLineEdit");
        QTest::newRow("keys") << int(QMetaType::QKeySequence) << QByteArray("QKeySequenceEdit");
        QTest::newRow("cursor") << int(QMetaType::QCursor) << QByteArray("QComboBox");
        QTest::newRow("date") << int(QMetaType::QDate) << QByteArray("QDateEdit");
        QTest::newRow("time") << int(QMetaType::QTime) << QByteArray("QTimeEdit");
        QTest::newRow("dateTime") << int(QMetaType::QDateTime) << QByteArray("QDateTimeEdit");
        QTest::newRow("font") << int(QMetaType::QFont) << QByteArray("QWidget");
        QTest::newRow("color") << int(QMetaType::QColor) << QByteArray("QWidget");
        for (const int type :
             {int(QMetaType::QPoint), int(QMetaType::QPointF), int(QMetaType::QSize),
              int(QMetaType::QSizeF), int(QMetaType::QRect), int(QMetaType::QRectF),
              int(QMetaType::QLocale), int(QMetaType::QSizePolicy), Manager::flagTypeId(),
              Manager::groupTypeId()})
            QTest::addRow("none for %d", type) << type << QByteArray();
    }

    void editors_haveTheirClasses()
    {
        QFETCH(int, type);
        QFETCH(QByteArray, widget);
        QWidget *editor = factory->createEditor(manager->addProperty(type), host.data());
        QCOMPARE(editor != nullptr, !widget.isEmpty());
        if (editor) {
            QVERIFY(editor->inherits(widget.constData()));
            QCOMPARE(editor->parentWidget(), host.data());
        }
        QCOMPARE(told->count(), 0);
    }

    void spinBox_followsAttributesAndValueWithoutWritingBack()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::Double);
        auto *box = open<QDoubleSpinBox>(row);
        QVERIFY(!box->keyboardTracking());
        row->setAttribute(str("minimum"), 0.01);
        row->setAttribute(str("maximum"), 9.5);
        row->setAttribute(str("singleStep"), 0.1);
        row->setAttribute(str("decimals"), 3);
        QCOMPARE(box->minimum(), 0.01);
        QCOMPARE(box->maximum(), 9.5);
        QCOMPARE(box->singleStep(), 0.1);
        QCOMPARE(box->decimals(), 3);
        told->clear();
        row->setValue(1.23456789);
        QCOMPARE(box->value(), 1.235);
        QCOMPARE(told->count(), 1);
        QVERIFY(row->value().toDouble() == 1.23456789);
    }

    void spinBox_typing_isOneChangeOnReturn()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::Int);
        auto *box = open<QSpinBox>(row);
        box->selectAll();
        QTest::keyClicks(box, str("123"));
        QCOMPARE(told->count(), 0);
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(told->count(), 1);
        QCOMPARE(row->value(), QVariant(123));
        QTest::keyClick(box, Qt::Key_Up);
        QCOMPARE(row->value(), QVariant(124));
        QCOMPARE(told->count(), 2);
    }

    void spinBox_lookedAtOnly_keepsThePreciseValue()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::Double);
        row->setValue(6.987654);
        auto *box = open<QDoubleSpinBox>(row);
        told->clear();
        QTest::keyClick(box, Qt::Key_Return);
        delete box;
        QCOMPARE(told->count(), 0);
        QVERIFY(row->value().toDouble() == 6.987654);
    }

    void spinBox_boundsOfTheWholeComeBackIntoTheEditor()
    {
        QtVariantProperty *rect = manager->addProperty(QMetaType::QRect);
        rect->setAttribute(str("constraint"), QRect(0, 0, 100, 100));
        rect->setValue(QRect(0, 0, 40, 40));
        auto *box = open<QSpinBox>(rect->subProperties().at(0));
        box->selectAll();
        QTest::keyClicks(box, str("90"));
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(box->value(), 60);
        QCOMPARE(rect->value().toRect(), QRect(60, 0, 40, 40));
    }

    void checkBox_writesEachToggle()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::Bool);
        auto *box = open<QWidget>(row)->findChild<QCheckBox *>();
        QCOMPARE(box->text(), str("False"));
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
        QCOMPARE(row->value(), QVariant(true));
        QCOMPARE(box->text(), str("True"));
        QCOMPARE(told->count(), 1);
        row->setValue(false);
        QVERIFY(!box->isChecked());
        QCOMPARE(told->count(), 2);
    }

    void list_isFilledAndWritesByHandOnly()
    {
        QtVariantProperty *row = manager->addProperty(Manager::enumTypeId());
        row->setAttribute(str("enumNames"), QStringList{str("a"), str("b"), str("c")});
        row->setValue(1);
        told->clear();
        auto *box = open<QComboBox>(row);
        QCOMPARE(box->count(), 3);
        QCOMPARE(box->currentIndex(), 1);
        row->setValue(7);
        QCOMPARE(box->currentIndex(), -1);
        QCOMPARE(told->count(), 1);
        row->setValue(0);
        QTest::keyClick(box, Qt::Key_Down);
        QCOMPARE(row->value(), QVariant(1));
        QCOMPARE(told->count(), 3);
        row->setAttribute(str("enumNames"), QStringList{str("x"), str("y")});
        QCOMPARE(box->itemText(1), str("y"));
        QCOMPARE(box->currentIndex(), 0);
        QCOMPARE(told->count(), 4);
    }

    void text_isOneChangeOnReturn()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QString);
        auto *edit = open<QLineEdit>(row);
        QTest::keyClicks(edit, str("hello"));
        QCOMPARE(told->count(), 0);
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(told->count(), 1);
        QCOMPARE(row->value(), QVariant(str("hello")));
    }

    void text_patternAndModesReachTheEditor()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QString);
        auto *edit = open<QLineEdit>(row);
        row->setAttribute(str("regExp"), QRegExp(str("[0-9]*")));
        QTest::keyClicks(edit, str("1a2"));
        QCOMPARE(edit->text(), str("12"));
        row->setAttribute(str("readOnly"), true);
        QVERIFY(edit->isReadOnly());
        row->setAttribute(str("echoMode"), int(QLineEdit::Password));
        QCOMPARE(edit->echoMode(), QLineEdit::Password);
    }

    void character_eachKeyReplacesTheLast()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QChar);
        auto *edit = open<QLineEdit>(row);
        QTest::keyClicks(edit, str("ab"));
        QCOMPARE(row->value(), QVariant(QLatin1Char('b')));
        QCOMPARE(edit->text(), str("b"));
        QTest::keyClick(edit, Qt::Key_Backspace);
        QCOMPARE(row->value().toChar(), QChar());
    }

    void keySequence_isTakenWhenItIsComplete()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QKeySequence);
        auto *edit = open<QKeySequenceEdit>(row);
        QTest::keyClick(edit, Qt::Key_S, Qt::ControlModifier);
        QTRY_COMPARE(row->value().value<QKeySequence>(), QKeySequence(Qt::CTRL + Qt::Key_S));
        QCOMPARE(told->count(), 1);
    }

    void date_isOneChange()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QDate);
        row->setValue(QDate(2020, 5, 5));
        row->setAttribute(str("maximum"), QDate(2020, 12, 31));
        auto *edit = open<QDateEdit>(row);
        told->clear();
        QCOMPARE(edit->date(), QDate(2020, 5, 5));
        QCOMPARE(edit->maximumDate(), QDate(2020, 12, 31));
        edit->setCurrentSection(QDateTimeEdit::DaySection);
        QTest::keyClick(edit, Qt::Key_Up);
        QCOMPARE(row->value(), QVariant(QDate(2020, 5, 6)));
        QCOMPARE(told->count(), 1);
    }

    void time_and_dateTime_followAndWrite()
    {
        QtVariantProperty *time = manager->addProperty(QMetaType::QTime);
        time->setValue(QTime(10, 20));
        auto *timeEdit = open<QTimeEdit>(time);
        timeEdit->setCurrentSection(QDateTimeEdit::HourSection);
        QTest::keyClick(timeEdit, Qt::Key_Up);
        QCOMPARE(time->value(), QVariant(QTime(11, 20)));
        QtVariantProperty *both = manager->addProperty(QMetaType::QDateTime);
        const QDateTime noon(QDate(2020, 1, 1), QTime(12, 0), Qt::UTC);
        both->setValue(noon);
        auto *bothEdit = open<QDateTimeEdit>(both);
        bothEdit->setCurrentSection(QDateTimeEdit::MinuteSection);
        QTest::keyClick(bothEdit, Qt::Key_Up);
        QCOMPARE(both->value().toDateTime(), noon.addSecs(60));
    }

    void cursor_isChosenFromNames()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QCursor);
        auto *box = open<QComboBox>(row);
        QCOMPARE(box->currentText(), str("Arrow"));
        box->setCurrentIndex(box->findText(str("Cross")));
        QCOMPARE(row->value().value<QCursor>().shape(), Qt::CrossCursor);
        for (int i = 0; i < box->count(); ++i)
            QVERIFY(!box->itemIcon(i).isNull());
    }

    void color_isWrittenWhenTheDialogIsAccepted()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QColor);
        row->setValue(QColor(1, 2, 3));
        auto *edit = open<QWidget>(row);
        told->clear();
        edit->findChild<QToolButton *>()->click();
        auto *dialog = edit->findChild<QColorDialog *>();
        QVERIFY(dialog);
        QCOMPARE(dialog->currentColor(), QColor(1, 2, 3));
        dialog->setCurrentColor(QColor(9, 8, 7));
        QCOMPARE(told->count(), 0);
        dialog->accept();
        QCOMPARE(row->value().value<QColor>(), QColor(9, 8, 7));
    }

    void color_deleteAndBackspaceDoNothing()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QColor);
        auto *edit = open<QWidget>(row);
        told->clear();
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClick(edit, Qt::Key_Backspace);
        QCOMPARE(told->count(), 0);
    }

    void font_dialogKeepsAPixelSizeThatNobodyTouched()
    {
        QFont font = QApplication::font();
        font.setPixelSize(101);
        font.setKerning(false);
        QtVariantProperty *row = manager->addProperty(QMetaType::QFont);
        row->setValue(font);
        auto *edit = open<QWidget>(row);
        edit->findChild<QToolButton *>()->click();
        auto *dialog = edit->findChild<QFontDialog *>();
        QVERIFY(dialog);
        dialog->accept();
        QCOMPARE(row->value().value<QFont>().pixelSize(), 101);
        QVERIFY(!row->value().value<QFont>().kerning());
    }

    void font_dialogSizeIsTakenInPixels()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::QFont);
        QFont font = QApplication::font();
        font.setPixelSize(101);
        row->setValue(font);
        auto *edit = open<QWidget>(row);
        edit->findChild<QToolButton *>()->click();
        auto *dialog = edit->findChild<QFontDialog *>();
        QFont chosen = QApplication::font();
        chosen.setPointSize(12);
        dialog->setCurrentFont(chosen);
        dialog->accept();
        QCOMPARE(row->value().value<QFont>().pixelSize(), qRound(12 * edit->logicalDpiY() / 72.0));
    }

    void severalEditors_ofOneRow_stayInStep()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::Int);
        auto *first = open<QSpinBox>(row);
        auto *second = open<QSpinBox>(row);
        QTest::keyClick(first, Qt::Key_Up);
        QCOMPARE(second->value(), 1);
        QCOMPARE(told->count(), 1);
        delete first;
        row->setValue(5);
        QCOMPARE(second->value(), 5);
    }

    void rowDeleted_editorEditsNothing()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::Int);
        auto *box = open<QSpinBox>(row);
        delete row;
        QTest::keyClick(box, Qt::Key_Up);
        QCOMPARE(told->count(), 0);
    }

    void factoryAndManagerDeleted_editorEditsNothing()
    {
        QtVariantProperty *color = manager->addProperty(QMetaType::QColor);
        auto *box = open<QSpinBox>(manager->addProperty(QMetaType::Int));
        auto *dialog = open<QWidget>(color);
        factory.reset();
        told.reset();
        manager.reset();
        QTest::keyClick(box, Qt::Key_Up);
        dialog->findChild<QToolButton *>()->click();
        host->close();
    }

    void slotThatDeletesTheEditor_isSafe()
    {
        QtVariantProperty *row = manager->addProperty(QMetaType::Int);
        auto *box = open<QSpinBox>(row);
        connect(manager.data(), &Manager::valueChanged, this, [this] {
            manager->clear();
            host->findChild<QSpinBox *>()->deleteLater();
        });
        QTest::keyClick(box, Qt::Key_Up);
        QVERIFY(manager->properties().isEmpty());
    }

private:
    template <class Editor>
    Editor *open(QtProperty *row)
    {
        auto *editor = qobject_cast<Editor *>(factory->createEditor(row, host.data()));
        host->show();
        if (editor) {
            editor->show();
            editor->setFocus();
        }
        return editor;
    }

    QScopedPointer<testsupport::WarningGuard> guard;
    QScopedPointer<Manager> manager;
    QScopedPointer<QtVariantEditorFactory> factory;
    QScopedPointer<QWidget> host;
    std::unique_ptr<QSignalSpy> told;
};

QTEST_MAIN(tst_QtVariantEditorFactory)
#include "tst_QtVariantEditorFactory.moc"
