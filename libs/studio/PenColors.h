#pragma once

#include <QtGui/QColor>
#include <QtGui/QIcon>

namespace studio {

constexpr int kPenCount = 16;

/** The colour that a pen, counted from 1, has on screen; black outside 1 to `kPenCount`. */
QColor penColor(int pen);

/** A square in the colour of a pen. */
QIcon penSwatch(int pen);

} // namespace studio
