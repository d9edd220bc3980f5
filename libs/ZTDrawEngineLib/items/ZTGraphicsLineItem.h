#pragma once

#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>

class ZTLineShape;

/** A straight line in a scene, over `ZTLineShape`. */
class ZTDRAWENGINELIB_EXPORT ZTGraphicsLineItem : public ZTAbstractGraphicsItem
{
    Q_OBJECT
    Q_PROPERTY(double angle READ angle WRITE setAngle)
    Q_PROPERTY(double length READ length WRITE setLength)

public:
    ZTGraphicsLineItem();

    void copy(ZTAbstractGraphicsItem *source) override;

    double angle() const;           ///< degrees, counter-clockwise from three o'clock
    void setAngle(double angleDeg); ///< degrees, as `angle`; the length stays

    double length() const; ///< millimetres

    /** A length of 0 changes nothing. */
    void setLength(double lengthMm);

private:
    ZTLineShape *m_lineShape; ///< the object that `shape` owns
};
