#include "StudioWindow.h"

#include "support/Effort.h"

#include <studio/arrange/ArrangeActions.h>

#include <QtCore/QRandomGenerator>

using studio::MirrorCommand;
using studio::ShapeItem;
using studio::ShapeItems;

/** A user who edits at random, the same way for the same seed. */
class RandomUser
{
public:
    RandomUser(StudioWindow &used, quint32 seed) : studio(used), random(seed) {}

    void edit()
    {
        switch (random.bounded(16)) {
        case 0:
        case 1:
            create();
            break;
        case 2:
        case 3:
        case 4:
            select();
            break;
        case 5:
            drag();
            break;
        case 6:
            resize();
            break;
        case 7:
            studio.edit().rotate(random.bounded(720) - 360 + 0.25);
            break;
        case 8:
            studio.window->editor().arrange().align(kAlignments[random.bounded(7)]);
            break;
        case 9:
            studio.edit().mirror(random.bounded(2) == 0 ? MirrorCommand::LeftToRight
                                                        : MirrorCommand::TopToBottom);
            break;
        case 10:
            studio.edit().repeat(1 + random.bounded(2), 1 + random.bounded(3), {1.0, 2.0});
            break;
        case 11:
            studio.edit().removeSelected();
            break;
        case 12:
            duplicateAFew();
            break;
        case 13:
            studio.edit().nudge({random.bounded(7) - 3.0, random.bounded(7) - 3.1});
            break;
        default:
            undoAndRedo();
            break;
        }
    }

private:
    static constexpr Qt::Alignment kAlignments[] = {
        Qt::AlignLeft,   Qt::AlignRight,   Qt::AlignHCenter, Qt::AlignTop,
        Qt::AlignBottom, Qt::AlignVCenter, Qt::AlignCenter};

    ShapeItems items() const { return studio::shapeItemsOf(*studio.document().scene()); }

    void create()
    {
        static constexpr ShapeType kinds[] = {ShapeType::Rect, ShapeType::Ellipse,
                                              ShapeType::Polygon, ShapeType::Line};
        if (items().size() < 60)
            studio.edit().create(kinds[random.bounded(4)]);
    }

    /** By click, Shift... all the ways but by code, and by code for sets of any kind. */
    void select()
    {
        const ShapeItems all = items();
        if (all.isEmpty())
            return;
        const ShapeItem *hit = all[random.bounded(all.size())];
        switch (random.bounded(4)) {
        case 0:
            studio.edit().clearSelection();
            studio.driver->click(studio::sceneBox(*hit).center().toPoint());
            break;
        case 1:
            studio.edit().selectAll();
            break;
        case 2:
            studio.edit().invertSelection();
            break;
        default: {
            ShapeItems some;
            for (ShapeItem *item : all) {
                if (random.bounded(4) == 0)
                    some << item;
            }
            studio.select(some);
            break;
        }
        }
    }

    QPointF somewhere(const QPointF &from)
    {
        return from + QPointF(random.bounded(81) - 40, random.bounded(81) - 40);
    }

    void drag()
    {
        if (studio.selected().isEmpty())
            return;
        const QPointF from = frameRect().center().toPoint();
        studio.driver->drag(from, somewhere(from));
    }

    void resize()
    {
        const QRectF frame = frameRect();
        if (studio.selected().isEmpty() || frame.width() < 20 || frame.height() < 20)
            return;
        // The handle of the lower right corner stands just outside it.
        const QPointF from = (frame.bottomRight() + QPointF(10, 10)).toPoint();
        studio.driver->drag(from, from + QPointF(random.bounded(41) - 20, random.bounded(41) - 20));
    }

    void duplicateAFew()
    {
        if (studio.selected().size() < 10 && items().size() < 60)
            studio.edit().duplicate();
    }

    void undoAndRedo()
    {
        for (int i = random.bounded(6); i > 0; --i)
            studio.edit().undo();
        for (int i = random.bounded(6); i > 0; --i)
            studio.edit().redo();
    }

    QRectF frameRect() const
    {
        const ZTGraphicsResizeItem *frame = studio.document().scene()->getGraphicsResizeItem();
        return frame->rect().translated(frame->pos());
    }

    StudioWindow &studio;
    QRandomGenerator random;
};

class tst_studio_random : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { studio = std::make_unique<StudioWindow>(); }
    void cleanup() { studio.reset(); }

    void edits_undoneAndRedone_giveTheSameDrawing_data()
    {
        QTest::addColumn<quint32>("seed");
        for (int seed = 1; seed <= testsupport::effort(12); ++seed)
            QTest::addRow("seed %d", seed) << quint32(seed);
    }

    void edits_undoneAndRedone_giveTheSameDrawing()
    {
        QFETCH(quint32, seed);
        constexpr int kEdits = 600;
        constexpr int kRound = 60;
        RandomUser user(*studio, seed);
        QRandomGenerator random(seed * 977);
        for (int i = 1; i <= kEdits; ++i) {
            user.edit();
            QVERIFY(studio->selected().isEmpty() || studio->frameFits());
            if (i % kRound == 0)
                QVERIFY(undoAndRedoAreExact(random.bounded(studio->stack().index() + 1)));
            if (i % (5 * kRound) == 0)
                QVERIFY(clearIsComplete());
        }
    }

private:
    /** Undoes and redoes some steps, then all of them. */
    bool undoAndRedoAreExact(int some)
    {
        const DrawingSnapshot before = studio->snapshot();
        for (const int steps : {some, studio->stack().index()}) {
            for (int k = 0; k < steps; ++k)
                studio->edit().undo();
            if (!rowsMatchShapes())
                return false;
            for (int k = 0; k < steps; ++k)
                studio->edit().redo();
            const DrawingSnapshot after = studio->snapshot();
            if (after != before) {
                qWarning("%d steps: %s\nnow %s", steps, toText(before).constData(),
                         toText(after).constData());
                return false;
            }
        }
        return true;
    }

    /** Every shape has exactly one row, and every row a shape. */
    bool rowsMatchShapes()
    {
        const DrawingSnapshot now = studio->snapshot();
        QSet<const ShapeItem *> shapes;
        for (const auto &shape : now.stacked)
            shapes << shape.item;
        const QSet<const ShapeItem *> rows(now.rowItems.begin(), now.rowItems.end());
        return rows == shapes && now.rowItems.size() == now.stacked.size();
    }

    bool clearIsComplete()
    {
        studio->edit().clear();
        return studio->ids().isEmpty() && studio->stack().count() == 0 && rowsMatchShapes();
    }

    std::unique_ptr<StudioWindow> studio;
};

QTEST_MAIN(tst_studio_random)
#include "tst_studio_random.moc"
