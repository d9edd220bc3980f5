#include "StudioWindow.h"

#include <studio/canvas/DrawingTools.h>
#include <studio/canvas/EmptyHint.h>
#include <studio/canvas/GridItem.h>
#include <studio/canvas/PointerLabel.h>
#include <studio/canvas/RotateHandle.h>

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QStyleOptionGraphicsItem>

#include <cmath>

using studio::ShapeItem;

/** What stands on the canvas beside shapes: the handle that turns, measures, hints. */
class tst_studio_canvas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { studio = std::make_unique<StudioWindow>(); }
    void cleanup() { studio.reset(); }

    void rotateHandle_turnsAboutTheMiddle_asOneStep()
    {
        ShapeItem *item = squareOf200();
        studio->select({item});
        // From above the middle to its left: a quarter turn counter-clockwise.
        const QPointF handle = handlePlace();
        const QPointF left(-(handle.y() * -1), 0);
        studio->driver->press(handle);
        studio->driver->move({-100, -100});
        QCOMPARE(told(), QStringLiteral("45.000°"));
        QCOMPARE(studio->stack().count(), 0);
        studio->driver->move(left);
        studio->driver->release(left);
        QCOMPARE(studio->stack().count(), 1);
        QCOMPARE(studio->stack().undoText(), QStringLiteral("Rotate"));
        QCOMPARE(told(), QString());
        // The corner that was top left is now bottom left.
        const QPointF corner =
            item->mapToScene(QPointF(item->getShapeBase()->getLines().elementAt(0)));
        QVERIFY((corner - QPointF(-100, 100)).manhattanLength() < 1.0);
        QVERIFY(studio->frameFits());
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY((studio::sceneBox(*item).topLeft() - QPointF(-100, -100)).manhattanLength() < 1e-9);
    }

    void rotateHandle_withShift_turnsBySteps()
    {
        ShapeItem *item = squareOf200();
        studio->select({item});
        const QPointF handle = handlePlace();
        studio->driver->press(handle);
        const QPointF right(60, -120); // 26.6 degrees to the right: clockwise
        studio->driver->move(right, Qt::ShiftModifier);
        QCOMPARE(told(), QStringLiteral("-30.000°"));
        studio->driver->release(right, Qt::LeftButton, Qt::ShiftModifier);
        const QTransform turned = item->getTransformParam();
        QVERIFY(std::abs(turned.m12() / turned.m11() - std::tan(30.0 * M_PI / 180.0)) < 1e-9);
    }

    void rotateHandle_escape_givesUp()
    {
        ShapeItem *item = squareOf200();
        studio->select({item});
        studio->driver->press(handlePlace());
        studio->driver->move({100, 0});
        studio->key(Qt::Key_Escape);
        studio->driver->release({100, 0});
        QCOMPARE(studio->stack().count(), 0);
        QVERIFY(item->isSelected());
    }

    void drag_ofAnUnselectedShape_movesIt_asOneStep()
    {
        ShapeItem *item = squareOf200();
        ShapeItem *other = squareOf200();
        other->setPos(other->pos() + QPointF(600, 0));
        studio->select({other});
        studio->stack().clear();
        const QPointF placePx = item->pos();
        const QPointF otherPx = other->pos();

        const QPointF edge(-100, 0); // where the frame's own handle will be
        studio->driver->press(edge);
        QCOMPARE(studio::selectedShapeItems(*studio->document().scene()), studio::ShapeItems{item});
        studio->driver->move(edge + QPointF(20, 10), Qt::ControlModifier);
        studio->driver->move(edge + QPointF(50, 30), Qt::ControlModifier);
        studio->driver->release(edge + QPointF(50, 30), Qt::LeftButton, Qt::ControlModifier);
        QVERIFY((item->pos() - placePx - QPointF(50, 30)).manhattanLength() < 1.5);
        QCOMPARE(other->pos(), otherPx);
        QCOMPARE(studio->stack().count(), 1);
        QVERIFY(studio->frameFits());
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(item->pos(), placePx);
    }

    void press_onAnUnselectedShape_aloneMovesNothing()
    {
        ShapeItem *item = squareOf200();
        studio->select({});
        studio->stack().clear();
        const QPointF placePx = item->pos();
        studio->driver->press({-100, 0});
        studio->driver->release({-100, 0});
        QVERIFY(item->isSelected());
        QCOMPARE(item->pos(), placePx);
        QCOMPARE(studio->stack().count(), 0);
    }

    void flatShapes_letEveryHandleBeGrabbed_data()
    {
        QTest::addColumn<QSizeF>("sizeMm");
        QTest::addColumn<double>("zoom");
        for (const double zoom : {0.2, 1.0, 8.0}) {
            QTest::addRow("level line, %g", zoom) << QSizeF(30, 0) << zoom;
            QTest::addRow("upright line, %g", zoom) << QSizeF(0, 30) << zoom;
            QTest::addRow("thin bar, %g", zoom) << QSizeF(30, 0.2) << zoom;
            QTest::addRow("dot, %g", zoom) << QSizeF(0.5, 0.5) << zoom;
        }
    }

    void flatShapes_letEveryHandleBeGrabbed()
    {
        QFETCH(QSizeF, sizeMm);
        QFETCH(double, zoom);
        ShapeItem *item = studio->addRect(0, 0); // of 10 mm
        item->setTransformParam(QTransform::fromScale(qMax(sizeMm.width(), 1e-3) / 10.0,
                                                      qMax(sizeMm.height(), 1e-3) / 10.0));
        studio->select({item});
        studio->view().resetSize(zoom);
        studio->view().centerOn(item);
        QCoreApplication::processEvents();
        const ZTGraphicsResizeItem *frame = studio->document().scene()->getGraphicsResizeItem();
        QCOMPARE(frame->getHandleScale(), zoom);
        QVector<QRectF> places;
        for (const QGraphicsItem *handle : frame->childItems()) {
            const QRectF place = handle->deviceTransform(studio->view().viewportTransform())
                                     .mapRect(QRectF(0, 0, 20, 20));
            for (const QRectF &other : qAsConst(places))
                QVERIFY2(!place.adjusted(0.5, 0.5, -0.5, -0.5).intersects(other),
                         qPrintable(QStringLiteral("%1 %2 and %3 %4")
                                        .arg(place.x())
                                        .arg(place.y())
                                        .arg(other.x())
                                        .arg(other.y())));
            places.append(place);
            QCOMPARE(studio->view().itemAt(place.center().toPoint()), handle);
        }
        QCOMPARE(places.size(), 8);
    }

    void rotateHandle_standsAboveTheFrame_atEveryZoom()
    {
        studio->select({squareOf200()});
        for (const double scale : {0.5, 1.0, 4.0}) {
            studio->view().resetSize(scale);
            studio->view().centerOn(0, -100);
            const QPoint top = studio->view().mapFromScene(QPointF(0, -100));
            QCOMPARE(studio->window->editor().rotateHandle().place() - top, QPoint(0, -44));
        }
    }

    // Each line takes the one pixel of the device that it falls on, strong where it counts a ten.
    void grid_takesOnePixelALine_data()
    {
        QTest::addColumn<double>("ratio");
        QTest::newRow("100 %") << 1.0;
        QTest::newRow("150 %") << 1.5;
        QTest::newRow("200 %") << 2.0;
    }

    void grid_takesOnePixelALine()
    {
        QFETCH(double, ratio);
        const double stepPx = 10.3;
        ZTCoord::getInstance()->setHeight(stepPx * 193.0); // a millimetre is 10.3 pixels
        studio::GridItem grid(*studio->document().scene());
        QImage image(qRound(300 * ratio), qRound(200 * ratio), QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::white);
        QPainter painter(&image);
        QStyleOptionGraphicsItem option;
        option.exposedRect = QRectF(-20, -20, 300, 200);
        painter.translate(20, 20);
        grid.paint(&painter, &option, nullptr);
        painter.end();
        const auto expected = [&](int pixels, int from) {
            QVector<QRgb> inks(pixels, qRgb(255, 255, 255));
            for (int line = from; line < 100; ++line) {
                const int pixel = static_cast<int>(std::floor((20 + line * stepPx) * ratio));
                if (pixel >= 0 && pixel < pixels)
                    inks[pixel] = line % 10 == 0 ? qRgb(210, 214, 218) : qRgb(236, 238, 240);
            }
            return inks;
        };
        // Along the third pixel row and column from the corner, where no line lies.
        QVector<QRgb> across;
        for (int x = 0; x < image.width(); ++x)
            across << image.pixel(x, 3);
        QVector<QRgb> down;
        for (int y = 0; y < image.height(); ++y)
            down << image.pixel(3, y);
        QCOMPARE(across, expected(image.width(), -2));
        QCOMPARE(down, expected(image.height(), -2));
        const int zero = static_cast<int>(std::floor(20 * ratio)); // a strong line is never cut
        QCOMPARE(image.pixel(zero, static_cast<int>((20 + stepPx) * ratio)), qRgb(210, 214, 218));
    }

    void measure_tellsDistanceAndAngle_andMakesNothing()
    {
        studio->key(Qt::Key_M);
        studio->driver->drag({0, 0}, {90, -90});
        QVERIFY(studio->ids().isEmpty());
        QCOMPARE(studio->stack().count(), 0);
        QCOMPARE(told(), QStringLiteral("27.294 mm, 45.000°; across 19.300, down -19.300 mm"));
        const auto labels = studio->view().viewport()->findChildren<studio::PointerLabel *>();
        const bool isShown = std::any_of(labels.begin(), labels.end(), [this](const auto *label) {
            return label->isVisible() && label->text() == told();
        });
        QVERIFY(isShown);
        QCOMPARE(studio->window->editor().tools().chosenId(), QByteArray("tool.measure"));
        studio->key(Qt::Key_Escape);
        QCOMPARE(studio->window->editor().tools().chosenId(), QByteArray("tool.select"));
        QCOMPARE(told(), QString());
    }

    void hint_showsOnTheEmptyCanvasAlone()
    {
        const auto *hint = studio->document().findChild<studio::EmptyHint *>();
        QVERIFY(hint->isVisible());
        QVERIFY(studio->document().rect().contains(hint->geometry()));
        QVERIFY(studio->run("create.rectangle"));
        QVERIFY(!hint->isVisible());
        QVERIFY(studio->run("edit.undo"));
        QVERIFY(hint->isVisible());
        // It lets the mouse through.
        studio->key(Qt::Key_R);
        const QPoint middle =
            studio->view().viewport()->mapFrom(&studio->document(), hint->geometry().center());
        const QPointF placePx = studio->view().mapToScene(middle);
        studio->driver->click(placePx);
        QCOMPARE(studio->ids().size(), 1);
    }

    void lines_areSmooth()
    {
        QVERIFY(studio->view().renderHints().testFlag(QPainter::Antialiasing));
    }

    void frame_leavesTheOutlineInSight()
    {
        ShapeItem *item = squareOf200();
        studio->select({item});
        QCoreApplication::processEvents();
        const QImage shown = studio->view().viewport()->grab().toImage();
        const QPoint onEdge = studio->view().mapFromScene(QPointF(-100, 37));
        // Black ink of the outline beside it or upon it, and nowhere the frame's blue.
        int darkest = 255;
        for (int x = onEdge.x() - 1; x <= onEdge.x() + 1; ++x) {
            const QColor ink = shown.pixelColor(x, onEdge.y());
            darkest = qMin(darkest, qGray(ink.rgb()));
            QVERIFY(ink.blue() - ink.red() < 60);
        }
        QVERIFY(darkest < 160);
    }

private:
    /** A square from (-100, -100) to (100, 100). */
    ShapeItem *squareOf200()
    {
        ShapeItem *item = studio->addRect(-100, -100);
        const double factor = 200.0 / item->boundingRect().width();
        item->setTransformParam(QTransform::fromScale(factor, factor));
        return item;
    }

    QPointF handlePlace() const
    {
        return studio->view().mapToScene(studio->window->editor().rotateHandle().place());
    }
    QString told() const { return studio->window->statusBar()->currentMessage(); }

    std::unique_ptr<StudioWindow> studio;
};

QTEST_MAIN(tst_studio_canvas)
#include "tst_studio_canvas.moc"
