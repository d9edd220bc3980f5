#include <hostkit/marks/MarkPicture_p.h>

#include <QtCore/qnumeric.h>

#include <algorithm>
#include <cmath>

namespace hostkit {

namespace {

constexpr double kEmptyPageMm = 10.0;
constexpr double kLeastDetail = 1e-4;

/** Finds the box around all pieces and the first point of all. */
class Bounding : public MarkPathVisitor
{
public:
    void polyline(const QPolygonF &points) override
    {
        for (const QPointF &point : points)
            take(point);
    }

    void hatchLine(const QLineF &line) override
    {
        take(line.p1());
        take(line.p2());
    }

    bool any = false;
    QPointF start;
    QPointF least;
    QPointF most;

private:
    void take(const QPointF &point)
    {
        if (!canShow(point))
            return;
        if (!any)
            start = least = most = point;
        any = true;
        least = QPointF(std::min(least.x(), point.x()), std::min(least.y(), point.y()));
        most = QPointF(std::max(most.x(), point.x()), std::max(most.y(), point.y()));
    }
};

/**
 * The size that line widths follow: that of the page for one object, less for many small ones, so
 * that their lines stay apart.
 */
double detailMm(const ZTMarkGraph &graph, const MarkUnits &units, double sideMm)
{
    if (graph.objects.isEmpty())
        return sideMm;
    double sumMark = 0.0;
    for (const ZTMarkObject &object : graph.objects)
        sumMark += std::max(object.rect.width(), object.rect.height());
    const double meanMm = units.toMm(sumMark / graph.objects.size());
    const bool known = meanMm > sideMm * kLeastDetail && meanMm < sideMm;
    return known ? std::sqrt(meanMm * sideMm) : sideMm;
}

} // namespace

bool canShow(const QPointF &point) { return qIsFinite(point.x()) && qIsFinite(point.y()); }

MarkPicture layOutMarkPicture(const ZTMarkGraph &graph, const MarkUnits &units)
{
    Bounding bounding;
    walkMarkPath(graph, bounding);
    const QRectF boxMm(bounding.least / units.perMm, bounding.most / units.perMm);
    const double longerMm = std::max(boxMm.width(), boxMm.height());
    const double sideMm = longerMm > 0.0 ? longerMm : kEmptyPageMm;

    MarkPicture picture;
    const double marginMm = sideMm * 0.04;
    picture.pageMm = boxMm.adjusted(-marginMm, -marginMm, marginMm, marginMm);
    const double detail = detailMm(graph, units, sideMm);
    picture.hatch = {QColor(0x3b, 0x82, 0xf6), detail * 0.001};
    picture.outline = {QColor(0x1f, 0x29, 0x37), detail * 0.002};
    picture.jumpInside = {QColor(0xf5, 0x9e, 0x0b), detail * 0.0005};
    picture.jumpBetween = {QColor(0xdc, 0x26, 0x26), detail * 0.001};
    picture.startColor = QColor(0x16, 0xa3, 0x4a);
    picture.startRadiusMm = detail * 0.008;
    picture.hasStart = bounding.any;
    picture.startMm = bounding.start / units.perMm;
    return picture;
}

QVector<QPolygonF> markArrows(const ZTMarkGraph &graph, const MarkPicture &picture,
                              const MarkUnits &units)
{
    constexpr double kWidths = 6.0; // of the outline's stroke
    const double side = picture.outline.widthMm * kWidths * units.perMm;
    QVector<QPolygonF> arrows;
    const auto add = [&](const QLineF &line) {
        if (!canShow(line.p1()) || !canShow(line.p2()) || line.length() == 0.0)
            return false;
        const QPointF along = (line.p2() - line.p1()) / line.length() * side;
        const QPointF across = QPointF(-along.y(), along.x()) / 2.0;
        const QPointF tip = line.center() + along / 2.0;
        arrows.append(QPolygonF(QVector<QPointF>{tip - along + across, tip, tip - along - across}));
        return true;
    };
    for (const ZTMarkObject &object : graph.objects) {
        for (const QPolygonF &outline : object.lines) {
            int i = 1;
            while (i < outline.size() && !add(QLineF(outline[i - 1], outline[i])))
                ++i;
        }
        QPointF end(qQNaN(), qQNaN());
        for (const QLineF &line : object.fillLines) {
            if (line.x1() != end.x() || line.y1() != end.y()) // the first of a run
                add(line);
            end = line.p2();
        }
    }
    return arrows;
}

} // namespace hostkit
