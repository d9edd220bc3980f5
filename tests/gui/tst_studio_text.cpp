#include "TextWindow.h"

#include <studio/drawing/DrawingFiles.h>

#include <QtGui/QInputMethodEvent>
#include <QtWidgets/QScrollBar>

using studio::TextState;

class tst_studio_text : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { studio = std::make_unique<TextWindow>(); }
    void cleanup() { studio.reset(); }

    void create_startsTypingAtOnce()
    {
        studio->run("create.text");
        QVERIFY(studio->editor() != nullptr);
        QVERIFY(studio->editor()->hasFocus());
        QCOMPARE(studio->stack().count(), 1);
        QCOMPARE(studio->stack().undoText(), QStringLiteral("Create text"));
        QCOMPARE(created()->text(), QStringLiteral("TEXT"));
        studio->type("A"); // in place of what is selected
        QCOMPARE(studio->editor()->toPlainText(), QStringLiteral("A"));
    }

    void newText_hasTenMillimetreCapitals()
    {
        const ZTGraphicsTextItem *item = studio->addText(QStringLiteral("H"));
        COMPARE_MM(TextWindow::sizeMm(*item).height(), 10.0);
    }

    void typing_showsOnTheDrawing_andLettersAreNoShortcuts()
    {
        studio->run("create.text");
        studio->type("rectrel");
        QCOMPARE(created()->text(), QStringLiteral("rectrel"));
        QCOMPARE(created()->getFixedText(), QStringLiteral("TEXT"));
        QCOMPARE(studio->ids(), QVector<int>{0});
        QCOMPARE(studio->stack().count(), 1);
        QVERIFY(studio->frameFits());
    }

    void field_hasLettersOfTheTextsHeight_alsoAfterLoading()
    {
        const ZTGraphicsTextItem *item = studio->addText(QStringLiteral("H"));
        const int expectedPx = qBound(16, qRound(studio::sceneBox(*item).height()), 32);
        QVERIFY(expectedPx > 16);
        QVERIFY(studio->window->editor().files().saveTo(studio->path("text.ztd")));
        QVERIFY(studio->window->editor().files().load(studio->path("text.ztd")));
        studio->window->navigation().home();
        studio->edit().selectAll();
        QVERIFY(studio->run("text.type"));
        QCOMPARE(studio->editor()->font().pixelSize(), expectedPx);
    }

    void returnStartsALine_andControlReturnTakes_asOneStep()
    {
        ZTGraphicsTextItem *item = studio->addText(QStringLiteral("old"));
        const TextState before(*item);
        QVERIFY(studio->run("text.type"));
        studio->type("A");
        TextWindow::key(studio->editor(), Qt::Key_Return);
        studio->type("B");
        TextWindow::key(studio->editor(), Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(studio->editor() == nullptr);
        QVERIFY(studio->view().hasFocus());
        QCOMPARE(item->getFixedText(), QStringLiteral("A\nB"));
        QCOMPARE(item->text(), QStringLiteral("A\nB"));
        QCOMPARE(studio->stack().count(), 1);
        QCOMPARE(studio->stack().undoText(), QStringLiteral("Type text"));
        QCOMPARE(studio->inTree(), QStringLiteral("A\nB"));
        const TextState after(*item);
        QVERIFY(studio->run("edit.undo"));
        QVERIFY(TextState(*item) == before);
        QCOMPARE(studio->inTree(), QStringLiteral("old"));
        QVERIFY(studio->run("edit.redo"));
        QVERIFY(TextState(*item) == after);
        QVERIFY(studio->frameFits());
    }

    void escape_givesUp()
    {
        ZTGraphicsTextItem *item = studio->addText(QStringLiteral("old"));
        const TextState before(*item);
        QVERIFY(studio->run("text.type"));
        studio->type("something else");
        TextWindow::key(studio->editor(), Qt::Key_Escape);
        QVERIFY(studio->editor() == nullptr);
        QVERIFY(TextState(*item) == before);
        QCOMPARE(studio->stack().count(), 0);
        QVERIFY(item->isSelected());
    }

    void clickElsewhere_takes()
    {
        ZTGraphicsTextItem *item = studio->addText(QStringLiteral("old"));
        QVERIFY(studio->run("text.type"));
        studio->type("new");
        studio->driver->click({-200, -200});
        QVERIFY(studio->editor() == nullptr);
        QCOMPARE(item->getFixedText(), QStringLiteral("new"));
        QCOMPARE(studio->stack().count(), 1);
    }

    void doubleClick_types_selectedOrNot_data()
    {
        QTest::addColumn<bool>("isSelected");
        QTest::newRow("selected, under its frame") << true;
        QTest::newRow("not selected") << false;
    }

    void doubleClick_types_selectedOrNot()
    {
        QFETCH(bool, isSelected);
        ZTGraphicsTextItem *item = studio->addText(QStringLiteral("A"));
        item->setTransformParam(item->getTransformParam() * QTransform::fromScale(3, 3));
        if (!isSelected)
            studio->edit().clearSelection();
        studio->driver->doubleClick(studio::sceneBox(*item).center());
        QVERIFY(studio->editor() != nullptr);
        QVERIFY(studio->editor()->hasFocus());
        studio->type("B");
        QCOMPARE(item->text(), QStringLiteral("B"));
        QCOMPARE(studio->stack().count(), 0);
    }

    void doubleClick_onAnotherShape_doesNotType()
    {
        studio->addRect(0, 0);
        studio->driver->doubleClick({10, 10});
        QVERIFY(studio->editor() == nullptr);
        QVERIFY(!studio->isEnabled("text.type"));
        QVERIFY(!studio->isEnabled("text.settings"));
    }

    void f2_types_andAnotherTextEndsIt()
    {
        ZTGraphicsTextItem *first = studio->addText(QStringLiteral("A"), -200, 0);
        ZTGraphicsTextItem *second = studio->addText(QStringLiteral("A"), 100, 0);
        studio->select({first});
        studio->key(Qt::Key_F2);
        studio->type("one");
        studio->driver->doubleClick(studio::sceneBox(*second).center());
        QCOMPARE(first->getFixedText(), QStringLiteral("one"));
        studio->type("two");
        TextWindow::key(studio->editor(), Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(second->getFixedText(), QStringLiteral("two"));
        QCOMPARE(studio->stack().count(), 2);
    }

    void sameWords_areNoStep()
    {
        ZTGraphicsTextItem *item = studio->addText(QStringLiteral("AB"));
        QVERIFY(studio->run("text.type"));
        studio->type("AB");
        TextWindow::key(studio->editor(), Qt::Key_Enter, Qt::ControlModifier);
        QCOMPARE(studio->stack().count(), 0);
        QCOMPARE(item->text(), QStringLiteral("AB"));
    }

    void noWords_deleteTheText_andUndoBringsItBack()
    {
        studio->addText(QStringLiteral("AB"));
        QVERIFY(studio->run("text.type"));
        TextWindow::key(studio->editor(), Qt::Key_Backspace);
        TextWindow::key(studio->editor(), Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(studio->ids().isEmpty());
        QCOMPARE(studio->stack().undoText(), QStringLiteral("Delete"));
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(created()->getFixedText(), QStringLiteral("AB"));
        QCOMPARE(created()->text(), QStringLiteral("AB"));
    }

    void keysOfTheDrawing_editTheWords()
    {
        ZTGraphicsTextItem *item = studio->addText(QStringLiteral("ABC"), 20, 30);
        QVERIFY(studio->run("text.type"));
        QWidget *field = studio->editor();
        TextWindow::key(field, Qt::Key_End);
        TextWindow::key(field, Qt::Key_Left);
        TextWindow::key(field, Qt::Key_Left, Qt::ShiftModifier);
        TextWindow::key(field, Qt::Key_Delete);
        QCOMPARE(item->text(), QStringLiteral("AC"));
        TextWindow::key(field, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(item->text(), QStringLiteral("ABC"));
        TextWindow::key(field, Qt::Key_Left, Qt::ControlModifier);
        TextWindow::key(field, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(studio->editor()->textCursor().selectedText(), QStringLiteral("ABC"));
        QCOMPARE(item->pos(), QPointF(20, 30));
        QCOMPARE(studio->stack().count(), 0);
    }

    void commandWhileTyping_takesTheWordsFirst()
    {
        ZTGraphicsTextItem *item = studio->addText(QStringLiteral("old"));
        QVERIFY(studio->run("text.type"));
        studio->type("new");
        QVERIFY(studio->run("create.rectangle"));
        QVERIFY(studio->editor() == nullptr);
        QCOMPARE(studio->stack().count(), 2);
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(item->getFixedText(), QStringLiteral("new"));
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(item->getFixedText(), QStringLiteral("old"));
    }

    void inputMethod_works()
    {
        ZTGraphicsTextItem *item = studio->addText(QStringLiteral("A"));
        QVERIFY(studio->run("text.type"));
        QVERIFY(studio->editor()->testAttribute(Qt::WA_InputMethodEnabled));
        QInputMethodEvent composing(QStringLiteral("ni"), {});
        QCoreApplication::sendEvent(studio->editor(), &composing);
        QInputMethodEvent chosen;
        chosen.setCommitString(QStringLiteral("你好"));
        QCoreApplication::sendEvent(studio->editor(), &chosen);
        QCOMPARE(item->text(), QStringLiteral("你好"));
    }

    void field_staysWithItsText_inSight()
    {
        ZTGraphicsTextItem *item = studio->addText(QStringLiteral("A"));
        QVERIFY(studio->run("text.type"));
        QVERIFY(fieldTop() > textBox(*item).bottom());
        QCOMPARE(studio->editor()->x(), textBox(*item).left());
        QScrollBar &bar = *studio->view().verticalScrollBar();
        const int before = fieldTop();
        bar.setValue(bar.value() - 50);
        QCOMPARE(fieldTop(), before + 50);
        studio->view().resetSize(2.0);
        QCoreApplication::processEvents();
        QVERIFY(fieldTop() > textBox(*item).bottom());
        bar.setValue(bar.value() + 5000);
        QVERIFY(studio->view().viewport()->rect().contains(studio->editor()->geometry()));
        studio->type("a long line of words that is wider than the field was at first");
        QVERIFY(studio->editor()->width() > 400);
    }

    void textThatGoesWhileTyping_isHarmless()
    {
        ZTGraphicsTextItem *item = studio->addText(QStringLiteral("A"));
        QVERIFY(studio->run("text.type"));
        studio->document().scene()->deleteItems({item});
        QVERIFY(studio->editor() == nullptr);
        studio->addText(QStringLiteral("A"));
        QVERIFY(studio->run("text.type"));
        studio->edit().clear();
        QVERIFY(studio->editor() == nullptr);
        studio->addText(QStringLiteral("A"));
        QVERIFY(studio->run("text.type"));
        studio->window.reset();
    }

    void duplicate_showsItsWordsInTheTree()
    {
        studio->addText(QStringLiteral("AB"));
        QVERIFY(studio->run("edit.duplicate"));
        const QAbstractItemModel *rows = studio->document().itemMag()->itemModel();
        QCOMPARE(rows->index(1, 1).data().toString(), QStringLiteral("AB"));
    }

private:
    ZTGraphicsTextItem *created()
    {
        return static_cast<ZTGraphicsTextItem *>(studio->document().scene()->getItemById(0));
    }

    int fieldTop() { return studio->editor()->geometry().top(); }

    QRect textBox(const ZTGraphicsTextItem &item)
    {
        return studio->view().mapFromScene(studio::sceneBox(item)).boundingRect();
    }

    std::unique_ptr<TextWindow> studio;
};

int main(int argc, char **argv) { return runTextTest<tst_studio_text>(argc, argv); }
#include "tst_studio_text.moc"
