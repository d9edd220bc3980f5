#pragma once

#include <hostkit/marks/MarkJob.h>

#include <functional>
#include <vector>

class ZTAbstractGraphicsItem;

namespace hostkit {

/** A shape of a job, of any kind that a factory is registered for. */
struct JobShape
{
    ShapeType type = ShapeType::Rect; ///< names the factory that makes the item

    /** Makes a new item what is to be marked; its fill is set afterwards, as the job asks. */
    std::function<void(ZTAbstractGraphicsItem &item)> shape;
};

/**
 * `buildMarkJob` for shapes: each becomes one object, drawn and hatched by its own class.
 *
 * Frame: the box of each shape comes to its place in the row, wherever the shape itself lies.
 * Order, Failure, limits: as `buildMarkJob`.
 */
bool buildShapeJob(const std::vector<JobShape> &shapes, const MarkJobOptions &options,
                   MarkJobResult *result, MarkJobFailure *failure);

} // namespace hostkit
