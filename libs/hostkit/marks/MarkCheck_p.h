#pragma once

#include <hostkit/marks/MarkFindings.h>

#include <unordered_map>

namespace hostkit {

/** Looks over a drawing's mark objects, one after the other, for what is likely a mistake. */
class MarkCheck
{
public:
    /** `fieldMm` is where the head reaches; the scale is that of the drawing's shape manager. */
    MarkCheck(const QRectF &fieldMm, float scaleX, float scaleY);

    /** The object of an item. Frame: mark units. */
    void look(const ZTAbstractGraphicsItem &item, const ZTMarkObject &object);

    MarkFindings findings;

private:
    void lookForOutside(const ZTAbstractGraphicsItem &item, const ZTMarkObject &object);
    bool isRepeated(const QPolygonF &outline, const ZTAbstractGraphicsItem &item);
    QPointF toMm(const QPointF &mark) const;

    const QRectF m_fieldMm;
    const double m_scaleX;
    const double m_scaleY;

    /** By key, the item that had the outline first; never looked into, it may be gone. */
    std::unordered_map<quint64, const ZTAbstractGraphicsItem *> m_outlines;
};

} // namespace hostkit
