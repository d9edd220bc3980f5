#include <studio/list/ShapeList.h>

#include <studio/list/ShapeListModel.h>
#include <studio/list/ShapeListView.h>

#include <QtCore/QEvent>
#include <QtCore/QScopedValueRollback>
#include <QtWidgets/QAction>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QUndoStack>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <functional>
#include <memory>

namespace studio {

namespace {

constexpr int kMargin = 6;
constexpr int kLeastRows = 8; ///< lines of the list that stay in sight, the header among them
constexpr int kBarIconPx = 16;

/** Whether these are shapes that the drawing cannot select: the list alone knows that they are. */
bool areHereAlone(const ShapeItems &items)
{
    return !items.isEmpty() && std::none_of(items.begin(), items.end(), [](ShapeItem *item) {
        return item->flags().testFlag(QGraphicsItem::ItemIsSelectable);
    });
}

/** Widths of the columns in characters; the name takes what is left. */
constexpr int kColumnCharacters[] = {13, 3, 6, 4, 4, 4, 9};

} // namespace

ShapeList::ShapeList(ZTGraphicsDocument &document, QWidget *parent)
    : QDockWidget(parent), m_document(document), m_rule(new QLabel(this)),
      m_bar(new QToolBar(this)), m_search(new QLineEdit(this)),
      m_model(new ShapeListModel(document, this)), m_view(new ShapeListView(this))
{
    setObjectName(QStringLiteral("listDock"));
    m_rule->setObjectName(QStringLiteral("list.rule"));
    m_rule->setWordWrap(true);
    m_bar->setObjectName(QStringLiteral("list.bar"));
    m_bar->setIconSize({kBarIconPx, kBarIconPx});
    m_search->setObjectName(QStringLiteral("list.search"));
    m_search->setClearButtonEnabled(true);
    m_view->setObjectName(QStringLiteral("list.view"));
    m_view->setModel(m_model);
    QHeaderView &header = *m_view->header();
    // Not the average, which is that of wide characters in some languages.
    const int character = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    for (int column = 0; column < ShapeListModel::ColumnCount; ++column)
        header.resizeSection(column, kColumnCharacters[column] * character + 2 * kMargin);
    header.setStretchLastSection(false);
    m_view->setMinimumHeight(kLeastRows * m_view->fontMetrics().lineSpacing());

    auto *body = new QWidget(this);
    auto *layout = new QVBoxLayout(body);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    auto *top = new QHBoxLayout;
    top->addWidget(m_search, 1);
    top->addWidget(m_bar);
    layout->addLayout(top);
    layout->addWidget(m_rule);
    layout->addWidget(m_view, 1);
    setWidget(body);
    retranslate();
    connectDocument();
    follow();
}

void ShapeList::connectDocument()
{
    m_followTimer.setSingleShot(true);
    m_followTimer.setInterval(0);
    connect(&m_followTimer, &QTimer::timeout, this, &ShapeList::follow);
    connect(m_document.undoStack(), &QUndoStack::indexChanged, this, &ShapeList::followSoon);
    const QAbstractItemModel *rows = m_document.itemMag()->itemModel();
    connect(rows, &QAbstractItemModel::rowsInserted, this, &ShapeList::followSoon);
    connect(rows, &QAbstractItemModel::rowsRemoved, this, &ShapeList::followSoon);
    connect(rows, &QAbstractItemModel::modelReset, this, &ShapeList::followSoon);
    connect(m_document.scene(), &QGraphicsScene::selectionChanged, this,
            &ShapeList::selectFromDrawing);
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ShapeList::selectInDrawing);
    connect(m_search, &QLineEdit::textChanged, this, [this](const QString &text) {
        m_model->setFilter(text.trimmed());
        m_view->expandAll();
        selectFromDrawing();
    });
}

void ShapeList::followSoon() { m_followTimer.start(); }

// A list that is not to be seen costs nothing.
void ShapeList::follow()
{
    m_followTimer.stop();
    m_isStale = !isVisible();
    if (m_isStale)
        return;
    showMarkingRule();
    const int scrolled = m_view->verticalScrollBar()->value();
    struct View
    {
        QSet<qint32> opened;
        ShapeItems selected;
    };
    const auto before = std::make_shared<View>();
    const QMetaObject::Connection remembering =
        connect(m_model, &QAbstractItemModel::modelAboutToBeReset, this, [this, before] {
            *before = {openGroups(), selectedShapes()};
        });
    bool areOthers = false;
    {
        const QScopedValueRollback<bool> selecting(m_isSelecting, true);
        areOthers = m_model->refresh();
    }
    disconnect(remembering);
    if (!areOthers)
        return;
    open(before->opened);
    {
        // Those that are selected here alone, too.
        const QScopedValueRollback<bool> selecting(m_isSelecting, true);
        m_view->selectionModel()->select(rowsOf(before->selected), QItemSelectionModel::Select);
    }
    selectFromDrawing();
    m_view->verticalScrollBar()->setValue(scrolled);
}

void ShapeList::showEvent(QShowEvent *event)
{
    QDockWidget::showEvent(event);
    if (m_isStale)
        followSoon();
}

