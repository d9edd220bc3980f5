#pragma once

#include <hostkit/drawing/DrawingFile.h>

#include <QtCore/QStringList>

#include <functional>

class ZTGraphicsDocument;

namespace hostkit {

/** Told how many of how many items are done, now and then; false cancels. May run events. */
using DrawingProgress = std::function<bool(int done, int total)>;

/** What a snapshot takes along beside the drawing. */
struct DrawingCapture
{
    QString programVersion;
    QDateTime savedAt;               ///< invalid: now
    bool withPreview = true;         ///< false spares the time, for an autosave
    QVector<DrawingSection> unknown; ///< those that came with the file, to be kept
};

/**
 * Takes a drawing out of a document. The document does not change, but that shapes marked for a
 * rebuild are rebuilt.
 *
 * Failure: false with the reason when the document holds what could not be loaded again, such as an
 * item of no kind.
 */
bool captureDrawing(ZTGraphicsDocument &document, const DrawingCapture &capture,
                    DrawingFile *drawing, DrawingError *error);

/** `captureDrawing` and `writeDrawing`. */
bool saveDrawing(ZTGraphicsDocument &document, const DrawingCapture &capture, const QString &path,
                 DrawingError *error);

/** What happened while a drawing was loaded. */
struct DrawingReport
{
    QStringList missingFonts; ///< used by texts and not on this machine; the texts keep the names
};

/**
 * Puts a drawing in the place of what the document holds.
 *
 * All items are built apart from the document. Only when the last one is ready is the document
 * cleared, its undo stack and the process-wide variant texts included, and given the new items: the
 * field set-up (`ZTCoord`, sort kind, work area, mark scale) and the heights of stroke fonts become
 * the drawing's. Before that the open drawing, its undo stack and its selection stand untouched,
 * and whenever `progress` is called the set-up is the open drawing's: it may run events.
 *
 * Limit: 50,000,000 points of outlines and hatch lines in all.
 * Order: after the item factories were registered. `document` must outlive the call.
 * Failure: false with the reason, cancelled included; the open drawing stays as it was.
 */
bool applyDrawing(const DrawingFile &drawing, ZTGraphicsDocument &document,
                  const DrawingProgress &progress, DrawingReport *report, DrawingError *error);

} // namespace hostkit
