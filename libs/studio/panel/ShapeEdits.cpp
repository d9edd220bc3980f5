#include <studio/panel/ShapeEdits.h>

#include <studio/choices/Units.h>
#include <studio/commands/HatchCommand.h>
#include <studio/commands/PlacementCommand.h>
#include <studio/measures/TypedMeasure.h>
#include <studio/panel/OutlineProbe.h>
#include <studio/panel/ShapeStep.h>
#include <studio/program/UndoTexts.h>

#include <hostkit/items/ItemHatches.h>

#include <QtWidgets/QUndoStack>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace studio {

namespace {

/** What is flatter cannot be stretched to a size. */
constexpr double kFlatMm = 1e-9;

/** So near to a wanted size comes what is made of chords; then it is measured as wanted. */
constexpr double kNearMm = 1e-7;
constexpr int kFreeTries = 6;
constexpr int kMostTries = 40;

double along(Qt::Orientation direction, const QSizeF &size)
{
    return direction == Qt::Horizontal ? size.width() : size.height();
}

double along(Qt::Orientation direction, const QPointF &point)
{
    return direction == Qt::Horizontal ? point.x() : point.y();
}

QPointF shift(Qt::Orientation direction, double byMm)
{
    return direction == Qt::Horizontal ? QPointF(byMm, 0.0) : QPointF(0.0, byMm);
}

/** The shapes that one value is about: all of them, or each for itself. */
QVector<ShapeItems> groupsOf(const ShapeItems &items, ShapeEdits::Extent extent)
{
    if (items.isEmpty() || extent == ShapeEdits::Extent::Together)
        return {items};
    QVector<ShapeItems> groups;
    groups.reserve(items.size());
    for (ShapeItem *item : items)
        groups.append({item});
    return groups;
}

/** Whether a shape stretched twice as large is exactly twice as large. */
bool isMadeOfCorners(ShapeItem &item)
{
    switch (item.getShapeType()) {
    case ShapeType::Rect:
    case ShapeType::Line:
    case ShapeType::Polygon:
        return true;
    case ShapeType::Ellipse:
        // The outermost points of an ellipse that is not turned are corners of its outline.
        return item.getTransformParam().type() <= QTransform::TxScale;
    default:
        return false;
    }
}

/** Shapes that are stretched as one, to a size of their box. */
class Stretch
{
public:
    Stretch(const ShapeItems &items, Qt::Orientation direction, const QPointF &anchor)
        : m_direction(direction), m_anchor(anchor), m_boxMm(outlineBoxMm(items)),
          m_isLocked(std::any_of(items.begin(), items.end(),
                                 [](const ShapeItem *item) { return isAspectLocked(*item); }))
    {
        const bool isExact = std::all_of(items.begin(), items.end(),
                                         [](ShapeItem *item) { return isMadeOfCorners(*item); });
        for (ShapeItem *item : items) {
            m_before.append(*item); // measuring changes it for a while
            if (!isExact)
                m_probes.push_back(std::make_unique<OutlineProbe>(*item));
        }
    }

    bool isFlat() const { return along(m_direction, m_boxMm.size()) < kFlatMm; }

    /** As near to a size as the chords of curves let it come. */
    QVector<Placement> to(double sizeMm)
    {
        double factor = sizeMm / along(m_direction, m_boxMm.size());
        QVector<Placement> best = by(factor);
        double low = 0.0;
        double high = INFINITY;
        double least = m_probes.empty() ? 0.0 : INFINITY;
        for (int i = 0; i < kMostTries && least > kNearMm; ++i) {
            const QVector<Placement> tried = by(factor);
            const QRectF boxMm = probed(tried);
            const double foundMm = along(m_direction, boxMm.size());
            if (std::abs(foundMm - sizeMm) < least) {
                least = std::abs(foundMm - sizeMm);
                best = anchored(tried, boxMm);
            }
            (foundMm < sizeMm ? low : high) = factor;
            factor = foundMm > 0.0 ? factor * sizeMm / foundMm : 2.0 * factor;
            // A curve that jumps to more chords on the way is closed in on from both sides.
            if (factor <= low || factor >= high || i > kFreeTries)
                factor = std::isfinite(high) ? (low + high) / 2.0 : factor;
        }
        return best;
    }

private:
    QVector<Placement> by(double factor) const
    {
        const bool isAcross = m_isLocked || m_direction == Qt::Horizontal;
        const bool isDown = m_isLocked || m_direction == Qt::Vertical;
        QVector<Placement> placements;
        placements.reserve(m_before.size());
        for (const Placement &before : m_before)
            placements.append(stretched(before, anchorPoint(m_boxMm, m_anchor),
                                        isAcross ? factor : 1.0, isDown ? factor : 1.0));
        return placements;
    }

