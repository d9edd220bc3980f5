#include "StudioTest.h"

#include <studio/commands/DrawingChoiceCommand.h>

#include <QtTest/QTest>

using studio::DrawingChoice;

/** Another field or tolerance of curves as a step of the undo stack. */
class tst_DrawingChoiceCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        test = std::make_unique<StudioTest>();
        document = std::make_unique<ZTGraphicsDocument>();
    }
    void cleanup()
    {
        document.reset();
        test.reset();
    }

    void undoAndRedo_changeFieldCurvesAndOutlines()
    {
        ZTAbstractGraphicsItem *item =
            document->itemMag()->addShape(ShapeType::Ellipse, QRectF(0, 0, 10, 10));
        item->setTransformParam(QTransform()); // paints it
        const ZTShapeBase *circle = item->getShapeBase();
        const int coarse = circle->getLines().elementCount();
        const DrawingChoice before = studio::drawingChoice(*document);
        const DrawingChoice wanted{QRect(0, -110, 110, 110), 0.005};
        document->undoStack()->push(
            new studio::DrawingChoiceCommand(*document, wanted, QStringLiteral("step")));
        QVERIFY(studio::drawingChoice(*document) == wanted);
        QCOMPARE(document->view()->getWorkArea(), QRect(0, -110, 110, 110));
        const int fine = circle->getLines().elementCount();
        QVERIFY2(fine >= 71, qPrintable(QString::number(fine))); // chords of 5.1 degrees
        document->undoStack()->undo();
        QVERIFY(studio::drawingChoice(*document) == before);
        QCOMPARE(circle->getLines().elementCount(), coarse);
        document->undoStack()->redo();
        QVERIFY(studio::drawingChoice(*document) == wanted);
        QCOMPARE(circle->getLines().elementCount(), fine);
    }

    void documentThatIsGone_isPassedOver()
    {
        auto other = std::make_unique<ZTGraphicsDocument>();
        studio::DrawingChoiceCommand command(*other, {QRect(0, 0, 5, 5), 0.1}, QString());
        other.reset();
        command.redo();
        command.undo();
        QCOMPARE(ZTCurveTolerance::toleranceMm(), 0.0);
    }

private:
    std::unique_ptr<StudioTest> test;
    std::unique_ptr<ZTGraphicsDocument> document;
};

QTEST_MAIN(tst_DrawingChoiceCommand)
#include "tst_DrawingChoiceCommand.moc"
