#pragma once

class ZTGraphicsDocument;

namespace hostkit {

/**
 * Adds the sample drawing to a document: a marked plate with a frame, a hatched title block, a
 * dial of turned polygons, rings, a TDOT figure and a matrix of small rectangles. It shows what the
 * library draws, hatches, turns, mirrors and repeats, and is the same on every call.
 *
 * Frame: centred on the origin, some 120 by 80 mm.
 * Order: after `registerFactories`. Pushes nothing on the undo stack; leaves nothing selected.
 */
void buildSampleDrawing(ZTGraphicsDocument &document);

} // namespace hostkit
