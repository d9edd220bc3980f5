#include <studio/list/ShapeListView.h>

#include <QtCore/QMimeData>
#include <QtGui/QDrag>
#include <QtGui/QMouseEvent>
#include <QtGui/QResizeEvent>
#include <QtWidgets/QHeaderView>

#include <memory>

namespace studio {

namespace {

constexpr int kRoomyCharacters = 60;

} // namespace

ShapeListView::ShapeListView(QWidget *parent) : QTreeView(parent)
{
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
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

void ShapeListView::resizeEvent(QResizeEvent *event)
{
    const bool isNarrow =
        event->size().width() < kRoomyCharacters * fontMetrics().averageCharWidth();
    const int last = header()->count() - 1;
    if (last >= 0 && isColumnHidden(last) != isNarrow)
        setColumnHidden(last, isNarrow);
    QTreeView::resizeEvent(event);
}

} // namespace studio
