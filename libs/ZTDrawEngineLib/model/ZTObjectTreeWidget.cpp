#include <ZTDrawEngineLib/model/ZTObjectTreeWidget.h>

#include <QtCore/QEvent>
#include <QtGui/QStandardItemModel>

ZTObjectTreeWidget::ZTObjectTreeWidget(QWidget *parent) : QTreeView(parent)
{
    setEditTriggers(QAbstractItemView::NoEditTriggers);
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
