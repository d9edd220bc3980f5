#include <hostkit/marks/MarkJob.h>

#include <hostkit/marks/MarkLayout_p.h>

#include <algorithm>

namespace hostkit {

bool buildMarkJob(const std::vector<std::unique_ptr<DrawingInput>> &drawings,
                  const MarkJobOptions &options, MarkJobResult *result, MarkJobFailure *failure)
{
    const auto addDrawing = [](MarkLayout &layout, const DrawingInput &drawing) {
        ZTVecGraphItemFactory::getInstance()->setPath(drawing.filePath());
        return layout.add(ShapeType::VecGraph, [](ZTAbstractGraphicsItem &) {});
    };
    const auto addAll = [&](MarkLayout &layout) {
        return std::all_of(drawings.begin(), drawings.end(),
                           [&](const auto &drawing) { return addDrawing(layout, *drawing); });
    };
    return MarkLayout::build(options, addAll, result, failure);
}

bool buildPathJob(const std::vector<QPainterPath> &drawingsMm, const MarkJobOptions &options,
                  MarkJobResult *result, MarkJobFailure *failure)
{
    // A name that is nothing but its ending is opened by nobody.
    const QString noFile = QStringLiteral(".plt");
    const auto addPath = [&noFile](MarkLayout &layout, const QPainterPath &path) {
        ZTVecGraphItemFactory::getInstance()->setPath(noFile);
        return layout.add(ShapeType::VecGraph, [&](ZTAbstractGraphicsItem &item) {
            const QPointF corner = path.boundingRect().topLeft();
            static_cast<ZTVecGraph &>(*item.getShapeBase())
                .setDrawing(path.translated(-corner), noFile);
        });
    };
    for (std::size_t drawing = 0; drawing < drawingsMm.size(); ++drawing) {
        if (drawingsMm[drawing].length() > 0.0)
            continue;
        failure->drawing = static_cast<int>(drawing);
        return fail(failure, Failure::Kind::NotPossible,
                    MarkLayout::tr("there is nothing to mark"));
    }
    const auto addAll = [&](MarkLayout &layout) {
        return std::all_of(drawingsMm.begin(), drawingsMm.end(),
                           [&](const QPainterPath &path) { return addPath(layout, path); });
    };
    return MarkLayout::build(options, addAll, result, failure);
}

} // namespace hostkit
