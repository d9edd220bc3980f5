#pragma once

#include <QtWidgets/QTreeView>

namespace studio {

/**
 * The rows of the list of shapes. A click on a switch turns it and leaves the selection alone. The
 * last column shows only where there is room: the pictures of the first one tell the same.
 */
class ShapeListView : public QTreeView
{
    Q_OBJECT

public:
    explicit ShapeListView(QWidget *parent = nullptr);

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;
    void startDrag(Qt::DropActions supported) override;
    void resizeEvent(QResizeEvent *event) override;
};

} // namespace studio
