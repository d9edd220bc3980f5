#pragma once

#include <QtCore/QString>

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
 * Failure: false, and `error` (if given) says why in one sentence without the file's name: it
 * cannot be written, or the document holds nothing to draw. What stood there before stays.
 */
bool saveDrawingPicture(const ZTGraphicsDocument &document, int longerSidePx, const QString &path,
                        QString *error);

} // namespace hostkit
