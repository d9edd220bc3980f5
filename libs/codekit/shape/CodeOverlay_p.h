#pragma once

#include <QtGui/QPainterPath>
#include <QtGui/QPolygonF>
#include <QtWidgets/QGraphicsItem>

namespace codekit {

/** What is shown over a code and never marked. It cannot be hit. */
class CodeOverlay : public QGraphicsItem
{
public:
    explicit CodeOverlay(QGraphicsItem *code);

    /** Frame: scene pixels, relative to the code. An empty polygon shows nothing. */
    void show(const QPolygonF &quietZonePx, const QPolygonF &crossedPx);

    QRectF boundingRect() const override;
    QPainterPath shape() const override { return {}; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    QPolygonF m_quietZonePx; ///< its border is shown
    QPolygonF m_crossedPx;   ///< four corners, crossed out
};

} // namespace codekit
