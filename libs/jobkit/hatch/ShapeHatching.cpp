#include <jobkit/hatch/ShapeHatching.h>

#include <jobkit/hatch/AreaHatch.h>
#include <jobkit/hatch/OutlineUnion.h>

namespace jobkit {

namespace {

using hostkit::HatchKind;
using hostkit::HatchLayer;
using hostkit::ShapeHatch;

Area areaOf(const QPainterPath &outlinePx)
{
    return outlinePx.toSubpathPolygons(ZTCoord::getInstance()->getPix2MmTransform()).toVector();
}

QPainterPath pathOf(const Area &areaMm)
{
    const QTransform toPx = ZTCoord::getInstance()->getMm2pixTransform();
    QPainterPath path;
    for (const QPolygonF &outline : areaMm)
        path.addPolygon(toPx.map(outline));
    return path;
}

/** Lends the library's own zigzag to any outline. */
class ZigzagShape : public ZTShapeBase
{
public:
    void paint() override {}

    QVector<QLineF> over(const QPainterPath &outlinePx, const ShapeHatch &hatch)
    {
        setLines(outlinePx);
        fillULine(FillType::ULine, ZTCoord::getInstance()->mm2pix(hatch.spacingMm),
                  0.0 - hatch.angleDeg);
        return getFillLines();
    }
};

QVector<QLineF> linesOf(const QVector<QPolygonF> &runsMm)
{
    const QTransform toPx = ZTCoord::getInstance()->getMm2pixTransform();
    QVector<QLineF> lines;
    for (const QPolygonF &runMm : runsMm) {
        const QPolygonF run = toPx.map(runMm);
        for (int i = 1; i < run.size(); ++i)
            lines.append(QLineF(run[i - 1], run[i]));
    }
    return lines;
}

/** The hatches of one outline. */
class Hatching
{
public:
    explicit Hatching(const QPainterPath &outlinePx)
        : m_outline(outlinePx), m_area(areaOf(outlinePx))
    {
    }

    void add(const ShapeHatch &hatch, int number)
    {
        if (hatch.kind != HatchKind::Turned) {
            const QVector<QLineF> lines = linesFor(hatch);
            addLayer(hatch, number, hasRoomFor(lines) ? lines : QVector<QLineF>());
            return;
        }
        // Each pass has lines of its own, so each is marked once.
        ShapeHatch once = hatch;
        once.passes = 1;
        for (int turn = 1; turn <= hatch.passes; ++turn) {
            const QVector<QLineF> lines = linesOf(lineHatch(m_area, lineHatchOf(hatch), turn - 1));
            if (!hasRoomFor(lines))
                return;
            addLayer(once, number, lines, turn);
        }
    }

    void addLayer(const ShapeHatch &hatch, int number, const QVector<QLineF> &lines, int turn = 1)
    {
        HatchLayer layer;
        layer.hatch = number;
        layer.pen = hatch.pen;
        layer.passes = hatch.passes;
        layer.turn = turn;
        layer.firstLine = m_drawing.linesPx.size();
        layer.lines = lines.size();
        layer.isOneWay = hatch.isOneWay;
        layer.moment = hatch.moment;
        m_drawing.layers.append(layer);
        m_drawing.linesPx += lines;
    }

    /** Whether a shape may get so many further lines. */
    bool hasRoomFor(const QVector<QLineF> &lines) const
    {
        return m_drawing.linesPx.size() + lines.size() <= kMostHatchLines;
    }

    HatchDrawing take() { return std::move(m_drawing); }

private:
    static LineHatch lineHatchOf(const ShapeHatch &hatch)
    {
        LineHatch lines;
        lines.spacingMm = hatch.spacingMm;
        lines.angleDeg = 0.0 - hatch.angleDeg; // clockwise there
        lines.insetMm = hatch.insetMm;
        lines.isOneWay = hatch.isOneWay;
        lines.turnEachPassDeg = 0.0 - hatch.turnDeg;
        return lines;
    }

    QVector<QLineF> linesFor(const ShapeHatch &hatch) const
    {
        switch (hatch.kind) {
        case HatchKind::Zigzag:
            return ZigzagShape().over(
                hatch.insetMm > 0.0 ? pathOf(insetArea(m_area, hatch.insetMm)) : m_outline, hatch);
        case HatchKind::Cross:
            return linesOf(crossHatch(m_area, lineHatchOf(hatch)));
        case HatchKind::Contours:
            return linesOf(contourHatch(m_area, hatch.spacingMm, hatch.insetMm));
        default:
            return linesOf(lineHatch(m_area, lineHatchOf(hatch)));
        }
    }

    const QPainterPath &m_outline;
    Area m_area;
    HatchDrawing m_drawing;
};

} // namespace

HatchDrawing drawHatches(const QPainterPath &outlinePx, const QVector<ShapeHatch> &hatches,
                         const std::optional<QVector<QLineF>> &firstPx)
{
    Hatching drawn(outlinePx);
    for (int i = 0; i < hatches.size(); ++i) {
        if (i == 0 && firstPx)
            drawn.addLayer(hatches[i], 1, *firstPx);
        else
            drawn.add(hatches[i], i + 1);
    }
    return drawn.take();
}

QPainterPath unitedOutline(const QPainterPath &outlinePx)
{
    const QVector<QPolygonF> polygons = outlinePx.toSubpathPolygons(QTransform()).toVector();
    // In pixels, where the outlines are exact; the clipper works in millimetres.
    const QVector<QVector<int>> groups = overlappingOutlines(polygons);
    if (groups.isEmpty())
        return outlinePx;
    const Area areaMm = areaOf(outlinePx);
    QVector<QPainterPath> places(polygons.size());
    for (int i = 0; i < polygons.size(); ++i)
        places[i].addPolygon(polygons[i]);
    for (const QVector<int> &group : groups) {
        Area members;
        for (const int index : group)
            members.append(areaMm.value(index));
        const Area united = unitedArea(members, Qt::WindingFill);
        if (united.isEmpty())
            continue;
        for (const int index : group)
            places[index] = QPainterPath();
        places[group.first()] = pathOf(united);
    }
    QPainterPath path;
    for (const QPainterPath &place : qAsConst(places))
        path.addPath(place);
    return path;
}

} // namespace jobkit
