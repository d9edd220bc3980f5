#include <studio/canvas/FieldShade.h>

#include <QtGui/QPainter>
#include <QtWidgets/QStyleOptionGraphicsItem>

namespace studio {

namespace {

constexpr double kBelowAll = -2e9; ///< below the grid
const QColor kShade(0xe3, 0xe6, 0xea);

} // namespace

FieldShade::FieldShade(ZTGraphicsDocument &document)
    : m_document(document), m_sceneRectPx(document.scene()->sceneRect())
{
    setAcceptedMouseButtons(Qt::NoButton);
    setFlag(ItemUsesExtendedStyleOption); // for what is exposed
    setZValue(kBelowAll);
    document.scene()->addItem(this);
    if (ZTGraphicsResizeItem *frame = document.scene()->getGraphicsResizeItem())
        stackBefore(frame);
}

void FieldShade::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *)
{
    const QRectF fieldMm(m_document.view()->getWorkArea());
    const QRectF fieldPx = ZTCoord::getInstance()->getMm2pixTransform().mapRect(fieldMm);
    QPainterPath outside;
    outside.addRect(option->exposedRect);
    outside.addRect(fieldPx & option->exposedRect);
    if (!option->exposedRect.intersects(fieldPx) || !fieldPx.contains(option->exposedRect)) {
        painter->save(); // the view does not do it for its items
        painter->setRenderHint(QPainter::Antialiasing, false);
        painter->fillPath(outside, kShade);
        painter->restore();
    }
}

} // namespace studio
