#include "TextWindow.h"

#include <studio/canvas/DrawingTools.h>
#include <studio/canvas/PointerLabel.h>

#include <QtWidgets/QStatusBar>
#include <QtWidgets/QToolBar>

using studio::ShapeItem;

namespace {

/** Boxes that are equal but for the last digits of a conversion. */
bool sameBox(const QRectF &a, const QRectF &b)
{
    return (a.topLeft() - b.topLeft()).manhattanLength() < 1e-9 &&
           (a.bottomRight() - b.bottomRight()).manhattanLength() < 1e-9;
}

} // namespace

#define COMPARE_BOX(actual, expected)                                                              \
    do {                                                                                           \
        const QRectF actual_ = (actual);                                                           \
        const QRectF expected_ = (expected);                                                       \
        QVERIFY2(sameBox(actual_, expected_), qPrintable(QStringLiteral("%1 %2 %3 %4")             \
                                                             .arg(actual_.x(), 0, 'g', 17)         \
                                                             .arg(actual_.y(), 0, 'g', 17)         \
                                                             .arg(actual_.width(), 0, 'g', 17)     \
                                                             .arg(actual_.height(), 0, 'g', 17))); \
    } while (false)

/** Shapes that are drawn with the mouse. */
class tst_studio_tools : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { studio = std::make_unique<TextWindow>(); }
    void cleanup() { studio.reset(); }

    void drag_makesAShapeThatFillsTheBox_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("step");
        QTest::newRow("rectangle")
            << int(Qt::Key_R) << int(ShapeType::Rect) << QStringLiteral("Create rectangle");
        QTest::newRow("ellipse") << int(Qt::Key_E) << int(ShapeType::Ellipse)
                                 << QStringLiteral("Create ellipse");
        QTest::newRow("polygon") << int(Qt::Key_P) << int(ShapeType::Polygon)
                                 << QStringLiteral("Create polygon");
        QTest::newRow("TDOT") << int(Qt::Key_D) << int(ShapeType::TDOT)
                              << QStringLiteral("Create TDOT figure");
    }

    void drag_makesAShapeThatFillsTheBox()
    {
        QFETCH(int, key);
        QFETCH(int, type);
        QFETCH(QString, step);
        studio->key(key);
        studio->driver->drag({70, 40}, {-50, -30});
        QCOMPARE(studio->ids(), QVector<int>{0});
        QCOMPARE(int(drawn()->getShapeType()), type);
        COMPARE_BOX(studio::sceneBox(*drawn()), QRectF(-50, -30, 120, 70));
        QCOMPARE(studio->selected(), QVector<int>{0});
        QVERIFY(studio->frameFits());
        QCOMPARE(studio->stack().undoText(), step);
        QCOMPARE(chosen(), QByteArray("tool.select"));
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(studio->ids().isEmpty());
        studio->key(Qt::Key_Y, Qt::ControlModifier);
        COMPARE_BOX(studio::sceneBox(*drawn()), QRectF(-50, -30, 120, 70));
    }

    void whatIsMarked_hasTheDraggedSizeInMillimetres()
    {
        studio->key(Qt::Key_R);
        studio->driver->drag({0, 0}, {90, 45});
        // 900 pixels are 193 mm: 90 are 19.3 mm and 45 are 9.65 mm.
        const ZTMarkGraph graph = studio->document().itemMag()->getShapeLines();
        QCOMPARE(graph.objects.size(), 1);
        const double unitsPerMm = ZTCoord::getInstance()->screen2mark() * 900.0 / 193.0;
        const QRectF box = graph.objects.first().lines.first().boundingRect();
        QVERIFY(std::abs(box.width() / unitsPerMm - 19.3) < 1e-4);
        QVERIFY(std::abs(box.height() / unitsPerMm - 9.65) < 1e-4);
    }

    void drag_atAnotherZoom_isAsExact()
    {
        studio->view().resetSize(8.0);
        studio->view().centerOn(0, 0);
        studio->key(Qt::Key_R);
        studio->driver->drag({-10, -5}, {10.5, 5.25});
        COMPARE_BOX(studio::sceneBox(*drawn()), QRectF(-10, -5, 20.5, 10.25));
    }

    void line_goesFromEndToEnd_alsoUpwardAndLevel_data()
    {
        QTest::addColumn<QPointF>("from");
        QTest::addColumn<QPointF>("to");
        QTest::newRow("down") << QPointF(10, 10) << QPointF(70, 50);
        QTest::newRow("up and left") << QPointF(70, 50) << QPointF(10, 20);
        QTest::newRow("up and right") << QPointF(-70, 50) << QPointF(10, 20);
        QTest::newRow("level") << QPointF(-70, 20) << QPointF(10, 20);
        QTest::newRow("upright") << QPointF(30, 60) << QPointF(30, -60);
    }

    void line_goesFromEndToEnd_alsoUpwardAndLevel()
    {
        QFETCH(QPointF, from);
        QFETCH(QPointF, to);
        studio->key(Qt::Key_L);
        studio->driver->drag(from, to);
        const auto *line = dynamic_cast<ZTLineShape *>(drawn()->getShapeBase());
        QVERIFY(line != nullptr);
        const QPolygonF ends = line->getLines().toSubpathPolygons().first();
        QVERIFY((drawn()->mapToScene(ends.first()) - from).manhattanLength() < 1e-9);
        QVERIFY((drawn()->mapToScene(ends.last()) - to).manhattanLength() < 1e-9);
        const double lengthMm = QLineF(from, to).length() * 193.0 / 900.0;
        QVERIFY(std::abs(line->length() - lengthMm) < 1e-9);
        QVERIFY(studio->frameFits());
    }

    void shift_keepsProportions()
    {
        studio->key(Qt::Key_R);
        studio->driver->drag({0, 0}, {60, 20}, Qt::ShiftModifier);
        COMPARE_BOX(studio::sceneBox(*drawn()), QRectF(0, 0, 60, 60));
    }

    void shift_onAPolygon_keepsItRegular()
    {
        studio->key(Qt::Key_P);
        studio->driver->drag({0, 0}, {10, 90}, Qt::ShiftModifier);
        const QPolygonF corners = drawn()->getShapeBase()->getLines().toSubpathPolygons().first();
        const double side = QLineF(corners[0], corners[1]).length();
        for (int i = 1; i + 1 < corners.size(); ++i)
            QVERIFY(std::abs(QLineF(corners[i], corners[i + 1]).length() - side) < 1e-9);
        QVERIFY(std::abs(studio::sceneBox(*drawn()).height() - 90.0) < 1e-9);
    }

    void shift_onALine_stepsBy15Degrees()
    {
        studio->key(Qt::Key_L);
        studio->driver->drag({0, 0}, {80, -45}, Qt::ShiftModifier); // 29.4 degrees upward
        const auto *line = dynamic_cast<ZTLineShape *>(drawn()->getShapeBase());
        QVERIFY(std::abs(line->angle() - 30.0) < 1e-9);
        QVERIFY(std::abs(line->length() - std::hypot(80.0, 45.0) * 193.0 / 900.0) < 1e-9);
    }

    void alt_drawsFromTheCentre()
    {
        studio->key(Qt::Key_E);
        studio->driver->drag({10, 20}, {50, 40}, Qt::AltModifier);
        COMPARE_BOX(studio::sceneBox(*drawn()), QRectF(-30, 0, 80, 40));
    }

    void keyDuringADrag_countsAtOnce()
    {
        studio->key(Qt::Key_R);
        studio->driver->press({0, 0});
        studio->driver->move({60, 20});
        QCOMPARE(told(), QStringLiteral("12.867 × 4.289 mm"));
        QTest::keyPress(&studio->view(), Qt::Key_Shift);
        QCOMPARE(told(), QStringLiteral("12.867 × 12.867 mm"));
        QTest::keyRelease(&studio->view(), Qt::Key_Shift, Qt::ShiftModifier);
        QCOMPARE(told(), QStringLiteral("12.867 × 4.289 mm"));
        studio->driver->release({60, 20});
        COMPARE_BOX(studio::sceneBox(*drawn()), QRectF(0, 0, 60, 20));
    }

    void click_makesTheUsualSizeThere()
    {
        const double tenMm = 10.0 * 900.0 / 193.0;
        studio->key(Qt::Key_R);
        studio->driver->click({30, -40});
        COMPARE_BOX(studio::sceneBox(*drawn()), QRectF(30, -40, tenMm, tenMm));
        QCOMPARE(chosen(), QByteArray("tool.select"));
    }

    void click_withAlt_standsAboutThePlace()
    {
        const double tenMm = 10.0 * 900.0 / 193.0;
        studio->key(Qt::Key_R);
        studio->driver->click({30, -40}, Qt::AltModifier);
        COMPARE_BOX(studio::sceneBox(*drawn()),
                    QRectF(30 - tenMm / 2, -40 - tenMm / 2, tenMm, tenMm));
    }

    void text_hasTheHeightOfTheBox_andIsTypedAtOnce()
    {
        studio->key(Qt::Key_T);
        studio->driver->drag({-60, -30}, {80, 10});
        QVERIFY(studio->editor() != nullptr);
        const QRectF box = studio::sceneBox(*drawn());
        QVERIFY((box.topLeft() - QPointF(-60, -30)).manhattanLength() < 1e-6);
        QVERIFY(std::abs(box.height() - 40.0) < 1e-6);
        const QTransform letters = drawn()->getTransformParam();
        QVERIFY(std::abs(letters.m11() - letters.m22()) < 1e-12);
        QCOMPARE(studio->stack().count(), 1);
    }

    void size_isShownWhileDragging()
    {
        studio->key(Qt::Key_R);
        QVERIFY(told().startsWith(QStringLiteral("Rectangle: drag a box")));
        studio->driver->press({0, 0});
        studio->driver->move({90, 45});
        const auto labels = studio->view().viewport()->findChildren<studio::PointerLabel *>();
        const auto shown = std::find_if(labels.begin(), labels.end(),
                                        [](const auto *each) { return each->isVisible(); });
        QVERIFY(shown != labels.end());
        const studio::PointerLabel *label = *shown;
        QCOMPARE(label->text(), QStringLiteral("19.300 × 9.650 mm"));
        QCOMPARE(told(), label->text());
        QVERIFY(studio->view().viewport()->rect().contains(label->geometry()));
        studio->driver->release({90, 45});
        QVERIFY(!label->isVisible());
        QCOMPARE(told(), QString());
    }

    void angle_ofALineIsShown_countedCounterClockwise()
    {
        studio->key(Qt::Key_L);
        studio->driver->press({0, 0});
        studio->driver->move({45, -45});
        QCOMPARE(told(), QStringLiteral("13.647 mm, 45.000°"));
        studio->driver->release({45, -45});
    }

    void escape_givesUpTheDrag_thenTheTool()
    {
        studio->key(Qt::Key_R);
        studio->driver->press({0, 0});
        studio->driver->move({90, 45});
        studio->key(Qt::Key_Escape);
        studio->driver->release({90, 45});
        QVERIFY(studio->ids().isEmpty());
        QCOMPARE(studio->stack().count(), 0);
        QCOMPARE(chosen(), QByteArray("tool.rectangle"));
        studio->key(Qt::Key_Escape);
        QCOMPARE(chosen(), QByteArray("tool.select"));
    }

    void dragWithoutWidth_makesNothing_andSaysWhy()
    {
        studio->key(Qt::Key_R);
        studio->driver->drag({0, 0}, {0, 50});
        QVERIFY(studio->ids().isEmpty());
        QVERIFY(told().contains(QStringLiteral("needs a width and a height")));
        QCOMPARE(chosen(), QByteArray("tool.rectangle"));
    }

    void undoDuringADrag_givesTheDragUp()
    {
        studio->addRect(200, 200);
        studio->edit().selectAll();
        QVERIFY(studio->run("edit.duplicate"));
        studio->key(Qt::Key_R);
        studio->driver->press({0, 0});
        studio->driver->move({90, 45});
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        studio->driver->release({90, 45});
        QCOMPARE(studio->ids(), QVector<int>{0});
    }

    void cursor_isTheToolsOwn()
    {
        const QWidget *canvas = studio->view().viewport();
        studio->key(Qt::Key_E);
        QCOMPARE(canvas->cursor().shape(), Qt::BitmapCursor);
        studio->driver->move({10, 10});
        QCOMPARE(canvas->cursor().shape(), Qt::BitmapCursor);
        QTest::keyPress(&studio->view(), Qt::Key_Space); // pans in between
        QCOMPARE(canvas->cursor().shape(), Qt::OpenHandCursor);
        QTest::keyRelease(&studio->view(), Qt::Key_Space);
        QCOMPARE(canvas->cursor().shape(), Qt::BitmapCursor);
        studio->key(Qt::Key_V);
        QVERIFY(canvas->cursor().shape() != Qt::BitmapCursor);
    }

    void drawing_overAShape_doesNotMoveIt()
    {
        ShapeItem *below = studio->addRect(0, 0);
        studio->select({below});
        studio->key(Qt::Key_R);
        studio->driver->drag({10, 10}, {30, 30});
        QCOMPARE(below->pos(), QPointF(0, 0));
        QCOMPARE(studio->ids().size(), 2);
    }

    void letters_workInTheListToo_andNotWhereTextIsTyped()
    {
        studio->addRect(0, 0);
        auto *tree = studio->window->findChild<ZTObjectTreeWidget *>();
        tree->setFocus();
        QTest::keyClick(tree, Qt::Key_E);
        QCOMPARE(chosen(), QByteArray("tool.ellipse"));
        QTest::keyClick(tree, Qt::Key_V);
        QCOMPARE(chosen(), QByteArray("tool.select"));
        studio->edit().create(ShapeType::Text);
        studio->type("rev");
        QCOMPARE(chosen(), QByteArray("tool.select"));
        QCOMPARE(studio->editor()->toPlainText(), QStringLiteral("rev"));
    }

    void toolColumn_showsTheChosenTool()
    {
        const auto *column = studio->window->findChild<QToolBar *>(QStringLiteral("toolColumn"));
        QVERIFY(column != nullptr);
        QCOMPARE(studio->window->toolBarArea(const_cast<QToolBar *>(column)), Qt::LeftToolBarArea);
        QVERIFY(column->actions().contains(studio->window->commands().named("tool.line")));
        QVERIFY(studio->run("tool.line"));
        QVERIFY(studio->window->commands().named("tool.line")->isChecked());
        QVERIFY(studio->run("tool.line"));
        QVERIFY(studio->window->commands().named("tool.line")->isChecked());
        studio->driver->drag({0, 0}, {50, 50});
        QVERIFY(studio->window->commands().named("tool.select")->isChecked());
        QVERIFY(!studio->window->commands().named("tool.line")->isChecked());
    }

    void byMenu_newShapesStandApart()
    {
        for (int i = 0; i < 30; ++i)
            QVERIFY(studio->run("create.rectangle"));
        const studio::ShapeItems all = studio::shapeItemsOf(*studio->document().scene());
        QCOMPARE(all.size(), 30);
        const QRectF shown =
            studio->view().mapToScene(studio->view().viewport()->rect()).boundingRect();
        for (int i = 0; i < all.size(); ++i) {
            QVERIFY(shown.contains(studio::sceneBox(*all[i])));
            for (int k = 0; k < i; ++k)
                QVERIFY(!studio::sceneBox(*all[i]).intersects(studio::sceneBox(*all[k])));
        }
    }

    void byMenu_theFirstShapeStandsInTheMiddleOfTheView()
    {
        studio->view().centerOn(700, -300);
        QVERIFY(studio->run("create.ellipse"));
        const QPointF middle =
            studio->view().mapToScene(studio->view().viewport()->rect()).boundingRect().center();
        QVERIFY((studio::sceneBox(*drawn()).center() - middle).manhattanLength() < 1e-9);
    }

private:
    ShapeItem *drawn() const { return studio::shapeItemsOf(*studio->document().scene()).last(); }
    QByteArray chosen() const { return studio->window->editor().tools().chosenId(); }
    QString told() const { return studio->window->statusBar()->currentMessage(); }

    std::unique_ptr<TextWindow> studio;
};

int main(int argc, char **argv) { return runTextTest<tst_studio_tools>(argc, argv); }
#include "tst_studio_tools.moc"
