#include "TextWindow.h"

#include "support/DrawingBytes.h"
#include "unit/studio/MeasuredBoxes.h"

#include <studio/canvas/RotateHandle.h>
#include <studio/measures/MeasureField.h>
#include <studio/panel/ShapePanel.h>
#include <studio/shapes/ShapeMeasures.h>

#include <hostkit/items/GraphicItems.h>
#include <hostkit/items/ItemExtras.h>

#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QTextEdit>

#include <climits>
#include <functional>
#include <vector>

using studio::MeasureField;
using studio::ShapeItem;
using studio::ShapeItems;

namespace {

/** What the hands do, and which shapes are selected meanwhile. */
enum class Kinds { All, Texts, Polygons, Lines, Ellipses, Crossing, Codes };

struct Edit
{
    const char *name;
    Kinds kinds;
    std::function<void()> run;
};

} // namespace

/**
 * Every field and gesture over shapes of all kinds at once: one undo step, which goes back to the
 * very bytes and forward to the very bytes.
 */
class tst_studio_mixed : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        testsupport::makeTinyFonts();
        studio = std::make_unique<StudioWindow>();
        edits = allEdits();
    }
    void cleanup()
    {
        edits.clear();
        counters.clear();
        studio.reset();
    }

    void edit_isOneStep_betweenEqualBytes_data()
    {
        QTest::addColumn<int>("number");
        int number = 0;
        for (const Edit &edit : allEdits())
            QTest::addRow("%s", edit.name) << number++;
        QVERIFY(number > 70);
    }

    void edit_isOneStep_betweenEqualBytes()
    {
        QFETCH(int, number);
        const Edit &edit = edits[static_cast<std::size_t>(number)];
        makeShapes();
        if (edit.kinds == Kinds::Crossing)
            crossEllipses();
        studio->select(of(edit.kinds));
        QVERIFY(studio->run("view.fitAll"));
        settle();
        const hostkit::DrawingFile drawingBefore = testsupport::captured(studio->document());
        const QByteArray before = bytes();
        const int steps = studio->stack().count();
        activate();
        edit.run();
        settle();
        QCOMPARE(studio->stack().count(), steps + 1);
        const hostkit::DrawingFile drawingAfter = testsupport::captured(studio->document());
        const QByteArray after = bytes();
        QVERIFY(after != before);
        for (int round = 0; round < 2; ++round) {
            activate();
            studio->key(Qt::Key_Z, Qt::ControlModifier);
            QVERIFY2(bytes() == before, qPrintable(changed(drawingBefore)));
            studio->key(Qt::Key_Y, Qt::ControlModifier);
            QVERIFY2(bytes() == after, qPrintable(changed(drawingAfter)));
        }
    }

    // Each shape keeps the corner that it had, and gets the size that was typed.
    void eachItsOwnSize_byHand()
    {
        makeShapes();
        studio->select(shapes);
        settle();
        choose("panel.extent", 1);
        QVector<QRectF> before;
        for (const ShapeItem *item : qAsConst(shapes))
            before << studio::outlineBoxMm(*item);
        enter("panel.height", "7.5");
        for (int i = 0; i < shapes.size(); ++i) {
            const QRectF boxMm = studio::outlineBoxMm(*shapes[i]);
            const QByteArray told =
                QByteArray::number(i) + ": " + QByteArray::number(boxMm.height());
            QVERIFY2(qAbs(boxMm.height() - 7.5) < toleranceOf(*shapes[i]), told.constData());
            QVERIFY2(qAbs(boxMm.left() - before[i].left()) < 1e-6, told.constData());
            QVERIFY2(qAbs(boxMm.top() - before[i].top()) < 1e-6, told.constData());
        }
    }

    // The box of all is moved as one: every shape by the same way.
    void boxOfAll_movesAllByTheSameWay()
    {
        makeShapes();
        studio->select(shapes);
        settle();
        QVector<QPointF> before;
        double leftMm = 1e9;
        for (const ShapeItem *item : qAsConst(shapes)) {
            before << studio::outlineBoxMm(*item).topLeft();
            leftMm = qMin(leftMm, before.last().x());
        }
        enter("panel.x", "-31.25");
        for (int i = 0; i < shapes.size(); ++i) {
            const QPointF movedMm = studio::outlineBoxMm(*shapes[i]).topLeft() - before[i];
            QVERIFY(qAbs(movedMm.x() - (-31.25 - leftMm)) < 1e-6);
            QVERIFY(qAbs(movedMm.y()) < 1e-6);
        }
    }

