#include "StudioWindow.h"

#include <studio/panel/ShapePanel.h>

#include <QtGui/QPaintEvent>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QTabWidget>

class tst_studio_navigation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Whatever panel is open, in either language.
    void window_fitsASmallScreen_data()
    {
        QTest::addColumn<QString>("language");
        QTest::newRow("English") << QStringLiteral("language.english");
        QTest::newRow("Chinese") << QStringLiteral("language.chinese");
    }

    void window_fitsASmallScreen()
    {
        QFETCH(QString, language);
        studio->window->findChild<QAction *>(language)->trigger();
        const QSize small(1024, 700);
        auto *tabs = studio->window->panel().findChild<QTabWidget *>(QStringLiteral("panel.tabs"));
        studio->addRect(0, 0);
        for (const bool isPreview : {false, true}) {
            if (isPreview)
                QVERIFY(studio->run("job.preview"));
            for (int page = 0; page < tabs->count(); ++page) {
                if (!tabs->isTabVisible(page))
                    continue;
                tabs->setCurrentIndex(page);
                studio->window->resize(small);
                QCoreApplication::processEvents();
                QCOMPARE(studio->window->size(), small);
                QVERIFY(studio->window->minimumSizeHint().width() <= small.width());
                // Nothing of a page is cut off at its side.
                const auto *scroll = qobject_cast<QScrollArea *>(tabs->widget(page));
                QVERIFY(scroll->widget()->width() <= scroll->viewport()->width());
                QVERIFY(scroll->widget()->width() >= scroll->widget()->minimumSizeHint().width());
                QVERIFY(studio->window->minimumSizeHint().height() <= small.height());
            }
        }
        // The words of the moment have room, and what is selected still stands beside them.
        const auto *box = studio->window->findChild<QLabel *>(QStringLiteral("boxField"));
        QVERIFY(box->isVisible());
        QVERIFY(box->mapTo(studio->window.get(), QPoint()).x() > 200);
        studio->window->findChild<QAction *>(QStringLiteral("language.english"))->trigger();
    }

    void init()
    {
        studio = std::make_unique<StudioWindow>();
        start = centre();
    }
    void cleanup() { studio.reset(); }

    void middleButton_pans()
    {
        const QPointF before = middle();
        studio->driver->press({0, 0}, Qt::MiddleButton);
        drag({30, 10});
        QTest::mouseRelease(viewport(), Qt::MiddleButton, Qt::NoModifier,
                            centre() + QPoint(30, 10));
        QCOMPARE(middle() - before, QPointF(-30, -10));
        drag({60, 60});
        QCOMPARE(middle() - before, QPointF(-30, -10));
    }

    void spaceAndLeftButton_panInsteadOfSelecting()
    {
        studio::ShapeItem *item = studio->addRect(-10, -10);
        const QPointF before = middle();
        QTest::keyPress(&studio->view(), Qt::Key_Space);
        QCOMPARE(viewport()->cursor().shape(), Qt::OpenHandCursor);
        QTest::mousePress(viewport(), Qt::LeftButton, Qt::NoModifier, centre());
        QCOMPARE(viewport()->cursor().shape(), Qt::ClosedHandCursor);
        drag({-20, 15});
        QTest::mouseRelease(viewport(), Qt::LeftButton, Qt::NoModifier, centre() + QPoint(-20, 15));
        QTest::keyRelease(&studio->view(), Qt::Key_Space);
        QCOMPARE(middle() - before, QPointF(20, -15));
        QVERIFY(studio->selected().isEmpty());
        QCOMPARE(item->pos(), QPointF(-10, -10));
        studio->driver->click({0, 0});
        QCOMPARE(studio->selected(), QVector<int>{0});
    }

    void zoomCommands_changeTheScaleAndTheStatus()
    {
        QVERIFY(studio->run("view.zoomIn"));
        QCOMPARE(studio->view().getDisplayScale(), 1.2);
        QCOMPARE(field("zoomField"), QStringLiteral("120 %"));
        studio->key(Qt::Key_Equal, Qt::ControlModifier);
        QCOMPARE(studio->view().getDisplayScale(), 1.2 * 1.2);
        studio->key(Qt::Key_Plus, Qt::ControlModifier);
        studio->key(Qt::Key_Minus, Qt::ControlModifier);
        studio->key(Qt::Key_Minus, Qt::ControlModifier);
        QCOMPARE(field("zoomField"), QStringLiteral("120 %"));
        studio->driver->wheel({0, 0}, -120, Qt::ControlModifier);
        QCOMPARE(field("zoomField"), QStringLiteral("100 %"));
    }

    void home_showsTheOriginInTheMiddle_evenUnderTheMouse()
    {
        studio->driver->move({150, 150});
        studio->view().centerOn(500, 400);
        studio->view().resetSize(3.0);
        studio->key(Qt::Key_0, Qt::ControlModifier);
        QCOMPARE(studio->view().getDisplayScale(), 1.0);
        QVERIFY(middle().manhattanLength() <= 2.0);
    }

    void fitSelection_showsAllOfIt_data()
    {
        QTest::addColumn<QPointF>("otherCorner");
        QTest::newRow("wide") << QPointF(3000, 100);
        QTest::newRow("tall") << QPointF(100, 3000);
        QTest::newRow("square") << QPointF(1000, 1000);
    }

    void fitSelection_showsAllOfIt()
    {
        QFETCH(QPointF, otherCorner);
        const studio::ShapeItems items{studio->addRect(0, 0),
                                       studio->addRect(otherCorner.x(), otherCorner.y())};
        studio->select(items);
        QVERIFY(studio->run("view.fitSelection"));
        const QRectF seen = studio->view().mapToScene(viewport()->rect()).boundingRect();
        const QRectF box = studio::sceneBox(items);
        QVERIFY(seen.contains(box));
        QVERIFY(box.width() > 0.85 * seen.width() || box.height() > 0.85 * seen.height());
    }

    void statusBar_tellsCursorBoxAndCounts()
    {
        const double side = ZTCoord::getInstance()->mm2pix(10.0);
        studio->driver->move({0, 0});
        QCOMPARE(field("cursorField"), QStringLiteral("X 0.000  Y 0.000 mm"));
        studio->addRect(side, -side);
        studio->addRect(0, 0);
        QTRY_COMPARE(field("countField"), QStringLiteral("0 of 2 selected"));
        QCOMPARE(field("boxField"), QStringLiteral("Nothing selected"));
        studio->edit().selectAll();
        QTRY_COMPARE(field("countField"), QStringLiteral("2 of 2 selected"));
        QCOMPARE(field("boxField"),
                 QStringLiteral("Selection X 0.000  Y -10.000  W 20.000  H 20.000 mm"));
        studio->edit().nudge({0.5, 0});
        QTRY_COMPARE(field("boxField"),
                     QStringLiteral("Selection X 0.500  Y -10.000  W 20.000  H 20.000 mm"));
        studio->edit().removeSelected();
        QTRY_COMPARE(field("countField"), QStringLiteral("0 of 0 selected"));
    }

    void statusBar_followsADrag()
    {
        studio::ShapeItem *item = studio->addRect(0, 0);
        studio->select({item});
        studio->driver->press({20, 20});
        studio->driver->move({30, 20});
        studio->driver->move({50, 20});
        const double x = ZTCoord::getInstance()->pix2mm(item->pos().x());
        QVERIFY(x > 0);
        QTRY_VERIFY(field("boxField").contains(QStringLiteral("X %1 ").arg(x, 0, 'f', 3)));
        studio->driver->release({50, 20});
    }

    void createdShapeOutOfSight_isBroughtIntoSight()
    {
        studio->view().centerOn(20000, 20000);
        studio->run("create.rectangle");
        const QRectF seen = studio->view().mapToScene(viewport()->rect()).boundingRect();
        QVERIFY(seen.contains(studio->document().scene()->getSelectionItemRect()));
    }

private:
    QWidget *viewport() { return studio->view().viewport(); }
    QPoint centre() { return studio->view().mapFromScene(0, 0); }
    QPointF middle() { return studio->view().mapToScene(viewport()->rect().center()); }

    /** Moves the mouse, whatever is pressed, by `by` viewport pixels from the scene's origin. */
    void drag(const QPoint &by)
    {
        for (const QPoint &to : {start + by / 2, start + by}) {
            QMouseEvent move(QEvent::MouseMove, to, viewport()->mapToGlobal(to), Qt::NoButton,
                             Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(viewport(), &move);
        }
    }

    QString field(const char *name)
    {
        QCoreApplication::processEvents();
        return studio->window->findChild<QLabel *>(QString::fromLatin1(name))->text();
    }

    QPoint start; ///< where the scene's origin was at first; viewport pixels
    std::unique_ptr<StudioWindow> studio;
};

QTEST_MAIN(tst_studio_navigation)
#include "tst_studio_navigation.moc"
