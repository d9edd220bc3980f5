#include "StudioWindow.h"

#include <QtCore/QRandomGenerator>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtWidgets/QScrollBar>

/** What stands on the screen after any number of small repaints is what one whole repaint shows. */
class tst_studio_painting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clickOnOneOfAll_leavesNothingOfTheFrameAroundAll()
    {
        StudioWindow studio;
        studio.addRect(-200, -200);
        studio.addRect(100, 100);
        studio.key(Qt::Key_A, Qt::ControlModifier);
        QVERIFY(isPaintedWhole(studio));
        click(studio, studio.view().mapFromScene(QPointF(120, 120)));
        QTRY_COMPARE(studio.selected(), QVector<int>{1});
        QVERIFY(isPaintedWhole(studio));
    }

    void whateverIsDone_nothingOldStaysOnTheScreen_data()
    {
        QTest::addColumn<quint32>("seed");
        for (quint32 seed = 0; seed < 12; ++seed)
            QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed))) << seed;
    }
    void whateverIsDone_nothingOldStaysOnTheScreen()
    {
        QFETCH(quint32, seed);
        StudioWindow studio;
        QRandomGenerator random(seed);
        // As a label that lies on the canvas does when it goes.
        connect(studio.document().scene(), &QGraphicsScene::selectionChanged, &studio.view(),
                [&] { studio.view().viewport()->update(300, 300, 200, 200); });
        for (int i = 0; i < 6; ++i)
            studio.addRect(random.bounded(900.0) - 450.0, random.bounded(700.0) - 350.0);
        for (int step = 0; step < 30; ++step) {
            const QString done = doAnything(studio, random);
            QVERIFY2(isPaintedWhole(studio),
                     qPrintable(QStringLiteral("%1: %2").arg(step).arg(done)));
        }
    }

private:
    /** The canvas as the window system has it now. */
    static QImage onScreen(StudioWindow &studio)
    {
        QWidget *viewport = studio.view().viewport();
        const QPoint at = viewport->mapTo(studio.window.get(), QPoint());
        return studio.window->screen()
            ->grabWindow(studio.window->winId(), at.x(), at.y(), viewport->width(),
                         viewport->height())
            .toImage();
    }

    /** Where the dashes of the frame begin depends on what of it is painted: it counts for nothing.
     */
    static QImage withoutDashes(StudioWindow &studio, QImage image)
    {
        const ZTGraphicsResizeItem *frame = studio.document().scene()->getGraphicsResizeItem();
        if (!frame->isVisible())
            return image;
        const QRectF linePx = studio.view()
                                  .viewportTransform()
                                  .mapRect(frame->rect().translated(frame->pos()))
                                  .adjusted(-3, -3, 3, 3);
        QPainter painter(&image);
        painter.setPen(QPen(Qt::gray, 5));
        painter.drawRect(linePx);
        return image;
    }

    static bool isPaintedWhole(StudioWindow &studio)
    {
        QTest::qWait(20); // what was posted is done, and what that posted is painted
        const QImage shown = withoutDashes(studio, onScreen(studio));
        studio.view().viewport()->repaint();
        const QImage whole = withoutDashes(studio, onScreen(studio));
        return !shown.isNull() && shown == whole;
    }

    static void click(StudioWindow &studio, const QPoint &at)
    {
        QWidget *viewport = studio.view().viewport();
        QTest::mouseMove(viewport, at);
        QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, at);
    }

    static void drag(StudioWindow &studio, const QPoint &from, const QPoint &to)
    {
        studio.driver->drag(studio.view().mapToScene(from), studio.view().mapToScene(to));
    }

    static void scroll(QScrollBar &bar, int byPx) { bar.setValue(bar.value() + byPx); }

    static QString doAnything(StudioWindow &studio, QRandomGenerator &random)
    {
        const QSize room = studio.view().viewport()->size();
        const auto anywhere = [&] {
            return QPoint(random.bounded(room.width()), random.bounded(room.height()));
        };
        switch (random.bounded(7)) {
        case 0:
            studio.key(Qt::Key_A, Qt::ControlModifier);
            return QStringLiteral("all selected");
        case 1:
        case 2: {
            const auto items = studio::shapeItemsOf(*studio.document().scene());
            const int which = random.bounded(int(items.size()));
            click(studio,
                  studio.view().mapFromScene(items.at(which)->sceneBoundingRect().center()));
            return QStringLiteral("click on a shape");
        }
        case 3:
            click(studio, anywhere());
            return QStringLiteral("click");
        case 4:
            random.bounded(2) == 0 ? studio.view().zoomIn() : studio.view().zoomOut();
            return QStringLiteral("zoom");
        case 5:
            scroll(*studio.view().verticalScrollBar(), random.bounded(200) - 100);
            scroll(*studio.view().horizontalScrollBar(), random.bounded(200) - 100);
            return QStringLiteral("scroll");
        default:
            const QPoint from = anywhere();
            drag(studio, from, anywhere());
            return QStringLiteral("drag");
        }
    }
};

QTEST_MAIN(tst_studio_painting)
#include "tst_studio_painting.moc"
