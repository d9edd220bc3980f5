#include <studio/WindowLayout.h>

#include <studio/CommandTable.h>

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

struct Layout
{
    Q_DECLARE_TR_FUNCTIONS(studio::WindowLayout)
};

using Ids = std::initializer_list<const char *>;

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

QMenu &addMenu(QMainWindow &window, const QString &title, const Commands &commands, Ids ids)
{
    QMenu *menu = window.menuBar()->addMenu(title);
    fill(*menu, commands, ids);
    return *menu;
}

void addToolBar(QMainWindow &window, const QString &title, const char *name, Qt::ToolBarArea area,
                const Commands &commands, Ids ids)
{
    auto *bar = new QToolBar(title, &window);
    bar->setObjectName(QString::fromLatin1(name));
    bar->setIconSize({kIconSize, kIconSize});
    window.addToolBar(area, bar);
    fill(*bar, commands, ids);
}

} // namespace

void addMenus(QMainWindow &window, const Commands &commands, QMenu *orderMenu,
              const QList<QAction *> &viewActions)
{
    QMenu &file = addMenu(window, Layout::tr("&File"), commands,
                          {"file.new", "file.import", "file.sample", "-", "file.exportAll",
                           "file.exportSelection", "-", "file.quit"});
    file.insertMenu(commands.action("file.exportAll"), orderMenu);
    addMenu(window, Layout::tr("&Edit"), commands,
            {"edit.undo", "edit.redo", "-", "edit.duplicate", "edit.delete", "-", "edit.selectAll",
             "edit.invert", "edit.deselect"});
    addMenu(window, Layout::tr("&Create"), commands,
            {"create.rectangle", "create.ellipse", "create.polygon", "create.line", "create.tdot"});
    QMenu &arrange =
        addMenu(window, Layout::tr("&Arrange"), commands,
                {"arrange.left", "arrange.hcenter", "arrange.right", "arrange.top",
                 "arrange.vcenter", "arrange.bottom", "arrange.center", "-",
                 "arrange.mirrorHorizontal", "arrange.mirrorVertical", "-", "arrange.rotateRight",
                 "arrange.rotateLeft", "arrange.rotate", "-", "arrange.matrix", "-"});
    fill(*arrange.addMenu(Layout::tr("&Nudge")), commands,
         {"nudge.left", "nudge.right", "nudge.up", "nudge.down", "-", "nudge.farLeft",
          "nudge.farRight", "nudge.farUp", "nudge.farDown", "-", "nudge.fineLeft",
          "nudge.fineRight", "nudge.fineUp", "nudge.fineDown"});
    QMenu &view = addMenu(
        window, Layout::tr("&View"), commands,
        {"view.zoomIn", "view.zoomOut", "view.home", "-", "view.fitSelection", "view.fitAll", "-"});
    view.addActions(viewActions);
    addMenu(window, Layout::tr("&Help"), commands, {"help.about"});
}

void addToolBars(QMainWindow &window, const Commands &commands)
{
    addToolBar(window, Layout::tr("File"), "fileToolBar", Qt::TopToolBarArea, commands,
               {"file.new", "file.import", "file.exportAll"});
    addToolBar(window, Layout::tr("Edit"), "editToolBar", Qt::TopToolBarArea, commands,
               {"edit.undo", "edit.redo", "-", "edit.duplicate", "edit.delete"});
    addToolBar(window, Layout::tr("Align"), "alignToolBar", Qt::TopToolBarArea, commands,
               {"arrange.left", "arrange.hcenter", "arrange.right", "arrange.top",
                "arrange.vcenter", "arrange.bottom", "arrange.center"});
    addToolBar(window, Layout::tr("Transform"), "transformToolBar", Qt::TopToolBarArea, commands,
               {"arrange.mirrorHorizontal", "arrange.mirrorVertical", "arrange.rotateLeft",
                "arrange.rotateRight", "arrange.rotate", "arrange.matrix"});
    addToolBar(window, Layout::tr("View"), "viewToolBar", Qt::TopToolBarArea, commands,
               {"view.zoomOut", "view.zoomIn", "view.home", "view.fitSelection"});
    addToolBar(
        window, Layout::tr("Create"), "createToolBar", Qt::LeftToolBarArea, commands,
        {"create.rectangle", "create.ellipse", "create.polygon", "create.line", "create.tdot"});
}

} // namespace studio
