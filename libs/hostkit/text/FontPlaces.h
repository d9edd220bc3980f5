#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace hostkit {

/**
 * The folders with stroke fonts that a program has, the one that counts most last: that of
 * `strokeFontFolder`, and the user's own where there is one ("ztdrawengine/font" in the user's data
 * folder, `~/.local/share` unless XDG_DATA_HOME says otherwise). Absolute paths.
 */
QStringList fontFolders();

/**
 * Makes those of `fontFolders` known to `ZTShxFontManager` that it does not look into by itself,
 * once; further calls change nothing.
 *
 * Order: GUI thread, with a `QCoreApplication`, before the first text. After
 * `ZTShxFontManager::release` they have to be added by hand.
 */
void addFontFolders();

/**
 * The file that the library loads for a stroke font of this file name, looked for in the user's
 * folder, beside the program and among the installed ones; the path beside the program where it
 * is in none of them.
 */
QString strokeFontPath(const QString &fileName);

} // namespace hostkit
