#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace hostkit {

/** A text as people type it on one line, with the places of what changes from part to part. */
struct TextPlaces
{
    QVector<ZTVariantTextSegment> segments; ///< of the text, from its start
    bool hasSerial = false;                 ///< some segment counts
};

/**
 * Reads a typed text.
 *
 * `{serial}` or `{}` is the place of the counter, `{date}` or `{date:FORMAT}` one of the date, its
 * format that of QDateTime::toString; any other braces are text. A backslash and "n" are a line
 * feed, two backslashes are one, and a backslash before a brace makes it text. CR LF and CR count
 * as line feeds.
 */
TextPlaces readTextPlaces(const QString &typed, const ZTCounterSegment &counter);

} // namespace hostkit
