#include <studio/window/MainWindow.h>

#include <studio/arrange/ArrangeActions.h>
#include <studio/arrange/CircleDialog.h>
#include <studio/canvas/DrawingTools.h>
#include <studio/canvas/EmptyHint.h>
#include <studio/canvas/FieldShade.h>
#include <studio/canvas/GridItem.h>
#include <studio/canvas/GuideTools.h>
#include <studio/canvas/OrderNumbers.h>
#include <studio/canvas/SnapTools.h>
#include <studio/clipboard/ClipboardActions.h>
#include <studio/code/CodeTools.h>
#include <studio/drawing/CrashGuard.h>
#include <studio/drawing/DrawingFiles.h>
#include <studio/drawing/RecentMenu.h>
#include <studio/edit/DocumentActions.h>
#include <studio/edit/MatrixDialog.h>
#include <studio/help/DocumentationWindow.h>
#include <studio/help/ManualWindow.h>
#include <studio/import/DropImporter.h>
#include <studio/job/JobPanel.h>
#include <studio/job/JobPreview.h>
#include <studio/job/JobTools.h>
#include <studio/job/PlanPanel.h>
#include <studio/list/ShapeList.h>
#include <studio/list/ShapeListView.h>
#include <studio/panel/ShapePanel.h>
#include <studio/preferences/PreferenceTools.h>
#include <studio/program/Icons.h>
#include <studio/program/Language.h>
#include <studio/program/UndoTexts.h>
#include <studio/properties/PropertyDock.h>
#include <studio/text/TextTools.h>
#include <studio/window/CommandTable.h>
#include <studio/window/ContextMenus.h>
#include <studio/window/DialogManners.h>
#include <studio/window/Editor.h>
#include <studio/window/HistoryDock.h>
#include <studio/window/LanguageMenu.h>
#include <studio/window/OrderMenu.h>
#include <studio/window/ShortcutSheet.h>
#include <studio/window/StatusBar.h>
#include <studio/window/ViewNavigation.h>
#include <studio/window/WindowLayout.h>

#include <hostkit/items/HatchLook.h>
#include <hostkit/view/ViewRulers.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QSettings>
#include <QtGui/QCloseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QUndoStack>

