#pragma once

#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>

class ZTPolygonShape;

/** A regular polygon in a scene, over `ZTPolygonShape`. */
class ZTDRAWENGINELIB_EXPORT ZTGraphicsPolygonItem : public ZTAbstractGraphicsItem
{
    Q_OBJECT
    Q_PROPERTY(int SideCount READ getSideCount WRITE setSideCount)

public:
    ZTGraphicsPolygonItem();

    void copy(ZTAbstractGraphicsItem *source) override;

    int getSideCount() const; ///< as set or loaded

    /** Rebuilds the shape with that many sides; 3 or less gives a triangle. */
    void setSideCount(int count);

protected:
    /**
     * Owns `replacement` instead of the shape so far, under the same shape id, for items whose
     * polygon is of a derived class. Does not rebuild it. Null changes nothing.
     */
    void replacePolygonShape(ZTPolygonShape *replacement);

private:
    ZTPolygonShape *m_polygonShape; ///< the object that `shape` owns
};
