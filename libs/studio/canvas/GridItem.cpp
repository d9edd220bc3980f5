#include <studio/canvas/GridItem.h>

#include <studio/canvas/GridStep.h>

#include <QtGui/QPainter>
#include <QtWidgets/QStyleOptionGraphicsItem>

#include <cmath>

namespace studio {

namespace {

constexpr double kBelowAll = -1e9;
const QColor kMinorInk(236, 238, 240);
const QColor kMajorInk(210, 214, 218);

/** The lines of one direction that meet a span, weak ones and strong ones apart. */
struct Lines
{
    QVector<QLineF> minor;
    QVector<QLineF> major;
};

template <class LineAt>
void append(double fromPx, double toPx, double stepMm, int every, const LineAt &lineAt,
            Lines *lines)
{
    const double stepPx = ZTCoord::getInstance()->mm2pix(stepMm);
    const auto first = static_cast<qint64>(std::floor(fromPx / stepPx));
    const auto last = static_cast<qint64>(std::ceil(toPx / stepPx));
    for (qint64 line = first; line <= last; ++line)
        (line % every == 0 ? lines->major : lines->minor).append(lineAt(line * stepPx));
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
    Lines lines;
    append(
        shown.left(), shown.right(), stepMm, every,
        [&shown](double x) { return QLineF(x, shown.top(), x, shown.bottom()); }, &lines);
    append(
        shown.top(), shown.bottom(), stepMm, every,
        [&shown](double y) { return QLineF(shown.left(), y, shown.right(), y); }, &lines);
    painter->save(); // the view does not do it for its items
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setPen(QPen(kMinorInk, 0));
    painter->drawLines(lines.minor);
    painter->setPen(QPen(kMajorInk, 0));
    painter->drawLines(lines.major);
    painter->restore();
}

} // namespace studio
