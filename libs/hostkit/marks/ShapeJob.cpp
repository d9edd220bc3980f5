#include <hostkit/marks/ShapeJob.h>

#include <hostkit/marks/MarkLayout_p.h>

#include <algorithm>

namespace hostkit {

namespace {

/** Moves the item's box, not the item, so that its top left corner is the item's origin. */
void toOrigin(ZTAbstractGraphicsItem &item)
{
    item.getShapeBase()->paint();
    const QPointF cornerPx = item.boundingRect().topLeft();
    const ZTCoord &coord = *ZTCoord::getInstance();
    item.setTransformParam(
        item.getTransformParam() *
        QTransform::fromTranslate(-coord.pix2mm(cornerPx.x()), -coord.pix2mm(cornerPx.y())));
}

} // namespace

bool buildShapeJob(const std::vector<JobShape> &shapes, const MarkJobOptions &options,
                   MarkJobResult *result, MarkJobFailure *failure)
{
    const auto addShape = [](MarkLayout &layout, const JobShape &added) {
        return layout.add(added.type, [&added](ZTAbstractGraphicsItem &item) {
            added.shape(item);
            toOrigin(item);
        });
    };
    const auto addAll = [&](MarkLayout &layout) {
        return std::all_of(shapes.begin(), shapes.end(),
                           [&](const JobShape &shape) { return addShape(layout, shape); });
    };
    return MarkLayout::build(options, addAll, result, failure);
}

} // namespace hostkit
