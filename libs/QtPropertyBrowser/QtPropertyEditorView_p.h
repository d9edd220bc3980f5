#pragma once

#include <QtWidgets/QTreeWidget>

class QtTreePropertyBrowserPrivate;

/** The tree of a `QtTreePropertyBrowser`; style sheets name it, so the class name is fixed. */
class QtPropertyEditorView : public QTreeWidget
{
    Q_OBJECT

public:
    explicit QtPropertyEditorView(QWidget *parent = nullptr);

    void setBrowser(QtTreePropertyBrowserPrivate *browser) { m_owner = browser; }

    /** Opens the editor of a row; false if it has none or is not enabled. */
    bool openEditor(QTreeWidgetItem *item);

    /** The row that an index of either column stands for. */
    QTreeWidgetItem *rowOf(const QModelIndex &index) const { return itemFromIndex(index); }

protected:
    void drawRow(QPainter *painter, const QStyleOptionViewItem &option,
                 const QModelIndex &index) const override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    QColor rowColor(const QStyleOptionViewItem &option, const QModelIndex &index) const;
    void drawGrid(QPainter *painter, const QStyleOptionViewItem &option) const;

    QtTreePropertyBrowserPrivate *m_owner = nullptr; ///< outlives the view
};
