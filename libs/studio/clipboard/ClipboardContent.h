#pragma once

#include <studio/shapes/ShapeItems.h>

#include <hostkit/drawing/DrawingFile.h>

#include <memory>

QT_BEGIN_NAMESPACE
class QMimeData;
QT_END_NAMESPACE

namespace studio {

/** The type under which shapes stand on the clipboard: the bytes of a drawing file. */
extern const QString kShapesType;

/** The type of drawings that other programs exchange. */
extern const QString kSvgType;

/**
 * Shapes for the clipboard: all that they are, their outlines as SVG at true size, and the words of
 * texts as plain text. Bytes alone, which outlive the drawing that they come from.
 *
 * `items` are of the document, the lowest first.
 * Failure: null with the reason.
 */
std::unique_ptr<QMimeData> shapesForClipboard(ZTGraphicsDocument &document, const ShapeItems &items,
                                              hostkit::Failure *failure);

/** What may be pasted, the first of these that the clipboard holds. */
enum class PasteKind { Nothing, Shapes, Svg, Words };

/** Tells what there is, without reading it. */
PasteKind pasteKind(const QMimeData *held);

/** The bytes of an SVG drawing, whether it stands there under its type or as text. */
QByteArray svgOf(const QMimeData &held);

/** Words for a text shape: one kind of line end, none at the end, and no control characters. */
QString wordsOf(const QMimeData &held);

} // namespace studio
