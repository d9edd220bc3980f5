#include "StudioWindow.h"

#include <studio/choices/Theme.h>
#include <studio/commands/ExtrasCommand.h>
#include <studio/list/ShapeList.h>
#include <studio/list/ShapeListModel.h>
#include <studio/list/ShapeListView.h>
#include <studio/list/ShapeOrder.h>
#include <studio/shapes/ShapeKinds.h>

#include <hostkit/marks/MarkFindings.h>
#include <hostkit/marks/MarkGraphBuilder.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QMimeData>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyle>

#include <cmath>
#include <limits>

using studio::ShapeItem;
using studio::ShapeItems;
using studio::ShapeListModel;

/** The list of shapes before a user with a keyboard and a mouse. */
class tst_studio_list : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { studio = std::make_unique<StudioWindow>(); }
    void cleanup() { studio.reset(); }

    void firstMarked_isOnTop_andTheListSaysSo()
    {
        make({"one", "two", "three"});
        QCOMPARE(names(), QStringLiteral("one two three"));
        QCOMPARE(cell(0, ShapeListModel::Number).data().toInt(), 1);
        QCOMPARE(cell(2, ShapeListModel::Number).data().toInt(), 3);
        const ZTMarkGraph graph = studio->document().itemMag()->getShapeLines();
        QCOMPARE(graph.objects[0].penId, m_items[0]->getPenId());
        QVERIFY(list().findChild<QLabel *>(QStringLiteral("list.rule"))->text() ==
                QStringLiteral("Marked from top to bottom."));
        QVERIFY(!studio->window->findChild<QDockWidget *>(QStringLiteral("treeDock"))->isVisible());
    }

    void allSwitches_areInSight_atAnyWidth()
    {
        make({"one", "two"});
        for (const int width : {320, 420, 700}) {
            studio->window->resizeDocks({&list()}, {width}, Qt::Horizontal);
            settle();
            QVERIFY(view().columnViewportPosition(ShapeListModel::Hidden) +
                        view().columnWidth(ShapeListModel::Hidden) <=
                    view().viewport()->width());
        }
        QVERIFY(!view().isColumnHidden(ShapeListModel::Kind));
    }

    void kinds_areCalledAsPeopleCallThem()
    {
        studio->addRect(0, 0);
        studio->document().itemMag()->addShape(ShapeType::VecGraph, {0, 0, 10, 10});
        settle();
        QCOMPARE(cell(1, ShapeListModel::Name).data().toString(), QStringLiteral("Rectangle 0"));
        QCOMPARE(cell(0, ShapeListModel::Name).data().toString(), QStringLiteral("Path 1"));
        QCOMPARE(cell(1, ShapeListModel::Kind).data().toString(), QStringLiteral("Rectangle"));
        QCOMPARE(cell(0, ShapeListModel::Kind).data().toString(), QStringLiteral("Path"));
    }

    void icons_areAsPlainOnASelectedRow_data()
    {
        QTest::addColumn<int>("theme");
        QTest::newRow("light") << int(studio::Theme::Light);
        QTest::newRow("dark") << int(studio::Theme::Dark);
    }

    void icons_areAsPlainOnASelectedRow()
    {
        QFETCH(int, theme);
        studio::applyTheme(studio::Theme(theme));
        for (const studio::ShapeKind &kind : studio::shapeKinds())
            QVERIFY(studio->document().itemMag()->addShape(kind.type, {0, 0, 10, 10}) != nullptr);
        settle();
        studio->edit().clearSelection();
        const int rows = model().rowCount();
        QCOMPARE(rows, studio::shapeKinds().size());
        for (int row = 0; row < rows; ++row) {
            studio->edit().clearSelection();
            settle();
            const int before = plainPixelsOfIcon(row);
            QVERIFY(before > 10);
            clickCell(row, ShapeListModel::Name);
            QCOMPARE(selectedRows(), QVector<int>{row});
            const int now = plainPixelsOfIcon(row);
            QVERIFY2(now > 0.8 * before,
                     qPrintable(QStringLiteral("%1: %2 of %3")
                                    .arg(cell(row, ShapeListModel::Kind).data().toString())
                                    .arg(now)
                                    .arg(before)));
        }
        studio::applyTheme(studio::Theme::System);
    }

    // One name everywhere: what a finding says is found in the list, by its search, too.
    void findings_callShapesAsTheListDoes()
    {
        make({"Logo", "", "Frame"});
        for (ShapeItem *item : qAsConst(m_items))
            item->setPos(1e4, 0);
        list().follow();
        hostkit::MarkGraphBuilder builder(studio->document(),
                                          hostkit::markedItems(studio->document()),
                                          EShapeSortType::ShapeSortNone);
        builder.work(std::numeric_limits<int>::max());
        QStringList found;
        for (const hostkit::ShapeOutside &shape : builder.findings().outside)
            found << shape.name;
        QStringList listed;
        for (int row = 0; row < model().rowCount(); ++row)
            listed << cell(row, ShapeListModel::Name).data().toString();
        QCOMPARE(found, listed);
        QCOMPARE(listed, QStringList({QStringLiteral("Logo"), QStringLiteral("Rectangle 1"),
                                      QStringLiteral("Frame")}));
        auto *search = list().findChild<QLineEdit *>(QStringLiteral("list.search"));
        QTest::keyClicks(search, QStringLiteral("rectangle 1"));
        settle();
        QCOMPARE(model().rowCount(), 1);
    }

    void click_selectsInTheDrawing_andTheOtherWayRound()
    {
        make({"one", "two", "three"});
        clickCell(1, ShapeListModel::Name);
        QVERIFY(m_items[1]->isSelected());
        QVERIFY(!m_items[0]->isSelected() && !m_items[2]->isSelected());
        clickCell(2, ShapeListModel::Name, Qt::ControlModifier);
        QVERIFY(m_items[1]->isSelected() && m_items[2]->isSelected());
        studio->select({m_items[0]});
        settle();
        QCOMPARE(selectedRows(), QVector<int>({0}));
        studio->select(m_items);
        settle();
        QCOMPARE(selectedRows(), QVector<int>({0, 1, 2}));
        studio->select({});
        settle();
        QCOMPARE(selectedRows(), QVector<int>());
    }

    void name_isEditedInPlace()
    {
        make({"one", "two"});
        const QPoint at = view().visualRect(cell(0, ShapeListModel::Name)).center();
        QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(view().viewport(), Qt::LeftButton, {}, at);
        auto *editor = view().viewport()->findChild<QLineEdit *>();
        QVERIFY(editor != nullptr);
        editor->selectAll();
        QTest::keyClicks(editor, QStringLiteral("Logo"));
        QTest::keyClick(editor, Qt::Key_Return);
        settle();
        QCOMPARE(hostkit::itemExtras(*m_items[0]).name, QStringLiteral("Logo"));
        QCOMPARE(names(), QStringLiteral("Logo two"));
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(names(), QStringLiteral("one two"));
    }

    void switches_areClicked_andKeepTheSelection()
    {
        make({"one", "two"});
        clickCell(0, ShapeListModel::Name);
        clickBox(1, ShapeListModel::Marked);
        QVERIFY(!hostkit::isMarked(*m_items[1]));
        QVERIFY(m_items[0]->isSelected() && !m_items[1]->isSelected());
        clickBox(1, ShapeListModel::Locked);
        QVERIFY(hostkit::itemExtras(*m_items[1]).isLocked);
        clickBox(0, ShapeListModel::Hidden);
        QVERIFY(hostkit::itemExtras(*m_items[0]).isHidden);
        QVERIFY(!m_items[0]->isVisible());
        QCOMPARE(studio->stack().count(), 3);
        // What the drawing cannot select is freed here.
        clickBox(0, ShapeListModel::Hidden);
        QVERIFY(m_items[0]->isVisible());
        for (int i = 0; i < 4; ++i)
            QVERIFY(studio->run("edit.undo"));
        QVERIFY(hostkit::isMarked(*m_items[1]));
        QCOMPARE(cell(1, ShapeListModel::Marked).data(Qt::CheckStateRole).toInt(),
                 int(Qt::Checked));
    }

    void lockedShape_isSelectedAndMovedHere()
    {
        make({"one", "two", "three"});
        clickBox(2, ShapeListModel::Locked);
        clickCell(2, ShapeListModel::Name);
        QCOMPARE(selectedRows(), QVector<int>({2}));
        QVERIFY(studio->selected().isEmpty());
        QVERIFY(studio->run("order.first"));
        settle();
        QCOMPARE(names(), QStringLiteral("three one two"));
        QCOMPARE(selectedRows(), QVector<int>({0}));
    }

    void commands_changeTheOrder_andAreUndone()
    {
        make({"one", "two", "three", "four"});
        clickCell(2, ShapeListModel::Name);
        const DrawingSnapshot before = studio->snapshot();
        QVERIFY(studio->run("order.raise"));
        QCOMPARE(names(), QStringLiteral("one three two four"));
        QCOMPARE(selectedRows(), QVector<int>({1}));
        QVERIFY(studio->run("order.first"));
        QCOMPARE(names(), QStringLiteral("three one two four"));
        QVERIFY(studio->run("order.lower"));
        QCOMPARE(names(), QStringLiteral("one three two four"));
        QVERIFY(studio->run("order.last"));
        QCOMPARE(names(), QStringLiteral("one two four three"));
        QVERIFY(studio->run("order.reverse"));
        QCOMPARE(names(), QStringLiteral("three four two one"));
        QCOMPARE(studio->stack().count(), 5);
        for (int i = 0; i < 5; ++i)
            QVERIFY(studio->run("edit.undo"));
        COMPARE_DRAWINGS(studio->snapshot(), before);
        QCOMPARE(names(), QStringLiteral("one two three four"));
    }

    // What a drop of the view hands to the model; the mouse itself drags in `studio_listDrag`.
    void thirdShape_isDroppedBeforeTheFirst()
    {
        make({"one", "two", "three"});
        clickCell(2, ShapeListModel::Name);
        QVERIFY(dropSelected(0));
        QCOMPARE(names(), QStringLiteral("three one two"));
        const ZTMarkGraph graph = studio->document().itemMag()->getShapeLines();
        QCOMPARE(graph.objects[0].penId, m_items[2]->getPenId());
        QCOMPARE(studio->stack().count(), 1);
        QVERIFY(m_items[2]->isSelected());
        QVERIFY(dropSelected(3));
        QCOMPARE(names(), QStringLiteral("one two three"));
        QVERIFY(studio->run("edit.undo"));
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(names(), QStringLiteral("one two three"));
    }

    void groups_areBranches()
    {
        make({"one", "two", "three", "four"});
        putIntoGroup({m_items[1], m_items[2]}, {7});
        QCOMPARE(model().rowCount(), 3);
        const QModelIndex group = model().index(1, 0);
        QCOMPARE(group.data().toString(), QStringLiteral("Group 7"));
        QCOMPARE(model().rowCount(group), 2);
        QCOMPARE(model().index(1, 0, group).data().toString(), QStringLiteral("three"));
        QCOMPARE(model().index(1, ShapeListModel::Number, group).data().toInt(), 3);
        view().expand(group);
        QVERIFY(studio->run("order.reverse"));
        // It stays open where it has come to.
        QVERIFY(view().isExpanded(model().index(1, 0)));
        QVERIFY(studio->run("edit.undo"));
        clickCell(1, ShapeListModel::Name);
        QVERIFY(m_items[1]->isSelected() && m_items[2]->isSelected());
        QVERIFY(!m_items[0]->isSelected() && !m_items[3]->isSelected());
        clickBox(1, ShapeListModel::Marked);
        QVERIFY(!hostkit::isMarked(*m_items[1]) && !hostkit::isMarked(*m_items[2]));
        QVERIFY(dropSelected(0));
        QCOMPARE(model().index(0, 0).data().toString(), QStringLiteral("Group 7"));
        QCOMPARE(studio::markingOrder(*studio->document().scene()),
                 ShapeItems({m_items[1], m_items[2], m_items[0], m_items[3]}));
    }

    void search_showsWhatContainsTheText()
    {
        make({"Logo", "frame", "logotype"});
        auto *search = list().findChild<QLineEdit *>(QStringLiteral("list.search"));
        search->setFocus();
        QTest::keyClicks(search, QStringLiteral("logo"));
        settle();
        QCOMPARE(names(), QStringLiteral("Logo logotype"));
        QCOMPARE(cell(1, ShapeListModel::Number).data().toInt(), 3);
        clickCell(1, ShapeListModel::Name);
        QVERIFY(m_items[2]->isSelected());
        search->clear();
        QTest::keyClicks(search, QStringLiteral("rectangle"));
        settle();
        QCOMPARE(model().rowCount(), 3);
        search->clear();
        settle();
        QCOMPARE(names(), QStringLiteral("Logo frame logotype"));
    }

    void shapesComeAndGo()
    {
        make({"one"});
        QVERIFY(studio->run("create.rectangle"));
        QCOMPARE(model().rowCount(), 2);
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(model().rowCount(), 1);
        studio->select(m_items);
        QVERIFY(studio->run("edit.delete"));
        QCOMPARE(model().rowCount(), 0);
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(names(), QStringLiteral("one"));
        delete m_items[0];
        // The row is empty until the list looks again.
        QVERIFY(!cell(0, ShapeListModel::Name).data().isValid());
        studio->edit().clear();
        settle();
        QCOMPARE(model().rowCount(), 0);
    }

    void contextMenu_hasTheOrder()
    {
        make({"one", "two"});
        clickCell(1, ShapeListModel::Name);
        const QPoint at = view().visualRect(cell(1, ShapeListModel::Name)).center();
        QContextMenuEvent asked(QContextMenuEvent::Mouse, at, view().viewport()->mapToGlobal(at));
        QApplication::sendEvent(view().viewport(), &asked);
        auto *menu = studio->window->findChild<QMenu *>(QStringLiteral("shapeMenu"));
        QVERIFY(menu != nullptr);
        QTRY_VERIFY(menu->isVisible());
        auto *order = menu->findChild<QMenu *>(QStringLiteral("orderOfShapesMenu"));
        QVERIFY(order->actions().contains(studio->window->commands().named("order.first")));
        menu->close();
    }

    void manyRows_stayFluid()
    {
        constexpr int kCount = 20000;
        for (int i = 0; i < kCount; ++i)
            studio->addRect(i % 200, i / 200);
        settle();
        QCOMPARE(model().rowCount(), kCount);
        QElapsedTimer timer;
        timer.start();
        studio->edit().selectAll();
        settle();
        QCOMPARE(selectedRows().size(), kCount);
        view().verticalScrollBar()->setValue(view().verticalScrollBar()->maximum() / 2);
        settle();
        clickCell(kCount / 2 + 2, ShapeListModel::Name);
        QCOMPARE(selectedRows(), QVector<int>({kCount / 2 + 2}));
        // A walk through all rows for each of them would take minutes.
        QVERIFY2(timer.elapsed() < 20000, QByteArray::number(timer.elapsed()).constData());
    }

