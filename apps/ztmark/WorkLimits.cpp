#include "WorkLimits.h"

#include <QtCore/QtMath>

#include <algorithm>
#include <cmath>

using vectorkit::VectorDrawing;
using vectorkit::VectorLayer;
using vectorkit::VectorPath;
using vectorkit::VectorShape;

namespace {

constexpr double kMaxHatchRows = 1e6;
constexpr double kMaxPieces = 20e6;
constexpr double kMaxObjects = 1e6;

/** "12,345,678", the same in every locale. */
QString grouped(double count)
{
    QString digits = QString::number(count, 'f', 0);
    for (int i = digits.size() - 3; i > 0; i -= 3)
        digits.insert(i, QLatin1Char(','));
    return digits;
}

QString tooMany(const QString &what, double count, double limit)
{
    return WorkLimits::tr("too much work: %1 %2, the limit is %3")
        .arg(grouped(count), what, grouped(limit));
}

/** Points of the outlines, and how far their edges reach across the lines of a hatch. */
struct Extent
{
    double points = 0.0;
    double acrossMm = 0.0;

    void add(const VectorPath &path, bool isHatched, double toleranceMm, const QPointF &normal)
    {
        const QPolygonF flat = path.flattened(toleranceMm);
        points += flat.size();
        for (int i = 1; isHatched && i < flat.size(); ++i)
            acrossMm += std::abs(QPointF::dotProduct(flat[i] - flat[i - 1], normal));
    }
};

Extent extentOf(const VectorDrawing &drawing, const hostkit::ImportOptions &import, double angleDeg)
{
    const double angle = qDegreesToRadians(angleDeg);
    const QPointF normal(-std::sin(angle), std::cos(angle));
    const double tolerance =
        import.toleranceMm > 0.0 ? import.toleranceMm : ZTCurveTolerance::kUsualMm;
    Extent extent;
    for (const VectorLayer &layer : drawing.layers) {
        for (const VectorShape &shape : layer.shapes) {
            for (const VectorPath &path : shape.paths)
                extent.add(path, path.isClosed() || import.fillsOpen, tolerance, normal);
        }
    }
    return extent;
}

} // namespace

QString WorkLimits::add(const VectorDrawing &drawing, const hostkit::ImportOptions &import,
                        const hostkit::MarkJobOptions &layout)
{
    const Extent extent = extentOf(drawing, import, layout.angleDeg);
    m_pieces += extent.points;
    if (layout.hatch == FillType::None)
        return {};
    const QSizeF box = drawing.boundsMm().size();
    const double rows = std::sqrt(2.0) * std::max(box.width(), box.height()) / layout.spacingMm;
    if (!(rows <= kMaxHatchRows))
        return tooMany(tr("hatch lines over the drawing"), rows, kMaxHatchRows);
    // Half the crossings with the outlines; a zigzag has as many joints.
    const double joints = layout.hatch == FillType::ULine ? 2.0 : 1.0;
    const double segments = joints * extent.acrossMm / layout.spacingMm / 2.0;
    if (!(segments <= kMaxPieces))
        return tooMany(tr("hatch segments"), segments, kMaxPieces);
    m_pieces += segments;
    return {};
}

QString WorkLimits::checkCopies(const hostkit::MarkJobOptions &layout) const
{
    const double copies = double(layout.columns) * layout.rows;
    if (copies * m_objects > kMaxObjects)
        return tooMany(tr("objects"), copies * m_objects, kMaxObjects);
    if (copies * m_pieces > kMaxPieces)
        return tooMany(tr("points and hatch segments"), copies * m_pieces, kMaxPieces);
    return {};
}