    /** Shifted so that the anchor of what was measured is where it was before. */
    QVector<Placement> anchored(QVector<Placement> placements, const QRectF &boxMm) const
    {
        const QPointF awayMm = anchorPoint(m_boxMm, m_anchor) - anchorPoint(boxMm, m_anchor);
        for (Placement &placement : placements)
            placement.posPx += ZTCoord::getInstance()->getMm2pixTransform().map(awayMm);
        return placements;
    }

    QRectF probed(const QVector<Placement> &placements)
    {
        QRectF boxMm = m_probes.front()->boxMm(placements.first());
        for (int i = 1; i < placements.size(); ++i) {
            const QRectF one = m_probes[static_cast<std::size_t>(i)]->boxMm(placements[i]);
            boxMm.setCoords(qMin(boxMm.left(), one.left()), qMin(boxMm.top(), one.top()),
                            qMax(boxMm.right(), one.right()), qMax(boxMm.bottom(), one.bottom()));
        }
        return boxMm;
    }

    QVector<Placement> m_before;
    const Qt::Orientation m_direction;
    const QPointF m_anchor;
    const QRectF m_boxMm;
    const bool m_isLocked;
    std::vector<std::unique_ptr<OutlineProbe>> m_probes; ///< one a shape, or none
};

bool areTurnedAlike(const ShapeItems &items)
{
    constexpr double kAlikeDeg = 1e-9;
    return std::all_of(items.begin(), items.end(), [&](const ShapeItem *item) {
        return std::abs(wrappedDeg(turnDeg(*item) - turnDeg(*items.first()))) < kAlikeDeg;
    });
}

template <class Kind>
ShapeItems ofKind(const ShapeItems &items)
{
    ShapeItems found;
    for (ShapeItem *item : items) {
        if (qobject_cast<Kind *>(item) != nullptr)
            found.append(item);
    }
    return found;
}

} // namespace

QPointF anchorPoint(const QRectF &box, const QPointF &anchor)
{
    return {box.left() + anchor.x() * box.width(), box.top() + anchor.y() * box.height()};
}

ShapeEdits::ShapeEdits(ZTGraphicsDocument &document) : m_document(document) {}

QString ShapeEdits::setPlace(Qt::Orientation direction, double mm, const Frame &frame)
{
    QVector<Placement> placements;
    for (const ShapeItems &group :
         groupsOf(selectedShapeItems(*m_document.scene()), frame.extent)) {
        const QPointF atMm = anchorPoint(outlineBoxMm(group), frame.anchor);
        for (ShapeItem *item : group)
            placements.append(moved(*item, shift(direction, mm - along(direction, atMm))));
    }
    return place(placements, QT_TRANSLATE_NOOP("studio::UndoTexts", "Move"));
}

QString ShapeEdits::setSize(Qt::Orientation direction, double mm, const Frame &frame)
{
    QVector<Placement> placements;
    for (const ShapeItems &group :
         groupsOf(selectedShapeItems(*m_document.scene()), frame.extent)) {
        Stretch stretch(group, direction, frame.anchor);
        if (stretch.isFlat())
            return direction == Qt::Horizontal
                       ? tr("What has no width cannot be stretched to one")
                       : tr("What has no height cannot be stretched to one");
        placements += stretch.to(mm);
    }
    return place(placements, QT_TRANSLATE_NOOP("studio::UndoTexts", "Resize"));
}

QString ShapeEdits::setTurn(double angleDeg, const Frame &frame)
{
    const ShapeItems items = selectedShapeItems(*m_document.scene());
    const Extent extent = areTurnedAlike(items) ? frame.extent : Extent::Each;
    QVector<Placement> placements;
    for (const ShapeItems &group : groupsOf(items, extent)) {
        const QPointF middleMm = outlineBoxMm(group).center();
        for (ShapeItem *item : group)
            placements.append(turned(*item, middleMm, wrappedDeg(angleDeg - turnDeg(*item))));
    }
    return place(placements, QT_TRANSLATE_NOOP("studio::UndoTexts", "Rotate"));
}