namespace studio {

namespace {

const QString kGeometryKey = QStringLiteral("window/geometry");
const QString kStateKey = QStringLiteral("window/state");

// Counts up when a dock comes or goes: a layout without it would be restored around it.
constexpr int kLayoutVersion = 3;

constexpr int kStatusMs = 8000;
constexpr double kPreviewZoomStep = 1.25;
constexpr int kDockWidth = 350;
constexpr int kListHeight = 240;
constexpr int kPanelHeight = 500;
constexpr int kIdWidth = 64;
constexpr int kTextWidth = 70;
constexpr double kFrameOutset = 3.0;    ///< pixels on the screen
constexpr int kMostSmooth = 20000;      ///< shapes; with more of them lines are drawn quickly
constexpr double kHatchStrength = 0.45; ///< hatch lines are paler than outlines
const QSize kFirstSize(1280, 820);

} // namespace

MainWindow::MainWindow(std::unique_ptr<Messages> told)
    : m_messages(told ? std::move(told) : std::make_unique<DialogMessages>(this)),
      m_language(std::make_unique<Language>())
{
    setWindowIcon(programIcon());
    buildDocument();
    buildTree();
    buildProperties();
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
    delete m_matrixDialog;
    delete m_circleDialog;
    delete m_preferences;
    m_editor.reset();
    delete m_status;
    delete m_contextMenus;
    delete m_commandSet;
    delete m_viewNavigation;
    delete m_history;
    delete m_list;
    delete m_panel;
    delete m_properties;
    m_orderNumbers.reset();
    m_grid.reset();
    m_fieldShade.reset();
    delete m_emptyHint;
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
    hostkit::setHatchStrength(*m_drawing->view(), kHatchStrength);
    m_drawing->view()->setFocus();

    buildEditor();
}

void MainWindow::buildEditor()
{
    m_editor = std::make_unique<Editor>(*m_drawing, *m_messages, *this);
    // After the tools: who pans, pans with every tool.
    m_viewNavigation = new ViewNavigation(*m_drawing->view(), this);
    auto *drops = new DropImporter(*m_drawing->view(), this);
    connect(drops, &DropImporter::filesDropped, m_editor.get(), &Editor::takeDropped);
    m_status = new StatusBar(*m_drawing, this);
    setStatusBar(m_status);
    m_preferences =
        new PreferenceTools({*m_drawing, *m_language, m_editor->files(), m_editor->actions(),
                             m_editor->tools(), m_editor->snapping(), *m_grid, *m_rulers, *this});
    m_editor->guides().watchRuler(m_rulers->horizontal(), Qt::Horizontal);
    m_editor->guides().watchRuler(m_rulers->vertical(), Qt::Vertical);
    connect(m_viewNavigation, &ViewNavigation::zoomChanged, m_status, &StatusBar::showZoom);
    connect(m_viewNavigation, &ViewNavigation::zoomChanged, this, [this](double scale) {
        m_drawing->scene()->getGraphicsResizeItem()->setHandleScale(scale);
    });
    connect(m_editor.get(), &Editor::added, m_viewNavigation, &ViewNavigation::reveal);
    connect(m_editor.get(), &Editor::told, m_status,
            [this](const QString &words, int ms) { m_status->showMessage(words, ms); });
    connect(&m_editor->arrange(), &ArrangeActions::alignToChanged, this,
            &MainWindow::refreshCommands);
    connect(&m_editor->tools(), &DrawingTools::chosen, this,
            [this](const QByteArray &, const std::optional<QCursor> &cursor) {
                m_viewNavigation->setRestingCursor(cursor);
                showTool();
            });
}

void MainWindow::showTool() { m_commandSet->named(m_editor->tools().chosenId())->setChecked(true); }

void MainWindow::showAlignTo()
{
    switch (m_editor->arrange().alignTo()) {
    case AlignTo::EachOther:
        m_commandSet->action(ids::kArrangeToEachOther)->setChecked(true);
        break;
    case AlignTo::First:
        m_commandSet->action(ids::kArrangeToFirst)->setChecked(true);
        break;
    case AlignTo::Field:
        m_commandSet->action(ids::kArrangeToField)->setChecked(true);
        break;
    }
}

void MainWindow::showCanvasChoices()
{
    const SnapChoice &snap = m_editor->snapping().choice();
    m_commandSet->action(ids::kViewSnapToShapes)->setChecked(snap.toShapes);
    m_commandSet->action(ids::kViewSnapToGuides)->setChecked(snap.toGuides);
    m_commandSet->action(ids::kViewSnapToGrid)->setChecked(snap.toGrid);
    m_commandSet->action(ids::kViewRulers)->setChecked(m_rulers->areRulersVisible());
    m_commandSet->action(ids::kViewGrid)->setChecked(m_grid->isVisible());
    m_commandSet->action(ids::kViewOrderNumbers)->setChecked(m_orderNumbers->isShown());
}

void MainWindow::toggleSnap(bool SnapChoice::*what)
{
    SnapChoice choice = m_editor->snapping().choice();
    choice.*what = !(choice.*what);
    m_editor->snapping().setChoice(choice);
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

void MainWindow::pasteAtMenu() { m_editor->clipboard().pasteAt(m_contextMenus->placePx()); }

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
    m_panel = new ShapePanel(*m_drawing, m_editor->actions(), this);
    connect(m_panel, &ShapePanel::wordsWanted, &m_editor->text(), &TextTools::showDialog);
    connect(m_panel, &ShapePanel::codeSettingsWanted, &m_editor->codes(), &CodeTools::showDialog);
    addDockWidget(Qt::RightDockWidgetArea, m_panel);
    m_list = new ShapeList(*m_drawing, this);
    addDockWidget(Qt::RightDockWidgetArea, m_list);
    splitDockWidget(m_panel, m_list, Qt::Vertical);
    m_treeDock->hide();
    m_properties = new PropertyDock(*m_drawing, m_editor->actions(), this);
    addDockWidget(Qt::RightDockWidgetArea, m_properties);
    m_properties->hide();
    m_history = new HistoryDock(*m_drawing->undoStack(), this);
    addDockWidget(Qt::RightDockWidgetArea, m_history);
    m_history->hide();
    connect(m_history, &HistoryDock::settling, m_editor.get(), &Editor::finishEdits);
    resizeDocks({m_panel}, {kDockWidth}, Qt::Horizontal);
    resizeDocks({m_panel, m_list}, {kPanelHeight, kListHeight}, Qt::Vertical);
    m_firstLayout = saveState(kLayoutVersion);
    JobPreview *preview = &m_editor->job().preview();
    m_panel->addPage(&m_editor->job().panel(), [] { return tr("Job"); });
    m_panel->addPage(&preview->panel(), [] { return tr("Plan"); });
    m_panel->setPageShown(&preview->panel(), false);
    m_middle->addWidget(preview);
    // Put away, it takes no room from the docks.
    preview->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    connect(&m_editor->job(), &JobTools::previewing, this, &MainWindow::showPreview);
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
    m_panel->setPageShown(&m_editor->job().preview().panel(), isShown);
    const auto room = isShown ? QSizePolicy::Preferred : QSizePolicy::Ignored;
    m_editor->job().preview().setSizePolicy(room, room);
    if (isShown)
        m_middle->setCurrentWidget(&m_editor->job().preview());
    else
        m_middle->setCurrentWidget(m_rulers);
    refreshCommands();
    if (!isShown)
        m_drawing->view()->setFocus();
}

void MainWindow::togglePreview()
{
    if (m_editor->job().isPreviewing())
        m_editor->job().leavePreview();
    else
        m_editor->job().showPreview();
    m_commandSet->action(ids::kJobPreview)->setChecked(m_editor->job().isPreviewing());
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
            [this](const QString &path) { m_editor->files().open(path); });
    addMenus(*this, *m_commandSet, {recentMenu, m_orderMenu},
             {m_panel->toggleViewAction(), m_list->toggleViewAction(),
              m_history->toggleViewAction(), m_treeDock->toggleViewAction(),
              m_properties->toggleViewAction(), m_properties->denseRowsAction(),
              (new LanguageMenu(*m_language, this))->menuAction()});
    addToolBars(*this, *m_commandSet);
    m_list->addCommands(
        {m_commandSet->action(ids::kOrderFirst), m_commandSet->action(ids::kOrderRaise),
         m_commandSet->action(ids::kOrderLower), m_commandSet->action(ids::kOrderLast),
         m_commandSet->action(ids::kOrderReverse)});
    m_contextMenus =
        new ContextMenus(*m_drawing, *m_tree, m_editor->actions(), *m_commandSet, this);
    m_contextMenus->serve(m_list->view());
    new DialogManners(m_commandSet->findChildren<QAction *>(), *this);
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

void MainWindow::connectFiles()
{
    DrawingFiles *files = &m_editor->files();
    DrawingSession *session = &files->session();
    connect(session, &DrawingSession::stateChanged, this, &MainWindow::refreshTitle);
    connect(session, &DrawingSession::stateChanged, this, &MainWindow::refreshCommands);
    connect(session, &DrawingSession::stateChanged, this, &MainWindow::dropSavedMessage);
    connect(m_orderMenu, &OrderMenu::changed, session, &DrawingSession::markChanged);
    connect(m_orderMenu, &OrderMenu::changed, m_list, &ShapeList::showMarkingRule);
    connect(&m_editor->text(), &TextTools::partChanged, m_list, &ShapeList::followSoon);
    connect(&m_editor->text(), &TextTools::partChanged, m_panel, &ShapePanel::follow);
    connect(files, &DrawingFiles::emptied, this, [this] {
        labelTree();
        m_orderMenu->restore();
        m_editor->job().panel().refresh();
        navigation().home();
    });
    connect(files, &DrawingFiles::loaded, this, &MainWindow::showReplacedDrawing);
    connect(files, &DrawingFiles::saved, this, [this](const QString &path) {
        m_savedMessage = tr("Saved to %1").arg(QDir::toNativeSeparators(path));
        m_status->showMessage(m_savedMessage, kStatusMs);
    });
}

// What the bar says of the last save is true until the drawing changes.
void MainWindow::dropSavedMessage()
{
    if (!m_editor->files().session().isModified() || m_savedMessage.isEmpty())
        return;
    m_status->takeBack(m_savedMessage);
    m_savedMessage.clear();
}

void MainWindow::showReplacedDrawing()
{
    labelTree();
    m_orderMenu->follow();
    m_editor->job().panel().refresh();
    navigation().home();
    fitAll();
}

void MainWindow::guardAgainstCrashes(const CrashGuardSetup &setup)
{
    delete m_crashGuard;
    m_crashGuard = new CrashGuard(m_editor->files(), *m_messages, *this, setup);
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
    const DrawingSession &session = m_editor->files().session();
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
    state.selected = m_drawing->scene()->getGraphicsResizeItem()->selectItem().size();
    state.isAlignable = m_editor->arrange().canAlign();
    state.isOneText = m_editor->text().selectedText() != nullptr;
    state.isOneCode = m_editor->codes().selectedCode() != nullptr;
    state.canUndo = m_drawing->undoStack()->canUndo();
    state.canRedo = m_drawing->undoStack()->canRedo();
    state.canRevert =
        !m_editor->files().session().path().isEmpty() && m_editor->files().session().isModified();
    m_commandSet->enableFor(state);
    QAction *preview = m_commandSet->action(ids::kJobPreview);
    preview->setChecked(m_editor->job().isPreviewing());
    preview->setEnabled(preview->isEnabled() || m_editor->job().isPreviewing());
}

void MainWindow::refreshUndoTexts()
{
    const QString undoText = readableUndoText(m_drawing->undoStack()->undoText());
    const QString redoText = readableUndoText(m_drawing->undoStack()->redoText());
    m_commandSet->action(ids::kEditUndo)
        ->setText(undoText.isEmpty() ? tr("&Undo") : tr("&Undo: %1").arg(undoText));
    m_commandSet->action(ids::kEditRedo)
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
    m_editor->text().finishTyping();
    if (m_editor->files().isBusy() || (m_editor->files().session().isModified() && !m_isLetGo)) {
        event->ignore();
        m_editor->files().confirmLoss([this] {
            m_isLetGo = true;
            close();
        });
        return;
    }
    if (m_crashGuard != nullptr)
        m_crashGuard->letGo();
    m_editor->job().leavePreview();
    QSettings settings;
    settings.setValue(kGeometryKey, saveGeometry());
    settings.setValue(kStateKey, saveState(kLayoutVersion));
    QMainWindow::closeEvent(event);
}

void MainWindow::addSample()
{
    m_editor->addSample();
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
    connect(dialog, &QInputDialog::doubleValueSelected, &m_editor->actions(),
            [this](double anticlockwiseDeg) { m_editor->actions().rotate(-anticlockwiseDeg); });
    dialog->open();
}

void MainWindow::showMatrixDialog()
{
    if (!m_matrixDialog)
        m_matrixDialog = new MatrixDialog(*m_drawing, m_editor->actions(), this);
    m_matrixDialog->show();
    m_matrixDialog->raise();
    m_matrixDialog->activateWindow();
}

void MainWindow::showCircleDialog()
{
    if (!m_circleDialog)
        m_circleDialog = new CircleDialog(*m_drawing, m_editor->arrange(), this);
    m_circleDialog->show();
    m_circleDialog->raise();
    m_circleDialog->activateWindow();
}

void MainWindow::resetLayout() { restoreState(m_firstLayout, kLayoutVersion); }

void MainWindow::zoomIn()
{
    if (m_editor->job().isPreviewing())
        m_editor->job().preview().plan().zoomBy(kPreviewZoomStep);
    else
        navigation().zoomIn();
}

void MainWindow::zoomOut()
{
    if (m_editor->job().isPreviewing())
        m_editor->job().preview().plan().zoomBy(1.0 / kPreviewZoomStep);
    else
        navigation().zoomOut();
}

void MainWindow::zoomHome()
{
    if (m_editor->job().isPreviewing())
        m_editor->job().preview().plan().fit();
    else
        navigation().home();
}

void MainWindow::fitSelection()
{
    if (m_editor->job().isPreviewing())
        m_editor->job().showSelected();
    else
        navigation().fit(m_drawing->scene()->getSelectionItemRect());
}

void MainWindow::fitAll()
{
    if (m_editor->job().isPreviewing())
        m_editor->job().preview().plan().fit();
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

void MainWindow::showDocumentation()
{
    auto *pages = findChild<DocumentationWindow *>();
    if (pages == nullptr)
        pages = new DocumentationWindow(documentationFile(QCoreApplication::applicationDirPath()),
                                        this);
    pages->show();
    pages->raise();
    pages->activateWindow();
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
