#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

/**
 * Receives the strokes of stroke-font text while a parser draws it.
 *
 * Frame: the parser's drawing units, y upward. Every vertex is a pair of finite numbers: a point
 * that came out otherwise is left out.
 * Order: calls come as the glyphs demand, so a stroke may be begun and ended with one vertex in it,
 * or with none; only lines between two vertices of one stroke are ink.
 * Owner: the caller of the drawing function; never deleted through this class.
 */
class ZTDRAWENGINELIB_EXPORT ZTAbstractGlyphCallback
{
public:
    /** A new stroke starts; the next vertex is its first point. */
    virtual void glBegin() = 0;

    /** The next point of the stroke. */
    virtual void glVertex2d(double x, double y) = 0;

    /** The stroke ends. */
    virtual void glEnd() = 0;

    /** One character is finished. Only a font pair calls it, once per character. */
    virtual void next() = 0;

protected:
    ~ZTAbstractGlyphCallback() = default;
};
