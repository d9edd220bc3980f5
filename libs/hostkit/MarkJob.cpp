#include <hostkit/MarkJob.h>

#include <hostkit/MarkObjectMaker.h>

#include <QtCore/QtMath>

#include <algorithm>
#include <cmath>

namespace hostkit {

namespace {

constexpr double kMaxHatchRows = 10e6;
constexpr double kMaxPieces = 20e6;
constexpr double kMaxObjects = 1e6;
constexpr double kHatchMarginPx = 10.0; // on each side of a layout of hatch lines

/** Sets the process-wide sort kind, which shapes and graphs obey, and puts the old one back. */
class SortKind
{
public:
    explicit SortKind(EShapeSortType kind) : former(ZTPointSort::getInstance()->getShapeMarkSort())
    {
        ZTPointSort::getInstance()->setShapeMarkSort(kind);
    }
    ~SortKind() { ZTPointSort::getInstance()->setShapeMarkSort(former); }
    SortKind(const SortKind &) = delete;
    SortKind &operator=(const SortKind &) = delete;

private:
    EShapeSortType former;
};

bool fail(MarkJobError *error, int drawing, const QString &reason)
{
    *error = MarkJobError{drawing, reason};
    return false;
}

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
    return QStringLiteral("too much work: %1 %2, the limit is %3")
        .arg(grouped(count), what, grouped(limit));
}

/** Turns the drawing and brings the corner of the turned box back to the origin. */
void turn(ZTShapeBase &shape, double rotateDeg)
{
    const QTransform rotation = QTransform().rotate(rotateDeg);
    shape.setTransformParam(rotation);
    const QPointF cornerPx = shape.controlPointRect().topLeft();
    const ZTCoord &coord = *ZTCoord::getInstance();
    const QTransform back =
        QTransform::fromTranslate(-coord.pix2mm(cornerPx.x()), -coord.pix2mm(cornerPx.y()));
    shape.setTransformParam(rotation * back);
}

/** Number of hatch lines laid over the shape, those that miss it included. */
double hatchRows(ZTShapeBase &shape, double spacingPx)
{
    const QRectF box = shape.controlPointRect();
    const double diagonal = std::sqrt(2.0) * std::max(box.width(), box.height());
    return (diagonal + 2.0 * kHatchMarginPx) / spacingPx;
}

/** About how many segments the hatch will have: half its crossings with the outline. */
double hatchSegments(const ZTShapeBase &shape, double spacingPx, double angleDeg)
{
    const double angle = qDegreesToRadians(angleDeg);
    const QPointF normal(-std::sin(angle), std::cos(angle));
    double acrossPx = 0.0;
    for (const QPolygonF &polygon : shape.getLines().toSubpathPolygons()) {
        for (int i = 0; i < polygon.size(); ++i) {
            const QPointF edge = polygon[(i + 1) % polygon.size()] - polygon[i];
            acrossPx += std::abs(QPointF::dotProduct(edge, normal));
        }
    }
    return acrossPx / spacingPx / 2.0;
}

/** One job on its way from drawings to an ordered graph. */
class Builder
{
public:
    Builder(const MarkJobOptions &jobOptions, MarkJobError *jobError)
        : options(jobOptions), error(jobError), screen2mark(ZTCoord::getInstance()->screen2mark())
    {
    }

    bool addDrawing(int index, const DrawingInput &drawing);
    bool repeat();
    void order(MarkJobResult *result);
    void tell(const QString &step) const
    {
        if (options.progress)
            options.progress(step);
    }

private:
    bool checkHatch(int index, ZTShapeBase &shape);
    ZTFillParam fillParam() const;

    /** Scene pixels of a length on the marked result, which the scale enlarges. */
    double scenePx(double lengthMm) const
    {
        return ZTCoord::getInstance()->mm2pix(lengthMm / options.scale);
    }

