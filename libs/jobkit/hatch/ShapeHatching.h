#pragma once

#include <hostkit/items/HatchDrawer.h>

#include <optional>

namespace jobkit {

using hostkit::HatchDrawing;

/**
 * Draws hatches over an outline. What belongs to one run of the head is one line after another,
 * each beginning exactly where the one before it ended.
 *
 * Frame: scene pixels, relative to the item's origin.
 * `firstPx`: lines of the first hatch, where the library has drawn it already.
 * Limit: what would bring a shape more than `kMostHatchLines` lines in all is left out.
 */
HatchDrawing drawHatches(const QPainterPath &outlinePx, const QVector<hostkit::ShapeHatch> &hatches,
                         const std::optional<QVector<QLineF>> &firstPx);

/**
 * The outline with what overlaps in it united; the same path, to the last bit, where nothing does.
 * Frame: scene pixels.
 */
QPainterPath unitedOutline(const QPainterPath &outlinePx);

} // namespace jobkit
