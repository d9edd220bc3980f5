#pragma once

#include <QtGui/QIcon>

namespace studio {

/**
 * An icon of the studio, drawn with the colours of the current palette each time it shows: it suits
 * light and dark themes and is sharp at every size and resolution.
 *
 * Failure: a null icon for a name that is unknown.
 */
QIcon icon(const char *name);

/** An icon of a picture that keeps its colours on a selected row, where others are tinted. */
QIcon pictureIcon(const QPixmap &picture);

/** The program's own icon, in colours of its own. */
QIcon programIcon();

} // namespace studio
