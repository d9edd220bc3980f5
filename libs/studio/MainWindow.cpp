#include <studio/MainWindow.h>

#include <studio/CommandTable.h>
#include <studio/ContextMenus.h>
#include <studio/DialogManners.h>
#include <studio/DocumentActions.h>
#include <studio/DropImporter.h>
#include <studio/Exporter.h>
#include <studio/FieldCheck.h>
#include <studio/HistoryDock.h>
#include <studio/Icons.h>
#include <studio/Importer.h>
#include <studio/Language.h>
#include <studio/LanguageMenu.h>
#include <studio/MatrixDialog.h>
#include <studio/OrderMenu.h>
#include <studio/PropertyDock.h>
#include <studio/StatusBar.h>
#include <studio/UndoTexts.h>
#include <studio/ViewNavigation.h>
#include <studio/WindowLayout.h>
#include <studio/arrange/ArrangeActions.h>
#include <studio/arrange/CircleDialog.h>
#include <studio/canvas/DrawingTools.h>
#include <studio/canvas/EmptyHint.h>
#include <studio/canvas/FieldShade.h>
#include <studio/canvas/GridItem.h>
#include <studio/canvas/GuideTools.h>
#include <studio/canvas/OrderNumbers.h>
#include <studio/canvas/RotateHandle.h>
#include <studio/canvas/SnapTools.h>
#include <studio/clipboard/ClipboardActions.h>
#include <studio/code/CodeTools.h>
#include <studio/commands/ItemSetCommand.h>
#include <studio/drawing/CrashGuard.h>
#include <studio/drawing/DrawingFiles.h>
#include <studio/drawing/DrawingMessages.h>
#include <studio/drawing/RecentMenu.h>
#include <studio/groups/GroupTools.h>
#include <studio/help/ManualWindow.h>
#include <studio/help/ShortcutSheet.h>
#include <studio/import/ImportDialog.h>
#include <studio/import/Reimporter.h>
#include <studio/job/JobExporter.h>
#include <studio/job/JobPanel.h>
#include <studio/job/JobPreview.h>
#include <studio/job/JobTools.h>
#include <studio/job/PlanPanel.h>
#include <studio/list/ShapeList.h>
#include <studio/list/ShapeListView.h>
#include <studio/nodes/NodeTool.h>
#include <studio/panel/ShapePanel.h>
#include <studio/paths/PathTools.h>
#include <studio/preferences/PreferenceTools.h>
#include <studio/print/PrintActions.h>
#include <studio/text/TextTools.h>

#include <hostkit/drawing/SampleDrawing.h>
#include <hostkit/view/ViewRulers.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QMimeData>
#include <QtCore/QSettings>
#include <QtGui/QClipboard>
#include <QtGui/QCloseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QUndoStack>