QSet<qint32> ShapeList::openGroups() const
{
    QSet<qint32> opened;
    const std::function<void(const QModelIndex &)> visit = [&](const QModelIndex &branch) {
        for (int row = 0; row < m_model->rowCount(branch); ++row) {
            const QModelIndex child = m_model->index(row, 0, branch);
            const qint32 group = m_model->groupAt(child);
            if (group == 0)
                continue;
            if (m_view->isExpanded(child))
                opened.insert(group);
            visit(child);
        }
    };
    visit({});
    return opened;
}

void ShapeList::open(const QSet<qint32> &groups)
{
    if (groups.isEmpty())
        return;
    const std::function<void(const QModelIndex &)> visit = [&](const QModelIndex &branch) {
        for (int row = 0; row < m_model->rowCount(branch); ++row) {
            const QModelIndex child = m_model->index(row, 0, branch);
            const qint32 group = m_model->groupAt(child);
            if (group == 0)
                continue;
            m_view->setExpanded(child, groups.contains(group));
            visit(child);
        }
    };
    visit({});
}

ShapeItems ShapeList::selectedShapes() const
{
    QSet<const ShapeItem *> chosen;
    for (const QItemSelectionRange &range : m_view->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            for (const ShapeItem *item : m_model->itemsAt(m_model->index(row, 0, range.parent())))
                chosen.insert(item);
        }
    }
    if (chosen.isEmpty())
        return {};
    ShapeItems items;
    for (ShapeItem *item : markingOrder(*m_document.scene())) {
        if (chosen.contains(item))
            items.append(item);
    }
    return items;
}

void ShapeList::changeOrder(OrderChange change)
{
    // What the drawing has selected, when the list is out of sight and does not follow.
    const ShapeItems chosen =
        isVisible() ? selectedShapes() : selectedShapeItems(*m_document.scene());
    QSet<const ShapeItem *> moved;
    for (const ShapeItem *item : chosen)
        moved.insert(item);
    setMarkingOrder(m_document, reordered(markingOrder(*m_document.scene()), moved, change));
}

/** Runs of neighbouring rows as one range each: a selection of many ranges is slow. */
QItemSelection ShapeList::rowsOf(const ShapeItems &items) const
{
    QVector<QModelIndex> rows;
    rows.reserve(items.size());
    for (const ShapeItem *item : items) {
        const QModelIndex row = m_model->indexOf(item);
        if (row.isValid())
            rows.append(row);
    }
    std::sort(rows.begin(), rows.end(), [](const QModelIndex &a, const QModelIndex &b) {
        const QModelIndex upA = a.parent();
        const QModelIndex upB = b.parent();
        if (upA != upB)
            return upA < upB;
        return a.row() < b.row();
    });
    QItemSelection selection;
    for (int i = 0; i < rows.size();) {
        int end = i + 1;
        while (end < rows.size() && rows[end].row() == rows[end - 1].row() + 1 &&
               rows[end].parent() == rows[i].parent())
            ++end;
        selection.append(QItemSelectionRange(
            rows[i], rows[end - 1].siblingAtColumn(ShapeListModel::ColumnCount - 1)));
        i = end;
    }
    return selection;
}

void ShapeList::selectFromDrawing()
{
    if (m_isSelecting || !isVisible())
        return;
    const ShapeItems selected = selectedShapeItems(*m_document.scene());
    if (selected.isEmpty() && areHereAlone(selectedShapes()))
        return;
    const QScopedValueRollback<bool> selecting(m_isSelecting, true);
    const QItemSelection rows = rowsOf(selected);
    QItemSelectionModel &chosen = *m_view->selectionModel();
    // In two steps: a change from many ranges to many others would compare each with each.
    chosen.clearSelection();
    chosen.select(rows, QItemSelectionModel::Select);
    if (!rows.isEmpty() && !m_view->hasFocus())
        m_view->scrollTo(rows.first().topLeft());
}

void ShapeList::selectInDrawing()
{
    if (m_isSelecting)
        return;
    const ShapeItems chosen = selectedShapes();
    {
        const QScopedValueRollback<bool> selecting(m_isSelecting, true);
        selectOnly(*m_document.scene(), chosen);
    }
    // The drawing may have its own mind, about whole groups, say; the list shows what holds.
    const auto free = std::count_if(chosen.begin(), chosen.end(),
                                    [](const ShapeItem *item) { return item->isSelected(); });
    const auto selected = m_document.scene()->selectedItems().size();
    if (free != selected)
        selectFromDrawing();
}

void ShapeList::addCommands(const QList<QAction *> &actions) { m_bar->addActions(actions); }

void ShapeList::changeEvent(QEvent *event)
{
    QDockWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    retranslate();
    followSoon();
    m_view->header()->viewport()->update();
}

void ShapeList::retranslate()
{
    setWindowTitle(tr("List of shapes"));
    m_search->setPlaceholderText(tr("Search"));
    m_search->setToolTip(tr("Shows the shapes whose name, words or kind contain this"));
    m_search->setAccessibleName(tr("Search for shapes"));
    m_view->setAccessibleName(tr("Shapes in the order of marking"));
    showMarkingRule();
}

void ShapeList::showMarkingRule()
{
    const bool isAsListed =
        ZTPointSort::getInstance()->getShapeMarkSort() == EShapeSortType::ShapeSortNone;
    m_rule->setText(isAsListed ? tr("Marked from top to bottom.")
                               : tr("Listed as stacked; marking goes by File, Marking order."));
}

} // namespace studio
