#pragma once

#include <hostkit/items/ItemHatches.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

QT_BEGIN_NAMESPACE
class QGraphicsView;
QT_END_NAMESPACE

namespace hostkit {

/**
 * Lets hatch lines look paler than outlines in a view, so that the outlines can be told in a dense
 * hatch. Items that paint by `paintHatchPens` then paint the hatch below the
 * outline. It is a look of this view alone: pictures, prints and marks know nothing of it, and a
 * view that was not asked paints as it always did.
 *
 * Range: `share` of the pen's colour that is left, from 0 (white) to 1 (as outlines).
 * Order: after the view has the viewport that it keeps.
 */
void setHatchStrength(QGraphicsView &view, double share);

/** The share that a view asks for whose viewport is painted on; 1 for any other widget, and null.
 */
double hatchStrength(const QWidget *paintedOn);

/** The pen of a hatch on the screen. */
QPen hatchPen(int penId, double share);

/**
 * Paints a shape's hatch paler and its outline upon it, in the coordinates of its item.
 *
 * Order: after the shape's `paint()`.
 */
void paintPaleHatch(QPainter &painter, ZTShapeBase &shape, const QVector<HatchLayer> &layers,
                    double share);

} // namespace hostkit
