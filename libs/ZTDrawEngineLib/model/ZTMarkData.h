#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <QtCore/QLineF>
#include <QtCore/QList>
#include <QtCore/QRectF>
#include <QtCore/QVector>
#include <QtGui/QPolygonF>

/**
 * What the marking head follows for one shape: straight lines only, every curve is flattened.
 *
 * Frame: mark units, that is scene pixels times the shape manager's scale.
 */
struct ZTDRAWENGINELIB_EXPORT ZTMarkObject
{
    ZTMarkObject();
    ZTMarkObject(const ZTMarkObject &other);
    ZTMarkObject(ZTMarkObject &&other) noexcept;
    ZTMarkObject &operator=(const ZTMarkObject &other);
    ZTMarkObject &operator=(ZTMarkObject &&other) noexcept;
    ~ZTMarkObject();

    qint32 penId = 1;          ///< pen the shape is marked with, counted from 1
    QList<QPolygonF> lines;    ///< outline to trace, one polygon per subpath
    QVector<QLineF> fillLines; ///< hatch, one entry per segment
    QRectF rect;               ///< extent
};

/**
 * Mark data of a drawing or of a selection: the objects in the order of marking once sorted.
 *
 * Frame: mark units.
 */
struct ZTDRAWENGINELIB_EXPORT ZTMarkGraph
{
    ZTMarkGraph();
    ZTMarkGraph(const ZTMarkGraph &other);
    ZTMarkGraph(ZTMarkGraph &&other) noexcept;
    ZTMarkGraph &operator=(const ZTMarkGraph &other);
    ZTMarkGraph &operator=(ZTMarkGraph &&other) noexcept;
    ~ZTMarkGraph();

    QVector<ZTMarkObject> objects; ///< one entry per shape
    QRectF rect;                   ///< union of the objects' extents
};
