#pragma once

#include <studio/Messages.h>

#include <QtCore/QByteArray>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWidgets/QMainWindow>

#include <memory>
#include <optional>

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

class ArrangeActions;
class CircleDialog;
class ClipboardActions;
class CodeTools;
class Commands;
class ContextMenus;
class CrashGuard;
class DocumentActions;
class DrawingFiles;
class DrawingTools;
class Exporter;
class EmptyHint;
class GridItem;
class GroupTools;
class FieldShade;
class GuideTools;
class HistoryDock;
class Importer;
class JobTools;
class Language;
class MatrixDialog;
class OrderMenu;
class OrderNumbers;
class PreferenceTools;
class PathTools;
class PropertyDock;
class RotateHandle;
class ShapeList;
class ShapePanel;
class PrintActions;
class Reimporter;
class SnapTools;
class StatusBar;
class TextTools;
class ViewNavigation;
struct CrashGuardSetup;
struct SnapChoice;
struct ReadDrawing;

/**
 * The studio's window: the drawing in the middle, the object tree and the properties of the
 * selection beside it, and the commands of `commandTable` in menus and toolbars.
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

    ZTGraphicsDocument &document() const { return *m_drawing; }
    DocumentActions &edit() const { return *m_actions; }
    ViewNavigation &navigation() const { return *m_viewNavigation; }
    TextTools &text() const { return *m_textTools; }
    PrintActions &printing() const { return *m_printing; }
    JobTools &job() const { return *m_jobTools; }
    CodeTools &codes() const { return *m_codeTools; }
    Exporter &exporter() const { return *m_fileExporter; }
    Commands &commands() const { return *m_commandSet; }
    ShapePanel &panel() const { return *m_panel; }
    ShapeList &list() const { return *m_list; }
    DrawingFiles &files() const { return *m_drawingFiles; }
    DrawingTools &tools() const { return *m_tools; }
    ClipboardActions &clipboard() const { return *m_clipboard; }
    GroupTools &groups() const { return *m_groups; }
    ArrangeActions &arrange() const { return *m_arrange; }
    Reimporter &reimporter() const { return *m_reimporter; }
    PathTools &paths() const { return *m_paths; }
    SnapTools &snapping() const { return *m_snap; }
    GuideTools &guides() const { return *m_guides; }
    PreferenceTools &preferences() const { return *m_preferences; }
    RotateHandle &rotateHandle() const { return *m_rotateHandle; }

    /** Keeps recovery files from now on, and offers those that were left behind. */
    void guardAgainstCrashes(const CrashGuardSetup &setup);

    /** Opens a drawing or imports foreign ones, without a question; false if nothing came in. */
    bool openFiles(const QStringList &paths);

    /** Opens a drawing, or shows a foreign one before it comes in. */
    void offerFile(const QString &path);

    /** Imports files and shows what came in; number of files that did. */
    int importFiles(const QStringList &paths);

    void addSample();
    void chooseImport();
    void importClipboard();
    void chooseExport(bool selectionOnly);
    void chooseRotation();
    void showMatrixDialog();
    void showCircleDialog();
    void toggleSnap(bool SnapChoice::*what); ///< to shapes, to guides or to the grid
    void toggleRulers();
    void toggleGrid();
    void toggleOrderNumbers();
    void pasteAtMenu();     ///< where the context menu was opened
    void leaveOrDeselect(); ///< one group outward, or else nothing selected
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
    void showAbout();

protected:
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void buildDocument();
    void buildTree();
    void buildProperties();
    void buildOutput();
    void showPreview(bool isShown);
    void buildCommands();
    void connectState();
    void connectFiles();
    void connectFrame();
    void connectPreferences();
    void buildTools();
    void showTool();
    void showCanvasChoices();
    void showAlignTo();
    void dropSavedMessage();
    void repaintFrame();
    bool offerImport(const QStringList &paths, std::optional<QPointF> scenePx);
    bool offerDrawing(const ReadDrawing &read, std::optional<QPointF> scenePx);
    void takeDropped(const QStringList &paths, const QPointF &scenePx);
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
    ShapePanel *m_panel = nullptr;
    ShapeList *m_list = nullptr;
    PropertyDock *m_properties = nullptr;
    DocumentActions *m_actions = nullptr;
    ViewNavigation *m_viewNavigation = nullptr;
    TextTools *m_textTools = nullptr;
    JobTools *m_jobTools = nullptr;
    PrintActions *m_printing = nullptr;
    CodeTools *m_codeTools = nullptr;
    Exporter *m_fileExporter = nullptr;
    DrawingTools *m_tools = nullptr;
    ClipboardActions *m_clipboard = nullptr;
    GroupTools *m_groups = nullptr;
    ArrangeActions *m_arrange = nullptr;
    PathTools *m_paths = nullptr;
    Reimporter *m_reimporter = nullptr;
    SnapTools *m_snap = nullptr;
    GuideTools *m_guides = nullptr;
    RotateHandle *m_rotateHandle = nullptr;
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
    DrawingFiles *m_drawingFiles = nullptr;
    CrashGuard *m_crashGuard = nullptr; ///< null: no recovery files
    QPointer<MatrixDialog> m_matrixDialog;
    QPointer<CircleDialog> m_circleDialog;
    std::unique_ptr<Importer> m_importer;
    QByteArray m_firstLayout;         ///< of docks and toolbars
    bool m_isPanelForPreview = false; ///< the panel is shown for the preview alone
    QTimer m_stateTimer;
    QRectF m_paintedFramePx; ///< where the selection frame stood when it was seen last; or null
    QString m_savedMessage;  ///< of the last save, as long as it is true
    bool m_isLetGo = false;  ///< the user closes the window, and the changes may be lost
};

} // namespace studio
