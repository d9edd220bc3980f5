#pragma once

#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

/**
 * The fixed TDOT figure: a frame of 100 by 100 mm with its diagonals and centre lines, eleven
 * squares, seven circles, and the words "up", "down", "left" and "right" near the edges.
 *
 * The rectangle moves the frame, the diagonals, the centre lines and the words alone; squares and
 * circles stand at fixed millimetres. Resize through the transform to keep the figure together.
 */
class ZTDRAWENGINELIB_EXPORT ZTTdotShape : public ZTShapeBase
{
public:
    ZTTdotShape();

    void paint() override;
};
