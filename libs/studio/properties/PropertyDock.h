#pragma once

#include <studio/shapes/ShapeItems.h>

#include <QtCore/QTimer>
#include <QtWidgets/QDockWidget>

QT_BEGIN_NAMESPACE
class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QVBoxLayout;
QT_END_NAMESPACE

namespace studio {

class DocumentActions;
class PropertyGrid;

/**
 * The engine's own grid, in its own numbers; the shape panel has the true ones.
 *
 * Shows what can be changed about the selected shapes: the pen and the lock of the proportions of
 * all of them, and the properties of the first, the lowest in the drawing.
 *
 * Every edit is one undo step. Follows the selection and each step of the undo stack as soon as
 * the program is back at waiting for the user.
 */
class PropertyDock : public QDockWidget
{
    Q_OBJECT

public:
    /** `document` and `actions` are borrowed and outlive this. */
    PropertyDock(ZTGraphicsDocument &document, DocumentActions &actions, QWidget *parent);

    /** Switches between rows of a text's height and the tall ones of the grid; remembered. */
    QAction *denseRowsAction() const { return m_denseRows; }

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void buildControls(QVBoxLayout &layout);
    void buildDenseRows();
    void rebuildList();
    void applyDensity();
    void retranslate();
    void follow();
    void showControls(const ShapeItems &items);
    void showPen(const ShapeItems &items);
    void showLock(const ShapeItems &items);

    ZTGraphicsDocument &m_document;
    DocumentActions &m_actions;
    QAction *m_denseRows = nullptr;
    QLabel *m_unitsLabel = nullptr;
    QLabel *m_countLabel = nullptr;
    QLabel *m_penLabel = nullptr;
    QComboBox *m_penBox = nullptr;
    QCheckBox *m_lockBox = nullptr;
    PropertyGrid *m_list = nullptr;
    QString m_tallRowsSheet;    ///< the grid's own
    bool m_isListStale = false; ///< in the language before
    QTimer m_followTimer;
};

} // namespace studio
