#include <studio/window/WindowLayout.h>

#include <studio/window/CommandTable.h>

#include <QtCore/QCoreApplication>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QToolBar>

#include <cstring>
#include <initializer_list>

namespace studio {

namespace {

constexpr CommandId kSeparator("-");
constexpr int kIconSize = 22;

/** What a menu or toolbar is called; its object has the name. */
struct Title
{
    const char *name;
    const char *text; ///< to be translated
};

constexpr Title kMenuTitles[] = {
    {"fileMenu", QT_TRANSLATE_NOOP("studio::WindowLayout", "&File")},
    {"editMenu", QT_TRANSLATE_NOOP("studio::WindowLayout", "&Edit")},
    {"createMenu", QT_TRANSLATE_NOOP("studio::WindowLayout", "&Create")},
    {"drawMenu", QT_TRANSLATE_NOOP("studio::WindowLayout", "&With the mouse")},
    {"textMenu", QT_TRANSLATE_NOOP("studio::WindowLayout", "&Text")},
    {"toolsMenu", QT_TRANSLATE_NOOP("studio::WindowLayout", "T&ools")},
    {"arrangeMenu", QT_TRANSLATE_NOOP("studio::WindowLayout", "&Arrange")},
    {"alignToMenu", QT_TRANSLATE_NOOP("studio::WindowLayout", "Align &to")},
    {"pathsMenu", QT_TRANSLATE_NOOP("studio::WindowLayout", "Pat&hs")},
    {"nodesMenu", QT_TRANSLATE_NOOP("studio::WindowLayout", "N&odes")},
    {"stackingMenu", QT_TRANSLATE_NOOP("studio::WindowLayout", "Or&der")},
    {"nudgeMenu", QT_TRANSLATE_NOOP("studio::WindowLayout", "&Nudge")},
    {"jobMenu", QT_TRANSLATE_NOOP("studio::WindowLayout", "&Job")},
    {"viewMenu", QT_TRANSLATE_NOOP("studio::WindowLayout", "&View")},
    {"snapMenu", QT_TRANSLATE_NOOP("studio::WindowLayout", "S&nap")},
    {"helpMenu", QT_TRANSLATE_NOOP("studio::WindowLayout", "&Help")},
};

constexpr Title kToolBarTitles[] = {
    {"fileToolBar", QT_TRANSLATE_NOOP("studio::WindowLayout", "File")},
    {"editToolBar", QT_TRANSLATE_NOOP("studio::WindowLayout", "Edit")},
    {"alignToolBar", QT_TRANSLATE_NOOP("studio::WindowLayout", "Align")},
    {"transformToolBar", QT_TRANSLATE_NOOP("studio::WindowLayout", "Transform")},
    {"viewToolBar", QT_TRANSLATE_NOOP("studio::WindowLayout", "View")},
    {"textToolBar", QT_TRANSLATE_NOOP("studio::WindowLayout", "Text")},
    {"toolColumn", QT_TRANSLATE_NOOP("studio::WindowLayout", "Tools")},
};

constexpr const char *kAlignTitle = QT_TRANSLATE_NOOP("studio::WindowLayout", "&Align");
constexpr const char *kPathsTitle = QT_TRANSLATE_NOOP("studio::WindowLayout", "Pat&hs");
constexpr const char *kOrderTitle = QT_TRANSLATE_NOOP("studio::WindowLayout", "Or&der");

using Ids = std::initializer_list<CommandId>;

/** What draws on the canvas with the mouse, and what does not. */
constexpr Ids kOrder = {ids::kOrderFirst, ids::kOrderRaise, ids::kOrderLower,
                        ids::kOrderLast,  kSeparator,       ids::kOrderReverse};
constexpr Ids kPaths = {ids::kPathsToPaths,
                        kSeparator,
                        ids::kPathsUnion,
                        ids::kPathsDifference,
                        ids::kPathsIntersection,
                        ids::kPathsExclusion,
                        ids::kPathsOffset,
                        kSeparator,
                        ids::kPathsCombine,
                        ids::kPathsBreakApart,
                        kSeparator,
                        ids::kPathsClean,
                        ids::kPathsWeld};
constexpr Ids kTools = {
    ids::kToolSelect,   ids::kToolRectangle, ids::kToolEllipse, ids::kToolPolygon, ids::kToolLine,
    ids::kToolTdot,     ids::kToolText,      ids::kToolCode,    ids::kToolBarcode, ids::kToolNodes,
    ids::kToolPolyline, ids::kToolCurve,     ids::kToolMeasure};
constexpr Ids kNodes = {ids::kToolNodes,  kSeparator,        ids::kNodesAdd,   ids::kNodesDelete,
                        ids::kNodesBreak, ids::kNodesJoin,   kSeparator,       ids::kNodesLine,
                        ids::kNodesCurve, ids::kNodesSmooth, ids::kNodesCorner};

// clang-format off
constexpr Ids kFileMenu = {ids::kFileNew, ids::kFileOpen, kSeparator, ids::kFileSave,
                           ids::kFileSaveAs, ids::kFileRevert, ids::kFileRecover, kSeparator,
                           ids::kFileImport, ids::kFileImportClipboard, ids::kFileReimport,
                           ids::kFileSample, kSeparator, ids::kFileExportAll,
                           ids::kFileExportSelection, kSeparator, ids::kFilePrint, ids::kFilePdf,
                           kSeparator, ids::kFileQuit};
constexpr Ids kEditMenu = {ids::kEditUndo, ids::kEditRedo, kSeparator, ids::kEditCut,
                           ids::kEditCopy, ids::kEditPaste, ids::kEditPasteInPlace,
                           ids::kEditPasteHere, kSeparator, ids::kEditDuplicate, ids::kEditDelete,
                           kSeparator, ids::kEditGroup, ids::kEditUngroup, kSeparator,
                           ids::kEditSelectAll, ids::kEditInvert, ids::kEditDeselect, kSeparator,
                           ids::kEditValues, kSeparator, ids::kEditPreferences};
constexpr Ids kCreateMenu = {ids::kCreateRectangle, ids::kCreateEllipse, ids::kCreatePolygon,
                             ids::kCreateLine, ids::kCreateTdot, ids::kCreateText, ids::kCreateCode,
                             ids::kCreateBarcode, kSeparator};
constexpr Ids kTextMenu = {ids::kCreateText, kSeparator, ids::kTextType, ids::kTextSettings,
                           kSeparator, ids::kCreateCode, ids::kCreateBarcode, ids::kCodeSettings,
                           kSeparator, ids::kTextNextPart, ids::kTextShareCounter};
constexpr Ids kArrangeMenu = {ids::kArrangeLeft, ids::kArrangeHcenter, ids::kArrangeRight,
                              ids::kArrangeTop, ids::kArrangeVcenter, ids::kArrangeBottom,
                              ids::kArrangeCenter, kSeparator, ids::kArrangeSpreadAcross,
                              ids::kArrangeSpreadDown, ids::kArrangeGapsAcross,
                              ids::kArrangeGapsDown, kSeparator, ids::kArrangeCentreOnField,
                              ids::kArrangeMirrorFieldAcross, ids::kArrangeMirrorFieldDown,
                              kSeparator, ids::kArrangeMirrorHorizontal,
                              ids::kArrangeMirrorVertical, kSeparator, ids::kArrangeRotateRight,
                              ids::kArrangeRotateLeft, ids::kArrangeRotate, kSeparator,
                              ids::kArrangeMatrix, ids::kArrangeCircle, kSeparator};
constexpr Ids kNudgeMenu = {ids::kNudgeLeft, ids::kNudgeRight, ids::kNudgeUp, ids::kNudgeDown,
                            kSeparator, ids::kNudgeFarLeft, ids::kNudgeFarRight, ids::kNudgeFarUp,
                            ids::kNudgeFarDown, kSeparator, ids::kNudgeFineLeft,
                            ids::kNudgeFineRight, ids::kNudgeFineUp, ids::kNudgeFineDown};
constexpr Ids kViewMenu = {ids::kViewZoomIn, ids::kViewZoomOut, ids::kViewHome, kSeparator,
                           ids::kViewFitSelection, ids::kViewFitAll, kSeparator,
                           ids::kViewRulers, ids::kViewGrid, ids::kViewOrderNumbers,
                           ids::kViewRemoveGuides};
// clang-format on

template <class Target>
void fill(Target &target, const Commands &commands, Ids ids)
{
    for (const CommandId id : ids) {
        if (std::strcmp(id, kSeparator) == 0)
            target.addSeparator();
        else
            target.addAction(commands.action(id));
    }
}

QString translated(const char *text)
{
    return QCoreApplication::translate("studio::WindowLayout", text);
}

QMenu &addMenu(QMainWindow &window, const char *name, const Commands &commands, Ids ids)
{
    QMenu *menu = window.menuBar()->addMenu(QString());
    menu->setObjectName(QString::fromLatin1(name));
    fill(*menu, commands, ids);
    return *menu;
}

QMenu &addSubmenu(QMenu &menu, const char *name, const Commands &commands, Ids ids)
{
    QMenu *sub = menu.addMenu(QString());
    sub->setObjectName(QString::fromLatin1(name));
    fill(*sub, commands, ids);
    return *sub;
}

void addToolBar(QMainWindow &window, const char *name, Qt::ToolBarArea area,
                const Commands &commands, Ids ids)
{
    auto *bar = new QToolBar(&window);
    bar->setObjectName(QString::fromLatin1(name));
    bar->setIconSize({kIconSize, kIconSize});
    window.addToolBar(area, bar);
    fill(*bar, commands, ids);
}

void addArrangeMenu(QMainWindow &window, const Commands &commands)
{
    QMenu &arrange = addMenu(window, "arrangeMenu", commands, kArrangeMenu);
    addSubmenu(arrange, "alignToMenu", commands,
               {ids::kArrangeToEachOther, ids::kArrangeToFirst, ids::kArrangeToField});
    addSubmenu(arrange, "pathsMenu", commands, kPaths);
    addSubmenu(arrange, "nodesMenu", commands, kNodes);
    addSubmenu(arrange, "stackingMenu", commands, kOrder);
    addSubmenu(arrange, "nudgeMenu", commands, kNudgeMenu);
}

void addViewMenu(QMainWindow &window, const Commands &commands, const QList<QAction *> &others)
{
    QMenu &view = addMenu(window, "viewMenu", commands, kViewMenu);
    addSubmenu(view, "snapMenu", commands,
               {ids::kViewSnapToShapes, ids::kViewSnapToGuides, ids::kViewSnapToGrid});
    view.addSeparator();
    view.addActions(others);
    view.addAction(commands.action(ids::kViewResetLayout));
}

} // namespace

void addMenus(QMainWindow &window, const Commands &commands, const FileMenus &fileMenus,
              const QList<QAction *> &viewActions)
{
    QMenu &file = addMenu(window, "fileMenu", commands, kFileMenu);
    file.insertMenu(file.actions().at(2), fileMenus.recent); // below "Open"
    file.insertMenu(commands.action(ids::kFileExportAll), fileMenus.order);
    addMenu(window, "editMenu", commands, kEditMenu);
    QMenu &create = addMenu(window, "createMenu", commands, kCreateMenu);
    addSubmenu(create, "drawMenu", commands, kTools);
    addMenu(window, "textMenu", commands, kTextMenu);
    addArrangeMenu(window, commands);
    addMenu(window, "jobMenu", commands,
            {ids::kJobPreview, ids::kJobExport, kSeparator, ids::kTextNextPart});
    addViewMenu(window, commands, viewActions);
    addMenu(window, "toolsMenu", commands, {ids::kToolsVerifyCodes});
    addMenu(window, "helpMenu", commands,
            {ids::kHelpManual, ids::kHelpShortcuts, ids::kHelpDocumentation, kSeparator,
             ids::kHelpAbout});
}

void addToolBars(QMainWindow &window, const Commands &commands)
{
    addToolBar(window, "fileToolBar", Qt::TopToolBarArea, commands,
               {ids::kFileNew, ids::kFileOpen, ids::kFileSave, kSeparator, ids::kFileImport,
                ids::kFileExportAll});
    addToolBar(window, "editToolBar", Qt::TopToolBarArea, commands,
               {ids::kEditUndo, ids::kEditRedo, kSeparator, ids::kEditCut, ids::kEditCopy,
                ids::kEditPaste, kSeparator, ids::kEditDuplicate, ids::kEditDelete});
    addToolBar(window, "alignToolBar", Qt::TopToolBarArea, commands,
               {ids::kArrangeLeft, ids::kArrangeHcenter, ids::kArrangeRight, ids::kArrangeTop,
                ids::kArrangeVcenter, ids::kArrangeBottom, ids::kArrangeCenter, kSeparator,
                ids::kArrangeGapsAcross, ids::kArrangeGapsDown, ids::kArrangeCentreOnField});
    addToolBar(window, "transformToolBar", Qt::TopToolBarArea, commands,
               {ids::kArrangeMirrorHorizontal, ids::kArrangeMirrorVertical, ids::kArrangeRotateLeft,
                ids::kArrangeRotateRight, ids::kArrangeRotate, ids::kArrangeMatrix,
                ids::kArrangeCircle});
    addToolBar(window, "viewToolBar", Qt::TopToolBarArea, commands,
               {ids::kViewZoomOut, ids::kViewZoomIn, ids::kViewHome, ids::kViewFitSelection});
    addToolBar(window, "textToolBar", Qt::TopToolBarArea, commands,
               {ids::kTextSettings, ids::kCodeSettings, ids::kTextNextPart, ids::kJobPreview});
    addToolBar(window, "toolColumn", Qt::LeftToolBarArea, commands, kTools);
}

QMenu *newContextMenu(const Commands &commands, bool isForShapes, QWidget *parent)
{
    auto *menu = new QMenu(parent);
    if (!isForShapes) {
        menu->setObjectName(QStringLiteral("canvasMenu"));
        fill(*menu, commands, {ids::kEditUndo,        ids::kEditRedo,         kSeparator,
                               ids::kEditPasteHere,   ids::kEditPasteInPlace, kSeparator,
                               ids::kEditSelectAll,   ids::kEditInvert,       kSeparator,
                               ids::kCreateRectangle, ids::kCreateEllipse,    ids::kCreatePolygon,
                               ids::kCreateLine,      ids::kCreateTdot,       ids::kCreateText,
                               ids::kCreateCode,      ids::kCreateBarcode,    kSeparator,
                               ids::kViewFitAll,      ids::kViewHome});
        return menu;
    }
    menu->setObjectName(QStringLiteral("shapeMenu"));
    fill(*menu, commands,
         {ids::kTextType, ids::kTextSettings, ids::kCodeSettings, kSeparator, ids::kEditCut,
          ids::kEditCopy, ids::kEditPasteHere, kSeparator, ids::kEditDuplicate, ids::kEditDelete,
          kSeparator, ids::kEditGroup, ids::kEditUngroup, kSeparator});
    QMenu *align = menu->addMenu(translated(kAlignTitle));
    align->setObjectName(QStringLiteral("alignMenu"));
    fill(*align, commands,
         {ids::kArrangeLeft, ids::kArrangeHcenter, ids::kArrangeRight, ids::kArrangeTop,
          ids::kArrangeVcenter, ids::kArrangeBottom, ids::kArrangeCenter, kSeparator,
          ids::kArrangeToEachOther, ids::kArrangeToFirst, ids::kArrangeToField, kSeparator,
          ids::kArrangeSpreadAcross, ids::kArrangeSpreadDown, ids::kArrangeGapsAcross,
          ids::kArrangeGapsDown, kSeparator, ids::kArrangeCentreOnField});
    QMenu *paths = menu->addMenu(translated(kPathsTitle));
    paths->setObjectName(QStringLiteral("pathsOfShapesMenu"));
    fill(*paths, commands, kPaths);
    QMenu *order = menu->addMenu(translated(kOrderTitle));
    order->setObjectName(QStringLiteral("orderOfShapesMenu"));
    fill(*order, commands, kOrder);
    fill(*menu, commands,
         {ids::kArrangeMirrorHorizontal, ids::kArrangeMirrorVertical, ids::kArrangeRotateRight,
          ids::kArrangeRotateLeft, ids::kArrangeRotate, ids::kArrangeMatrix, ids::kArrangeCircle,
          kSeparator, ids::kFileExportSelection, ids::kViewFitSelection});
    return menu;
}

void retranslateTitles(QMainWindow &window)
{
    for (const Title &title : kMenuTitles)
        window.findChild<QMenu *>(QLatin1String(title.name))->setTitle(translated(title.text));
    for (const Title &title : kToolBarTitles) {
        auto *bar = window.findChild<QToolBar *>(QLatin1String(title.name));
        bar->setWindowTitle(translated(title.text));
    }
}

} // namespace studio
