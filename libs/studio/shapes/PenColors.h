#pragma once

#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtGui/QIcon>

namespace studio {

constexpr int kPenCount = 16;

/** The colour that a pen, counted from 1, has on screen; black outside 1 to `kPenCount`. */
QColor penColor(int pen);

/** What people call the colour of a pen, in the language of the program; empty for another pen. */
QString penName(int pen);

/** A square in the colour of a pen. */
QIcon penSwatch(int pen);

} // namespace studio
