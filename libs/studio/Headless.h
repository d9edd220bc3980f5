#pragma once

#include <QtCore/QString>

namespace studio {

class MainWindow;

/** What to do where there is no display. */
struct HeadlessJob
{
    QString drawingPath;       ///< drawing or plotter file; empty: the sample drawing
    QString outFolder;         ///< made if it does not exist
    bool marksOutside = false; ///< true: writes mark data of shapes outside the work area, too
    bool marksAsShown = false; ///< true: also of shapes that do not show what they were given
};

/**
 * Does the studio's job without a user: fills the window's document, renders the window to a
 * picture, writes the mark paths, and prints where they are.
 *
 * @return the program's exit code: 0, or 1 when something was not done; standard error says what
 */
int runHeadless(MainWindow &window, const HeadlessJob &job);

/**
 * Prints the drawings that a studio left behind in a folder, a line each: name, time, shapes and
 * recovery file, with tabs between them. The file can be opened as any drawing.
 *
 * @return the program's exit code: 0, or 1 when a recovery file is damaged; standard error says so
 */
int listRecovery(const QString &folder);

} // namespace studio
