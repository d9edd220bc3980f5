#pragma once

#include <ZTDrawEngineLib/shx/ZTAbstractGlyphCallback.h>

#include <QtCore/QVector>
#include <QtGui/QPainterPath>

/**
 * Collects stroke-font text as painter paths, one per character, turned to y downward.
 *
 * Frame: y is mirrored at the line y = 100, so that a text drawn at y comes out at 200 - y.
 * Order: draw with a font pair, then read `getPath`. A parser's own `drawText` never ends a
 * character, so that what it drew does not show up.
 */
class ZTDRAWENGINELIB_EXPORT ZTPathGlyphCallback : public ZTAbstractGlyphCallback
{
public:
    ZTPathGlyphCallback();
    ZTPathGlyphCallback(const ZTPathGlyphCallback &other);
    ZTPathGlyphCallback(ZTPathGlyphCallback &&other) noexcept;
    ZTPathGlyphCallback &operator=(const ZTPathGlyphCallback &other);
    ZTPathGlyphCallback &operator=(ZTPathGlyphCallback &&other) noexcept;
    ~ZTPathGlyphCallback();

    /**
     * The finished characters in the order of the text; one without ink has an empty path.
     *
     * A character that `next` has not ended yet is missing.
     */
    const QVector<QPainterPath> &getPath() const;

    void glBegin() override;

    /**
     * Adds a point: the first after `glBegin` moves there, every other draws a line.
     *
     * Kept: `next` begins no stroke, so a character whose first code draws without a move before
     * it gets a line from the origin of its path, (0, 0). Fonts end a glyph with the pen up.
     */
    void glVertex2d(double x, double y) override;

    /** Does nothing: the next stroke begins with a move of its own. */
    void glEnd() override;
    void next() override;

private:
    double m_mirrorY = 100.0;      ///< height of the horizontal mirror line
    QPainterPath m_path;           ///< of the character being drawn
    QVector<QPainterPath> m_paths; ///< finished, one per character
    bool m_firstPoint = false;     ///< the next vertex opens a subpath
};
