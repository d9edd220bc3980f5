#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>
#include <ZTDrawEngineLib/shapes/hatch/LateHatch_p.h>

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtGui/QWheelEvent>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <memory>
#include <random>

namespace {

/** Paints the background line by line, whatever is exposed: what the batched one must look like. */
class PlainView : public ZTGraphicsView
{
public:
    explicit PlainView(QWidget *parent = nullptr) : ZTGraphicsView(parent) {}

protected:
    void drawBackground(QPainter *painter, const QRectF &rect) override
    {
        QGraphicsView::drawBackground(painter, rect);
        const QRect scene = sceneRect().toRect();
        const auto pen = [](const QColor &color) {
            return QPen(QBrush(color), 0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
        };
        painter->setPen(pen(QColor(218, 218, 218, 255)));
        for (double i = 0.0; i < scene.right(); i += 10.0) {
            const double x = ZTCoord::getInstance()->mm2pix(i);
            painter->drawLine(QLineF(x, scene.top(), x, scene.bottom()));
            painter->drawLine(QLineF(-x, scene.top(), -x, scene.bottom()));
        }
        for (double i = 0.0; i < scene.bottom(); i += 10.0) {
            const double y = ZTCoord::getInstance()->mm2pix(i);
            painter->drawLine(QLineF(scene.left(), y, scene.right(), y));
            painter->drawLine(QLineF(scene.left(), -y, scene.right(), -y));
        }
        painter->setPen(pen(Qt::black));
        painter->drawLine(scene.left() + scene.width() / 2, scene.top() + 1,
                          scene.left() + scene.width() / 2, scene.bottom() - 1);
        painter->drawLine(scene.left(), scene.top() + scene.height() / 2, scene.right(),
                          scene.top() + scene.height() / 2);
        painter->drawRect(
            ZTCoord::getInstance()->getMm2pixTransform().mapRect(QRectF(getWorkArea())));
    }
};

/** Takes back the clip for the items: what the clipped ones must look like. */
class UnclippedView : public ZTGraphicsView
{
public:
    explicit UnclippedView(QWidget *parent = nullptr) : ZTGraphicsView(parent) {}

protected:
    void drawBackground(QPainter *painter, const QRectF &rect) override
    {
        ZTGraphicsView::drawBackground(painter, rect);
        painter->setClipping(false);
    }
};

/** Notes what its painter clips to; it stands in the origin of the scene. */
class ClipProbe : public QGraphicsRectItem
{
public:
    ClipProbe() : QGraphicsRectItem(0, 0, 10, 10) {}

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *) override
    {
        isClipped = painter->hasClipping();
        rectCount = painter->clipRegion().rectCount();
        clipPx = painter->clipBoundingRect();
    }

    bool isClipped = false;
    int rectCount = 0;
    QRectF clipPx;
};

/** Notes how many hatches are still to be laid out when it is painted. */
class WaitingProbe : public QGraphicsItem
{
public:
    QRectF boundingRect() const override { return {-10, -10, 20, 20}; }

    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override
    {
        waiting = zthatch::LateHatch::waitingCount();
    }

