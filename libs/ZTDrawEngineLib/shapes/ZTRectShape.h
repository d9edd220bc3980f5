#pragma once

#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

/** The outline of the shape's rectangle. */
class ZTDRAWENGINELIB_EXPORT ZTRectShape : public ZTShapeBase
{
public:
    /** A rectangle of 10 by 10 mm at the origin, marked for the first `paint()`. */
    ZTRectShape();

    void paint() override;
};
