#pragma once

#include <QtCore/QString>

/** What a line of a plotter file does to the pen. */
enum class PltLineKind : quint8 {
    Skipped, ///< nothing: the line is not a pen line
    PenUp,   ///< ends the open polyline; its point starts the next
    PenDown  ///< its point continues the open polyline
};

/** What a pen line loses. The reader does not mind; the check tells. */
enum class PltFlaw : quint8 {
    None,
    NoPoint,    ///< coordinates are there, but not as two parts with a blank between them
    NoNumber,   ///< a part is no 32-bit whole number and is taken as 0
    MoreParts,  ///< only the first two parts count
    RestOfLine, ///< only what stands before the first ";" counts
};

/**
 * A line of a plotter file as everybody here reads it.
 *
 * The coordinates do not stand side by side: written one after the other and then copied as one,
 * they would be waited for, which took a tenth of the time of reading a file.
 */
struct PltLine
{
    qint32 x = 0; ///< plotter units
    PltLineKind kind = PltLineKind::Skipped;
    PltFlaw flaw = PltFlaw::None;
    bool hasPoint = false;
    qint32 y = 0; ///< plotter units, upward
};

/**
 * Reads the first line of the bytes [begin, end), its line end included, and returns where the next
 * line begins. The bytes must not be none; a line end that is missing is that of the file's end.
 */
const char *readPltLine(const char *begin, const char *end, PltLine &line);

/** The line as text: UTF-8, up to the first zero byte if there is one, without a byte order mark.
 */
QString pltLineText(const char *begin, const char *end);
