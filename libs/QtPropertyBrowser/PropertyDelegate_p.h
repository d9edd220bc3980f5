#pragma once

#include <QtCore/QHash>
#include <QtWidgets/QStyledItemDelegate>

class QtBrowserItem;
class QtTreePropertyBrowserPrivate;

/** Opens and closes the editors of a tree, and paints what sets a row apart. */
class PropertyDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    PropertyDelegate(QtTreePropertyBrowserPrivate *browser, QObject *parent);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;

    bool eventFilter(QObject *object, QEvent *event) override;

    /** Closes the editors of a row and forgets what was typed in them. */
    void discardEditors(QtBrowserItem *item);

    /** Lets go of every row: nothing is written any more, whatever closes the editors. */
    void releaseEditors();

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    QWidget *editorOf(QObject *object) const;
    bool keyPressed(QWidget *editor, int key);
    void focusLeft(QWidget *editor);
    void commitAndClose(QWidget *editor);

    QtTreePropertyBrowserPrivate *const m_owner; ///< outlives the delegate's use
    mutable QHash<QWidget *, QtBrowserItem *> m_editors;
};
