#pragma once

#include <QtGui/QPainterPath>

namespace studio {

/** Drawing of one icon on a field of 24 by 24. */
struct IconShape
{
    const char *name;

    /**
     * Lines in the colour of text, and areas in the colour of highlights. Both are lists of
     * commands with blanks between them: `M x y` moves, `L x y` draws a line, `C` a cubic curve
     * (two control points and the end), `Z` closes, `R x y w h` adds a rectangle, `E x y w h` an
     * ellipse.
     */
    const char *lines;
    const char *areas;
};

/** The drawing of that name, or null. */
const IconShape *findIconShape(const char *name);

QPainterPath iconPath(const char *commands);

} // namespace studio
