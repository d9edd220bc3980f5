#pragma once

#include <QtPropertyBrowser/QtTreePropertyBrowser.h>

#include <QtCore/QHash>

class PropertyDelegate;
class QTreeWidgetItem;
class QtPropertyEditorView;

/** The view of the tree, and which of its items stands for which of the browser's. */
class QtTreePropertyBrowserPrivate
{
public:
    explicit QtTreePropertyBrowserPrivate(QtTreePropertyBrowser *browser);
    ~QtTreePropertyBrowserPrivate();

    void insert(QtBrowserItem *item, QtBrowserItem *after);
    void remove(QtBrowserItem *item);
    void fill(QtBrowserItem *item);

    QTreeWidgetItem *viewItem(QtBrowserItem *item) const { return m_viewItems.value(item); }
    QtBrowserItem *browserItem(QTreeWidgetItem *item) const { return m_browserItems.value(item); }
    QWidget *createEditor(QtBrowserItem *item, QWidget *parent);

    void showCurrent(QtBrowserItem *item);

    QtTreePropertyBrowser *const q;
    QtPropertyEditorView *const view; ///< a child of the browser
    PropertyDelegate *const delegate; ///< a child of the view
    QHash<const QtBrowserItem *, QColor> backgrounds;
    bool groupsMarked = true;
    QtTreePropertyBrowser::ResizeMode resizeMode = QtTreePropertyBrowser::Stretch;

private:
    void connectView();
    void fillState(QtBrowserItem *item);

    QHash<const QtBrowserItem *, QTreeWidgetItem *> m_viewItems;
    QHash<QTreeWidgetItem *, QtBrowserItem *> m_browserItems;
    bool m_isFilling = false; ///< while the view's signals are our own doing
};
