#pragma once

#include <QtCore/QList>

QT_BEGIN_NAMESPACE
class QAction;
class QMainWindow;
class QMenu;
class QWidget;
QT_END_NAMESPACE

namespace studio {

class Commands;

/** Menus within the file menu that are no commands. */
struct FileMenus
{
    QMenu *recent;
    QMenu *order;
};

/**
 * Fills the menu bar of a window with the commands. `viewActions` go to the end of the view menu.
 */
void addMenus(QMainWindow &window, const Commands &commands, const FileMenus &fileMenus,
              const QList<QAction *> &viewActions);

/** Adds the toolbars of a window. */
void addToolBars(QMainWindow &window, const Commands &commands);

/** A menu for what is selected, or for the empty drawing. Owner: `parent`. */
QMenu *newContextMenu(const Commands &commands, bool isForShapes, QWidget *parent);

/** Titles the menus and toolbars of a window in the language of the program. */
void retranslateTitles(QMainWindow &window);

} // namespace studio