private:
    studio::ShapeList &list() { return studio->window->list(); }
    studio::ShapeListView &view() { return list().view(); }
    QAbstractItemModel &model() { return *view().model(); }
    QModelIndex cell(int row, int column) { return model().index(row, column); }

    static void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    /** Named rectangles, the first marked first, with pens of their own. */
    void make(const QList<const char *> &called)
    {
        m_items.clear();
        for (int i = called.size() - 1; i >= 0; --i) {
            ShapeItem *item = studio->addRect(i * 60, 0);
            hostkit::ItemExtras extras;
            extras.name = QString::fromLatin1(called[i]);
            hostkit::setItemExtras(*item, extras);
            item->setPenId(i + 1);
            m_items.prepend(item);
        }
        settle();
    }

    void putIntoGroup(const ShapeItems &items, const QVector<qint32> &path)
    {
        for (ShapeItem *item : items) {
            hostkit::ItemExtras extras = hostkit::itemExtras(*item);
            extras.groupPath = path;
            hostkit::setItemExtras(*item, extras);
        }
        list().follow();
    }

    /** Pixels of a row's icon that stand out from the row, at least 0.3 times as far as its words.
     */
    int plainPixelsOfIcon(int row)
    {
        const QModelIndex name = cell(row, ShapeListModel::Name);
        view().scrollTo(name);
        settle();
        const QRect place = view().visualRect(name);
        const bool isSelected = view().selectionModel()->isSelected(name);
        const QColor words =
            view().palette().color(isSelected ? QPalette::HighlightedText : QPalette::Text);
        const QImage image = view().viewport()->grab().toImage();
        const int ground = qGray(image.pixel(place.right() - 2, place.top() + 2));
        const int least = qRound(0.3 * std::abs(qGray(words.rgb()) - ground));
        const int left = place.left() + 3;
        const int side = view().style()->pixelMetric(QStyle::PM_SmallIconSize);
        int plain = 0;
        for (int y = place.top() + 1; y < place.bottom(); ++y) {
            for (int x = left; x < left + side; ++x)
                plain += std::abs(qGray(image.pixel(x, y)) - ground) >= least ? 1 : 0;
        }
        return plain;
    }

    QString names()
    {
        settle();
        QStringList shown;
        for (int row = 0; row < model().rowCount(); ++row)
            shown << cell(row, ShapeListModel::Name).data().toString();
        return shown.join(QLatin1Char(' '));
    }

    QVector<int> selectedRows()
    {
        QVector<int> rows;
        for (const QModelIndex &index : view().selectionModel()->selectedRows())
            rows << index.row();
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    void clickCell(int row, int column, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        view().scrollTo(cell(row, column));
        const QPoint at = view().visualRect(cell(row, column)).center();
        QTest::mouseClick(view().viewport(), Qt::LeftButton, modifiers, at);
        settle();
    }

    /** A click on the box of a switch, which stands at the left of its cell. */
    void clickBox(int row, int column)
    {
        const QRect place = view().visualRect(cell(row, column));
        QTest::mouseClick(view().viewport(), Qt::LeftButton, {},
                          QPoint(place.left() + 10, place.center().y()));
        settle();
    }

    /** Drops the selected rows in front of a row. */
    bool dropSelected(int row)
    {
        const std::unique_ptr<QMimeData> data(
            model().mimeData(view().selectionModel()->selectedRows()));
        const bool isTaken = model().dropMimeData(data.get(), Qt::MoveAction, row, 0, {});
        settle();
        return isTaken;
    }

    std::unique_ptr<StudioWindow> studio;
    ShapeItems m_items; ///< first marked first
};

QTEST_MAIN(tst_studio_list)
#include "tst_studio_list.moc"
