#pragma once

#include <hostkit/files/FileWriter.h>
#include <hostkit/marks/MarkUnits.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QStringList>

namespace hostkit {

/** The extensions that `saveMarkGraph` knows, with their points: ".svg", ".png", ... */
QStringList markGraphExtensions();

/** Whether the name ends in one of `markGraphExtensions()`, in any case. */
bool hasMarkGraphExtension(const QString &path);

/** What a picture of mark data shows beside the marks. */
struct MarkPictureLook
{
    bool hasJumps = true;      ///< false: neither the jumps nor the dot where the head begins
    bool hasArrows = false;    ///< the direction of each outline and of each run of a hatch
    bool hasBackground = true; ///< false: nothing is drawn where there is no mark
};

/**
 * Writes mark data to a file whose extension picks the form: a picture (SVG, PNG) or the paths
 * themselves (JSON, CSV). `docs/formats/mark-data.md` tells the forms.
 *
 * `look` is for the pictures alone. The file appears whole or not at all: a failed write leaves
 * what stood there before.
 *
 * Failure: false, and `failure` (if given) says why: `CannotWrite`, `NotPossible` for an extension
 * that is none of them, `Cancelled` when it is no longer wanted.
 */
bool saveMarkGraph(const ZTMarkGraph &graph, const MarkUnits &units, const QString &path,
                   Failure *failure, const MarkPictureLook &look = {},
                   const StillWanted &isWanted = {});

} // namespace hostkit
