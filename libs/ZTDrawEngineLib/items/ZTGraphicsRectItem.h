#pragma once

#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>

/** A rectangle in a scene, over `ZTRectShape`. */
class ZTDRAWENGINELIB_EXPORT ZTGraphicsRectItem : public ZTAbstractGraphicsItem
{
    Q_OBJECT

public:
    ZTGraphicsRectItem();

    void copy(ZTAbstractGraphicsItem *source) override;
};
