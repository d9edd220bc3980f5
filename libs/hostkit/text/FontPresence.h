#pragma once

#include <QtCore/QString>

namespace hostkit {

/**
 * Whether a stroke font of this file name is to be had: in the folder "font" beside the program or
 * in one that was added. Loads no font; scans the folders where that was not done yet.
 *
 * Order: GUI thread.
 */
bool hasStrokeFont(const QString &fileName);

/**
 * Whether texts in this family look as meant: it is installed, one maker's font of that name is, or
 * it is a name that stands for whatever the system shows text in, such as "Sans Serif".
 *
 * Order: GUI thread, with a `QGuiApplication`.
 */
bool hasSystemFont(const QString &family);

} // namespace hostkit