QString ShapeEdits::setDiameter(bool isFirst, double mm)
{
    QVector<Placement> placements;
    for (ShapeItem *item : ofKind<ZTGraphicsEllipseItem>(selectedShapeItems(*m_document.scene()))) {
        Diameters diameters = diametersMm(*item);
        if (diameters.first < kFlatMm || diameters.second < kFlatMm)
            return tr("An ellipse that is flat cannot be stretched");
        (isFirst ? diameters.first : diameters.second) = mm;
        placements.append(withDiameters(*item, diameters));
    }
    return place(placements, QT_TRANSLATE_NOOP("studio::UndoTexts", "Resize"));
}

// A place outside the drawing's area would be brought back to its edge by the drawing.
QString ShapeEdits::place(const QVector<Placement> &placements, const char *undoSource)
{
    const QRectF areaPx = m_document.scene()->sceneRect();
    const auto isOutside = [&](const Placement &placement) {
        const QPointF &posPx = placement.posPx;
        return !(posPx.x() >= areaPx.left() && posPx.x() <= areaPx.right() &&
                 posPx.y() >= areaPx.top() && posPx.y() <= areaPx.bottom());
    };
    if (std::any_of(placements.begin(), placements.end(), isOutside)) {
        const QRectF areaMm = ZTCoord::getInstance()->getPix2MmTransform().mapRect(areaPx);
        const auto text = [](double mm) { return measureText(mm / units::unitMm(), 0); };
        return tr("A shape would leave the drawing's area, %1 to %2 %5 across and %3 to %4 %5 down")
            .arg(text(areaMm.left()), text(areaMm.right()), text(areaMm.top()),
                 text(areaMm.bottom()), units::name());
    }
    if (!placements.isEmpty())
        m_document.undoStack()->push(
            new PlacementCommand(m_document.scene(), placements, undoText(undoSource),
                                 m_document.itemMag()->itemModel()->rowCount()));
    return {};
}

QString ShapeEdits::setHatch(const std::function<void(ZTFillParam &fill)> &change)
{
    return pushHatch([&change](ZTFillParam &fill, hostkit::ItemExtras &) { change(fill); });
}

QString ShapeEdits::setHatches(const std::function<void(QVector<hostkit::ShapeHatch> &hatches,
                                                        const hostkit::ShapeHatch &fresh)> &change)
{
    return pushHatch([&change](ZTFillParam &fill, hostkit::ItemExtras &extras) {
        hostkit::ShapeHatch fresh;
        fresh.spacingMm = fill.spac;
        fresh.angleDeg = 0.0 - fill.angle;
        QVector<hostkit::ShapeHatch> hatches = hostkit::hatchesOf(fill, extras);
        change(hatches, fresh);
        hostkit::setHatches(hatches, &fill, &extras);
    });
}

QString ShapeEdits::setOutlinesUnited(bool areUnited)
{
    return pushHatch([areUnited](ZTFillParam &, hostkit::ItemExtras &extras) {
        extras.outlineUnion =
            areUnited ? hostkit::OutlineUnion::Always : hostkit::OutlineUnion::Never;
    });
}

QString
ShapeEdits::pushHatch(const std::function<void(ZTFillParam &, hostkit::ItemExtras &)> &change)
{
    ShapeItems areas;
    for (ShapeItem *item : selectedShapeItems(*m_document.scene())) {
        if (canBeHatched(*item))
            areas.append(item);
    }
    auto command = std::make_unique<HatchCommand>(
        m_document.scene(), areas, change,
        undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Change hatch")));
    if (!command->changesNothing())
        m_document.undoStack()->push(command.release());
    return {};
}

QString ShapeEdits::setSides(int sides)
{
    editShapes(m_document, ofKind<ZTGraphicsPolygonItem>(selectedShapeItems(*m_document.scene())),
               undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Change number of sides")),
               [sides](ShapeItem &item) {
                   static_cast<ZTGraphicsPolygonItem &>(item).setSideCount(sides);
               });
    return {};
}

QString ShapeEdits::setLength(double mm)
{
    editShapes(m_document, ofKind<ZTGraphicsLineItem>(selectedShapeItems(*m_document.scene())),
               undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Change length")),
               [mm](ShapeItem &item) { static_cast<ZTGraphicsLineItem &>(item).setLength(mm); });
    return {};
}

} // namespace studio
