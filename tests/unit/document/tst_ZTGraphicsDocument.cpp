#include <support/Factories.h>
#include <support/SingletonGuard.h>
#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QUndoStack>

#include <memory>

class tst_ZTGraphicsDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { testsupport::registerFactories(); }

    void init()
    {
        warnings = std::make_unique<testsupport::WarningGuard>();
        guard = std::make_unique<testsupport::SingletonGuard>();
        document = std::make_unique<ZTGraphicsDocument>(nullptr);
    }

    void cleanup()
    {
        document.reset();
        guard.reset();
        warnings.reset();
    }

    void constructor_buildsTheForm()
    {
        QCOMPARE(document->objectName(), QStringLiteral("ZTGraphicsDocument"));
        QCOMPARE(document->size(), QSize(544, 317));
        QCOMPARE(document->frameShape(), QFrame::NoFrame);
        QCOMPARE(document->frameShadow(), QFrame::Plain);
        QCOMPARE(document->lineWidth(), 0);
        QCOMPARE(document->windowTitle(), QStringLiteral("ZTGraphicsDocument"));
        auto *layout = document->findChild<QGridLayout *>(QStringLiteral("gridLayout"));
        QVERIFY(layout != nullptr);
        QCOMPARE(layout->spacing(), 6);
        QCOMPARE(layout->contentsMargins(), QMargins());
        QCOMPARE(document->view()->objectName(), QStringLiteral("graphicsView"));
        QCOMPARE(document->view()->frameShape(), QFrame::NoFrame);
        QCOMPARE(document->view()->lineWidth(), 0);
        QCOMPARE(layout->itemAtPosition(1, 0)->widget(), document->view());
        QCOMPARE(layout->itemAtPosition(1, 1)->widget(), document->view());
    }

    void constructor_joinsItsParts()
    {
        QVERIFY(document->undoStack() != nullptr);
        QCOMPARE(document->undoStack()->parent(), document.get());
        QCOMPARE(document->itemMag()->parent(), nullptr);
        QCOMPARE(document->scene(), document->itemMag()->scene());
        QCOMPARE(document->scene()->getUndoStack(), document->undoStack());
        QCOMPARE(document->scene()->getGraphicsResizeItem()->getUndoStack(), document->undoStack());
        QCOMPARE(document->view()->scene(), document->scene());
        QCOMPARE(document->objectTree(), nullptr);
    }

    void slotCreateShape_landsNearTheOriginAndTells()
    {
        QSignalSpy added(document->itemMag(), &ZTShapeManager::sigAddedShape);
        for (int i = 0; i < 50; ++i) {
            document->slotCreateShape(ShapeType::Rect);
            auto *item = added.takeFirst()[0].value<ZTAbstractGraphicsItem *>();
            QVERIFY(item != nullptr);
            // Where both random numbers are 0, the item is centred instead.
            const QPointF pos = item->pos();
            const bool isCentred = pos == QPointF(-5, -5) * ZTCoord::getInstance()->mm2pix(1.0);
            QVERIFY(isCentred || (pos.x() >= -49 && pos.x() <= 50 && pos.y() >= -49 &&
                                  pos.y() <= 50 && pos.x() == qRound(pos.x())));
        }
        QCOMPARE(document->itemMag()->getShapeList().size(), 50);
    }

    void slotCreateShape_byNumber()
    {
        QSignalSpy added(document->itemMag(), &ZTShapeManager::sigAddedShape);
        document->slotCreateShape(4);
        QCOMPARE(added[0][0].value<ZTAbstractGraphicsItem *>()->getShapeType(), ShapeType::Polygon);
    }

    void slotCreateShape_withoutAFactory_tellsNull()
    {
        QSignalSpy added(document->itemMag(), &ZTShapeManager::sigAddedShape);
        document->slotCreateShape(ShapeType::QRCode);
        QCOMPARE(added.count(), 1);
        QCOMPARE(added[0][0].value<ZTAbstractGraphicsItem *>(), nullptr);
    }

    void slotViewZoom_goesToTheView()
    {
        document->slotViewZoomIn();
        QCOMPARE(document->view()->getDisplayScale(), 1.2);
        document->slotViewZoomOut();
        QCOMPARE(document->view()->getDisplayScale(), 1.0);
    }

    void slotViewResize_goesHome()
    {
        document->view()->resetSize(7.0);
        document->view()->centerOn(5000, 5000);
        document->slotViewResize();
        QCOMPARE(document->view()->getDisplayScale(), 1.0);
        const QRect port = document->view()->viewport()->rect();
        const QPointF middle = document->view()->mapToScene(port.center());
        QVERIFY(qAbs(middle.x()) <= 2.0 && qAbs(middle.y()) <= 2.0);
    }

    void slotViewDisplayItem_withoutASelection_changesNothing()
    {
        document->slotCreateShape(ShapeType::Rect);
        document->view()->resetSize(3.0);
        document->slotViewDisplayItem();
        QCOMPARE(document->view()->getDisplayScale(), 3.0);
    }

    void slotViewDisplayItem_fitsTheLargerSide_data()
    {
        QTest::addColumn<QSizeF>("selection");
        QTest::addColumn<double>("scale");
        QTest::newRow("wide") << QSizeF(100, 50) << 7.2;
        QTest::newRow("tall") << QSizeF(50, 100) << 600 / 100.0 * 0.9;
        QTest::newRow("square") << QSizeF(100, 100) << 600 / 100.0 * 0.9;
        QTest::newRow("nearly as tall") << QSizeF(100, 99) << 7.2;
    }

    void slotViewDisplayItem_fitsTheLargerSide()
    {
        QFETCH(QSizeF, selection);
        QFETCH(double, scale);
        ZTCoord::getInstance()->setHeight(193.0); // one pixel a millimetre
        document->resize(800, 600);
        document->show();
        QVERIFY(QTest::qWaitForWindowExposed(document.get()));
        QCOMPARE(document->view()->width(), 800);
        ZTAbstractGraphicsItem *item = addRect();
        item->getShapeBase()->setRect(QRectF(QPointF(), selection));
        item->getShapeBase()->paint();
        item->setSelected(true);
        document->slotViewDisplayItem();
        QVERIFY(qAbs(document->view()->getDisplayScale() - scale) < 1e-9);
    }

    void clear_emptiesStackAndDrawingAndKeepsTheZoom()
    {
        ZTAbstractGraphicsItem *item = addRect();
        document->undoStack()->push(new ZTItemPosCommand(item, {0, 0}, {5, 5}, nullptr));
        document->view()->resetSize(2.0);
        item->setSelected(true);
        document->clear();
        QCOMPARE(document->undoStack()->count(), 0);
        QVERIFY(document->itemMag()->getShapeList().isEmpty());
        QCOMPARE(document->view()->getDisplayScale(), 2.0);
        QCOMPARE(addRect()->getShapeBase()->getId(), 0);
    }

    void setScene_changesThePointerAlone()
    {
        ZTGraphicsScene *own = document->scene();
        ZTGraphicsScene other(nullptr);
        document->setScene(&other);
        QCOMPARE(document->scene(), &other);
        QCOMPARE(document->view()->scene(), own);
        QCOMPARE(document->itemMag()->scene(), own);
        document->setScene(nullptr);
        document->slotViewDisplayItem();
    }

    void setObjectTree_joinsModelAndSelection()
    {
        ZTObjectTreeWidget tree(nullptr);
        document->setObjectTree(&tree);
        QCOMPARE(document->objectTree(), &tree);
        QCOMPARE(tree.selectionMode(), QAbstractItemView::ExtendedSelection);
        QCOMPARE(tree.model(), document->itemMag()->itemModel());
        auto *model = qobject_cast<ZTItemModel *>(tree.model());
        QCOMPARE(tree.selectionModel(), model->itemSelectionModel());
        ZTAbstractGraphicsItem *item = addRect();
        item->setSelected(true);
        QVERIFY(tree.selectionModel()->isRowSelected(0, QModelIndex()));
        document->setObjectTree(nullptr);
        QCOMPARE(document->objectTree(), nullptr);
    }

    void deletedTree_isForgotten()
    {
        {
            ZTObjectTreeWidget tree(nullptr);
            document->setObjectTree(&tree);
        }
        QCOMPARE(document->objectTree(), nullptr);
        addRect()->setSelected(true);
    }

    void keyS_hasNoEffect()
    {
        addRect()->setSelected(true);
        QTest::keyClick(document.get(), Qt::Key_S);
        QTest::keyClick(document.get(), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(document->itemMag()->getShapeList().size(), 1);
        QCOMPARE(document->undoStack()->count(), 0);
    }

    void sigDeleteItems_isDeclaredAndSilent()
    {
        QSignalSpy deleted(document.get(), &ZTGraphicsDocument::sigDeleteItems);
        QVERIFY(deleted.isValid());
        addRect()->setSelected(true);
        document->itemMag()->removeSelect();
        document->clear();
        QCOMPARE(deleted.count(), 0);
    }

    void destruction_withEverythingInUse_isHarmless()
    {
        auto tree = std::make_unique<ZTObjectTreeWidget>(nullptr);
        document->setObjectTree(tree.get());
        ZTAbstractGraphicsItem *item = addRect();
        item->setSelected(true);
        addRect()->setSelected(true);
        document->undoStack()->push(new ZTItemPosCommand(item, {0, 0}, {5, 5}, nullptr));
        document->undoStack()->beginMacro(QStringLiteral("open"));
        document->show();
        document.reset();
        QCOMPARE(tree->model() == nullptr || tree->model()->rowCount() == 0, true);
    }

    void marker_hasNoBehaviour()
    {
        ZTDrawEngineLib marker;
        Q_UNUSED(marker)
    }

private:
    ZTAbstractGraphicsItem *addRect()
    {
        return document->itemMag()->addShape(ShapeType::Rect, QRectF(0, 0, 10, 10));
    }

    std::unique_ptr<testsupport::WarningGuard> warnings;
    std::unique_ptr<testsupport::SingletonGuard> guard;
    std::unique_ptr<ZTGraphicsDocument> document;
};

QTEST_MAIN(tst_ZTGraphicsDocument)
#include "tst_ZTGraphicsDocument.moc"