private:
    std::vector<Edit> allEdits()
    {
        std::vector<Edit> all = fieldEdits();
        for (std::vector<Edit> more : {choiceEdits(), mouseEdits(), commandEdits()})
            all.insert(all.end(), more.begin(), more.end());
        return all;
    }

    Edit entry(const char *name, Kinds kinds, const char *field, const char *value)
    {
        return {name, kinds, [this, field, value] { enter(field, value); }};
    }

    /** A field with "Each shape its own box", which changes no drawing by itself. */
    Edit each(const char *name, const char *field, const char *value)
    {
        return {name, Kinds::All, [this, field, value] {
                    choose("panel.extent", 1);
                    enter(field, value);
                }};
    }

    std::vector<Edit> fieldEdits()
    {
        return {entry("x of all", Kinds::All, "panel.x", "12.5"),
                entry("y of all", Kinds::All, "panel.y", "1in"),
                entry("width of all", Kinds::All, "panel.width", "100/3"),
                entry("height of all", Kinds::All, "panel.height", "20+5"),
                entry("angle of all", Kinds::All, "panel.angle", "33"),
                each("x of each", "panel.x", "3"),
                each("y of each", "panel.y", "-4"),
                each("width of each", "panel.width", "8"),
                each("height of each", "panel.height", "9"),
                each("angle of each", "panel.angle", "75"),
                entry("text height", Kinds::Texts, "panel.textHeight", "6"),
                entry("text width", Kinds::Texts, "panel.textWidth", "80"),
                entry("letter space", Kinds::Texts, "panel.charSpacing", "0.5"),
                entry("line space", Kinds::Texts, "panel.lineSpacing", "2"),
                entry("sides", Kinds::Polygons, "panel.sides", "7"),
                entry("length", Kinds::Lines, "panel.length", "21"),
                entry("angle of lines", Kinds::Lines, "panel.angle", "60"),
                entry("first diameter", Kinds::Ellipses, "panel.diameter1", "9"),
                entry("second diameter", Kinds::Ellipses, "panel.diameter2", "5"),
                entry("module", Kinds::Codes, "panel.module", "0.75")};
    }

    std::vector<Edit> choiceEdits()
    {
        return {{"hatch", Kinds::All, [this] { choose("panel.hatch", 2); }},
                {"pen", Kinds::All, [this] { choose("panel.pen", 4); }},
                {"marked", Kinds::All, [this] { tick("panel.marked"); }},
                {"locked", Kinds::All, [this] { tick("panel.locked"); }},
                {"hidden", Kinds::All, [this] { tick("panel.hidden"); }},
                {"united", Kinds::All, [this] { tick("panel.union"); }},
                {"name", Kinds::All,
                 [this] {
                     auto *name = part<QLineEdit>("panel.name");
                     name->setFocus();
                     name->selectAll();
                     QTest::keyClicks(name, QStringLiteral("Logo"));
                     QTest::keyClick(name, Qt::Key_Return);
                 }},
                {"arc", Kinds::Texts, [this] { tick("panel.arc"); }}};
    }

    Edit drag(const char *name, Qt::Edges from, const QPointF &byPx,
              Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        return {name, Kinds::All, [this, from, byPx, keys] {
                    const QPointF handle = handlePlace(from);
                    studio->driver->drag(handle, handle + byPx, keys);
                }};
    }

    std::vector<Edit> mouseEdits()
    {
        const Qt::KeyboardModifiers snapsNot = Qt::ControlModifier;
        return {
            {"drag of the frame", Kinds::All,
             [this] {
                 const QPointF middle = frame().center().toPoint();
                 studio->driver->drag(middle, middle + QPointF(37, -23));
             }},
            drag("top left handle", Qt::TopEdge | Qt::LeftEdge, {-14, 9}),
            drag("top handle", Qt::TopEdge, {0, -12}),
            drag("top right handle", Qt::TopEdge | Qt::RightEdge, {11, -13}),
            drag("right handle", Qt::RightEdge, {17, 0}),
            drag("bottom right handle", Qt::BottomEdge | Qt::RightEdge, {21, 15}),
            drag("bottom handle", Qt::BottomEdge, {0, 19}),
            drag("bottom left handle", Qt::BottomEdge | Qt::LeftEdge, {-16, 12}),
            drag("left handle", Qt::LeftEdge, {-18, 0}),
            drag("corner with Shift", Qt::BottomEdge | Qt::RightEdge, {30, 5}, Qt::ShiftModifier),
            drag("corner without snapping", Qt::BottomEdge | Qt::RightEdge, {13, 7}, snapsNot),
            {"turn handle", Kinds::All,
             [this] {
                 const QPointF from =
                     studio->view().mapToScene(studio->editor().rotateHandle().place());
                 studio->driver->drag(from, from + QPointF(90, 40));
             }},
            {"arrow key", Kinds::All, [this] { studio->key(Qt::Key_Right); }},
            {"arrow key, far", Kinds::All, [this] { studio->key(Qt::Key_Up, Qt::ShiftModifier); }},
            {"arrow key, fine", Kinds::All,
             [this] { studio->key(Qt::Key_Left, Qt::ControlModifier); }},
            {"Del", Kinds::All, [this] { studio->key(Qt::Key_Delete); }},
            {"Ctrl+D", Kinds::All, [this] { studio->key(Qt::Key_D, Qt::ControlModifier); }},
            {"Ctrl+X", Kinds::All, [this] { studio->key(Qt::Key_X, Qt::ControlModifier); }},
            {"Ctrl+V", Kinds::All,
             [this] {
                 studio->key(Qt::Key_C, Qt::ControlModifier);
                 studio->key(Qt::Key_V, Qt::ControlModifier);
             }},
            {"Ctrl+G", Kinds::All, [this] { studio->key(Qt::Key_G, Qt::ControlModifier); }}};
    }

    std::vector<Edit> commandEdits()
    {
        std::vector<Edit> all;
        for (const char *id : {"arrange.left",
                               "arrange.hcenter",
                               "arrange.right",
                               "arrange.top",
                               "arrange.vcenter",
                               "arrange.bottom",
                               "arrange.center",
                               "arrange.spreadAcross",
                               "arrange.spreadDown",
                               "arrange.gapsAcross",
                               "arrange.gapsDown",
                               "arrange.centreOnField",
                               "arrange.mirrorFieldAcross",
                               "arrange.mirrorFieldDown",
                               "arrange.mirrorHorizontal",
                               "arrange.mirrorVertical",
                               "arrange.rotateRight",
                               "arrange.rotateLeft",
                               "order.first",
                               "order.raise",
                               "order.lower",
                               "order.last",
                               "order.reverse",
                               "paths.toPaths",
                               "paths.combine"})
            all.push_back({id, Kinds::All, [this, id] { QVERIFY2(studio->run(id), id); }});
        for (const char *id : {"paths.union", "paths.exclusion"})
            all.push_back({id, Kinds::Ellipses, [this, id] { QVERIFY2(studio->run(id), id); }});
        for (const char *id : {"paths.difference", "paths.intersection"})
            all.push_back({id, Kinds::Crossing, [this, id] { QVERIFY2(studio->run(id), id); }});
        return all;
    }

    // One of each kind and two of some, made by the program's commands, turned, stretched and
    // hatched; one that is not selected lies in the middle of the order.
    void makeShapes()
    {
        shapes.clear();
        for (const char *command :
             {"create.rectangle", "create.ellipse", "create.polygon", "create.line", "create.tdot",
              "create.text", "create.ellipse", "create.polygon", "create.line", "create.text",
              "create.code", "create.barcode"}) {
            QVERIFY2(studio->run(command), command);
            finishMaking();
            place(selectedItem());
            if (shapes.size() == 5)
                studio->addRect(350, 250); // not one of them
        }
        const auto path = vectorkit::VectorPath::polyline({{0, 0}, {9, 2}, {4, 8}}, true);
        place(hostkit::addGraphic(studio->document(), {path}));
        studio->select({shapes.first()});
        choose("panel.hatch", 1);
        enter("panel.hatchSpacing", "0.5");
        studio->stack().clear();
    }

    /** Types what a new text says, and leaves the dialog of a new code. */
    void finishMaking()
    {
        if (QWidget *typed = QApplication::focusWidget(); qobject_cast<QTextEdit *>(typed)) {
            QTest::keyClicks(typed, QStringLiteral("Ab"));
            QTest::keyClick(typed, Qt::Key_Return, Qt::ControlModifier);
        }
        for (QDialog *dialog : studio->window->findChildren<QDialog *>())
            dialog->accept();
        activate();
    }

    /** As a window manager does when a list or a dialog has gone. */
    void activate()
    {
        settle();
        QApplication::setActiveWindow(studio->window.get());
        settle();
    }

    ShapeItem *selectedItem() const
    {
        return studio::selectedShapeItems(*studio->document().scene()).value(0);
    }

    /** Five in a row, no two turned alike. */
    void place(ShapeItem *item)
    {
        const int number = shapes.size();
        studio->select({item});
        settle();
        studio->edit().rotate(7.0 * number);
        if (item->getShapeType() == ShapeType::TDOT) // 100 mm as it is made
            item->setTransformParam(item->getTransformParam() * QTransform::fromScale(0.1, 0.1));
        const double px = ZTCoord::getInstance()->mm2pix(1.0);
        const QPointF wanted(px * (18.0 * (number % 5) - 40.0), px * (16.0 * (number / 5) - 20.0));
        item->setPos(item->pos() + wanted - studio::sceneBox(*item).topLeft());
        shapes << item;
    }

    ShapeItems of(Kinds kinds) const
    {
        ShapeItems chosen;
        for (ShapeItem *item : shapes) {
            const bool isCode = codekit::codeItem(item) != nullptr;
            const ShapeType type = isCode ? ShapeType::None : item->getShapeType();
            if (kinds == Kinds::All || (kinds == Kinds::Texts && type == ShapeType::Text) ||
                (kinds == Kinds::Polygons && type == ShapeType::Polygon) ||
                (kinds == Kinds::Lines && type == ShapeType::Line) ||
                (kinds == Kinds::Ellipses && type == ShapeType::Ellipse) ||
                (kinds == Kinds::Crossing && type == ShapeType::Ellipse) ||
                (kinds == Kinds::Codes && isCode))
                chosen << item;
        }
        return chosen;
    }

    /** The two ellipses, so that each holds a part of the other and none the whole. */
    void crossEllipses()
    {
        const ShapeItems ellipses = of(Kinds::Ellipses);
        QCOMPARE(ellipses.size(), 2);
        const QRectF first = studio::sceneBox(*ellipses[0]);
        const QRectF second = studio::sceneBox(*ellipses[1]);
        ellipses[1]->setPos(ellipses[1]->pos() + first.center() - second.topLeft());
        settle();
    }

    /** Curves are marked in chords, whose box is as near as it comes. */
    static double toleranceOf(const ShapeItem &item)
    {
        return item.getShapeType() == ShapeType::Rect || item.getShapeType() == ShapeType::Line
                   ? 1e-6
                   : 0.01;
    }

    QRectF frame() const
    {
        const ZTGraphicsResizeItem *shown = studio->document().scene()->getGraphicsResizeItem();
        return shown->rect().translated(shown->pos());
    }

    /** The middle of a handle, as it stands on the screen. */
    QPointF handlePlace(Qt::Edges edges) const
    {
        const ZTGraphicsResizeItem *shown = studio->document().scene()->getGraphicsResizeItem();
        const auto side = [](double from, double to, bool isLow, bool isHigh) {
            return isLow ? from : isHigh ? to : (from + to) / 2.0;
        };
        const QRectF box = frame();
        const QPoint wanted = studio->view().mapFromScene(
            QPointF(side(box.left(), box.right(), edges & Qt::LeftEdge, edges & Qt::RightEdge),
                    side(box.top(), box.bottom(), edges & Qt::TopEdge, edges & Qt::BottomEdge)));
        QPoint nearest;
        int away = INT_MAX;
        for (const QGraphicsItem *handle : shown->childItems()) {
            const QPoint at = handle->deviceTransform(studio->view().viewportTransform())
                                  .mapRect(QRectF(0, 0, 20, 20))
                                  .center()
                                  .toPoint();
            if ((at - wanted).manhattanLength() < away) {
                away = (at - wanted).manhattanLength();
                nearest = at;
            }
        }
        return studio->view().mapToScene(nearest);
    }

    template <class Widget>
    Widget *part(const char *name)
    {
        auto *found = studio->window->panel().findChild<Widget *>(QString::fromLatin1(name));
        if (found == nullptr)
            qFatal("no widget %s", name);
        return found;
    }

    void enter(const char *name, const char *entry)
    {
        auto *field = part<MeasureField>(name);
        QVERIFY2(field->isEnabled(), name);
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, QString::fromUtf8(entry));
        QTest::keyClick(field, Qt::Key_Return);
        settle();
        QVERIFY2(field->fault().isEmpty(), qPrintable(field->fault()));
    }

    void choose(const char *name, int entry)
    {
        auto *box = part<QComboBox>(name);
        box->setFocus();
        QTest::keyClick(box, Qt::Key_F4);
        QTRY_VERIFY(box->view()->isVisible());
        QTest::keyClick(box->view(), Qt::Key_Home);
        for (int i = 0; i < entry; ++i)
            QTest::keyClick(box->view(), Qt::Key_Down);
        QTest::keyClick(box->view(), Qt::Key_Return);
        activate();
    }

    void tick(const char *name)
    {
        auto *box = part<QCheckBox>(name);
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Space);
        settle();
    }

    /** Which items differ from what they were, and in what. */
    QString changed(const hostkit::DrawingFile &was)
    {
        const hostkit::DrawingFile now = testsupport::captured(studio->document());
        if (now.items.size() != was.items.size())
            return QStringLiteral("%1 items").arg(now.items.size());
        QStringList told;
        for (int i = 0; i < now.items.size(); ++i) {
            const hostkit::DrawingItem &a = now.items[i];
            const hostkit::DrawingItem &b = was.items[i];
            if (a.kind != b.kind || a.type != b.type)
                told << QStringLiteral("%1 kind").arg(i);
            if (a.posPx != b.posPx)
                told << QStringLiteral("%1 place").arg(i);
            if (a.shape != b.shape)
                told << QStringLiteral("%1 shape of %2").arg(i).arg(QString::fromLatin1(b.kind));
            if (a.fields != b.fields) {
                for (const QByteArray &key : a.fields.keys() + b.fields.keys()) {
                    if (a.fields.value(key) != b.fields.value(key))
                        told << QStringLiteral("%1 field %2").arg(i).arg(QString::fromLatin1(key));
                }
            }
        }
        return told.join(QStringLiteral(", "));
    }

    /** The next id counts on whatever is taken back: none is given out twice. */
    QByteArray bytes()
    {
        hostkit::DrawingFile drawing = testsupport::captured(studio->document());
        if (counters.isEmpty())
            counters = drawing.counters;
        drawing.counters = counters;
        return hostkit::drawingToBytes(drawing);
    }

    static void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    std::unique_ptr<StudioWindow> studio;
    std::vector<Edit> edits;
    ShapeItems shapes;
    QByteArray counters; ///< of the first bytes
};

int main(int argc, char **argv) { return runTextTest<tst_studio_mixed>(argc, argv); }
#include "tst_studio_mixed.moc"
