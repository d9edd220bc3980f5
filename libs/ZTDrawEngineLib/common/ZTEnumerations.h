#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <QtCore/QMetaType>

/**
 * Kind of a shape. The values go on document streams and are never reused.
 *
 * `Point`, `QRCode`, `BarCode` and `Pixmap` are reserved: nothing in the library makes them.
 * `None` is the type of an item that has not been given one yet.
 */
enum class ShapeType : quint8 {
    Rect = 0,
    Line = 1,
    Ellipse = 2,
    Point = 3,
    Polygon = 4,
    Text = 5,
    QRCode = 6,
    BarCode = 7,
    Pixmap = 8,
    TDOT = 9,
    VecGraph = 10,
    None = 11
};

/** How a text shape turns characters into outlines. The enumerators are also the shown labels. */
enum class FontType : quint8 {
    singleLine = 0, ///< stroke font: `ZTFontParam::shxFont`
    doubleLine = 1, ///< outlines of a system font: `ZTFontParam::font`
    None = 2        ///< no characters at all
};

/** Style of a hatch. */
enum class FillType : qint32 {
    Line = 0,  ///< separate parallel lines in alternating direction
    ULine = 1, ///< the same lines joined end to end into zigzags
    None = 2   ///< no hatch
};

/** Order in which the objects of a mark graph are marked; see `ZTPointSort`. */
enum class EShapeSortType : qint32 {
    ShapeSortNone = 0,
    ShapeSortNearest = 1,
    ShapeSortXFromMin = 2,
    ShapeSortXFromMax = 3,
    ShapeSortYFromMin = 4,
    ShapeSortYFromMax = 5
};

/**
 * Name of a shape kind: the enumerator's own spelling, and the key of its item factory.
 *
 * Failure: "unknown" for a value outside the enumeration.
 * Owner: nobody; the string is constant and never freed.
 */
ZTDRAWENGINELIB_EXPORT const char *ShapeType2String(ShapeType type);

Q_DECLARE_METATYPE(FontType)
