#pragma once

#include <studio/shapes/ShapeItems.h>

#include <functional>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace studio {

/** Those of the shapes that are marked and leave the field that the machine can reach. */
ShapeItems shapesOutsideField(const ShapeItems &shapes, const ZTGraphicsDocument &document);

/**
 * Goes on at once if all shapes lie in the field; otherwise names those that don't and goes on if
 * the user wants it so. The question does not wait.
 */
void askAboutField(const ShapeItems &shapes, const ZTGraphicsDocument &document, QWidget &window,
                   const std::function<void()> &next);

} // namespace studio
