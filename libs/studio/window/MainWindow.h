#pragma once

#include <studio/program/Messages.h>

#include <QtCore/QByteArray>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWidgets/QMainWindow>

#include <memory>

QT_BEGIN_NAMESPACE
class QDockWidget;
class QStackedWidget;
QT_END_NAMESPACE

class ZTGraphicsDocument;
class ZTObjectTreeWidget;

namespace hostkit {
class ViewRulers;
}

namespace studio {

class CircleDialog;
class Commands;
class ContextMenus;
class CrashGuard;
class Editor;
class EmptyHint;
class FieldShade;
class GridItem;
class HistoryDock;
class Language;
class MatrixDialog;
class OrderMenu;
class OrderNumbers;
class PreferenceTools;
class PropertyDock;
class ShapeList;
class ShapePanel;
class StatusBar;
class ViewNavigation;
struct CrashGuardSetup;
struct SnapChoice;

/**
 * The studio's window: the drawing in the middle, the shape panel and the list of shapes beside it,
 * and the commands of `commandTable` in menus and toolbars. What works on the drawing is the
 * editor's.
 *
 * Order: after `hostkit::registerFactories`.
 */
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /** `messages` tells failures; a dialog does if none is given. */
    explicit MainWindow(std::unique_ptr<Messages> messages = nullptr);
    ~MainWindow() override;

    Editor &editor() const { return *m_editor; }
    ZTGraphicsDocument &document() const { return *m_drawing; }
    ViewNavigation &navigation() const { return *m_viewNavigation; }
    Commands &commands() const { return *m_commandSet; }
    ShapePanel &panel() const { return *m_panel; }
    ShapeList &list() const { return *m_list; }
    PreferenceTools &preferences() const { return *m_preferences; }

    /** Keeps recovery files from now on, and offers those that were left behind. */
    void guardAgainstCrashes(const CrashGuardSetup &setup);

    void addSample(); ///< and shows all
    void chooseRotation();
    void showMatrixDialog();
    void showCircleDialog();
    void toggleSnap(bool SnapChoice::*what); ///< to shapes, to guides or to the grid
    void toggleRulers();
    void toggleGrid();
    void toggleOrderNumbers();
    void pasteAtMenu(); ///< where the context menu was opened
    void showRecovery();
    void resetLayout();   ///< of docks and toolbars, as at the first start
    void togglePreview(); ///< of the job, in the place of the canvas
    void zoomIn();        ///< of the canvas, or of the preview where that stands in its place
    void zoomOut();
    void zoomHome();
    void fitSelection();
    void fitAll();
    void showManual();
    void showShortcuts();
    void showDocumentation();
    void showAbout();

protected:
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void buildDocument();
    void buildTree();
    void buildProperties();
    void buildEditor();
    void showPreview(bool isShown);
    void buildCommands();
    void connectState();
    void connectFiles();
    void connectPreferences();
    void buildTools();
    void showTool();
    void showCanvasChoices();
    void showAlignTo();
    void dropSavedMessage();
    void showReplacedDrawing();
    void refreshTitle();
    void showSelectionInTree();
    void labelTree();
    void retranslate();
    void refreshCommands();
    void refreshUndoTexts();
    void readSettings();

    std::unique_ptr<Messages> m_messages;
    std::unique_ptr<Language> m_language;    ///< comes before all that has texts
    ZTGraphicsDocument *m_drawing = nullptr; ///< child, as all below
    ZTObjectTreeWidget *m_tree = nullptr;
    QDockWidget *m_treeDock = nullptr;
    std::unique_ptr<Editor> m_editor;
    ShapePanel *m_panel = nullptr;
    ShapeList *m_list = nullptr;
    PropertyDock *m_properties = nullptr;
    ViewNavigation *m_viewNavigation = nullptr;
    QStackedWidget *m_middle = nullptr; ///< of the canvas and what takes its place
    hostkit::ViewRulers *m_rulers = nullptr;
    EmptyHint *m_emptyHint = nullptr; ///< child of the document
    std::unique_ptr<FieldShade> m_fieldShade;
    std::unique_ptr<GridItem> m_grid;
    std::unique_ptr<OrderNumbers> m_orderNumbers;
    HistoryDock *m_history = nullptr;
    PreferenceTools *m_preferences = nullptr;
    Commands *m_commandSet = nullptr;
    ContextMenus *m_contextMenus = nullptr;
    StatusBar *m_status = nullptr;
    OrderMenu *m_orderMenu = nullptr;
    CrashGuard *m_crashGuard = nullptr; ///< null: no recovery files
    QPointer<MatrixDialog> m_matrixDialog;
    QPointer<CircleDialog> m_circleDialog;
    QByteArray m_firstLayout;         ///< of docks and toolbars
    bool m_isPanelForPreview = false; ///< the panel is shown for the preview alone
    QTimer m_stateTimer;
    QString m_savedMessage; ///< of the last save, as long as it is true
    bool m_isLetGo = false; ///< the user closes the window, and the changes may be lost
};

} // namespace studio
