#include <studio/MainWindow.h>

#include <studio/CommandTable.h>
#include <studio/ContextMenus.h>
#include <studio/DocumentActions.h>
#include <studio/DropImporter.h>
#include <studio/Exporter.h>
#include <studio/FieldCheck.h>
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
#include <studio/commands/ItemSetCommand.h>
#include <studio/drawing/CrashGuard.h>
#include <studio/drawing/DrawingFiles.h>
#include <studio/drawing/DrawingMessages.h>
#include <studio/drawing/RecentMenu.h>
#include <studio/import/ImportDialog.h>
#include <studio/text/TextTools.h>

#include <hostkit/drawing/SampleDrawing.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QMimeData>
#include <QtCore/QSettings>
#include <QtGui/QClipboard>
#include <QtGui/QCloseEvent>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QUndoStack>

namespace studio {

namespace {

const QString kGeometryKey = QStringLiteral("window/geometry");
const QString kStateKey = QStringLiteral("window/state");
const QString kImportFolderKey = QStringLiteral("import/folder");

const QString kDrawingPatterns = QStringLiteral(
    "*.svg *.dxf *.plt *.hpgl *.hpg *.hgl *.plo *.hp *.SVG *.DXF *.PLT *.HPGL *.HPG *.HGL");

constexpr int kStatusMs = 8000;
constexpr int kDockWidth = 320;
constexpr int kTreeHeight = 260;
constexpr int kPropertiesHeight = 460;
constexpr int kIdWidth = 64;
constexpr int kTextWidth = 70;
constexpr int kHandlePx = 24; ///< room outside the frame that its handles may take
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
    : messages(told ? std::move(told) : std::make_unique<DialogMessages>(this)),
      language(std::make_unique<Language>())
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
    delete crashGuard;
    delete drawingFiles;
    delete matrixDialog;
    delete textTools;
    delete fileExporter;
    delete status;
    delete contextMenus;
    delete commandSet;
    delete viewNavigation;
    delete properties;
    delete actions;
    drawing->undoStack()->disconnect(this);
    drawing->scene()->disconnect(this);
    drawing->itemMag()->itemModel()->disconnect(this);
    delete tree;
    delete drawing;
}

void MainWindow::buildDocument()
{
    drawing = new ZTGraphicsDocument(this);
    setCentralWidget(drawing);
    // Paper is white in every theme: shapes are drawn in the colours of their pens.
    drawing->view()->setBackgroundBrush(Qt::white);
    drawing->view()->setFocus();

    actions = new DocumentActions(*drawing, this);
    viewNavigation = new ViewNavigation(*drawing->view(), this);
    importer = std::make_unique<Importer>(*drawing, *messages);
    drawingFiles = new DrawingFiles(*drawing, *messages, *this);
    textTools = new TextTools(*drawing, *messages, *this);
    fileExporter = new Exporter(*drawing, *messages, *this);
    auto *drops = new DropImporter(*drawing->view(), this);
    connect(drops, &DropImporter::filesDropped, this, &MainWindow::takeDropped);
    status = new StatusBar(*drawing, this);
    setStatusBar(status);
    connect(viewNavigation, &ViewNavigation::zoomChanged, status, &StatusBar::showZoom);
    connect(actions, &DocumentActions::added, viewNavigation, &ViewNavigation::reveal);
    connect(textTools, &TextTools::told, status,
            [this](const QString &text) { status->showMessage(text, kStatusMs); });
    connect(fileExporter, &Exporter::exported, this, [this](const QString &path, int objects) {
        status->showMessage(tr("Mark paths of %1 shapes written to %2")
                                .arg(objects)
                                .arg(QDir::toNativeSeparators(path)),
                            kStatusMs);
    });
}

void MainWindow::buildTree()
{
    tree = new ZTObjectTreeWidget(this);
    tree->setObjectName(QStringLiteral("objectTree"));
    tree->setRootIsDecorated(false);
    tree->setUniformRowHeights(true);
    tree->setAlternatingRowColors(true);
    drawing->setObjectTree(tree);
    connect(drawing->scene(), &QGraphicsScene::selectionChanged, this,
            &MainWindow::showSelectionInTree);
    treeDock = new QDockWidget(this);
    treeDock->setObjectName(QStringLiteral("treeDock"));
    treeDock->setWidget(tree);
    addDockWidget(Qt::RightDockWidgetArea, treeDock);
    labelTree();
}

void MainWindow::buildProperties()
{
    properties = new PropertyDock(*drawing, *actions, this);
    addDockWidget(Qt::RightDockWidgetArea, properties);
    resizeDocks({treeDock}, {kDockWidth}, Qt::Horizontal);
    resizeDocks({treeDock, properties}, {kTreeHeight, kPropertiesHeight}, Qt::Vertical);
}

// Not while the user works in the tree: it would jump away under the mouse.
void MainWindow::showSelectionInTree()
{
    const QItemSelection rows = tree->selectionModel()->selection();
    if (!rows.isEmpty() && !tree->hasFocus())
        tree->scrollTo(rows.first().topLeft());
}

// The tree labels its columns when the language changes, and emptying the drawing takes the labels.
void MainWindow::labelTree()
{
    QEvent languageChange(QEvent::LanguageChange);
    QCoreApplication::sendEvent(tree, &languageChange);
    tree->header()->resizeSection(0, kIdWidth);
    tree->header()->resizeSection(1, kTextWidth);
}

void MainWindow::buildCommands()
{
    commandSet = new Commands(*this, *drawing->view());
    orderMenu = new OrderMenu(this);
    auto *recentMenu = new RecentMenu(this);
    connect(recentMenu, &RecentMenu::chosen, this,
            [this](const QString &path) { files().open(path); });
    addMenus(*this, *commandSet, {recentMenu, orderMenu},
             {treeDock->toggleViewAction(), properties->toggleViewAction(),
              properties->denseRowsAction(), (new LanguageMenu(*language, this))->menuAction()});
    addToolBars(*this, *commandSet);
    contextMenus = new ContextMenus(*drawing, *tree, *actions, *commandSet, this);
}

void MainWindow::connectState()
{
    stateTimer.setSingleShot(true);
    stateTimer.setInterval(0);
    connect(&stateTimer, &QTimer::timeout, this, &MainWindow::refreshCommands);
    const auto refreshSoon = [this] { stateTimer.start(); };
    const QAbstractItemModel *rows = drawing->itemMag()->itemModel();
    connect(rows, &QAbstractItemModel::rowsInserted, this, refreshSoon);
    connect(rows, &QAbstractItemModel::rowsRemoved, this, refreshSoon);
    connect(rows, &QAbstractItemModel::modelReset, this, refreshSoon);
    connect(drawing->scene(), &QGraphicsScene::selectionChanged, this,
            &MainWindow::refreshCommands);
    const QUndoStack *stack = drawing->undoStack();
    connect(stack, &QUndoStack::indexChanged, this, &MainWindow::refreshCommands);
    connect(stack, &QUndoStack::undoTextChanged, this, &MainWindow::refreshUndoTexts);
    connect(stack, &QUndoStack::redoTextChanged, this, &MainWindow::refreshUndoTexts);
    connectFiles();
    connectFrame();
    refreshCommands();
}

void MainWindow::connectFrame()
{
    const ZTGraphicsResizeItem *frame = drawing->scene()->getGraphicsResizeItem();
    connect(drawing->scene(), &QGraphicsScene::selectionChanged, this, &MainWindow::repaintFrame);
    connect(frame, &ZTGraphicsResizeItem::sigPosChanged, this, &MainWindow::repaintFrame);
    connect(frame, &ZTGraphicsResizeItem::sigSizeChanged, this, &MainWindow::repaintFrame);
}

// The frame's handles keep their size at every zoom, and Qt does not always know where it painted
// them last: after scrolling, the handles of what was selected before would stay on the screen.
void MainWindow::repaintFrame()
{
    const QRect inner = drawing->view()->mapFromScene(paintedFramePx).boundingRect();
    if (!paintedFramePx.isNull()) {
        const QRect outer = inner.adjusted(-kHandlePx, -kHandlePx, kHandlePx, kHandlePx);
        drawing->view()->viewport()->update(QRegion(outer) - QRegion(inner));
    }
    const ZTGraphicsResizeItem *frame = drawing->scene()->getGraphicsResizeItem();
    paintedFramePx = frame->isVisible() ? frame->rect().translated(frame->pos()) : QRectF();
}

void MainWindow::connectFiles()
{
    DrawingSession *session = &files().session();
    connect(session, &DrawingSession::stateChanged, this, &MainWindow::refreshTitle);
    connect(session, &DrawingSession::stateChanged, this, &MainWindow::refreshCommands);
    connect(orderMenu, &OrderMenu::changed, session, &DrawingSession::markChanged);
    connect(textTools, &TextTools::partChanged, session, &DrawingSession::markChanged);
    connect(drawingFiles, &DrawingFiles::settling, textTools, &TextTools::finishTyping);
    connect(drawingFiles, &DrawingFiles::emptied, this, [this] {
        labelTree();
        orderMenu->restore();
        navigation().home();
    });
    connect(drawingFiles, &DrawingFiles::loaded, this, &MainWindow::showReplacedDrawing);
    connect(drawingFiles, &DrawingFiles::saved, this, [this](const QString &path) {
        status->showMessage(tr("Saved to %1").arg(QDir::toNativeSeparators(path)), kStatusMs);
    });
}

void MainWindow::showReplacedDrawing()
{
    labelTree();
    orderMenu->follow();
    navigation().home();
    fitAll();
}

void MainWindow::guardAgainstCrashes(const CrashGuardSetup &setup)
{
    delete crashGuard;
    crashGuard = new CrashGuard(*drawingFiles, *messages, *this, setup);
    crashGuard->offerFound();
}

void MainWindow::showRecovery()
{
    if (crashGuard != nullptr)
        crashGuard->showDialog();
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
    treeDock->setWindowTitle(tr("Shapes"));
    retranslateTitles(*this);
    commandSet->retranslate();
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
    state.shapes = drawing->itemMag()->itemModel()->rowCount();
    state.selected = drawing->scene()->selectedItems().size();
    state.isOneText = textTools->selectedText() != nullptr;
    state.canUndo = drawing->undoStack()->canUndo();
    state.canRedo = drawing->undoStack()->canRedo();
    state.canRevert = !files().session().path().isEmpty() && files().session().isModified();
    commandSet->enableFor(state);
}

void MainWindow::refreshUndoTexts()
{
    const QString undoText = readableUndoText(drawing->undoStack()->undoText());
    const QString redoText = readableUndoText(drawing->undoStack()->redoText());
    commandSet->action("edit.undo")
        ->setText(undoText.isEmpty() ? tr("&Undo") : tr("&Undo: %1").arg(undoText));
    commandSet->action("edit.redo")
        ->setText(redoText.isEmpty() ? tr("&Redo") : tr("&Redo: %1").arg(redoText));
}

void MainWindow::readSettings()
{
    const QSettings settings;
    if (!restoreGeometry(settings.value(kGeometryKey).toByteArray()))
        resize(kFirstSize);
    restoreState(settings.value(kStateKey).toByteArray());
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    textTools->finishTyping();
    if (files().isBusy() || (files().session().isModified() && !isLetGo)) {
        event->ignore();
        files().confirmLoss([this] {
            isLetGo = true;
            close();
        });
        return;
    }
    if (crashGuard != nullptr)
        crashGuard->letGo();
    QSettings settings;
    settings.setValue(kGeometryKey, saveGeometry());
    settings.setValue(kStateKey, saveState());
    QMainWindow::closeEvent(event);
}

bool MainWindow::openFiles(const QStringList &paths)
{
    const FileKinds files = kindsOf(paths);
    const bool isOpened = !files.drawings.isEmpty() && drawingFiles->load(files.drawings.first());
    const bool isImported = !files.others.isEmpty() && importFiles(files.others) > 0;
    return isOpened || isImported;
}

void MainWindow::offerFile(const QString &path)
{
    if (DrawingFiles::isDrawing(path))
        drawingFiles->load(path);
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
            messages->warning(onlyOneOpened(first, left));
        import();
    });
}

