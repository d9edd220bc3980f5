#include "StudioTest.h"

#include "support/OwnFolder.h"
#include "support/TinyFonts.h"

#include <studio/text/TextCommand.h>
#include <studio/text/VariantParts.h>

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using studio::TextCommand;
using studio::TextState;

class tst_TextCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        test = std::make_unique<DocumentTest>();
        testsupport::makeTinyFonts();
        item = static_cast<ZTGraphicsTextItem *>(test->add(ShapeType::Text, 10, 20));
        item->setShxFont(testsupport::tinyFont());
        item->setFontType(FontType::singleLine);
        item->setFixedText(QStringLiteral("A"));
    }
    void cleanup() { test.reset(); }

    void undoAndRedo_areExact()
    {
        const DrawingSnapshot drawingBefore = test->snapshot();
        const TextState before(*item);
        item->setFixedText(QStringLiteral("AB\nA"));
        ZTRoundingParam arc;
        arc.isEnableRounding = true;
        item->setRoundingParam(arc);
        item->setTransformParam(QTransform(0.1, 0.02, -0.03, 0.2, 0, 0));
        item->setPenId(5);
        push(before, TextCommand::VariantText::Kept);
        const TextState after(*item);
        const DrawingSnapshot drawingAfter = test->snapshot();
        COMPARE_UNDO_AND_REDO(*test->document, drawingBefore, drawingAfter);
        QVERIFY(TextState(*item) == before);
        stack()->redo();
        QVERIFY(TextState(*item) == after);
        QCOMPARE(stack()->count(), 1);
        QCOMPARE(stack()->text(0), QStringLiteral("Edit"));
    }

    void pushing_changesNothing()
    {
        const TextState before(*item);
        item->setFixedText(QStringLiteral("B"));
        const TextState after(*item);
        push(before, TextCommand::VariantText::Kept);
        QVERIFY(TextState(*item) == after);
        QVERIFY(TextState(*item) != before);
    }

    void sameState_isHarmless()
    {
        const TextState before(*item);
        push(before, TextCommand::VariantText::Kept);
        stack()->undo();
        QVERIFY(TextState(*item) == before);
        stack()->redo();
        QVERIFY(TextState(*item) == before);
    }

    void keptVariantText_goesOn()
    {
        setCounter(1);
        const TextState before(*item);
        item->setPenId(3);
        push(before, TextCommand::VariantText::Kept);
        studio::NextPart::make({item});
        QCOMPARE(item->text(), QStringLiteral("2"));
        stack()->undo();
        QCOMPARE(item->text(), QStringLiteral("2"));
        QCOMPARE(item->getPenId(), 1);
        studio::NextPart::make({item});
        stack()->redo();
        QCOMPARE(item->text(), QStringLiteral("3"));
        QCOMPARE(item->getPenId(), 3);
    }

    void changedVariantText_keepsWhatUndoFinds_forRedo()
    {
        setCounter(1);
        const TextState before(*item);
        setCounter(100);
        push(before, TextCommand::VariantText::Changed);
        studio::NextPart::make({item});
        QCOMPARE(item->text(), QStringLiteral("101"));
        stack()->undo();
        QCOMPARE(item->text(), QStringLiteral("1"));
        studio::NextPart::make({item});
        stack()->redo();
        QCOMPARE(item->text(), QStringLiteral("101"));
        stack()->undo();
        QCOMPARE(item->text(), QStringLiteral("2"));
    }

    void textThatIsDeleted_isPassedOver()
    {
        push(TextState(*item), TextCommand::VariantText::Kept);
        test->document->scene()->deleteItems({item});
        stack()->undo();
        stack()->redo();
        const auto *command = static_cast<const TextCommand *>(stack()->command(0));
        QVERIFY(command->edited() == nullptr);
    }

private:
    QUndoStack *stack() { return test->document->undoStack(); }

    void push(const TextState &before, TextCommand::VariantText change)
    {
        stack()->push(new TextCommand(item, before, change, QStringLiteral("Edit")));
    }

    /** A counter whose present part has that number. */
    void setCounter(qint64 number)
    {
        ZTCounterSegment counter;
        counter.start = number;
        ZTVariantText text = studio::variantTextOf({counter});
        text.update();
        studio::textShapeOf(*item).cloneVariantText(&text);
        item->setEnableVariantText(true);
        item->fromVariantTextSetText();
    }

    std::unique_ptr<DocumentTest> test;
    ZTGraphicsTextItem *item = nullptr;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QApplication application(argc, argv);
    tst_TextCommand test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_TextCommand.moc"
