#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QTimer>
#include <QtWidgets/QGraphicsItem>

namespace studio {

/**
 * The number in the order of marking at the top left corner of each shape that is marked, for
 * people who ask for it; it follows every change and the chosen order.
 *
 * Limit: with more than 5,000 marked shapes none is shown; numbers would cover the drawing.
 */
class OrderNumbers : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    static constexpr int kMost = 5000;

    /** Adds itself to the scene, hidden; its maker deletes it before the document. */
    explicit OrderNumbers(ZTGraphicsDocument &document);

    void setShown(bool isShown);
    bool isShown() const { return isVisible(); }

    /** Something else decides about the order from now on. */
    void followSoon();

    /** A number, and where it stands; scene pixels. */
    struct Number
    {
        QPointF placePx;
        int number;
    };
    const QVector<Number> &numbers() const { return m_numbers; }

    QRectF boundingRect() const override { return m_boxPx; }
    QPainterPath shape() const override { return {}; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    void follow();

    ZTGraphicsDocument &m_document;
    QVector<Number> m_numbers;
    QRectF m_boxPx;
    QTimer m_timer; ///< gathers what happens together
};

} // namespace studio
