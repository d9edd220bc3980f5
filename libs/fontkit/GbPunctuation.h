#pragma once

#include <QtCore/QMap>
#include <QtCore/QPointF>
#include <QtCore/QVector>

namespace fontkit {

/**
 * Punctuation and signs of the big font, by GBK code, drawn for it.
 *
 * Frame: units of an em of 256, x to the right, y up, the base line at y = 0; the em reaches from
 * y = -31 to y = 225. A line that is to join the next one, as a dash, reaches from x = 8 to x =
 * 248. Marks that end a phrase stand at the lower left of their em, opening ones in its right half
 * and closing ones in its left half, as in horizontal text of the mainland.
 */
const QMap<int, QVector<QVector<QPointF>>> &gbPunctuation();

} // namespace fontkit
