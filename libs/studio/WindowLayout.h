#pragma once

#include <QtCore/QList>

QT_BEGIN_NAMESPACE
class QAction;
class QMainWindow;
class QMenu;
QT_END_NAMESPACE

namespace studio {

class Commands;

/**
 * Fills the menu bar of a window with the commands. `orderMenu` goes to the file menu, and
 * `viewActions` to the end of the view menu.
 */
void addMenus(QMainWindow &window, const Commands &commands, QMenu *orderMenu,
              const QList<QAction *> &viewActions);

/** Adds the toolbars of a window. */
void addToolBars(QMainWindow &window, const Commands &commands);

/** Titles the menus and toolbars of a window in the language of the program. */
void retranslateTitles(QMainWindow &window);

} // namespace studio
