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

constexpr const char *kSeparator = "-";
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

using Ids = std::initializer_list<const char *>;

/** What draws on the canvas with the mouse, and what does not. */
constexpr Ids kOrder = {"order.first", "order.raise", "order.lower",
                        "order.last",  "-",           "order.reverse"};
constexpr Ids kPaths = {"paths.toPaths",
                        "-",
                        "paths.union",
                        "paths.difference",
                        "paths.intersection",
                        "paths.exclusion",
                        "paths.offset",
                        "-",
                        "paths.combine",
                        "paths.breakApart",
                        "-",
                        "paths.clean",
                        "paths.weld"};
constexpr Ids kTools = {"tool.select",  "tool.rectangle", "tool.ellipse",  "tool.polygon",
                        "tool.line",    "tool.tdot",      "tool.text",     "tool.code",
                        "tool.barcode", "tool.nodes",     "tool.polyline", "tool.curve",
                        "tool.measure"};
constexpr Ids kNodes = {"tool.nodes",  "-", "nodes.add",  "nodes.delete", "nodes.break",
                        "nodes.join",  "-", "nodes.line", "nodes.curve",  "nodes.smooth",
                        "nodes.corner"};

template <class Target>
void fill(Target &target, const Commands &commands, Ids ids)
{
    for (const char *id : ids) {
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

void addToolBar(QMainWindow &window, const char *name, Qt::ToolBarArea area,
                const Commands &commands, Ids ids)
{
    auto *bar = new QToolBar(&window);
    bar->setObjectName(QString::fromLatin1(name));
    bar->setIconSize({kIconSize, kIconSize});
    window.addToolBar(area, bar);
    fill(*bar, commands, ids);
}

} // namespace

void addMenus(QMainWindow &window, const Commands &commands, const FileMenus &fileMenus,
              const QList<QAction *> &viewActions)
{
    QMenu &file = addMenu(window, "fileMenu", commands,
                          {"file.new",
                           "file.open",
                           "-",
                           "file.save",
                           "file.saveAs",
                           "file.revert",
                           "file.recover",
                           "-",
                           "file.import",
                           "file.importClipboard",
                           "file.reimport",
                           "file.sample",
                           "-",
                           "file.exportAll",
                           "file.exportSelection",
                           "-",
                           "file.print",
                           "file.pdf",
                           "-",
                           "file.quit"});
    file.insertMenu(file.actions().at(2), fileMenus.recent);
    file.insertMenu(commands.action("file.exportAll"), fileMenus.order);
    QMenu &edit = addMenu(window, "editMenu", commands,
                          {"edit.undo", "edit.redo", "-", "edit.cut", "edit.copy", "edit.paste",
                           "edit.pasteInPlace", "edit.pasteHere", "-", "edit.duplicate",
                           "edit.delete", "-", "edit.group", "edit.ungroup", "-", "edit.selectAll",
                           "edit.invert", "edit.deselect", "-"});
    edit.addAction(commands.action("edit.values"));
    edit.addSeparator();
    edit.addAction(commands.action("edit.preferences"));
    QMenu &create = addMenu(window, "createMenu", commands,
                            {"create.rectangle", "create.ellipse", "create.polygon", "create.line",
                             "create.tdot", "create.text", "create.code", "create.barcode", "-"});
    QMenu *draw = create.addMenu(QString());
    draw->setObjectName(QStringLiteral("drawMenu"));
    fill(*draw, commands, kTools);
    addMenu(window, "textMenu", commands,
            {"create.text", "-", "text.type", "text.settings", "-", "create.code", "create.barcode",
             "code.settings", "-", "text.nextPart", "text.shareCounter"});
    QMenu &arrange = addMenu(window, "arrangeMenu", commands,
                             {"arrange.left",
                              "arrange.hcenter",
                              "arrange.right",
                              "arrange.top",
                              "arrange.vcenter",
                              "arrange.bottom",
                              "arrange.center",
                              "-",
                              "arrange.spreadAcross",
                              "arrange.spreadDown",
                              "arrange.gapsAcross",
                              "arrange.gapsDown",
                              "-",
                              "arrange.centreOnField",
                              "arrange.mirrorFieldAcross",
                              "arrange.mirrorFieldDown",
                              "-",
                              "arrange.mirrorHorizontal",
                              "arrange.mirrorVertical",
                              "-",
                              "arrange.rotateRight",
                              "arrange.rotateLeft",
                              "arrange.rotate",
                              "-",
                              "arrange.matrix",
                              "arrange.circle",
                              "-"});
    QMenu *alignTo = arrange.addMenu(QString());
    alignTo->setObjectName(QStringLiteral("alignToMenu"));
    fill(*alignTo, commands, {"arrange.toEachOther", "arrange.toFirst", "arrange.toField"});
    QMenu *paths = arrange.addMenu(QString());
    paths->setObjectName(QStringLiteral("pathsMenu"));
    fill(*paths, commands, kPaths);
    QMenu *nodes = arrange.addMenu(QString());
    nodes->setObjectName(QStringLiteral("nodesMenu"));
    fill(*nodes, commands, kNodes);
    QMenu *order = arrange.addMenu(QString());
    order->setObjectName(QStringLiteral("stackingMenu"));
    fill(*order, commands, kOrder);
    QMenu *nudge = arrange.addMenu(QString());
    nudge->setObjectName(QStringLiteral("nudgeMenu"));
    fill(*nudge, commands,
         {"nudge.left", "nudge.right", "nudge.up", "nudge.down", "-", "nudge.farLeft",
          "nudge.farRight", "nudge.farUp", "nudge.farDown", "-", "nudge.fineLeft",
          "nudge.fineRight", "nudge.fineUp", "nudge.fineDown"});
    addMenu(window, "jobMenu", commands, {"job.preview", "job.export", "-", "text.nextPart"});
    QMenu &view = addMenu(
        window, "viewMenu", commands,
        {"view.zoomIn", "view.zoomOut", "view.home", "-", "view.fitSelection", "view.fitAll", "-"});
    fill(view, commands, {"view.rulers", "view.grid", "view.orderNumbers", "view.removeGuides"});
    QMenu *snap = view.addMenu(QString());
    snap->setObjectName(QStringLiteral("snapMenu"));
    fill(*snap, commands, {"view.snapToShapes", "view.snapToGuides", "view.snapToGrid"});
    view.addSeparator();
    view.addActions(viewActions);
    view.addAction(commands.action("view.resetLayout"));
    addMenu(window, "toolsMenu", commands, {"tools.verifyCodes"});
    addMenu(window, "helpMenu", commands, {"help.manual", "help.shortcuts", "-", "help.about"});
}

void addToolBars(QMainWindow &window, const Commands &commands)
{
    addToolBar(window, "fileToolBar", Qt::TopToolBarArea, commands,
               {"file.new", "file.open", "file.save", "-", "file.import", "file.exportAll"});
    addToolBar(window, "editToolBar", Qt::TopToolBarArea, commands,
               {"edit.undo", "edit.redo", "-", "edit.cut", "edit.copy", "edit.paste", "-",
                "edit.duplicate", "edit.delete"});
    addToolBar(window, "alignToolBar", Qt::TopToolBarArea, commands,
               {"arrange.left", "arrange.hcenter", "arrange.right", "arrange.top",
                "arrange.vcenter", "arrange.bottom", "arrange.center", "-", "arrange.gapsAcross",
                "arrange.gapsDown", "arrange.centreOnField"});
    addToolBar(window, "transformToolBar", Qt::TopToolBarArea, commands,
               {"arrange.mirrorHorizontal", "arrange.mirrorVertical", "arrange.rotateLeft",
                "arrange.rotateRight", "arrange.rotate", "arrange.matrix", "arrange.circle"});
    addToolBar(window, "viewToolBar", Qt::TopToolBarArea, commands,
               {"view.zoomOut", "view.zoomIn", "view.home", "view.fitSelection"});
    addToolBar(window, "textToolBar", Qt::TopToolBarArea, commands,
               {"text.settings", "code.settings", "text.nextPart", "job.preview"});
    addToolBar(window, "toolColumn", Qt::LeftToolBarArea, commands, kTools);
}

QMenu *newContextMenu(const Commands &commands, bool isForShapes, QWidget *parent)
{
    auto *menu = new QMenu(parent);
    if (!isForShapes) {
        menu->setObjectName(QStringLiteral("canvasMenu"));
        fill(*menu, commands, {"edit.undo",        "edit.redo",         "-",
                               "edit.pasteHere",   "edit.pasteInPlace", "-",
                               "edit.selectAll",   "edit.invert",       "-",
                               "create.rectangle", "create.ellipse",    "create.polygon",
                               "create.line",      "create.tdot",       "create.text",
                               "create.code",      "create.barcode",    "-",
                               "view.fitAll",      "view.home"});
        return menu;
    }
    menu->setObjectName(QStringLiteral("shapeMenu"));
    fill(*menu, commands,
         {"text.type", "text.settings", "code.settings", "-", "edit.cut", "edit.copy",
          "edit.pasteHere", "-", "edit.duplicate", "edit.delete", "-", "edit.group", "edit.ungroup",
          "-"});
    QMenu *align = menu->addMenu(translated(kAlignTitle));
    align->setObjectName(QStringLiteral("alignMenu"));
    fill(*align, commands,
         {"arrange.left", "arrange.hcenter", "arrange.right", "arrange.top", "arrange.vcenter",
          "arrange.bottom", "arrange.center", "-", "arrange.toEachOther", "arrange.toFirst",
          "arrange.toField", "-", "arrange.spreadAcross", "arrange.spreadDown",
          "arrange.gapsAcross", "arrange.gapsDown", "-", "arrange.centreOnField"});
    QMenu *paths = menu->addMenu(translated(kPathsTitle));
    paths->setObjectName(QStringLiteral("pathsOfShapesMenu"));
    fill(*paths, commands, kPaths);
    QMenu *order = menu->addMenu(translated(kOrderTitle));
    order->setObjectName(QStringLiteral("orderOfShapesMenu"));
    fill(*order, commands, kOrder);
    fill(*menu, commands,
         {"arrange.mirrorHorizontal", "arrange.mirrorVertical", "arrange.rotateRight",
          "arrange.rotateLeft", "arrange.rotate", "arrange.matrix", "arrange.circle", "-",
          "file.exportSelection", "view.fitSelection"});
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
