#include <hostkit/marks/MarkGraphBuilder.h>

#include <hostkit/items/ItemExtras.h>
#include <hostkit/marks/MarkCheck_p.h>
#include <hostkit/marks/MarkOrder.h>
#include <hostkit/setup/ProcessState.h>

#include <QtCore/QElapsedTimer>

#include <algorithm>
#include <limits>

namespace hostkit {

namespace {

constexpr int kShapesAhead = 1000;

MarkItems shapesOf(const QList<QGraphicsItem *> &candidates)
{
    MarkItems found;
    for (QGraphicsItem *candidate : candidates) {
        auto *item = dynamic_cast<ZTAbstractGraphicsItem *>(candidate);
        if (item != nullptr && item->getShapeBase() != nullptr && isMarked(*item))
            found.append(item);
    }
    return found;
}

std::unique_ptr<MarkCheck> checkOf(const ZTShapeManager &manager, const QRectF &fieldMm)
{
    const auto [scaleX, scaleY] = manager.getScale();
    return std::make_unique<MarkCheck>(fieldMm, scaleX, scaleY);
}

QRectF endlessField()
{
    constexpr double kFarMm = std::numeric_limits<double>::max() / 4.0;
    return {-kFarMm, -kFarMm, 2.0 * kFarMm, 2.0 * kFarMm};
}

/** An object with the hatches in its own pen, and one for each further pen of its hatches. */
QVector<ZTMarkObject> splitByPen(const ZTMarkObject &object, const QVector<HatchLayer> &layers)
{
    QVector<ZTMarkObject> parts{object};
    parts.first().fillLines.clear();
    for (const HatchLayer &layer : layers) {
        auto part = std::find_if(parts.begin(), parts.end(), [&layer](const ZTMarkObject &other) {
            return other.penId == layer.pen;
        });
        if (part == parts.end()) {
            ZTMarkObject further;
            further.penId = layer.pen;
            further.rect = object.rect;
            parts.append(further);
            part = parts.end() - 1;
        }
        part->fillLines += object.fillLines.mid(layer.firstLine, layer.lines);
    }
    return parts;
}

/** Lets a sort kind hold for as long as it lives; shapes obey it when they are rebuilt. */
class OrderHolds
{
public:
    explicit OrderHolds(EShapeSortType order)
    {
        ZTPointSort::getInstance()->setShapeMarkSort(order);
    }

private:
    ProcessStateGuard m_former;
};

} // namespace

bool DrawingMarks::isWhole() const
{
    return graph.objects.size() == shapes + hatchObjects && after.objects == before.objects &&
           after.polylines == before.polylines && after.hatchSegments == before.hatchSegments;
}

MarkItems markedItems(const ZTGraphicsDocument &document)
{
    return shapesOf(document.itemMag()->scene()->items(Qt::DescendingOrder));
}

MarkItems selectedMarkedItems(const ZTGraphicsDocument &document)
{
    MarkItems selected;
    for (ZTAbstractGraphicsItem *item : markedItems(document)) {
        if (item->isSelected())
            selected.append(item);
    }
    return selected;
}

MarkGraphBuilder::MarkGraphBuilder(const ZTGraphicsDocument &document, const MarkItems &items,
                                   std::optional<EShapeSortType> order)
    : MarkGraphBuilder(*document.itemMag(), items, order,
                       checkOf(*document.itemMag(), QRectF(document.view()->getWorkArea())))
{
}

MarkGraphBuilder::MarkGraphBuilder(ZTShapeManager &manager, const MarkItems &items,
                                   std::optional<EShapeSortType> order)
    : MarkGraphBuilder(manager, items, order, checkOf(manager, endlessField()))
{
}

MarkGraphBuilder::MarkGraphBuilder(ZTShapeManager &manager, const MarkItems &items,
                                   std::optional<EShapeSortType> order,
                                   std::unique_ptr<MarkCheck> check)
    : m_manager(manager), m_items(items.begin(), items.end()),
      m_order(order.value_or(ZTPointSort::getInstance()->getShapeMarkSort())),
      m_check(std::move(check))
{
    m_marks.units = MarkUnits::of(manager);
    m_marks.shapes = m_items.size();
    m_marks.graph.objects.reserve(m_items.size());
}

MarkGraphBuilder::~MarkGraphBuilder() = default;

bool MarkGraphBuilder::work(int budgetMs)
{
    layOutNextHatches(budgetMs / 2);
    const OrderHolds order(m_order);
    QElapsedTimer timer;
    timer.start();
    while (m_next < m_items.size()) {
        if (ZTAbstractGraphicsItem *item = m_items[m_next++])
            gather(*item);
        if (timer.elapsed() >= budgetMs)
            break;
    }
    return m_next < m_items.size();
}

/** Side by side; shapes whose outlines are to be ordered anew lay out their hatches anew, too. */
void MarkGraphBuilder::layOutNextHatches(int budgetMs) const
{
    if (m_order != ZTPointSort::getInstance()->getShapeMarkSort())
        return;
    QVector<const ZTShapeBase *> shapes;
    const int end = std::min(m_next + kShapesAhead, m_items.size());
    for (int i = m_next; i < end; ++i) {
        if (m_items[i])
            shapes << m_items[i]->getShapeBase();
    }
    ZTShapeBase::layOutHatches(shapes, budgetMs);
}

void MarkGraphBuilder::gather(ZTAbstractGraphicsItem &item)
{
    ZTMarkObject object;
    m_manager.genMarkObject(&item, item.getShapeBase(), object);
    m_check->look(item, object);
    m_marks.graph.rect |= object.rect;
    m_marks.graph.objects.append(std::move(object));
    m_layers.append(hatchLayersOf(item));
}

void MarkGraphBuilder::splitByPens()
{
    QVector<ZTMarkObject> objects;
    objects.reserve(m_marks.graph.objects.size());
    for (int i = 0; i < m_marks.graph.objects.size(); ++i) {
        const QVector<ZTMarkObject> parts = splitByPen(m_marks.graph.objects[i], m_layers[i]);
        m_marks.hatchObjects += parts.size() - 1;
        objects += parts;
    }
    m_marks.graph.objects = objects;
}

DrawingMarks MarkGraphBuilder::take()
{
    const OrderHolds order(m_order);
    m_marks.findings = std::move(m_check->findings);
    splitByPens();
    m_marks.before = measureMarkPath(m_marks.graph, m_marks.units);
    orderMarkGraph(&m_marks.graph);
    m_marks.after = measureMarkPath(m_marks.graph, m_marks.units);
    return std::move(m_marks);
}

const MarkFindings &MarkGraphBuilder::findings() const { return m_check->findings; }

ZTMarkGraph MarkGraphBuilder::takeUnordered() { return std::move(m_marks.graph); }

DrawingMarks drawingMarks(const ZTGraphicsDocument &document, std::optional<EShapeSortType> order)
{
    MarkGraphBuilder builder(document, markedItems(document), order);
    builder.work(std::numeric_limits<int>::max());
    return builder.take();
}

} // namespace hostkit
