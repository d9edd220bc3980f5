#pragma once

#include <fontkit/GlyphProgram.h>

#include <QtCore/QPoint>
#include <QtCore/QPointF>
#include <QtCore/QVector>

namespace fontkit {

/** Strokes of one character. Frame: font units, x to the right, y up, the base line at y = 0. */
using GridStrokes = QVector<QVector<QPoint>>;

/** The strokes with their points rounded to whole units, repeated ones left out. */
GridStrokes onGrid(const QVector<QVector<QPointF>> &strokes);

/**
 * The program that draws the strokes in their order and ends at (advance, 0) with the pen up.
 *
 * A line too long for one code is split; the places where it is lie within half a unit of it in x
 * and in y. A stroke that begins where the one before it ends goes on without lifting the pen. A
 * stroke without length draws nothing. Every run of lines takes the fewest bytes it can.
 */
GlyphProgram encodeStrokes(const GridStrokes &strokes, int advance,
                           FontForm form = FontForm::Shapes);

} // namespace fontkit
