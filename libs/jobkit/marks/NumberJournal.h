#pragma once

#include <hostkit/files/Failure.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <optional>

namespace jobkit {

/**
 * The numbers that jobs took of a drawing and that its file does not know of yet. It stands in a
 * file beside the drawing from before the first job file is written until the drawing is saved with
 * its next numbers: whatever happens between, no number is given twice, and none is lost unsaid.
 *
 * The file is JSON, "NAME.ztd.numbers", as `docs/formats/number-journal.md` tells.
 */
struct NumberJournal
{
    QByteArray before; ///< `partProgress` of the drawing's file
    QByteArray after;  ///< `partProgress` behind the jobs; empty while one is under way
    int parts = 0;     ///< 1 to 1,000,000: that were taken between the two
    QString first;     ///< what the texts of the first part show, in a line, for people
    QString last;      ///< and of the last
};

/** How far all variant texts among these items are, in their order; empty without any. */
QByteArray partProgress(const QVector<ZTAbstractGraphicsItem *> &items);

/** What the variant texts among these items show, a word each. */
QString partTexts(const QVector<ZTAbstractGraphicsItem *> &items);

/** Where the journal of a drawing's file stands: past links, one whatever the drawing is called. */
QString journalPath(const QString &drawingPath);

/**
 * The journal of a drawing's file, if there is one.
 *
 * Failure: none, and `failure` (if given) says why one that is there cannot be read: nobody knows
 * then which numbers were taken, and no job should go on. Its kind is None where there is none.
 */
std::optional<NumberJournal> readJournal(const QString &drawingPath,
                                         hostkit::Failure *failure = nullptr);

/** Failure: false with the reason, and the journal before stays. */
bool writeJournal(const QString &drawingPath, const NumberJournal &journal,
                  hostkit::Failure *failure);

/** After the drawing was saved with its next numbers, or where no file was written. */
void removeJournal(const QString &drawingPath);

} // namespace jobkit
