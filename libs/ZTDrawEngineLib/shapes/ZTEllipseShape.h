#pragma once

#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

/** An ellipse that fills the shape's rectangle. */
class ZTDRAWENGINELIB_EXPORT ZTEllipseShape : public ZTShapeBase
{
public:
    /** An ellipse of 10 by 10 mm at the origin, marked for the first `paint()`. */
    ZTEllipseShape();

    void paint() override;
};
