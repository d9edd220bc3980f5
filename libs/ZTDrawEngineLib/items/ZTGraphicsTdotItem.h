#pragma once

#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>

/** The fixed TDOT figure in a scene, over `ZTTdotShape`. */
class ZTDRAWENGINELIB_EXPORT ZTGraphicsTdotItem : public ZTAbstractGraphicsItem
{
    Q_OBJECT

public:
    ZTGraphicsTdotItem();

    void copy(ZTAbstractGraphicsItem *source) override;
};
