#pragma once

#include <hostkit/drawing/DrawingFile.h>

#include <QtCore/QStringList>

#include <functional>

class ZTAbstractGraphicsItem;
class ZTGraphicsDocument;

namespace hostkit {

/** Told how many of how many items are done, now and then; false cancels. May run events. */
using DrawingProgress = std::function<bool(int done, int total)>;

/** What happened while a drawing was loaded. */
struct DrawingReport
{
    QStringList missingFonts; ///< used by texts and not on this machine; the texts keep the names

    /** How many items of which kinds this program cannot make; they are kept, unseen. */
    QMap<QString, int> unknownKinds;
};

/** Limit: points of outlines and hatch lines in all. */
constexpr qint64 kMaxDrawingPieces = 50'000'000;

/** How a drawing is loaded. */
struct DrawingLoad
{
    DrawingProgress progress;             ///< told how far it is; may be empty
    qint64 maxPieces = kMaxDrawingPieces; ///< points of outlines and hatch lines in all
};

/**
 * Puts a drawing in the place of what the document holds.
 *
 * All items are built apart from the document. Only when the last one is ready do they go into it,
 * and only when they are all in does the old drawing go: its items, its undo stack, the
 * process-wide variant texts and what the document carries. The field set-up (`ZTCoord`, sort kind,
 * work area, mark scale) and the heights of stroke fonts become the drawing's. Until then the open
 * drawing, its undo stack and its selection stand untouched, also when there is not enough memory,
 * and whenever `progress` is called the set-up is the open drawing's: it may run events.
 *
 * Items of kinds that no factory makes are kept by the document, unseen and unmarked, and saved
 * with it; the report tells them.
 *
 * Limit: `load.maxPieces` points of outlines and hatch lines in all.
 * Order: after the item factories were registered. `document` must outlive the call.
 * Failure: false with the reason, cancelled included; the open drawing stays as it was.
 */
bool applyDrawing(const DrawingFile &drawing, ZTGraphicsDocument &document, const DrawingLoad &load,
                  DrawingReport *report, Failure *failure);

/** What came into a document beside what it held. */
struct InsertedDrawing
{
    QVector<ZTAbstractGraphicsItem *> items; ///< lowest first. Owner: the scene
    QMap<qint32, QString> groupNames;        ///< of their groups, whose ids are new
    DrawingReport report;                    ///< items of unknown kinds stay out
};

/**
 * Adds the items of a drawing to what the document holds, above it, as for a clipboard: with ids of
 * their own, in groups of their own, at the same places in millimetres. Set-up, font heights and
 * what the document carries stay as they are, the names of groups too: the caller gives those, so
 * that undo can take them back. Uses of the registry of variant texts stay behind, as they do when
 * a shape is copied.
 *
 * Nothing is selected and no undo command is pushed. Limit, order and failure as `applyDrawing`.
 */
bool insertDrawing(const DrawingFile &drawing, ZTGraphicsDocument &document,
                   const DrawingLoad &load, InsertedDrawing *inserted, Failure *failure);

} // namespace hostkit
