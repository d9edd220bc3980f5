#include <hostkit/marks/MarkGraphForms_p.h>

#include <hostkit/files/TextOutput_p.h>
#include <hostkit/marks/MarkPicture_p.h>

#include <QtCore/QBuffer>
#include <QtGui/QImage>
#include <QtGui/QImageWriter>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace hostkit {

namespace {

constexpr double kPixelsPerMm = 40.0;
constexpr double kLongestSide = 2400.0;
constexpr double kShortestLongSide = 800.0;
constexpr double kMostDotsPerMeter = 1e9;
constexpr int kBatch = 4096;
constexpr int kRun = 256;

double pixelsPerMm(const QRectF &pageMm)
{
    const double longerMm = std::max(pageMm.width(), pageMm.height());
    const double side = std::clamp(longerMm * kPixelsPerMm, kShortestLongSide, kLongestSide);
    return side / longerMm;
}

QSize imageSize(const QRectF &pageMm, double scale)
{
    const auto pixels = [scale](double mm) {
        return std::max(1, static_cast<int>(std::ceil(mm * scale - 1e-6)));
    };
    return QSize(pixels(pageMm.width()), pixels(pageMm.height()));
}

/** Draws strokes in millimetres, many in one go: a painter call for each costs several times more.
 */
class Strokes
{
public:
    Strokes(QPainter &target, const PictureStroke &stroke, double unitsPerMm)
        : m_painter(target), m_perMm(unitsPerMm)
    {
        m_painter.setPen(
            QPen(stroke.color, stroke.widthMm, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        m_batch.reserve(kBatch);
    }
    ~Strokes() { flush(); }
    Strokes(const Strokes &) = delete;
    Strokes &operator=(const Strokes &) = delete;

    void add(const QLineF &line)
    {
        if (!canShow(line.p1()) || !canShow(line.p2()))
            return;
        m_batch.append(QLineF(line.p1() / m_perMm, line.p2() / m_perMm));
        if (m_batch.size() == kBatch)
            flush();
    }

    /** In runs of bounded length: the painter's cost for one run grows faster than its length. */
    void add(const QPolygonF &points)
    {
        QPolygonF run;
        for (const QPointF &point : points) {
            if (!canShow(point)) {
                draw(run);
                run.clear();
                continue;
            }
            run.append(point / m_perMm);
            if (run.size() == kRun) {
                draw(run);
                run.remove(0, kRun - 1);
            }
        }
        if (run.size() > 1 || points.size() == 1)
            draw(run);
    }

private:
    void draw(const QPolygonF &run)
    {
        if (run.size() == 1)
            m_painter.drawPoint(run.first());
        else if (!run.isEmpty())
            m_painter.drawPolyline(run);
    }

    void flush()
    {
        m_painter.drawLines(m_batch);
        m_batch.resize(0);
    }

    QPainter &m_painter;
    double m_perMm;
    QVector<QLineF> m_batch;
};

class JumpStrokes : public MarkPathVisitor
{
public:
    JumpStrokes(Strokes &target, JumpKind wanted) : m_strokes(target), m_kind(wanted) {}

    void jump(const QLineF &line, JumpKind lineKind) override
    {
        if (lineKind == m_kind)
            m_strokes.add(line);
    }

private:
    Strokes &m_strokes;
    JumpKind m_kind;
};

/** Strokes thinner than a pixel would fade to nothing. */
PictureStroke visible(PictureStroke stroke, double scale)
{
    stroke.widthMm = std::max(stroke.widthMm, 1.0 / scale);
    return stroke;
}

void drawObjects(QPainter &painter, const ZTMarkGraph &graph, const MarkPicture &picture,
                 const MarkUnits &units)
{
    const double scale = painter.transform().m11();
    for (const ZTMarkObject &object : graph.objects) {
        {
            Strokes hatch(painter, visible(picture.hatch, scale), units.perMm);
            for (const QLineF &line : object.fillLines)
                hatch.add(line);
        }
        Strokes outline(painter, visible(picture.outline, scale), units.perMm);
        for (const QPolygonF &polygon : object.lines)
            outline.add(polygon);
    }
}

void drawJumps(QPainter &painter, const ZTMarkGraph &graph, const MarkPicture &picture,
               const MarkUnits &units)
{
    const double scale = painter.transform().m11();
    const auto draw = [&](const PictureStroke &stroke, JumpKind kind) {
        Strokes strokes(painter, visible(stroke, scale), units.perMm);
        JumpStrokes jumps(strokes, kind);
        walkMarkPath(graph, jumps);
    };
    draw(picture.jumpInside, JumpKind::InsideObject);
    draw(picture.jumpBetween, JumpKind::BetweenObjects);
}

void drawArrows(QPainter &painter, const ZTMarkGraph &graph, const MarkPicture &picture,
                const MarkUnits &units)
{
    const double scale = painter.transform().m11();
    Strokes strokes(painter, visible(picture.outline, scale), units.perMm);
    for (const QPolygonF &arrow : markArrows(graph, picture, units))
        strokes.add(arrow);
}

void drawStart(QPainter &painter, const MarkPicture &picture)
{
    if (!picture.hasStart)
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(picture.startColor);
    painter.drawEllipse(picture.startMm, picture.startRadiusMm, picture.startRadiusMm);
}

} // namespace

bool writeMarkPng(const ZTMarkGraph &graph, const MarkUnits &units, QIODevice &device,
                  const MarkPictureLook &look)
{
    const MarkPicture picture = layOutMarkPicture(graph, units);
    const double scale = pixelsPerMm(picture.pageMm);
    QImage image(imageSize(picture.pageMm, scale),
                 look.hasBackground ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return false;
    image.fill(look.hasBackground ? Qt::white : Qt::transparent);
    // A drawing may be so small that no number of dots tells its size.
    const int dotsPerMeter = qRound(std::min(scale * 1000.0, kMostDotsPerMeter));
    image.setDotsPerMeterX(dotsPerMeter);
    image.setDotsPerMeterY(dotsPerMeter);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.translate(-picture.pageMm.topLeft());
    drawObjects(painter, graph, picture, units);
    if (look.hasJumps) {
        drawJumps(painter, graph, picture, units);
        drawStart(painter, picture);
    }
    if (look.hasArrows)
        drawArrows(painter, graph, picture, units);
    painter.end();
    // The encoder prints to stderr when its device fails, so it does not get to see the file.
    QBuffer encoded;
    if (!encoded.open(QIODevice::WriteOnly) || !QImageWriter(&encoded, "png").write(image))
        return false;
    writeAll(device, encoded.data());
    return true;
}

} // namespace hostkit
