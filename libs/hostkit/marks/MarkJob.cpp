#include <hostkit/marks/MarkJob.h>

#include <hostkit/marks/MarkLayout_p.h>

#include <algorithm>

namespace hostkit {

bool buildMarkJob(const std::vector<std::unique_ptr<DrawingInput>> &drawings,
                  const MarkJobOptions &options, MarkJobResult *result, MarkJobError *error)
{
    const auto addDrawing = [](MarkLayout &layout, const DrawingInput &drawing) {
        ZTVecGraphItemFactory::getInstance()->setPath(drawing.filePath());
        return layout.add(ShapeType::VecGraph, [](ZTAbstractGraphicsItem &) {});
    };
    const auto addAll = [&](MarkLayout &layout) {
        return std::all_of(drawings.begin(), drawings.end(),
                           [&](const auto &drawing) { return addDrawing(layout, *drawing); });
    };
    return MarkLayout::build(options, addAll, result, error);
}

} // namespace hostkit
