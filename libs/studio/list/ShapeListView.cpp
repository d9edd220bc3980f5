#include <studio/list/ShapeListView.h>

#include <QtCore/QMimeData>
#include <QtGui/QDrag>
#include <QtGui/QMouseEvent>
#include <QtGui/QResizeEvent>
#include <QtWidgets/QHeaderView>

#include <memory>

namespace studio {

namespace {

constexpr int kIndentPx = 12;
constexpr int kRoomyCharacters = 60;
constexpr int kNameCharacters = 8; ///< of the first column, at least

} // namespace

ShapeListView::ShapeListView(QWidget *parent) : QTreeView(parent)
{
    setUniformRowHeights(true);
    setIndentation(kIndentPx);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
    setTextElideMode(Qt::ElideMiddle); // the number at the end tells shapes apart
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(DoubleClicked | EditKeyPressed);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(true);
    setDragDropMode(InternalMove);
    setDragDropOverwriteMode(false);
}

QItemSelectionModel::SelectionFlags ShapeListView::selectionCommand(const QModelIndex &index,
                                                                    const QEvent *event) const
{
    const bool isByMouse = event != nullptr && (event->type() == QEvent::MouseButtonPress ||
                                                event->type() == QEvent::MouseButtonRelease ||
                                                event->type() == QEvent::MouseMove);
    const bool isLeft =
        isByMouse && static_cast<const QMouseEvent *>(event)->button() != Qt::RightButton;
    if (isLeft && index.isValid() && (model()->flags(index) & Qt::ItemIsUserCheckable))
        return QItemSelectionModel::NoUpdate;
    return QTreeView::selectionCommand(index, event);
}

// Not the base's, which takes rows out after a move: the model has put them elsewhere already.
void ShapeListView::startDrag(Qt::DropActions supported)
{
    const QModelIndexList rows = selectionModel()->selectedRows();
    if (rows.isEmpty())
        return;
    auto *drag = new QDrag(this);
    drag->setMimeData(model()->mimeData(rows));
    drag->exec(supported, Qt::MoveAction);
}

// By hand, not by a mode of the header: the first column takes what the shown ones leave.
void ShapeListView::resizeEvent(QResizeEvent *event)
{
    QTreeView::resizeEvent(event);
    const int character = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    const int width = viewport()->width();
    const int last = header()->count() - 1;
    if (last < 0)
        return;
    const bool isNarrow = width < kRoomyCharacters * character;
    if (isColumnHidden(last) != isNarrow)
        setColumnHidden(last, isNarrow);
    int others = 0;
    for (int column = 1; column <= last; ++column)
        others += isColumnHidden(column) ? 0 : columnWidth(column);
    setColumnWidth(0, qMax(kNameCharacters * character, width - others));
}

} // namespace studio
