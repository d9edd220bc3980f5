#include <QtPropertyBrowser/QtPropertyEditorView_p.h>

#include <QtPropertyBrowser/QtProperty.h>
#include <QtPropertyBrowser/QtTreePropertyBrowser_p.h>

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QScrollBar>

namespace {

constexpr int kValueColumn = 1;

bool opensEditor(int key)
{
    return key == Qt::Key_F2 || key == Qt::Key_Return || key == Qt::Key_Enter ||
           key == Qt::Key_Space;
}

} // namespace

QtPropertyEditorView::QtPropertyEditorView(QWidget *parent) : QTreeWidget(parent)
{
    // Kept: both numbers, and the order. The bar is laid out by its size hint, so that most of its
    // width lies outside the view; it stays so.
    verticalScrollBar()->setFixedWidth(200);
    setStyleSheet(QStringLiteral("QtPropertyEditorView::item{height:75px;}"));

    setColumnCount(2);
    setAlternatingRowColors(true);
    setRootIsDecorated(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTextElideMode(Qt::ElideRight);
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(true);
}

bool QtPropertyEditorView::openEditor(QTreeWidgetItem *item)
{
    if (!item || !item->flags().testFlag(Qt::ItemIsEnabled))
        return false;
    edit(indexFromItem(item, kValueColumn), QAbstractItemView::AllEditTriggers, nullptr);
    return state() == EditingState;
}

void QtPropertyEditorView::drawRow(QPainter *painter, const QStyleOptionViewItem &option,
                                   const QModelIndex &index) const
{
    QStyleOptionViewItem row = option;
    const QColor color = rowColor(option, index);
    if (color.isValid()) {
        painter->fillRect(option.rect, color);
        // The base class paints every other row in this colour.
        row.palette.setColor(QPalette::AlternateBase, color);
    }
    QTreeWidget::drawRow(painter, row, index);
    drawGrid(painter, option);
}

void QtPropertyEditorView::keyPressEvent(QKeyEvent *event)
{
    if (opensEditor(event->key()) && event->modifiers() == Qt::NoModifier &&
        openEditor(currentItem())) {
        event->accept();
        return;
    }
    QTreeWidget::keyPressEvent(event);
}

void QtPropertyEditorView::mousePressEvent(QMouseEvent *event)
{
    QTreeWidget::mousePressEvent(event);
    if (event->button() == Qt::LeftButton && columnAt(event->pos().x()) == kValueColumn)
        openEditor(itemAt(event->pos()));
}

QColor QtPropertyEditorView::rowColor(const QStyleOptionViewItem &option,
                                      const QModelIndex &index) const
{
    QtBrowserItem *item = m_owner ? m_owner->browserItem(rowOf(index)) : nullptr;
    if (!item)
        return {};
    if (m_owner->groupsMarked && !item->property()->hasValue())
        return option.palette.color(QPalette::Dark);
    return m_owner->q->calculatedBackgroundColor(item);
}

void QtPropertyEditorView::drawGrid(QPainter *painter, const QStyleOptionViewItem &option) const
{
    const int hint = style()->styleHint(QStyle::SH_Table_GridLineColor, &option, this);
    painter->save();
    painter->setPen(QColor::fromRgba(QRgb(hint)));
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    const int edgePx = columnViewportPosition(kValueColumn) - 1;
    painter->drawLine(edgePx, option.rect.top(), edgePx, option.rect.bottom());
    painter->restore();
}
