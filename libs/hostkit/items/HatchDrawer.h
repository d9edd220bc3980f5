#pragma once

#include <hostkit/items/ItemHatches.h>

#include <QtGui/QPainterPath>

#include <optional>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace hostkit {

/** All lines of a shape's hatches. */
struct HatchDrawing
{
    QVector<QLineF> linesPx;    ///< in the order in which they are marked
    QVector<HatchLayer> layers; ///< of all lines, in their order; pen 0: the shape's
};

/**
 * Who draws the hatches that the library's fill parameters cannot say: shapes of every library ask
 * it, so that none of them has to know it. Without one they draw their first hatch alone.
 *
 * Frame: scene pixels, relative to the item's origin.
 */
struct HatchDrawer
{
    /** All hatches over an outline; `firstPx`: those of the first, where they are drawn already. */
    HatchDrawing (*draw)(const QPainterPath &outlinePx, const QVector<ShapeHatch> &hatches,
                         const std::optional<QVector<QLineF>> &firstPx) = nullptr;

    /** The outline with what overlaps in it united; the same where nothing does. */
    QPainterPath (*unite)(const QPainterPath &outlinePx) = nullptr;
};

/** The drawer of this process; its functions are null where nobody has given one. */
const HatchDrawer &hatchDrawer();

/** Order: before the first document. Holds for shapes that are rebuilt from then on. */
void setHatchDrawer(const HatchDrawer &drawer);

/**
 * Paints outline and hatches of an item's shape as the library does, but each hatch in its own pen,
 * and as pale as the view asks (`setHatchStrength`) whose viewport is painted on. False, and
 * nothing is painted, where the library would paint the same.
 */
bool paintHatchPens(QPainter &painter, const ZTAbstractGraphicsItem &item,
                    const QWidget *paintedOn = nullptr);

} // namespace hostkit
