#pragma once

class QIODevice;
class ZTGraphicsDocument;

namespace hostkit {

// What the files in the folder samples hold. Each adds its drawing to a document, the same one on
// every call. Order: after `registerFactories`.

/**
 * One shape of each kind, plain, turned, hatched and mirrored.
 *
 * @param plotter the plotter drawing of the imported one, open for reading; it is named "logo.plt"
 */
void buildShapesSample(ZTGraphicsDocument &document, QIODevice &plotter);

/**
 * Texts: outlines of "DejaVu Sans", strokes of "hershey-simplex.shx" with "gb-strokes.shx", several
 * lines, on an arc, hatched, and a variant text with a running number and a date.
 */
void buildTextSample(ZTGraphicsDocument &document);

/** 10,000 hatched rectangles in 100 rows. */
void buildMatrixSample(ZTGraphicsDocument &document);

} // namespace hostkit
