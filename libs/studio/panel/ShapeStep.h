#pragma once

#include <studio/shapes/ShapeItems.h>

#include <functional>

namespace studio {

/**
 * Does an edit to each of some shapes and records what it changed as one undo step, whatever it
 * is; nothing is recorded when nothing changes.
 *
 * Undo gives each shape all that it was. A variant text stays at its part.
 */
void editShapes(ZTGraphicsDocument &document, const ShapeItems &items, const QString &text,
                const std::function<void(ShapeItem &item)> &edit);

} // namespace studio
