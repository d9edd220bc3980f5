#pragma once

#include <hostkit/files/Failure.h>
#include <hostkit/text/ShxFontInfo.h>

#include <QtCore/QSize>
#include <QtGui/QPolygonF>

namespace hostkit {

/** One glyph of a specimen. */
struct FontSheetGlyph
{
    int code = 0;               ///< of its character, as the font numbers it
    QVector<QPolygonF> strokes; ///< polylines of at least two points, in cells; y downward
};

/**
 * A specimen of a stroke font: every glyph in a cell of a grid, above its code.
 *
 * Frame: a cell is 1 wide and high; a glyph's origin stands at (0.2, 0.7) of its cell, and its
 * ascender is 0.5 high.
 */
class FontSheet
{
public:
    /**
     * Draws every glyph of the file, in the file's order.
     *
     * Failure: false; `CannotRead`, `OtherFormat`, or `NotPossible` for a font without glyphs.
     */
    bool read(const QString &path, Failure *failure);

    const ShxFontInfo &font() const { return m_info; }                ///< of the file read last
    const QVector<FontSheetGlyph> &glyphs() const { return m_drawn; } ///< in the file's order

    /** Columns and rows of the grid: 16 columns, more where the sheet would become too tall. */
    QSize grid() const;

    /**
     * Writes the specimen; the extension, ".svg" or ".png", tells the form.
     *
     * The file appears whole or not at all.
     * Failure: false, `CannotWrite`.
     */
    bool save(const QString &path, const QString &title, Failure *failure) const;

    /** Whether `save` knows the extension. */
    static bool hasExtension(const QString &path);

private:
    ShxFontInfo m_info;
    QVector<FontSheetGlyph> m_drawn;
};

} // namespace hostkit
