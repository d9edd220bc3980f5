#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <vectorkit/VectorPath.h>

#include <optional>

namespace hostkit {

/** The vector graphic behind an item; null for every other kind. Owner: the item. */
ZTVecGraph *graphicOf(const ZTAbstractGraphicsItem &item);

/**
 * What a vector graphic is called that comes from no file: the one name behind which the library
 * never looks for one, so that copies keep their drawing.
 */
extern const QString kNoDrawingFile;

/**
 * The outlines of an item with their curves, as they lie on the scene.
 *
 * Frame: millimetres. Order: paints a shape that is marked. Failure: none for a graphic without a
 * drawing. Kinds of hosts come in the straight pieces that they are drawn in.
 */
QVector<vectorkit::VectorPath> outlinesOf(const ZTAbstractGraphicsItem &item);

/**
 * Adds a vector graphic that shows these outlines where they lie; its own frame begins at
 * `originMm`, or else at the corner of their box. Pen and hatch are those of a new shape; nothing
 * is recorded for undo.
 *
 * Frame: millimetres on the scene. Owner: the scene. Failure: null for no outlines, or without the
 * factory of the kind.
 */
ZTAbstractGraphicsItem *addGraphic(ZTGraphicsDocument &document,
                                   const QVector<vectorkit::VectorPath> &pathsMm,
                                   const std::optional<QPointF> &originMm = std::nullopt);

/**
 * What a graphic's drawing has to be for its item to show these outlines under its present
 * transform and place.
 *
 * Frame: from millimetres on the scene to the graphic's own. Failure: false for another kind, and
 * where the transform squeezes everything flat.
 */
bool drawingFor(const ZTAbstractGraphicsItem &item, const QVector<vectorkit::VectorPath> &pathsMm,
                QPainterPath *drawing);

} // namespace hostkit