    const MarkJobOptions &options;
    MarkJobError *error;
    double screen2mark;
    double nextXPx = 0.0;  ///< where the next drawing begins
    double heightPx = 0.0; ///< of the highest drawing
    double pieces = 0.0;   ///< points and hatch segments so far
    ZTMarkGraph graph;
};

/**
 * The shape converts its spacing from millimetres to pixels once, and the scale then enlarges the
 * hatch with the drawing: dividing by the scale brings the lines out at the distance asked for.
 */
ZTFillParam Builder::fillParam() const
{
    ZTFillParam fill;
    fill.fillType = options.hatch;
    fill.spac = options.spacingMm / options.scale;
    fill.angle = options.angleDeg;
    // The outline is needed to order the objects, also where it is dropped in the end.
    fill.isEnableBorder = true;
    return fill;
}

bool Builder::checkHatch(int index, ZTShapeBase &shape)
{
    if (options.hatch == FillType::None)
        return true;
    const double spacingPx = scenePx(options.spacingMm);
    const double rows = hatchRows(shape, spacingPx);
    if (!(rows <= kMaxHatchRows))
        return fail(error, index,
                    tooMany(QStringLiteral("hatch lines over the drawing"), rows, kMaxHatchRows));
    const double joints = options.hatch == FillType::ULine ? 2.0 : 1.0;
    const double segments = joints * hatchSegments(shape, spacingPx, options.angleDeg);
    if (!(segments <= kMaxPieces))
        return fail(error, index, tooMany(QStringLiteral("hatch segments"), segments, kMaxPieces));
    return true;
}

bool Builder::addDrawing(int index, const DrawingInput &drawing)
{
    ZTVecGraph shape;
    shape.setImagePath(drawing.filePath());
    shape.paint();
    if (options.rotateDeg != 0.0)
        turn(shape, options.rotateDeg);
    if (!checkHatch(index, shape))
        return false;
    shape.setFillParam(fillParam());

    const double factor = screen2mark * options.scale;
    ZTMarkObject object = makeMarkObject(shape, QPointF(nextXPx, 0.0), QSizeF(factor, factor));
    const QRectF boxPx = shape.controlPointRect();
    nextXPx += boxPx.width() + scenePx(options.gapMm.width());
    heightPx = std::max(heightPx, boxPx.height());
    for (const QPolygonF &polygon : object.lines)
        pieces += polygon.size();
    pieces += object.fillLines.size();
    graph.rect |= object.rect;
    graph.objects.append(std::move(object));
    return true;
}

bool Builder::repeat()
{
    const double copies = double(options.columns) * options.rows;
    const double objects = copies * graph.objects.size();
    if (objects > kMaxObjects)
        return fail(error, -1, tooMany(QStringLiteral("objects"), objects, kMaxObjects));
    if (copies * pieces > kMaxPieces)
        return fail(
            error, -1,
            tooMany(QStringLiteral("points and hatch segments"), copies * pieces, kMaxPieces));
    const double factor = screen2mark * options.scale;
    const double pitchX = nextXPx * factor;
    const double pitchY = (heightPx + scenePx(options.gapMm.height())) * factor;
    const QVector<ZTMarkObject> cell = graph.objects;
    if (cell.isEmpty())
        return true;
    graph.objects.reserve(static_cast<int>(objects));
    for (int i = 1; i < options.columns * options.rows; ++i) {
        const QPointF byMark(i % options.columns * pitchX, i / options.columns * pitchY);
        for (const ZTMarkObject &object : cell) {
            graph.objects.append(movedMarkObject(object, byMark));
            graph.rect |= graph.objects.last().rect;
        }
    }
    return true;
}

void dropOutlines(ZTMarkGraph &graph)
{
    for (ZTMarkObject &object : graph.objects)
        object.lines.clear();
}

void Builder::order(MarkJobResult *result)
{
    const MarkUnits units = MarkUnits::current();
    const auto measure = [&](ZTMarkGraph measured) {
        if (!options.outline)
            dropOutlines(measured);
        return measureMarkPath(measured, units);
    };
    result->before = measure(graph);
    ZTPointSort::getInstance()->markGraphSort(graph);
    if (!options.outline)
        dropOutlines(graph);
    result->after = measureMarkPath(graph, units);
    result->graph = std::move(graph);
}

} // namespace

bool buildMarkJob(const std::vector<std::unique_ptr<DrawingInput>> &drawings,
                  const MarkJobOptions &options, MarkJobResult *result, MarkJobError *error)
{
    const SortKind kind(options.order);
    Builder builder(options, error);
    for (size_t i = 0; i < drawings.size(); ++i) {
        builder.tell(options.hatch == FillType::None ? QStringLiteral("preparing outlines")
                                                     : QStringLiteral("hatching"));
        if (!builder.addDrawing(static_cast<int>(i), *drawings[i]))
            return false;
    }
    builder.tell(QStringLiteral("copying"));
    if (!builder.repeat())
        return false;
    builder.tell(QStringLiteral("ordering"));
    builder.order(result);
    return true;
}

} // namespace hostkit
