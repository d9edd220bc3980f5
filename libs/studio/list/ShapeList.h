#pragma once

#include <studio/list/ShapeOrder.h>
#include <studio/shapes/ShapeItems.h>

#include <QtCore/QTimer>
#include <QtWidgets/QDockWidget>

QT_BEGIN_NAMESPACE
class QAction;
class QItemSelection;
class QLabel;
class QLineEdit;
class QToolBar;
QT_END_NAMESPACE

namespace studio {

class ShapeListModel;
class ShapeListView;

/**
 * The list of shapes in the order in which they are marked, the first one on top.
 *
 * Its selection and that of the drawing follow each other; shapes that are locked or hidden can be
 * selected here alone. Dragging rows and the commands of the order change it.
 */
class ShapeList : public QDockWidget
{
    Q_OBJECT

public:
    /** `document` is borrowed and outlives this. */
    ShapeList(ZTGraphicsDocument &document, QWidget *parent);

    ShapeListView &view() const { return *m_view; }

    /** Puts the commands that change the order above the list. */
    void addCommands(const QList<QAction *> &actions);

    /** Brings the shapes selected here to another place in the order, as one undo step. */
    void changeOrder(OrderChange change);

    /** What is selected here, in the order of marking. */
    ShapeItems selectedShapes() const;

    /** Shows the drawing as it is now, at once. */
    void follow();

    /** The same, gathered with what else happens now. */
    void followSoon();

    /** Says whether marking follows the list. Called when the marking order is another one. */
    void showMarkingRule();

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void connectDocument();
    void selectFromDrawing();
    void selectInDrawing();
    QItemSelection rowsOf(const ShapeItems &items) const;
    QSet<qint32> openGroups() const;
    void open(const QSet<qint32> &groups);
    void retranslate();

    ZTGraphicsDocument &m_document;
    QLabel *m_rule;
    QToolBar *m_bar;
    QLineEdit *m_search;
    ShapeListModel *m_model;
    ShapeListView *m_view;
    QTimer m_followTimer;       ///< gathers what happens together
    bool m_isStale = false;     ///< something happened while the list was not to be seen
    bool m_isSelecting = false; ///< one side of the selection is just telling the other
};

} // namespace studio
