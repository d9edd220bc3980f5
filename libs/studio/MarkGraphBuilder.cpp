#include <studio/MarkGraphBuilder.h>

#include <QtCore/QElapsedTimer>

#include <algorithm>

namespace studio {

MarkGraphBuilder::MarkGraphBuilder(ZTShapeManager &source, bool selectionOnly) : manager(source)
{
    const ShapeItems ascending =
        selectionOnly ? selectedShapeItems(*manager.scene()) : shapeItemsOf(*manager.scene());
    items = guarded(ascending);
    std::reverse(items.begin(), items.end());
    graph.objects.reserve(items.size());
}

bool MarkGraphBuilder::work(int budgetMs)
{
    QElapsedTimer timer;
    timer.start();
    while (next < items.size()) {
        if (ShapeItem *item = items[next++]) {
            ZTMarkObject object;
            manager.genMarkObject(item, item->getShapeBase(), object);
            graph.rect |= object.rect;
            graph.objects.append(std::move(object));
        }
        if (timer.elapsed() >= budgetMs)
            break;
    }
    return next < items.size();
}

ZTMarkGraph MarkGraphBuilder::takeSorted()
{
    ZTMarkGraph sorted = std::move(graph);
    ZTPointSort::getInstance()->markGraphSort(sorted);
    return sorted;
}

} // namespace studio
