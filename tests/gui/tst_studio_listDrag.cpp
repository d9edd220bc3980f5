#include "StudioWindow.h"

#include <studio/list/ShapeList.h>
#include <studio/list/ShapeListModel.h>
#include <studio/list/ShapeListView.h>
#include <studio/list/ShapeOrder.h>

#include <hostkit/items/ItemExtras.h>

#include <QtCore/QTimer>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>

using studio::ShapeItem;
using studio::ShapeItems;
using studio::ShapeListModel;

/** The list of shapes re-ordered by the mouse alone: real drags, which run in a loop of their own.
 */
class tst_studio_listDrag : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        studio = std::make_unique<StudioWindow>();
        make({"one", "two", "three", "four"});
    }
    void cleanup() { studio.reset(); }

    void drag_bringsTheThirdBeforeTheFirst()
    {
        QVERIFY(drag(middleOf(2), above(0)));
        QCOMPARE(names(), QStringLiteral("three one two four"));
        QCOMPARE(studio->stack().count(), 1);
        QVERIFY(m_items[2]->isSelected());
        QCOMPARE(studio::markingOrder(*studio->document().scene()),
                 ShapeItems({m_items[2], m_items[0], m_items[1], m_items[3]}));
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(names(), QStringLiteral("one two three four"));
        QVERIFY(studio->run("edit.redo"));
        QCOMPARE(names(), QStringLiteral("three one two four"));
    }

    void drag_takesAllThatIsSelected_behindTheLast()
    {
        click(0);
        click(2, Qt::ControlModifier);
        QVERIFY(drag(middleOf(2), below(3)));
        QCOMPARE(names(), QStringLiteral("two four one three"));
        QCOMPARE(studio->stack().count(), 1);
    }

    void drag_betweenTwoRows_putsThemThere()
    {
        QVERIFY(drag(middleOf(3), above(1)));
        QCOMPARE(names(), QStringLiteral("one four two three"));
    }

    void drag_ofAGroup_takesItsShapes()
    {
        for (ShapeItem *item : {m_items[2], m_items[3]}) {
            hostkit::ItemExtras extras;
            extras.groupPath = {7};
            hostkit::setItemExtras(*item, extras);
        }
        list().follow();
        QVERIFY(drag(middleOf(2), above(0)));
        QCOMPARE(studio::markingOrder(*studio->document().scene()),
                 ShapeItems({m_items[2], m_items[3], m_items[0], m_items[1]}));
        QCOMPARE(studio->stack().count(), 1);
    }

    void drag_escape_changesNothing()
    {
        QVERIFY(drag(middleOf(2), above(0), End::Escape));
        QCOMPARE(names(), QStringLiteral("one two three four"));
        QCOMPARE(studio->stack().count(), 0);
    }

    void drag_ontoTheCanvas_changesNothing()
    {
        const QPoint canvas = studio->view().viewport()->mapTo(studio->window.get(), {50, 50});
        QVERIFY(drag(middleOf(2), view().viewport()->mapFrom(studio->window.get(), canvas)));
        QCOMPARE(names(), QStringLiteral("one two three four"));
        QCOMPARE(studio->stack().count(), 0);
    }

private:
    enum class End { Release, Escape };

    studio::ShapeList &list() { return studio->window->list(); }
    studio::ShapeListView &view() { return list().view(); }
    QAbstractItemModel &model() { return *view().model(); }

    static void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    /** Named rectangles, the first marked first. */
    void make(const QList<const char *> &called)
    {
        m_items.clear();
        for (int i = called.size() - 1; i >= 0; --i) {
            ShapeItem *item = studio->addRect(i * 60, 0);
            hostkit::ItemExtras extras;
            extras.name = QString::fromLatin1(called[i]);
            hostkit::setItemExtras(*item, extras);
            m_items.prepend(item);
        }
        settle();
    }

    QString names()
    {
        settle();
        QStringList shown;
        for (int row = 0; row < model().rowCount(); ++row)
            shown << model().index(row, ShapeListModel::Name).data().toString();
        return shown.join(QLatin1Char(' '));
    }

    QRect placeOf(int row) { return view().visualRect(model().index(row, ShapeListModel::Name)); }
    QPoint middleOf(int row) { return placeOf(row).center(); }
    QPoint above(int row) { return placeOf(row).topLeft() + QPoint(20, 1); }
    QPoint below(int row) { return placeOf(row).bottomLeft() + QPoint(20, 8); }

    QPoint inWindow(const QPoint &at) { return view().viewport()->mapTo(studio->window.get(), at); }

    void click(int row, Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        QTest::mouseClick(studio->window->windowHandle(), Qt::LeftButton, keys,
                          inWindow(middleOf(row)));
        settle();
    }

    /** What the hand does next, each step asked for before the one in hand starts a loop. */
    void handStep(const QPoint &from, const QPoint &to, End end, int step)
    {
        QWindow *shown = studio->window->windowHandle();
        constexpr int kSteps = 5;
        if (step <= kSteps) {
            QTimer::singleShot(0, this, [=] { handStep(from, to, end, step + 1); });
            QTest::mouseMove(shown, inWindow(from + (to - from) * step / kSteps));
            return;
        }
        if (end == End::Escape)
            QTest::keyClick(shown, Qt::Key_Escape);
        QTest::mouseRelease(shown, Qt::LeftButton, {}, inWindow(to));
        m_isLetGo = true;
    }

    /** Presses in the list, moves and lets go, in the frame of its rows; false if nothing moved. */
    bool drag(const QPoint &from, const QPoint &to, End end = End::Release)
    {
        m_isLetGo = false;
        QTest::mousePress(studio->window->windowHandle(), Qt::LeftButton, {}, inWindow(from));
        QTimer::singleShot(0, this, [=] { handStep(from, to, end, 1); });
        const bool isDone = QTest::qWaitFor([this] { return m_isLetGo; });
        settle();
        return isDone;
    }

    std::unique_ptr<StudioWindow> studio;
    ShapeItems m_items; ///< first marked first
    bool m_isLetGo = false;
};

int main(int argc, char **argv)
{
    // The platform that the other tests run on takes a drag for given up as soon as it begins.
    qputenv("QT_QPA_PLATFORM", "minimal:enable_fonts");
    QApplication application(argc, argv);
    tst_studio_listDrag test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_studio_listDrag.moc"
