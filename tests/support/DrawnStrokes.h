#pragma once

#include <ZTDrawEngineLib/shx/ZTAbstractGlyphCallback.h>

#include <QtCore/QPointF>
#include <QtCore/QVector>

namespace testsupport {

/** Collects the strokes that a font draws; a stroke of one point, as a move leaves it, is none. */
class DrawnStrokes : public ZTAbstractGlyphCallback
{
public:
    void glBegin() override { open.clear(); }
    void glVertex2d(double x, double y) override { open.append({x, y}); }
    void glEnd() override
    {
        if (open.size() > 1)
            strokes.append(open);
        open.clear();
    }
    void next() override {}

    QVector<QVector<QPointF>> strokes;

private:
    QVector<QPointF> open;
};

} // namespace testsupport
