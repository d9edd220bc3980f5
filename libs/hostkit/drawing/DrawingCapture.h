#pragma once

#include <hostkit/drawing/DrawingFile.h>

class ZTGraphicsDocument;

namespace hostkit {

/** What a capture takes along beside what the document holds. */
struct DrawingCapture
{
    QString programVersion;  ///< kept in the file; may be empty
    QDateTime savedAt;       ///< invalid: now
    bool withPreview = true; ///< false spares the time, for an autosave
};

/**
 * Takes a drawing out of a document: every field of every item, what items and document carry
 * beside the library's own, and what the document was loaded with and this program does not know.
 * The document does not change, but that shapes marked for a rebuild are rebuilt.
 *
 * Failure: false with the reason when the document holds what could not be loaded again, such as an
 * item of no kind, or when there is no memory for it.
 */
bool captureDrawing(ZTGraphicsDocument &document, const DrawingCapture &capture,
                    DrawingFile *drawing, Failure *failure);

/**
 * The same of some of a document's items alone, as for a clipboard. Of what the document carries
 * only the names of their groups come along.
 *
 * `items` are of the document, the lowest first.
 */
bool captureItems(ZTGraphicsDocument &document, const QVector<ZTAbstractGraphicsItem *> &items,
                  const DrawingCapture &capture, DrawingFile *drawing, Failure *failure);

/** `captureDrawing` and `writeDrawing`. */
bool saveDrawing(ZTGraphicsDocument &document, const DrawingCapture &capture, const QString &path,
                 Failure *failure);

} // namespace hostkit
