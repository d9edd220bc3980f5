#include <studio/canvas/GridItem.h>

#include <studio/canvas/GridStep.h>

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtWidgets/QStyleOptionGraphicsItem>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

namespace studio {

namespace {

constexpr double kBelowAll = -1e9;
const QColor kMinorInk(236, 238, 240);
const QColor kMajorInk(210, 214, 218);

/** Lines at every `stepPx` of the scene, each `every`th of them strong. */
struct GridLines
{
    double stepPx;
    int every;
};

enum class Line : std::uint8_t { None, Minor, Major };

/** For each pixel along a side which line falls on it; a strong one hides a weak one. */
template <class PixelAt>
std::vector<Line> linesAlong(int pixels, double fromPx, double toPx, const GridLines &grid,
                             const PixelAt &pixelAt)
{
    std::vector<Line> lines(static_cast<std::size_t>(pixels), Line::None);
    const auto first = static_cast<qint64>(std::floor(fromPx / grid.stepPx));
    const auto last = static_cast<qint64>(std::ceil(toPx / grid.stepPx));
    for (qint64 number = first; number <= last; ++number) {
        const double pixel = std::floor(pixelAt(static_cast<double>(number) * grid.stepPx));
        if (pixel < 0.0 || pixel >= pixels)
            continue;
        Line &line = lines[static_cast<std::size_t>(pixel)];
        line = std::max(line, number % grid.every == 0 ? Line::Major : Line::Minor);
    }
    return lines;
}

QRgb inkOf(Line line)
{
    switch (line) {
    case Line::Minor:
        return kMinorInk.rgba();
    case Line::Major:
        return kMajorInk.rgba();
    case Line::None:
        break;
    }
    return 0;
}

/** Row by row: stroked or filled, an upright line would cost a call for each of its pixels. */
QImage pictureOf(const std::vector<Line> &columns, const std::vector<Line> &rows)
{
    QImage picture(static_cast<int>(columns.size()), static_cast<int>(rows.size()),
                   QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull())
        return picture;
    std::array<std::vector<QRgb>, 3> inks; // of a row that is no line, a weak one, a strong one
    for (const Line row : {Line::None, Line::Minor, Line::Major}) {
        for (const Line column : columns)
            inks[static_cast<std::size_t>(row)].push_back(inkOf(std::max(row, column)));
    }
    for (std::size_t y = 0; y < rows.size(); ++y) {
        const std::vector<QRgb> &row = inks[static_cast<std::size_t>(rows[y])];
        std::copy(row.begin(), row.end(),
                  reinterpret_cast<QRgb *>(picture.scanLine(static_cast<int>(y))));
    }
    return picture;
}

} // namespace

GridItem::GridItem(ZTGraphicsScene &scene) : m_sceneRectPx(scene.sceneRect())
{
    setAcceptedMouseButtons(Qt::NoButton);
    setFlag(ItemUsesExtendedStyleOption); // for what is exposed
    setZValue(kBelowAll);
    scene.addItem(this);
    if (ZTGraphicsResizeItem *frame = scene.getGraphicsResizeItem())
        stackBefore(frame);
}

void GridItem::setFixedMm(double fixedMm)
{
    m_fixedMm = fixedMm;
    update();
}

void GridItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *)
{
    const double scale = option->levelOfDetailFromTransform(painter->worldTransform());
    const QRectF shown = option->exposedRect;
    const double stepMm = gridStepMm(scale, m_fixedMm);
    const int every = gridMajorEvery(stepMm, m_fixedMm);
    if (shown.isEmpty() || !(ZTCoord::getInstance()->mm2pix(stepMm) * scale >= 1.0))
        return;
    const GridLines grid{ZTCoord::getInstance()->mm2pix(stepMm), every};
    // In the device's own pixels, so that each line takes one and none two.
    const double ratio = painter->device()->devicePixelRatioF();
    const QTransform toPixels = painter->worldTransform() * QTransform::fromScale(ratio, ratio);
    const QRect pixels = toPixels.mapRect(shown).toAlignedRect();
    const auto columns =
        linesAlong(pixels.width(), shown.left(), shown.right(), grid,
                   [&](double x) { return toPixels.map(QPointF(x, 0.0)).x() - pixels.left(); });
    const auto rows = linesAlong(pixels.height(), shown.top(), shown.bottom(), grid, [&](double y) {
        return toPixels.map(QPointF(0.0, y)).y() - pixels.top();
    });
    QImage picture = pictureOf(columns, rows);
    picture.setDevicePixelRatio(ratio);
    painter->save(); // the view does not do it for its items
    painter->resetTransform();
    painter->setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter->drawImage(QPointF(pixels.topLeft()) / ratio, picture);
    painter->restore();
}

} // namespace studio
