#pragma once

#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>

/** An ellipse in a scene, over `ZTEllipseShape`. */
class ZTDRAWENGINELIB_EXPORT ZTGraphicsEllipseItem : public ZTAbstractGraphicsItem
{
    Q_OBJECT

public:
    ZTGraphicsEllipseItem();

    void copy(ZTAbstractGraphicsItem *source) override;
};
