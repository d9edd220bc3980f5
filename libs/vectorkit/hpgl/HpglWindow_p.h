#pragma once

#include <vectorkit/VectorPath.h>

namespace vectorkit {

/** The parts of a path that lie in a window; the whole path when it does not leave it. */
QVector<VectorPath> clippedPath(const VectorPath &path, const QRectF &windowMm);

/** The parts of an area that lie in a window. */
QVector<VectorPath> clippedArea(const QVector<VectorPath> &outlines, Qt::FillRule rule,
                                const QRectF &windowMm);

} // namespace vectorkit
