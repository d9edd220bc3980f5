#include <support/DrawingBytes.h>
#include <support/ShapeState.h>
#include <support/SingletonGuard.h>

#include <hostkit/setup/Factories.h>

#include <QtTest/QTest>
#include <QtWidgets/QUndoStack>

using hostkit::DrawingFile;
using hostkit::Failure;
using hostkit::InsertedDrawing;

/** Some items as a drawing of their own, and such a drawing beside another one. */
class tst_DrawingInsert : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        source.reset(new ZTGraphicsDocument);
        target.reset(new ZTGraphicsDocument);
    }
    void cleanup()
    {
        source.reset();
        target.reset();
        guard.reset();
    }

    void captureItems_takesThoseAlone()
    {
        ZTAbstractGraphicsItem *wanted = add(*source, ShapeType::Ellipse, {3, 4});
        add(*source, ShapeType::Rect, {0, 0});
        hostkit::DrawingExtras carried;
        carried.groupNames = {{1, QStringLiteral("Mine")}, {2, QStringLiteral("Other")}};
        carried.fields["guides"] = "left behind";
        hostkit::setDrawingExtras(*source, carried);
        giveGroup(wanted, {1});
        const DrawingFile drawing = some({wanted});
        QCOMPARE(drawing.items.size(), 1);
        QCOMPARE(drawing.items.first().kind, QByteArray("Ellipse"));
        QCOMPARE(drawing.extras.groupNames.keys(), QList<qint32>{1});
        QVERIFY(drawing.extras.fields.isEmpty());
        DrawingFile read;
        QVERIFY(readDrawing(drawingToBytes(drawing), &read, nullptr));
    }

    void inserted_standsAboveWithNewIds_andTheRestStays()
    {
        ZTAbstractGraphicsItem *first = add(*source, ShapeType::Rect, {1, 2});
        ZTAbstractGraphicsItem *second = add(*source, ShapeType::Polygon, {30, 40});
        first->setPenId(5);
        second->setTransformParam(QTransform().rotate(30.0).scale(2.0, 3.0));
        const DrawingFile drawing = some({first, second});
        for (int i = 0; i < 3; ++i)
            add(*target, ShapeType::Line, {0, 0});
        hostkit::DrawingExtras carried;
        carried.fields["guides"] = "stay";
        hostkit::setDrawingExtras(*target, carried);
        InsertedDrawing inserted;
        Failure failure;
        QVERIFY2(insertDrawing(drawing, *target, {}, &inserted, &failure),
                 qPrintable(failure.reason));
        QCOMPARE(inserted.items.size(), 2);
        QCOMPARE(inserted.items[0]->getShapeBase()->getId(), 3);
        QCOMPARE(inserted.items[1]->getShapeBase()->getId(), 4);
        QCOMPARE(target->itemMag()->getNextShapeId(), 5);
        QCOMPARE(target->itemMag()->itemModel()->rowCount(), 5);
        QCOMPARE(target->itemMag()->scene()->items(Qt::DescendingOrder).first() ==
                     static_cast<QGraphicsItem *>(inserted.items[1]),
                 true);
        QCOMPARE(inserted.items[0]->pos(), QPointF(1, 2));
        QCOMPARE(inserted.items[0]->getPenId(), 5);
        QCOMPARE(inserted.items[1]->getTransformParam(), second->getTransformParam());
        QCOMPARE(inserted.items[1]->getShapeBase()->getLines(), second->getShapeBase()->getLines());
        QCOMPARE(hostkit::drawingExtras(*target).fields.value("guides"), QByteArray("stay"));
        QCOMPARE(target->undoStack()->count(), 0);
        QVERIFY(target->scene()->selectedItems().isEmpty());
    }

    void groups_getNewIds_andTheirNamesAreHandedOver()
    {
        ZTAbstractGraphicsItem *first = add(*source, ShapeType::Rect, {0, 0});
        ZTAbstractGraphicsItem *second = add(*source, ShapeType::Rect, {9, 0});
        giveGroup(first, {1});
        giveGroup(second, {1});
        hostkit::DrawingExtras carried;
        carried.groupNames[1] = QStringLiteral("Pair");
        hostkit::setDrawingExtras(*source, carried);
        const DrawingFile drawing = some({first, second});
        giveGroup(add(*target, ShapeType::Rect, {0, 0}), {1});
        InsertedDrawing inserted;
        QVERIFY(insertDrawing(drawing, *target, {}, &inserted, nullptr));
        QCOMPARE(hostkit::itemExtras(*inserted.items[0]).groupPath, QVector<qint32>{2});
        QCOMPARE(hostkit::itemExtras(*inserted.items[1]).groupPath, QVector<qint32>{2});
        QCOMPARE(inserted.groupNames, (QMap<qint32, QString>{{2, QStringLiteral("Pair")}}));
        QVERIFY(hostkit::drawingExtras(*target).groupNames.isEmpty());
    }

    void anotherScale_keepsMillimetres()
    {
        ZTAbstractGraphicsItem *item = add(*source, ShapeType::Rect, {90, 45});
        ZTAbstractGraphicsItem *line = add(*source, ShapeType::Line, {0, 0});
        const DrawingFile drawing = some({item, line});
        ZTCoord::getInstance()->setHeight(2700.0); // three times as many pixels to a millimetre
        InsertedDrawing inserted;
        QVERIFY(insertDrawing(drawing, *target, {}, &inserted, nullptr));
        QVERIFY((inserted.items[0]->pos() - QPointF(270, 135)).manhattanLength() < 1e-9);
        const double tenMm = 10.0 * 2700.0 / 193.0;
        QVERIFY(std::abs(inserted.items[0]->boundingRect().width() - tenMm) < 1e-9);
        QVERIFY(std::abs(inserted.items[1]->boundingRect().width() - tenMm) < 1e-9);
        QCOMPARE(ZTCoord::getInstance()->getHeight(), 2700.0);
    }

    void tooMuch_isRefused_andNothingComesIn()
    {
        const DrawingFile drawing = some({add(*source, ShapeType::Rect, {0, 0})});
        const QByteArray before = testsupport::savedBytes(*target);
        hostkit::DrawingLoad load;
        load.maxPieces = 2; // a rectangle has five points
        InsertedDrawing inserted;
        Failure failure;
        QVERIFY(!insertDrawing(drawing, *target, load, &inserted, &failure));
        QVERIFY(!failure.reason.isEmpty());
        QVERIFY(inserted.items.isEmpty());
        QCOMPARE(testsupport::savedBytes(*target), before);
    }

    void unknownKinds_stayOut_andAreTold()
    {
        DrawingFile drawing = some({add(*source, ShapeType::Rect, {0, 0})});
        drawing.items.first().kind = "somebody.else";
        drawing.items.first().fields.clear();
        InsertedDrawing inserted;
        QVERIFY(insertDrawing(drawing, *target, {}, &inserted, nullptr));
        QVERIFY(inserted.items.isEmpty());
        QCOMPARE(inserted.report.unknownKinds.value(QStringLiteral("somebody.else")), 1);
        QVERIFY(hostkit::drawingExtras(*target).foreignItems.isEmpty());
    }

private:
    static ZTAbstractGraphicsItem *add(ZTGraphicsDocument &document, ShapeType type,
                                       const QPointF &posPx)
    {
        ZTAbstractGraphicsItem *item = document.itemMag()->addShape(type, {0, 0, 10, 10});
        item->setPos(posPx);
        item->getShapeBase()->paint();
        return item;
    }

    static void giveGroup(ZTAbstractGraphicsItem *item, const QVector<qint32> &path)
    {
        hostkit::ItemExtras extras;
        extras.groupPath = path;
        hostkit::setItemExtras(*item, extras);
    }

    DrawingFile some(const QVector<ZTAbstractGraphicsItem *> &items)
    {
        hostkit::DrawingCapture capture;
        capture.withPreview = false;
        DrawingFile drawing;
        Failure failure;
        if (!captureItems(*source, items, capture, &drawing, &failure))
            qFatal("%s", qPrintable(failure.reason));
        return drawing;
    }

    std::unique_ptr<testsupport::SingletonGuard> guard;
    std::unique_ptr<ZTGraphicsDocument> source;
    std::unique_ptr<ZTGraphicsDocument> target;
};

QTEST_MAIN(tst_DrawingInsert)
#include "tst_DrawingInsert.moc"
