#include <ZTDrawEngineLib/model/ZTObjectTreeWidget.h>

#include <QtCore/QEvent>
#include <QtGui/QStandardItemModel>

ZTObjectTreeWidget::ZTObjectTreeWidget(QWidget *parent) : QTreeView(parent)
{
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    // Else a view adds up the heights of all rows above each run of selected ones.
    setUniformRowHeights(true);
}

void ZTObjectTreeWidget::changeEvent(QEvent *event)
{
    if (event->type() != QEvent::LanguageChange) {
        QTreeView::changeEvent(event);
        return;
    }
    if (auto *rows = qobject_cast<QStandardItemModel *>(model()))
        rows->setHorizontalHeaderLabels({tr("id"), tr("text"), tr("shape")});
}