    int waiting = -1;
};

/** Rectangles and ellipses over the whole view and beyond its edges, each with a hatch. */
void addHatchedShapes(ZTGraphicsScene &scene)
{
    ZTFillParam fill;
    fill.fillType = FillType::Line;
    fill.spac = 0.5;
    fill.angle = 30.0;
    for (int i = 0; i < 60; ++i) {
        ZTAbstractGraphicsItem *item = nullptr;
        if (i % 2 == 0)
            item = new ZTGraphicsRectItem;
        else
            item = new ZTGraphicsEllipseItem;
        item->setFillParam(fill);
        scene.addItem(item);
        item->setPos((i % 10 - 5) * 61.3, (i / 10 - 3) * 58.7);
    }
}

bool isNoShape(const QGraphicsItem *item)
{
    return dynamic_cast<const ZTAbstractGraphicsItem *>(item) == nullptr;
}

QImage pictureOf(QWidget &widget)
{
    QImage image(widget.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    widget.render(&image);
    return image;
}

void turnWheel(QWidget &viewport, int delta, Qt::KeyboardModifiers modifiers)
{
    const QPointF at(viewport.width() / 2.0, viewport.height() / 2.0);
    QWheelEvent event(at, viewport.mapToGlobal(at.toPoint()), QPoint(), QPoint(0, delta),
                      Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&viewport, &event);
}

} // namespace

class tst_ZTGraphicsView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard = std::make_unique<testsupport::SingletonGuard>();
        scene = std::make_unique<ZTGraphicsScene>(nullptr);
        view = std::make_unique<ZTGraphicsView>(nullptr);
        view->resize(400, 300);
        view->setScene(scene.get());
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    }

    void cleanup()
    {
        view.reset();
        scene.reset();
        guard.reset();
    }

    void whatMovesWhileARepaintIsPosted_leavesItsOldPlace()
    {
        QGraphicsRectItem *item = scene->addRect(-10, -10, 20, 20, Qt::NoPen, Qt::red);
        item->setPos(50, 20);
        QTRY_COMPARE(seenAt({50, 20}), QColor(Qt::red));
        QTest::qWait(20); // nothing is left to be painted
        const auto move = [&] {
            item->setPos(-50, -30);
            view->viewport()->update(QRect(placeOf({-50, -30}), QSize(1, 1)));
        };
        view->viewport()->update(QRect(0, 0, 1, 1));
        QMetaObject::invokeMethod(view.get(), move, Qt::QueuedConnection);
        QTRY_COMPARE(seenAt({-50, -30}), QColor(Qt::red));
        QTest::qWait(20);
        QVERIFY(seenAt({50, 20}) != QColor(Qt::red));
    }

    void constructor_setsTheView()
    {
        QCOMPARE(view->frameStyle(), int(QFrame::StyledPanel) | int(QFrame::Sunken));
        QVERIFY(!view->renderHints().testFlag(QPainter::Antialiasing));
        QCOMPARE(view->dragMode(), QGraphicsView::RubberBandDrag);
        QCOMPARE(view->optimizationFlags(),
                 QGraphicsView::OptimizationFlags(QGraphicsView::DontSavePainterState));
        QCOMPARE(view->viewportUpdateMode(), QGraphicsView::SmartViewportUpdate);
        QCOMPARE(view->transformationAnchor(), QGraphicsView::AnchorUnderMouse);
        QCOMPARE(view->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(view->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(view->getDisplayScale(), 1.0);
        QCOMPARE(view->getWorkArea(), QRect(-300, -300, 600, 600));
    }

    void zoomIn_overshootsOnceAndStops()
    {
        view->resetSize(19.9);
        view->zoomIn();
        QCOMPARE(view->getDisplayScale(), 19.9 * 1.2);
        view->zoomIn();
        QCOMPARE(view->getDisplayScale(), 19.9 * 1.2);
        view->resetSize(20.0);
        view->zoomIn();
        QCOMPARE(view->getDisplayScale(), 20.0);
    }

    void zoomOut_undershootsOnceAndStops()
    {
        view->resetSize(0.1);
        view->zoomOut();
        QCOMPARE(view->getDisplayScale(), 0.1 / 1.2);
        view->zoomOut();
        QCOMPARE(view->getDisplayScale(), 0.1 / 1.2);
        view->resetSize(0.09);
        view->zoomOut();
        QCOMPARE(view->getDisplayScale(), 0.09);
    }

    void setScale_replacesTheTransformWithoutLimits()
    {
        view->rotate(30);
        view->setScale(500.0);
        QCOMPARE(view->transform(), QTransform::fromScale(500.0, 500.0));
        view->resetSize(0.001);
        QCOMPARE(view->transform(), QTransform::fromScale(0.001, 0.001));
        QCOMPARE(view->getDisplayScale(), 0.001);
    }

    void wheelWithControl_zooms_data()
    {
        QTest::addColumn<int>("delta");
        QTest::addColumn<double>("scale");
        QTest::newRow("up") << 120 << 1.2;
        QTest::newRow("down") << -120 << 1.0 / 1.2;
        QTest::newRow("nothing") << 0 << 1.0 / 1.2;
    }

    void wheelWithControl_zooms()
    {
        QFETCH(int, delta);
        QFETCH(double, scale);
        turnWheel(*view->viewport(), delta, Qt::ControlModifier);
        QCOMPARE(view->getDisplayScale(), scale);
    }

    void wheelWithoutControl_scrolls()
    {
        view->centerOn(0, 0);
        const int before = view->verticalScrollBar()->value();
        turnWheel(*view->viewport(), -120, Qt::NoModifier);
        QVERIFY(view->verticalScrollBar()->value() > before);
        QCOMPARE(view->getDisplayScale(), 1.0);
    }

    void doubleClick_onEmptyCanvas_emitsNothing()
    {
        QSignalSpy spy(view.get(), &ZTGraphicsView::sigOnItemDouble);
        doubleClick({100, 100});
        QCOMPARE(spy.count(), 0);
    }

    void doubleClick_emitsTheItem()
    {
        ZTAbstractGraphicsItem *item = addRect();
        QSignalSpy spy(view.get(), &ZTGraphicsView::sigOnItemDouble);
        doubleClick({20, 20});
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy[0][0].value<ZTAbstractGraphicsItem *>(), item);
    }

    void doubleClick_underTheFrame_emitsTheItem()
    {
        ZTAbstractGraphicsItem *item = addRect();
        item->setSelected(true);
        QVERIFY(scene->getGraphicsResizeItem()->isVisible());
        QSignalSpy spy(view.get(), &ZTGraphicsView::sigOnItemDouble);
        doubleClick({20, 20});
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy[0][0].value<ZTAbstractGraphicsItem *>(), item);
    }

    void doubleClick_onAHandle_emitsNull()
    {
        addRect()->setSelected(true);
        QSignalSpy spy(view.get(), &ZTGraphicsView::sigOnItemDouble);
        doubleClick({-10, -10}); // the top left handle stands just outside the frame
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy[0][0].value<ZTAbstractGraphicsItem *>(), nullptr);
    }

    void hiddenGrid_leavesAxesAndWorkArea()
    {
        ZTGraphicsDocument document;
        document.resize(400, 300);
        ZTGraphicsView &shownView = *document.view();
        QVERIFY(shownView.isGridVisible());
        document.slotViewResize();
        const auto colours = [&shownView] {
            const QImage image = shownView.viewport()->grab().toImage();
            QSet<QRgb> found;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x)
                    found << image.pixel(x, y);
            }
            return found;
        };
        QVERIFY(colours().contains(qRgb(218, 218, 218)));
        shownView.setGridVisible(false);
        QVERIFY(!shownView.isGridVisible());
        QVERIFY(!colours().contains(qRgb(218, 218, 218)));
        QVERIFY(colours().contains(qRgb(0, 0, 0)));
    }

    void setWorkArea_isStored()
    {
        view->setWorkArea(QRect(1, 2, 3, 4));
        QCOMPARE(view->getWorkArea(), QRect(1, 2, 3, 4));
    }

    void background_looksLikeThePlainOne()
    {
        PlainView plain;
        plain.resize(view->size());
        plain.setScene(scene.get());
        plain.show();
        std::mt19937 random(1);
        std::uniform_real_distribution<double> place(-33000, 33000);
        for (const double scale : {1.0, 0.09, 0.004, 3.7, 20.0}) {
            for (int i = 0; i < 4; ++i) {
                const QPointF centre = i == 0 ? QPointF() : QPointF(place(random), place(random));
                for (ZTGraphicsView *each : {view.get(), static_cast<ZTGraphicsView *>(&plain)}) {
                    each->resetSize(scale);
                    each->centerOn(centre);
                }
                QCOMPARE(view->mapToScene(0, 0), plain.mapToScene(0, 0));
                QVERIFY(pictureOf(*view) == pictureOf(plain));
            }
        }
    }

    void background_partlyExposed_looksTheSame()
    {
        view->centerOn(0, 0);
        const QImage whole = pictureOf(*view);
        QImage part(view->size(), QImage::Format_RGB32);
        part.fill(Qt::white);
        const QRect region(150, 100, 60, 50);
        static_cast<QWidget &>(*view).render(&part, region.topLeft(), region);
        QVERIFY(part.copy(region) == whole.copy(region));
    }

    void background_linesAreOnePixelWideAtEveryZoom()
    {
        for (const double scale : {0.3, 1.0, 5.0}) {
            view->resetSize(scale);
            view->centerOn(0, 0);
            const QImage image = pictureOf(*view);
            const QPoint origin = view->mapFromScene(0, 0) + view->viewport()->pos();
            // The vertical axis, a little off the horizontal one and between grid lines.
            int black = 0;
            const int row = origin.y() + 5;
            for (int x = 0; x < image.width(); ++x)
                black += image.pixel(x, row) == qRgb(0, 0, 0) ? 1 : 0;
            QCOMPARE(black, 1);
        }
    }

    void background_zeroOrHugeScale_endsAtOnce()
    {
        ZTCoord::getInstance()->setDisplayRatio(0.0);
        pictureOf(*view);
        ZTCoord::getInstance()->setDisplayRatio(1e300);
        pictureOf(*view);
        ZTCoord::getInstance()->setDisplayRatio(1.0);
        scene->setSceneRect(-1e9, -1e9, 2e9, 2e9);
        pictureOf(*view);
    }

    void items_arePaintedClippedToTheView_soThatQtDrawsTheirHairlinesFast()
    {
        auto *probe = new ClipProbe;
        scene->addItem(probe);
        for (const double scale : {0.1, 1.0, 7.3}) {
            view->resetSize(scale);
            view->centerOn(0, 0);
            pictureOf(*view->viewport());
            QVERIFY(probe->isClipped);
            QCOMPARE(probe->rectCount, 1);
            QVERIFY(
                probe->clipPx.contains(view->mapToScene(view->viewport()->rect()).boundingRect()));
        }
    }

    void turnedView_isNotClipped_becauseItsClipWouldBeNoRectangle()
    {
        auto *probe = new ClipProbe;
        scene->addItem(probe);
        view->rotate(30);
        view->centerOn(0, 0);
        pictureOf(*view->viewport());
        QVERIFY(!probe->isClipped);
    }

    void clippedItems_leaveTheSamePixels_data()
    {
        QTest::addColumn<double>("scale");
        QTest::addColumn<bool>("isSmooth");
        for (const bool isSmooth : {false, true}) {
            for (const double scale : {0.17, 1.0, 3.3}) {
                QTest::addRow("%s at %g", isSmooth ? "smooth" : "sharp", scale)
                    << scale << isSmooth;
            }
        }
    }

    void clippedItems_leaveTheSamePixels()
    {
        QFETCH(double, scale);
        QFETCH(bool, isSmooth);
        addHatchedShapes(*scene);
        ZTGraphicsView clipped(nullptr);
        UnclippedView plain;
        for (ZTGraphicsView *each : {&clipped, static_cast<ZTGraphicsView *>(&plain)}) {
            each->setScene(scene.get());
            each->resize(400, 300);
            each->setRenderHint(QPainter::Antialiasing, isSmooth);
            each->resetSize(scale);
            each->centerOn(13.0, 7.0);
        }
        const QImage picture = pictureOf(clipped);
        QCOMPARE(picture, pictureOf(plain));
        const QRgb white = qRgb(255, 255, 255);
        int inked = 0;
        for (int x = 0; x < picture.width(); ++x)
            inked += picture.pixel(x, picture.height() / 2) != white ? 1 : 0;
        QVERIFY(inked > 20);
    }

    void hatchesNobodyHasSeen_areLaidOutBeforeTheFirstShapeIsPainted()
    {
        addHatchedShapes(*scene);
        addHatchedShapes(*scene);
        QList<QGraphicsItem *> items = scene->items(Qt::AscendingOrder);
        items.erase(std::remove_if(items.begin(), items.end(), isNoShape), items.end());
        for (QGraphicsItem *item : items)
            static_cast<ZTAbstractGraphicsItem *>(item)->getShapeBase()->paint();
        items.last()->setVisible(false);
        (*(items.end() - 2))->setPos(20000, 20000);
        auto *probe = new WaitingProbe;
        probe->setZValue(-1);
        scene->addItem(probe);
        QCOMPARE(zthatch::LateHatch::waitingCount(), 120);
        view->resetSize(0.3);
        view->centerOn(0, 0);
        pictureOf(*view->viewport());
        QCOMPARE(probe->waiting, 2); // the hidden one and the one far out
    }

private:
    QPoint placeOf(const QPointF &scenePos) const { return view->mapFromScene(scenePos); }

    /** Colour that stands on the screen now, whatever a repaint would show. */
    QColor seenAt(const QPointF &scenePos) const
    {
        const QPoint at = view->viewport()->mapTo(view.get(), placeOf(scenePos));
        return view->screen()
            ->grabWindow(view->winId(), at.x(), at.y(), 1, 1)
            .toImage()
            .pixelColor(0, 0);
    }

    ZTAbstractGraphicsItem *addRect()
    {
        auto *item = new ZTGraphicsRectItem;
        scene->addItem(item);
        view->centerOn(0, 0);
        return item;
    }

    void doubleClick(const QPointF &scenePos)
    {
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                           view->mapFromScene(scenePos));
    }

    std::unique_ptr<testsupport::SingletonGuard> guard;
    std::unique_ptr<ZTGraphicsScene> scene;
    std::unique_ptr<ZTGraphicsView> view;
};

QTEST_MAIN(tst_ZTGraphicsView)
#include "tst_ZTGraphicsView.moc"
