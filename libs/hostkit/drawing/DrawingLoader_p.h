#pragma once

#include <hostkit/drawing/DrawingSnapshot.h>

namespace hostkit {

constexpr qint64 kMaxDrawingPieces = 50'000'000;

/** How a drawing is loaded. */
struct DrawingLoad
{
    DrawingProgress progress;
    qint64 maxPieces = kMaxDrawingPieces; ///< points of outlines and hatch lines in all
};

/** `applyDrawing` within another limit. */
bool applyWithin(const DrawingLoad &load, const DrawingFile &drawing, ZTGraphicsDocument &document,
                 DrawingReport *report, DrawingError *error);

} // namespace hostkit
