#include <support/PropertyObjects.h>
#include <support/SingletonGuard.h>
#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QUndoStack>
#include <QtWidgets/QVBoxLayout>

#include <memory>

using testsupport::TextObject;

namespace {

QString str(const char *text) { return QString::fromUtf8(text); }

} // namespace

class tst_ZTItemPropertyListGui : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        singletons.reset(new testsupport::SingletonGuard);
        warnings.reset(new testsupport::WarningGuard);
        // Ten pixels a millimetre.
        ZTCoord::getInstance()->setPhysicalHeight(90.0);
        stack.reset(new QUndoStack);
        text.reset(new TextObject);
        text->pos = QPointF(100.0, 100.0);
        window.reset(new QWidget);
        window->resize(700, 700);
        auto *layout = new QVBoxLayout(window.get());
        outside = new QLineEdit;
        layout->addWidget(outside);
        list = new ZTItemPropertyList(nullptr);
        layout->addWidget(list);
        list->setUndoStack(stack.get());
        list->setObject(text.get());
        tree = list->findChild<QTreeWidget *>();
        window->show();
        QApplication::setActiveWindow(window.get());
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }

    void cleanup()
    {
        window.reset();
        text.reset();
        stack.reset();
        warnings.reset();
        singletons.reset();
    }

    void rows_are75High_andTheBar200Wide()
    {
        for (QTreeWidgetItem *each = tree->topLevelItem(0); each; each = tree->itemBelow(each))
            QCOMPARE(tree->visualItemRect(each).height(), 75);
        QCOMPARE(tree->verticalScrollBar()->width(), 200);
        QCOMPARE(tree->indentation(), 10);
    }

    void pos_typedInMillimetres_isOneStep_andUndone()
    {
        click({"pos", "X"});
        auto *spin = editor<QDoubleSpinBox>();
        QVERIFY(spin);
        QCOMPARE(spin->value(), 10.0);
        typeOver("20");
        QCOMPARE(stack->count(), 0);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(stack->count(), 1);
        QCOMPARE(text->pos, QPointF(200.0, 100.0));
        stack->undo();
        QCOMPARE(text->pos, QPointF(100.0, 100.0));
        QTRY_COMPARE_WITH_TIMEOUT(item({"pos", "X"})->text(1), str("10.00"), 5000);
        QVERIFY(stack->canRedo());
    }

    void text_typed_isOneStep_whenTheFocusLeaves()
    {
        click({"text"});
        QVERIFY(editor<QLineEdit>());
        typeOver("some words");
        QCOMPARE(stack->count(), 0);
        outside->setFocus();
        QCOMPARE(stack->count(), 1);
        QCOMPARE(text->text, str("some words"));
        stack->undo();
        QCOMPARE(text->text, QString());
    }

    void escape_cancels()
    {
        click({"lineSpan"});
        typeOver("9");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QTRY_VERIFY(!editor<QDoubleSpinBox>());
        QCOMPARE(stack->count(), 0);
        QCOMPARE(text->lineSpan, 1.5);
        QCOMPARE(item({"lineSpan"})->text(1), str("1.50"));
    }

    void f2_opensTheEditor_andReturnWithoutTypingIsNoEdit()
    {
        tree->setCurrentItem(item({"lineSpan"}), 1);
        tree->setFocus();
        QTest::keyClick(tree, Qt::Key_F2);
        QVERIFY(editor<QDoubleSpinBox>());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(stack->count(), 0);
    }

    void spac_stepsByATenth()
    {
        click({"fillParam", "spac"});
        auto *spin = editor<QDoubleSpinBox>();
        QVERIFY(spin);
        QCOMPARE(spin->value(), 2.0);
        QCOMPARE(spin->minimum(), 0.01);
        QTest::keyClick(spin, Qt::Key_Up);
        QCOMPARE(stack->count(), 1);
        QCOMPARE(text->fillParam.spac, ZTCoord::getInstance()->mm2pix(2.1));
    }

    void fillType_chosenFromAList_turnsTheSpacingIntoPixels()
    {
        click({"fillParam", "fillType"});
        auto *box = editor<QComboBox>();
        QVERIFY(box);
        QCOMPARE(box->count(), 3);
        QTest::keyClick(box, Qt::Key_Up);
        QCOMPARE(text->fillParam.fillType, FillType::ULine);
        QCOMPARE(text->fillParam.spac, 20.0);
        QCOMPARE(stack->count(), 1);
    }

    void checkBox_clicked_isOneStep()
    {
        click({"fillParam", "isEnableBorder"});
        auto *box = tree->viewport()->findChild<QCheckBox *>();
        QVERIFY(box);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        QCOMPARE(text->fillParam.isEnableBorder, false);
        QCOMPARE(stack->count(), 1);
    }

    void pixelSize_typed_isOneStep()
    {
        click({"font", "Pixel Size"});
        QVERIFY(editor<QSpinBox>());
        typeOver("42");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(stack->count(), 1);
        QCOMPARE(text->font.pixelSize(), 42);
        stack->undo();
        QCOMPARE(text->font.pixelSize(), 100);
    }

    void fontType_chosen_greysTheOtherFont_whichThenOpensNoEditor()
    {
        click({"fontType"});
        auto *box = editor<QComboBox>();
        QVERIFY(box);
        QCOMPARE(box->count(), 2);
        QTest::keyClick(box, Qt::Key_Up);
        QCOMPARE(text->fontType, FontType::singleLine);
        QTest::keyClick(box, Qt::Key_Return);
        QVERIFY(!item({"font"})->flags().testFlag(Qt::ItemIsEnabled));
        QVERIFY(!item({"font", "Pixel Size"})->flags().testFlag(Qt::ItemIsEnabled));
        QVERIFY(!item({"font"})->isHidden());
        QVERIFY(item({"shxFont"})->flags().testFlag(Qt::ItemIsEnabled));
        click({"font", "Pixel Size"});
        QVERIFY(!editor<QSpinBox>());
        stack->undo();
        list->updateProperty();
        QVERIFY(item({"font"})->flags().testFlag(Qt::ItemIsEnabled));
        QVERIFY(!item({"shxFont"})->flags().testFlag(Qt::ItemIsEnabled));
    }

    void refresh_leavesAnOpenEditorOpen_andWhatWasTypedInIt()
    {
        click({"lineSpan"});
        typeOver("8");
        text->pos = QPointF(70.0, 70.0);
        list->updateProperty();
        QVERIFY(editor<QDoubleSpinBox>());
        QCOMPARE(item({"pos", "X"})->text(1), str("7.00"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(text->lineSpan, 8.0);
        QCOMPARE(stack->count(), 1);
    }

    void objectDestroyed_whileAnEditorIsOpen()
    {
        click({"lineSpan"});
        typeOver("8");
        text.reset();
        QTRY_VERIFY(!editor<QDoubleSpinBox>());
        QCOMPARE(tree->topLevelItemCount(), 0);
        QVERIFY(!list->isEnabled());
        QCOMPARE(stack->count(), 0);
    }

    void anotherObject_whileAnEditorIsOpen_dropsWhatWasTyped()
    {
        TextObject other;
        click({"lineSpan"});
        typeOver("8");
        list->setObject(&other);
        QTRY_VERIFY(!editor<QDoubleSpinBox>());
        QCOMPARE(text->lineSpan, 1.5);
        QCOMPARE(other.lineSpan, 1.5);
        QCOMPARE(stack->count(), 0);
        list->setObject(nullptr);
    }

    void listDeleted_whileAnEditorIsOpen()
    {
        click({"lineSpan"});
        typeOver("8");
        delete list;
        QCOMPARE(text->lineSpan, 1.5);
    }

    void shapeItem_isEditedThroughTheSameGrid()
    {
        ZTGraphicsLineItem line;
        list->setObject(&line);
        click({"length"});
        QVERIFY(editor<QDoubleSpinBox>());
        typeOver("12.5");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(stack->count(), 1);
        QCOMPARE(line.length(), 12.5);
        list->setObject(nullptr);
    }

private:
    QTreeWidgetItem *item(const QList<const char *> &path) const
    {
        QTreeWidgetItem *found = tree->invisibleRootItem();
        for (const char *name : path) {
            QTreeWidgetItem *next = nullptr;
            for (int i = 0; found && i < found->childCount(); ++i) {
                if (found->child(i)->text(0) == QLatin1String(name))
                    next = found->child(i);
            }
            found = next;
        }
        return found;
    }

    /** A click on the value of a row. */
    void click(const QList<const char *> &path)
    {
        QTreeWidgetItem *shown = item(path);
        QVERIFY(shown);
        tree->scrollToItem(shown);
        const QRect row = tree->visualItemRect(shown);
        const int x = tree->columnViewportPosition(1) + 5;
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, QPoint(x, row.center().y()));
    }

    static void typeOver(const char *words)
    {
        QWidget *focused = QApplication::focusWidget();
        QVERIFY(focused);
        QTest::keyClick(focused, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(focused, str(words));
    }

    /** The open editor, if it is of this class. */
    template <class Widget>
    Widget *editor() const
    {
        return tree->viewport()->findChild<Widget *>();
    }

    std::unique_ptr<testsupport::SingletonGuard> singletons;
    std::unique_ptr<testsupport::WarningGuard> warnings;
    std::unique_ptr<QUndoStack> stack;
    std::unique_ptr<TextObject> text;
    std::unique_ptr<QWidget> window;
    QLineEdit *outside = nullptr;
    ZTItemPropertyList *list = nullptr;
    QTreeWidget *tree = nullptr;
};

QTEST_MAIN(tst_ZTItemPropertyListGui)
#include "tst_ZTItemPropertyList.moc"
