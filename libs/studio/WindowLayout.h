#pragma once

#include <QtCore/QtGlobal>

QT_BEGIN_NAMESPACE
class QMainWindow;
class QMenu;
QT_END_NAMESPACE

namespace studio {

class Commands;

/** Fills the menu bar of a window with the commands; `orderMenu` goes to the file menu. */
void addMenus(QMainWindow &window, const Commands &commands, QMenu *orderMenu);

/** Adds the toolbars of a window. */
void addToolBars(QMainWindow &window, const Commands &commands);

} // namespace studio