int MainWindow::importFiles(const QStringList &paths)
{
    const int imported = importer->importFiles(paths);
    if (imported > 0)
        navigation().reveal(drawing->scene()->getSelectionItemRect());
    return imported;
}

// One drawing is shown before it comes in; several come in as the last one did.
bool MainWindow::offerImport(const QStringList &paths, std::optional<QPointF> scenePx)
{
    if (paths.size() > 1)
        return importer->importFiles(paths, scenePx) > 0;
    ReadDrawing read;
    return importer->read(paths.first(), &read) && offerDrawing(read, scenePx);
}

bool MainWindow::offerDrawing(const ReadDrawing &read, std::optional<QPointF> scenePx)
{
    auto *dialog = new ImportDialog(read.path, read.drawing, this);
    connect(dialog, &ImportDialog::chosen, this, [this, dialog, path = read.path, scenePx] {
        if (importer->bringIn({{path, dialog->drawing()}}, dialog->options(), scenePx) > 0)
            navigation().reveal(drawing->scene()->getSelectionItemRect());
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
    if (importer->read(bytes, tr("clipboard"), &read))
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
    const QGraphicsScene &scene = *drawing->scene();
    const ShapeItems exported = selectionOnly ? selectedShapeItems(scene) : shapeItemsOf(scene);
    askAboutField(exported, *drawing, *this,
                  [this, selectionOnly] { fileExporter->choose(selectionOnly); });
}

void MainWindow::addSample()
{
    const ShapeItems before = shapeItemsOf(*drawing->scene());
    const ShapeItems selectedBefore = selectedShapeItems(*drawing->scene());
    hostkit::buildSampleDrawing(*drawing);
    const ShapeItems added = shapeItemsOf(*drawing->scene()).mid(before.size());
    drawing->undoStack()->push(new AddItemsCommand(
        drawing->itemMag(), added, selectedBefore,
        undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Add sample drawing"))));
    drawing->scene()->clearSelection();
    fitAll();
}

void MainWindow::chooseRotation()
{
    auto *dialog = new QInputDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("rotationDialog"));
    dialog->setWindowTitle(tr("Rotate"));
    dialog->setLabelText(tr("Degrees, clockwise:"));
    dialog->setInputMode(QInputDialog::DoubleInput);
    dialog->setDoubleDecimals(3);
    dialog->setDoubleRange(-360.0, 360.0);
    dialog->setDoubleStep(5.0);
    dialog->setDoubleValue(45.0);
    connect(dialog, &QInputDialog::doubleValueSelected, actions, &DocumentActions::rotate);
    dialog->open();
}

void MainWindow::showMatrixDialog()
{
    if (!matrixDialog)
        matrixDialog = new MatrixDialog(*drawing, *actions, this);
    matrixDialog->show();
    matrixDialog->raise();
    matrixDialog->activateWindow();
}

void MainWindow::fitSelection() { navigation().fit(drawing->scene()->getSelectionItemRect()); }

void MainWindow::fitAll() { navigation().fit(sceneBox(shapeItemsOf(*drawing->scene()))); }

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
