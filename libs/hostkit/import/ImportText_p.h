#pragma once

#include <vectorkit/VectorDrawing.h>

#include <QtGui/QFont>
#include <QtGui/QPainterPath>
#include <QtGui/QTransform>

namespace hostkit {

/** A text of a foreign drawing as a document has it. */
struct ImportText
{
    QFont font;             ///< of the item
    QTransform form;        ///< from the font's size to that of the text; without its place
    QPainterPath lettersMm; ///< where they come to; empty: the text does not come in
};

/** Order: GUI thread, as fonts are asked. */
ImportText importText(const vectorkit::VectorText &text);

/**
 * Takes a text along with a drawing that is stretched: its letters become the stretched ones, also
 * where it is turned or leans. Range: `larger` scales alone, by more than 0.
 */
void stretchText(vectorkit::VectorText *text, const QTransform &larger);

} // namespace hostkit
