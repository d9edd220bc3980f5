#pragma once

#include <vectorkit/VectorDrawing.h>

QT_BEGIN_NAMESPACE
class QIODevice;
QT_END_NAMESPACE

namespace vectorkit {

/**
 * Writes the outlines of a drawing as SVG at true size: a unit is a millimetre, the page is the box
 * of all paths, a group a layer, a path element a shape. Lines, cubic curves and arcs stay what
 * they are; texts are left out.
 *
 * Owner: `device` is borrowed, open for writing.
 * Failure: false when the device takes no more.
 */
bool writeSvg(const VectorDrawing &drawing, QIODevice *device);

} // namespace vectorkit
