#pragma once

#include <QtCore/QString>

#include <string>

/** What people read: one line a message, errors and warnings on stderr, results on stdout. */
namespace console {

/** Exit codes of every subcommand. */
enum ExitCode {
    Done = 0,      ///< everything asked for was done
    Failed = 1,    ///< a file or the work was at fault
    WrongUsage = 2 ///< the command line was at fault
};

/** "PROGRAM: FILE: what" on stderr. Control characters are shown as '?', so that it stays a line.
 */
void complain(const std::string &file, const QString &what);

/** "PROGRAM: what" on stderr. */
void complain(const std::string &what);

/** A line on stdout. */
void print(const QString &line);

/** A line on stdout: the name, filled up to `width` columns, and its value behind it. */
void printRow(const QString &name, const QString &value, int width);

/** Columns that the text takes on a terminal: two for a Chinese character. */
int columnsOf(const QString &text);

/** The text, filled up with blanks to `width` columns. */
QString filledUp(const QString &text, int width);

/** Brings stdout to its end; says so on stderr and returns false if it could not be written. */
bool finishOutput();

/** A name as it was typed, fit to be shown. */
std::string printable(const std::string &text);

} // namespace console
