#pragma once

#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

/**
 * A regular polygon, standing on the rectangle's origin with its first vertex on top.
 *
 * Only the rectangle's width counts: its whole part, halved to a whole number, is the radius of
 * the circle through the vertices, so that a width of 11.9 mm gives a radius of 5 mm.
 * Kept: drawings rely on these sizes.
 *
 * Limit: a side count below 1 or above 100,000, and a width that is no 32-bit number, give an
 * empty shape.
 */
class ZTDRAWENGINELIB_EXPORT ZTPolygonShape : public ZTShapeBase
{
public:
    /** A pentagon of radius 5 mm, marked for the first `paint()`. */
    ZTPolygonShape();

    void paint() override;

    /** Stores any value, marks the shape, does not paint. */
    void setSideCount(int count);
    int getSideCount();

    /**
     * Reads the side count alone.
     *
     * Kept: does not mark the shape, so that one that has painted keeps its old outline.
     */
    bool load(QDataStream &stream) override;

    /** Writes the side count (qint32) alone: neither rectangle nor transform nor hatch. */
    void save(QDataStream &stream) const override;

private:
    qint32 m_sideCount = 5;
};