namespace studio {

namespace {

const QString kGeometryKey = QStringLiteral("window/geometry");
const QString kStateKey = QStringLiteral("window/state");
const QString kImportFolderKey = QStringLiteral("import/folder");

const QString kDrawingPatterns = QStringLiteral(
    "*.svg *.dxf *.plt *.hpgl *.hpg *.hgl *.plo *.hp *.SVG *.DXF *.PLT *.HPGL *.HPG *.HGL");

// Counts up when a dock comes or goes: a layout without it would be restored around it.
constexpr int kLayoutVersion = 3;

constexpr int kStatusMs = 8000;
constexpr double kPreviewZoomStep = 1.25;
constexpr int kDockWidth = 350;
constexpr int kListHeight = 240;
constexpr int kPanelHeight = 500;
constexpr int kIdWidth = 64;
constexpr int kTextWidth = 70;
constexpr double kFrameOutset = 3.0; ///< pixels on the screen
constexpr int kMostSmooth = 20000;   ///< shapes; with more of them lines are drawn quickly
constexpr int kHandlePx = 24;        ///< room outside the frame that its handles may take
const QSize kFirstSize(1280, 820);

/** Files that come in together: drawings are opened, all else is imported. */
struct FileKinds
{
    QStringList drawings;
    QStringList others;
};

FileKinds kindsOf(const QStringList &paths)
{
    FileKinds files;
    for (const QString &path : paths)
        (DrawingFiles::isDrawing(path) ? files.drawings : files.others) << path;
    return files;
}

} // namespace

MainWindow::MainWindow(std::unique_ptr<Messages> told)
    : m_messages(told ? std::move(told) : std::make_unique<DialogMessages>(this)),
      m_language(std::make_unique<Language>())
{
    setWindowIcon(programIcon());
    buildDocument();
    buildTree();
    buildProperties();
    buildOutput();
    buildCommands();
    retranslate();
    connectState();
    readSettings();
    navigation().home();
}

MainWindow::~MainWindow()
{
    // What watches the document goes first: a document that goes still tells of changes.
    delete m_crashGuard;
    delete m_drawingFiles;
    delete m_matrixDialog;
    delete m_circleDialog;
    delete m_paths;
    delete m_arrange;
    delete m_preferences;
    delete m_jobTools;
    delete m_codeTools;
    delete m_tools;
    delete m_rotateHandle;
    delete m_guides;
    delete m_snap;
    m_orderNumbers.reset();
    m_grid.reset();
    m_fieldShade.reset();
    delete m_emptyHint;
    delete m_groups;
    delete m_clipboard;
    delete m_textTools;
    delete m_fileExporter;
    delete m_status;
    delete m_contextMenus;
    delete m_commandSet;
    delete m_viewNavigation;
    delete m_history;
    delete m_list;
    delete m_panel;
    delete m_properties;
    delete m_actions;
    m_drawing->undoStack()->disconnect(this);
    m_drawing->scene()->disconnect(this);
    m_drawing->itemMag()->itemModel()->disconnect(this);
    delete m_tree;
    delete m_drawing;
}

void MainWindow::buildDocument()
{
    m_drawing = new ZTGraphicsDocument(this);
    m_rulers = new hostkit::ViewRulers(m_drawing, this);
    m_middle = new QStackedWidget(this);
    m_middle->addWidget(m_rulers);
    setCentralWidget(m_middle);
    m_fieldShade = std::make_unique<FieldShade>(*m_drawing);
    m_grid = std::make_unique<GridItem>(*m_drawing->scene());
    m_orderNumbers = std::make_unique<OrderNumbers>(*m_drawing);
    m_drawing->view()->setGridVisible(false);
    m_drawing->scene()->getGraphicsResizeItem()->setOutset(kFrameOutset);
    m_drawing->scene()->getGraphicsResizeItem()->setHandleScale(
        m_drawing->view()->getDisplayScale());
    m_emptyHint = new EmptyHint(*m_drawing);
    // Paper is white in every theme: shapes are drawn in the colours of their pens.
    m_drawing->view()->setBackgroundBrush(Qt::white);
    m_drawing->view()->setFocus();

    m_actions = new DocumentActions(*m_drawing, this);
    m_rotateHandle = new RotateHandle(*m_drawing, *m_actions, this);
    m_snap = new SnapTools(*m_drawing, this);
    m_guides = new GuideTools(*m_drawing, *m_snap, *this);
    m_groups = new GroupTools(*m_drawing, this);
    m_tools = new DrawingTools(*m_drawing, *m_actions, this);
    m_paths = new PathTools(*m_drawing, *m_tools, *m_snap, *this);
    // After the tools: who pans, pans with every tool.
    m_viewNavigation = new ViewNavigation(*m_drawing->view(), this);
    m_importer = std::make_unique<Importer>(*m_drawing, *m_messages);
    m_reimporter = new Reimporter(*m_drawing, *m_messages, this);
    m_drawingFiles = new DrawingFiles(*m_drawing, *m_messages, *this);
    m_textTools = new TextTools(*m_drawing, *m_messages, *this);
    m_codeTools = new CodeTools(*m_drawing, *this);
    m_fileExporter = new Exporter(*m_drawing, *m_messages, *this);
    auto *drops = new DropImporter(*m_drawing->view(), this);
    connect(drops, &DropImporter::filesDropped, this, &MainWindow::takeDropped);
    m_status = new StatusBar(*m_drawing, this);
    setStatusBar(m_status);
    buildTools();
    connect(m_viewNavigation, &ViewNavigation::zoomChanged, m_status, &StatusBar::showZoom);
    connect(m_viewNavigation, &ViewNavigation::zoomChanged, this, [this](double scale) {
        m_drawing->scene()->getGraphicsResizeItem()->setHandleScale(scale);
    });
    connect(m_actions, &DocumentActions::added, m_viewNavigation, &ViewNavigation::reveal);
    connect(m_textTools, &TextTools::told, m_status,
            [this](const QString &text) { m_status->showMessage(text, kStatusMs); });
    connect(m_fileExporter, &Exporter::exported, this, [this](const QString &path, int objects) {
        m_status->showMessage(tr("Mark paths written to %1, shapes: %2")
                                  .arg(QDir::toNativeSeparators(path))
                                  .arg(objects),
                              kStatusMs);
    });
}

void MainWindow::buildTools()
{
    m_clipboard = new ClipboardActions(*m_drawing, *m_importer, *m_messages, this);
    connect(m_clipboard, &ClipboardActions::added, m_viewNavigation, &ViewNavigation::reveal);
    connect(m_clipboard, &ClipboardActions::told, m_status,
            [this](const QString &text) { m_status->showMessage(text, kStatusMs); });
    m_arrange = new ArrangeActions(*m_drawing, *m_groups, this);
    connect(m_reimporter, &Reimporter::told, m_status,
            [this](const QString &words) { m_status->showMessage(words, kStatusMs); });
    connect(m_paths, &PathTools::told, m_status,
            [this](const QString &words) { m_status->showMessage(words, kStatusMs); });
    connect(m_arrange, &ArrangeActions::alignToChanged, this, &MainWindow::refreshCommands);
    connect(m_groups, &GroupTools::told, m_status,
            [this](const QString &words) { m_status->showMessage(words); });
    m_preferences = new PreferenceTools({*m_drawing, *m_language, *m_drawingFiles, *m_actions,
                                         *m_tools, *m_snap, *m_grid, *m_rulers, *this});
    m_guides->watchRuler(m_rulers->horizontal(), Qt::Horizontal);
    m_guides->watchRuler(m_rulers->vertical(), Qt::Vertical);
    m_tools->setSnap([this](const QPointF &placePx,
                            Qt::KeyboardModifiers keys) { return m_snap->place(placePx, keys); },
                     [this] { m_snap->hide(); });
    connect(m_rotateHandle, &RotateHandle::told, m_status,
            [this](const QString &words) { m_status->showMessage(words); });
    connect(m_snap, &SnapTools::told, m_status,
            [this](const QString &words) { m_status->showMessage(words); });
    connect(m_tools, &DrawingTools::told, m_status,
            [this](const QString &words) { m_status->showMessage(words); });
    connect(m_tools, &DrawingTools::chosen, this,
            [this](const QByteArray &id, const std::optional<QCursor> &cursor) {
                m_viewNavigation->setRestingCursor(cursor);
                m_rotateHandle->setResting(id == NodeTool::kId);
                showTool();
            });
}

void MainWindow::showTool()
{
    m_commandSet->action(m_tools->chosenId().constData())->setChecked(true);
}

void MainWindow::showAlignTo()
{
    switch (m_arrange->alignTo()) {
    case AlignTo::EachOther:
        m_commandSet->action("arrange.toEachOther")->setChecked(true);
        break;
    case AlignTo::First:
        m_commandSet->action("arrange.toFirst")->setChecked(true);
        break;
    case AlignTo::Field:
        m_commandSet->action("arrange.toField")->setChecked(true);
        break;
    }
}

void MainWindow::showCanvasChoices()
{
    const SnapChoice &snap = m_snap->choice();
    m_commandSet->action("view.snapToShapes")->setChecked(snap.toShapes);
    m_commandSet->action("view.snapToGuides")->setChecked(snap.toGuides);
    m_commandSet->action("view.snapToGrid")->setChecked(snap.toGrid);
    m_commandSet->action("view.rulers")->setChecked(m_rulers->areRulersVisible());
    m_commandSet->action("view.grid")->setChecked(m_grid->isVisible());
    m_commandSet->action("view.orderNumbers")->setChecked(m_orderNumbers->isShown());
}

void MainWindow::toggleSnap(bool SnapChoice::*what)
{
    SnapChoice choice = m_snap->choice();
    choice.*what = !(choice.*what);
    m_snap->setChoice(choice);
    showCanvasChoices();
}

void MainWindow::toggleRulers()
{
    m_rulers->setRulersVisible(!m_rulers->areRulersVisible());
    showCanvasChoices();
}

void MainWindow::toggleGrid()
{
    m_grid->setVisible(!m_grid->isVisible());
    m_preferences->keepGridShown(m_grid->isVisible());
    showCanvasChoices();
}

void MainWindow::toggleOrderNumbers()
{
    m_orderNumbers->setShown(!m_orderNumbers->isShown());
    showCanvasChoices();
}

void MainWindow::pasteAtMenu() { m_clipboard->pasteAt(m_contextMenus->placePx()); }

void MainWindow::leaveOrDeselect()
{
    if (!m_groups->leave())
        m_actions->clearSelection();
}

void MainWindow::buildTree()
{
    m_tree = new ZTObjectTreeWidget(this);
    m_tree->setObjectName(QStringLiteral("objectTree"));
    m_tree->setRootIsDecorated(false);
    m_tree->setUniformRowHeights(true);
    m_tree->setAlternatingRowColors(true);
    m_drawing->setObjectTree(m_tree);
    connect(m_drawing->scene(), &QGraphicsScene::selectionChanged, this,
            &MainWindow::showSelectionInTree);
    m_treeDock = new QDockWidget(this);
    m_treeDock->setObjectName(QStringLiteral("treeDock"));
    m_treeDock->setWidget(m_tree);
    addDockWidget(Qt::RightDockWidgetArea, m_treeDock);
    labelTree();
}

void MainWindow::buildProperties()
{
    m_panel = new ShapePanel(*m_drawing, *m_actions, this);
    connect(m_panel, &ShapePanel::wordsWanted, m_textTools, &TextTools::showDialog);
    connect(m_panel, &ShapePanel::codeSettingsWanted, m_codeTools, &CodeTools::showDialog);
    addDockWidget(Qt::RightDockWidgetArea, m_panel);
    m_list = new ShapeList(*m_drawing, this);
    addDockWidget(Qt::RightDockWidgetArea, m_list);
    splitDockWidget(m_panel, m_list, Qt::Vertical);
    m_treeDock->hide();
    m_properties = new PropertyDock(*m_drawing, *m_actions, this);
    addDockWidget(Qt::RightDockWidgetArea, m_properties);
    m_properties->hide();
    m_history = new HistoryDock(*m_drawing->undoStack(), this);
    addDockWidget(Qt::RightDockWidgetArea, m_history);
    m_history->hide();
    connect(m_history, &HistoryDock::settling, this, [this] {
        m_actions->finishDrag();
        m_textTools->finishTyping();
        m_tools->giveUp();
    });
    resizeDocks({m_panel}, {kDockWidth}, Qt::Horizontal);
    resizeDocks({m_panel, m_list}, {kPanelHeight, kListHeight}, Qt::Vertical);
    m_firstLayout = saveState(kLayoutVersion);
}

void MainWindow::buildOutput()
{
    m_printing = new PrintActions(*m_drawing, *m_messages, *this);
    connect(m_printing, &PrintActions::written, this, [this](const QString &path) {
        m_status->showMessage(tr("Saved to %1").arg(QDir::toNativeSeparators(path)), kStatusMs);
    });
    m_jobTools = new JobTools(*m_drawing, *m_textTools, *m_messages, *this);
    m_panel->addPage(&m_jobTools->panel(), [] { return tr("Job"); });
    m_panel->addPage(&m_jobTools->preview().panel(), [] { return tr("Plan"); });
    m_panel->setPageShown(&m_jobTools->preview().panel(), false);
    m_middle->addWidget(&m_jobTools->preview());
    connect(m_jobTools, &JobTools::previewing, this, &MainWindow::showPreview);
    connect(m_tools, &DrawingTools::chosen, m_jobTools, &JobTools::leavePreview);
    connect(m_actions, &DocumentActions::added, m_jobTools, &JobTools::leavePreview);
    connect(m_clipboard, &ClipboardActions::added, m_jobTools, &JobTools::leavePreview);
    connect(m_drawingFiles, &DrawingFiles::loaded, m_jobTools, &JobTools::leavePreview);
    connect(m_drawingFiles, &DrawingFiles::emptied, m_jobTools, &JobTools::leavePreview);
    connect(&m_jobTools->exporter(), &JobExporter::written, this,
            [this](const QStringList &files, int) {
                m_status->showMessage(tr("Job written to %1, files: %2")
                                          .arg(QDir::toNativeSeparators(files.first()))
                                          .arg(files.size()),
                                      kStatusMs);
            });
}

// The panel is there as long as the preview is, also for who has put it away.
void MainWindow::showPreview(bool isShown)
{
    if (isShown && m_panel->isHidden()) {
        m_isPanelForPreview = true;
        m_panel->show();
    } else if (!isShown && m_isPanelForPreview) {
        m_isPanelForPreview = false;
        m_panel->hide();
    }
    m_panel->setPageShown(&m_jobTools->preview().panel(), isShown);
    if (isShown)
        m_middle->setCurrentWidget(&m_jobTools->preview());
    else
        m_middle->setCurrentWidget(m_rulers);
    refreshCommands();
    if (!isShown)
        m_drawing->view()->setFocus();
}

void MainWindow::togglePreview()
{
    if (m_jobTools->isPreviewing())
        m_jobTools->leavePreview();
    else
        m_jobTools->showPreview();
    m_commandSet->action("job.preview")->setChecked(m_jobTools->isPreviewing());
}

// Not while the user works in the tree: it would jump away under the mouse.
void MainWindow::showSelectionInTree()
{
    const QItemSelection rows = m_tree->selectionModel()->selection();
    if (!rows.isEmpty() && !m_tree->hasFocus())
        m_tree->scrollTo(rows.first().topLeft());
}

// The tree labels its columns when the language changes, and emptying the drawing takes the labels.
void MainWindow::labelTree()
{
    QEvent languageChange(QEvent::LanguageChange);
    QCoreApplication::sendEvent(m_tree, &languageChange);
    m_tree->header()->resizeSection(0, kIdWidth);
    m_tree->header()->resizeSection(1, kTextWidth);
}

void MainWindow::buildCommands()
{
    m_commandSet = new Commands(*this, *m_drawing->view());
    showTool();
    showAlignTo();
    showCanvasChoices();
    m_orderMenu = new OrderMenu(this);
    auto *recentMenu = new RecentMenu(this);
    connect(recentMenu, &RecentMenu::chosen, this,
            [this](const QString &path) { files().open(path); });
    addMenus(*this, *m_commandSet, {recentMenu, m_orderMenu},
             {m_panel->toggleViewAction(), m_list->toggleViewAction(),
              m_history->toggleViewAction(), m_treeDock->toggleViewAction(),
              m_properties->toggleViewAction(), m_properties->denseRowsAction(),
              (new LanguageMenu(*m_language, this))->menuAction()});
    addToolBars(*this, *m_commandSet);
    m_list->addCommands({m_commandSet->action("order.first"), m_commandSet->action("order.raise"),
                         m_commandSet->action("order.lower"), m_commandSet->action("order.last"),
                         m_commandSet->action("order.reverse")});
    m_contextMenus = new ContextMenus(*m_drawing, *m_tree, *m_actions, *m_commandSet, this);
    m_contextMenus->serve(m_list->view());
    new DialogManners({m_commandSet->action("edit.undo"), m_commandSet->action("edit.redo")},
                      *this);
}

void MainWindow::connectState()
{
    m_stateTimer.setSingleShot(true);
    m_stateTimer.setInterval(0);
    connect(&m_stateTimer, &QTimer::timeout, this, &MainWindow::refreshCommands);
    const auto refreshSoon = [this] { m_stateTimer.start(); };
    const QAbstractItemModel *rows = m_drawing->itemMag()->itemModel();
    connect(rows, &QAbstractItemModel::rowsInserted, this, refreshSoon);
    connect(rows, &QAbstractItemModel::rowsRemoved, this, refreshSoon);
    connect(rows, &QAbstractItemModel::modelReset, this, refreshSoon);
    connect(m_drawing->scene(), &QGraphicsScene::selectionChanged, this,
            &MainWindow::refreshCommands);
    const QUndoStack *stack = m_drawing->undoStack();
    connect(stack, &QUndoStack::indexChanged, this, &MainWindow::refreshCommands);
    connect(stack, &QUndoStack::undoTextChanged, this, &MainWindow::refreshUndoTexts);
    connect(stack, &QUndoStack::redoTextChanged, this, &MainWindow::refreshUndoTexts);
    connectFiles();
    connectFrame();
    connectPreferences();
    refreshCommands();
}

void MainWindow::connectPreferences()
{
    connect(m_preferences, &PreferenceTools::applied, this, [this] {
        showCanvasChoices();
        if (m_crashGuard != nullptr)
            m_crashGuard->autosaver().setIntervalMs(m_preferences->preferences().autosaveSeconds *
                                                    1000);
    });
    connect(m_orderMenu, &OrderMenu::changed, m_orderNumbers.get(), &OrderNumbers::followSoon);
}

void MainWindow::connectFrame()
{
    const ZTGraphicsResizeItem *frame = m_drawing->scene()->getGraphicsResizeItem();
    connect(m_drawing->scene(), &QGraphicsScene::selectionChanged, this, &MainWindow::repaintFrame);
    connect(frame, &ZTGraphicsResizeItem::sigPosChanged, this, &MainWindow::repaintFrame);
    connect(frame, &ZTGraphicsResizeItem::sigSizeChanged, this, &MainWindow::repaintFrame);
}

// The frame's handles keep their size at every zoom, and Qt does not always know where it painted
// them last: after scrolling, the handles of what was selected before would stay on the screen.
void MainWindow::repaintFrame()
{
    const QRect inner = m_drawing->view()->mapFromScene(m_paintedFramePx).boundingRect();
    if (!m_paintedFramePx.isNull()) {
        const QRect outer = inner.adjusted(-kHandlePx, -kHandlePx, kHandlePx, kHandlePx);
        m_drawing->view()->viewport()->update(QRegion(outer) - QRegion(inner));
    }
    const ZTGraphicsResizeItem *frame = m_drawing->scene()->getGraphicsResizeItem();
    m_paintedFramePx = frame->isVisible() ? frame->rect().translated(frame->pos()) : QRectF();
}

void MainWindow::connectFiles()
{
    DrawingSession *session = &files().session();
    connect(session, &DrawingSession::stateChanged, this, &MainWindow::refreshTitle);
    connect(session, &DrawingSession::stateChanged, this, &MainWindow::refreshCommands);
    connect(m_orderMenu, &OrderMenu::changed, session, &DrawingSession::markChanged);
    connect(m_orderMenu, &OrderMenu::changed, m_list, &ShapeList::showMarkingRule);
    connect(m_textTools, &TextTools::partChanged, session, &DrawingSession::markChanged);
    connect(m_textTools, &TextTools::partChanged, m_list, &ShapeList::followSoon);
    connect(m_textTools, &TextTools::partChanged, m_panel, &ShapePanel::follow);
    connect(m_drawingFiles, &DrawingFiles::settling, m_textTools, &TextTools::finishTyping);
    connect(m_drawingFiles, &DrawingFiles::emptied, this, [this] {
        labelTree();
        m_orderMenu->restore();
        m_jobTools->panel().refresh();
        navigation().home();
    });
    connect(m_drawingFiles, &DrawingFiles::loaded, this, &MainWindow::showReplacedDrawing);
    connect(m_drawingFiles, &DrawingFiles::loaded, m_guides, &GuideTools::follow);
    connect(m_drawingFiles, &DrawingFiles::emptied, m_guides, &GuideTools::follow);
    m_jobTools->exporter().setDrawingPath([session] { return session->path(); });
    connect(m_drawingFiles, &DrawingFiles::saved, &m_jobTools->exporter(), &JobExporter::noteSaved);
    connect(m_drawingFiles, &DrawingFiles::saved, this, [this](const QString &path) {
        m_savedMessage = tr("Saved to %1").arg(QDir::toNativeSeparators(path));
        m_status->showMessage(m_savedMessage, kStatusMs);
    });
    connect(session, &DrawingSession::stateChanged, this, &MainWindow::dropSavedMessage);
}

// What the bar says of the last save is true until the drawing changes.
void MainWindow::dropSavedMessage()
{
    if (!files().session().isModified() || m_savedMessage.isEmpty())
        return;
    if (m_status->currentMessage() == m_savedMessage)
        m_status->clearMessage();
    m_savedMessage.clear();
}

void MainWindow::showReplacedDrawing()
{
    labelTree();
    m_orderMenu->follow();
    m_jobTools->panel().refresh();
    navigation().home();
    fitAll();
}

void MainWindow::guardAgainstCrashes(const CrashGuardSetup &setup)
{
    delete m_crashGuard;
    m_crashGuard = new CrashGuard(*m_drawingFiles, *m_messages, *this, setup);
    m_crashGuard->offerFound();
}

void MainWindow::showRecovery()
{
    if (m_crashGuard != nullptr)
        m_crashGuard->showDialog();
}

void MainWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

// The widgets of the window's classes do the same for themselves.
void MainWindow::retranslate()
{
    refreshTitle();
    m_treeDock->setWindowTitle(tr("Engine objects"));
    retranslateTitles(*this);
    m_commandSet->retranslate();
    refreshUndoTexts();
}

void MainWindow::refreshTitle()
{
    const DrawingSession &session = files().session();
    // "[*]" is where the mark of a changed drawing goes, and stands for itself when doubled.
    QString name = session.name();
    name.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
    setWindowTitle(tr("%1[*] - Studio").arg(name));
    setWindowModified(session.isModified());
    setWindowFilePath(session.path());
}

void MainWindow::refreshCommands()
{
    EditorState state;
    m_drawing->view()->setRenderHint(QPainter::Antialiasing,
                                     m_drawing->itemMag()->itemModel()->rowCount() <= kMostSmooth);
    state.shapes = m_drawing->itemMag()->itemModel()->rowCount();
    state.selected = m_drawing->scene()->selectedItems().size();
    state.isAlignable = m_arrange->canAlign();
    state.isOneText = m_textTools->selectedText() != nullptr;
    state.isOneCode = m_codeTools->selectedCode() != nullptr;
    state.canUndo = m_drawing->undoStack()->canUndo();
    state.canRedo = m_drawing->undoStack()->canRedo();
    state.canRevert = !files().session().path().isEmpty() && files().session().isModified();
    m_commandSet->enableFor(state);
    QAction *preview = m_commandSet->action("job.preview");
    preview->setChecked(m_jobTools->isPreviewing());
    preview->setEnabled(preview->isEnabled() || m_jobTools->isPreviewing());
}

void MainWindow::refreshUndoTexts()
{
    const QString undoText = readableUndoText(m_drawing->undoStack()->undoText());
    const QString redoText = readableUndoText(m_drawing->undoStack()->redoText());
    m_commandSet->action("edit.undo")
        ->setText(undoText.isEmpty() ? tr("&Undo") : tr("&Undo: %1").arg(undoText));
    m_commandSet->action("edit.redo")
        ->setText(redoText.isEmpty() ? tr("&Redo") : tr("&Redo: %1").arg(redoText));
}

void MainWindow::readSettings()
{
    const QSettings settings;
    if (!restoreGeometry(settings.value(kGeometryKey).toByteArray()))
        resize(kFirstSize);
    restoreState(settings.value(kStateKey).toByteArray(), kLayoutVersion);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    m_textTools->finishTyping();
    if (files().isBusy() || (files().session().isModified() && !m_isLetGo)) {
        event->ignore();
        files().confirmLoss([this] {
            m_isLetGo = true;
            close();
        });
        return;
    }
    if (m_crashGuard != nullptr)
        m_crashGuard->letGo();
    m_jobTools->leavePreview();
    QSettings settings;
    settings.setValue(kGeometryKey, saveGeometry());
    settings.setValue(kStateKey, saveState(kLayoutVersion));
    QMainWindow::closeEvent(event);
}

bool MainWindow::openFiles(const QStringList &paths)
{
    const FileKinds files = kindsOf(paths);
    const bool isOpened = !files.drawings.isEmpty() && m_drawingFiles->load(files.drawings.first());
    const bool isImported = !files.others.isEmpty() && importFiles(files.others) > 0;
    return isOpened || isImported;
}

void MainWindow::offerFile(const QString &path)
{
    if (DrawingFiles::isDrawing(path))
        m_drawingFiles->load(path);
    else
        offerImport({path}, std::nullopt);
}

// A drawing takes the place of the one in the window; plotter files come into the one they fall on.
void MainWindow::takeDropped(const QStringList &paths, const QPointF &scenePx)
{
    const FileKinds dropped = kindsOf(paths);
    const auto import = [this, dropped, scenePx] {
        if (!dropped.others.isEmpty())
            offerImport(dropped.others, scenePx);
    };
    if (dropped.drawings.isEmpty()) {
        import();
        return;
    }
    const QString first = dropped.drawings.first();
    files().open(first, [this, import, first, left = dropped.drawings.mid(1)] {
        if (!left.isEmpty())
            m_messages->warning(onlyOneOpened(first, left));
        import();
    });
}

int MainWindow::importFiles(const QStringList &paths)
{
    m_jobTools->leavePreview();
    const int imported = m_importer->importFiles(paths);
    if (imported > 0)
        navigation().reveal(m_drawing->scene()->getSelectionItemRect());
    return imported;
}

// One drawing is shown before it comes in; several come in as the last one did.
bool MainWindow::offerImport(const QStringList &paths, std::optional<QPointF> scenePx)
{
    m_jobTools->leavePreview();
    if (paths.size() > 1)
        return m_importer->importFiles(paths, scenePx) > 0;
    ReadDrawing read;
    return m_importer->read(paths.first(), &read) && offerDrawing(read, scenePx);
}

bool MainWindow::offerDrawing(const ReadDrawing &read, std::optional<QPointF> scenePx)
{
    auto *dialog = new ImportDialog(read.path, read.drawing, this);
    connect(dialog, &ImportDialog::chosen, this, [this, dialog, path = read.path, scenePx] {
        const ReadDrawing taken{path, dialog->drawing(), dialog->scale().width(),
                                dialog->scale().height(), dialog->cleaning()};
        if (m_importer->bringIn({taken}, dialog->options(), scenePx) > 0)
            navigation().reveal(m_drawing->scene()->getSelectionItemRect());
    });
    dialog->open();
    return true;
}

void MainWindow::importClipboard()
{
    const QMimeData *held = QGuiApplication::clipboard()->mimeData();
    QByteArray bytes = held != nullptr ? held->data(QStringLiteral("image/svg+xml")) : QByteArray();
    if (bytes.isEmpty() && held != nullptr)
        bytes = held->text().toUtf8();
    ReadDrawing read;
    if (m_importer->read(bytes, tr("clipboard"), &read))
        offerDrawing(read, std::nullopt);
}

void MainWindow::chooseImport()
{
    auto *dialog = new QFileDialog(this, tr("Import drawings"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    dialog->setNameFilters({tr("Drawings (%1)").arg(kDrawingPatterns), tr("All files (*)")});
    dialog->setDirectory(QSettings().value(kImportFolderKey, QDir::homePath()).toString());
    connect(dialog, &QFileDialog::filesSelected, this, [this](const QStringList &paths) {
        QSettings().setValue(kImportFolderKey, QFileInfo(paths.first()).absolutePath());
        offerImport(paths, std::nullopt);
    });
    dialog->open();
}

void MainWindow::chooseExport(bool selectionOnly)
{
    const QGraphicsScene &scene = *m_drawing->scene();
    const ShapeItems exported = selectionOnly ? selectedShapeItems(scene) : shapeItemsOf(scene);
    askAboutField(exported, *m_drawing, *this,
                  [this, selectionOnly] { m_fileExporter->choose(selectionOnly); });
}

void MainWindow::addSample()
{
    const ShapeItems before = shapeItemsOf(*m_drawing->scene());
    const ShapeItems selectedBefore = selectedShapeItems(*m_drawing->scene());
    m_jobTools->leavePreview();
    hostkit::buildSampleDrawing(*m_drawing);
    const ShapeItems added = shapeItemsOf(*m_drawing->scene()).mid(before.size());
    m_drawing->undoStack()->push(new AddItemsCommand(
        m_drawing->itemMag(), added, selectedBefore,
        undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Add sample drawing"))));
    m_drawing->scene()->clearSelection();
    fitAll();
}

void MainWindow::chooseRotation()
{
    auto *dialog = new QInputDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("rotationDialog"));
    dialog->setWindowTitle(tr("Rotate"));
    dialog->setLabelText(tr("Degrees, anticlockwise:"));
    dialog->setInputMode(QInputDialog::DoubleInput);
    dialog->setDoubleDecimals(3);
    dialog->setDoubleRange(-360.0, 360.0);
    dialog->setDoubleStep(5.0);
    dialog->setDoubleValue(45.0);
    connect(dialog, &QInputDialog::doubleValueSelected, m_actions,
            [this](double anticlockwiseDeg) { m_actions->rotate(-anticlockwiseDeg); });
    dialog->open();
}

void MainWindow::showMatrixDialog()
{
    if (!m_matrixDialog)
        m_matrixDialog = new MatrixDialog(*m_drawing, *m_actions, this);
    m_matrixDialog->show();
    m_matrixDialog->raise();
    m_matrixDialog->activateWindow();
}

void MainWindow::showCircleDialog()
{
    if (!m_circleDialog)
        m_circleDialog = new CircleDialog(*m_drawing, *m_arrange, this);
    m_circleDialog->show();
    m_circleDialog->raise();
    m_circleDialog->activateWindow();
}

void MainWindow::resetLayout() { restoreState(m_firstLayout, kLayoutVersion); }

void MainWindow::zoomIn()
{
    if (m_jobTools->isPreviewing())
        m_jobTools->preview().plan().zoomBy(kPreviewZoomStep);
    else
        navigation().zoomIn();
}

void MainWindow::zoomOut()
{
    if (m_jobTools->isPreviewing())
        m_jobTools->preview().plan().zoomBy(1.0 / kPreviewZoomStep);
    else
        navigation().zoomOut();
}

void MainWindow::zoomHome()
{
    if (m_jobTools->isPreviewing())
        m_jobTools->preview().plan().fit();
    else
        navigation().home();
}

void MainWindow::fitSelection()
{
    if (m_jobTools->isPreviewing())
        m_jobTools->showSelected();
    else
        navigation().fit(m_drawing->scene()->getSelectionItemRect());
}

void MainWindow::fitAll()
{
    if (m_jobTools->isPreviewing())
        m_jobTools->preview().plan().fit();
    else
        navigation().fit(sceneBox(shapeItemsOf(*m_drawing->scene())));
}

void MainWindow::showManual()
{
    auto *manual = findChild<ManualWindow *>();
    if (manual == nullptr)
        manual = new ManualWindow(this);
    manual->show();
    manual->raise();
    manual->activateWindow();
}

void MainWindow::showShortcuts()
{
    auto *sheet = findChild<ShortcutSheet *>();
    if (sheet == nullptr)
        sheet = new ShortcutSheet(this);
    sheet->show();
    sheet->raise();
    sheet->activateWindow();
}

void MainWindow::showAbout()
{
    auto *box =
        new QMessageBox(QMessageBox::NoIcon, tr("About"),
                        tr("Studio %1").arg(QStringLiteral(ZT_VERSION)), QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setIconPixmap(windowIcon().pixmap(64));
    box->setInformativeText(tr("Draws what a laser marks, and hands out the paths."));
    box->open();
}

} // namespace studio
