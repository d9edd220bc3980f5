#pragma once

#include <hostkit/files/Failure.h>

class ZTGraphicsDocument;

namespace hostkit {

/** Limits of a picture's longer side in pixels. */
constexpr int kLeastPictureSide = 16;
constexpr int kMostPictureSide = 8192;

/**
 * Saves a picture of all shapes as they look on the screen, as PNG: white behind them, neither grid
 * nor selection. Lines are one pixel wide, whatever the size.
 *
 * Range: `longerSidePx` from `kLeastPictureSide` to `kMostPictureSide`.
 * Failure: false, and `failure` (if given) says why: `CannotWrite`, or `NotPossible` where the
 * document holds nothing to draw or no memory is left. What stood there before stays.
 */
bool saveDrawingPicture(const ZTGraphicsDocument &document, int longerSidePx, const QString &path,
                        Failure *failure);

} // namespace hostkit
