#pragma once

#include "ForeignFiles.h"
#include "InputFiles.h"
#include "OpenedDrawing.h"

#include <jobkit/marks/NumberJournal.h>
#include <jobkit/marks/NumberLock.h>
#include <jobkit/plan/JobPlan.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDateTime>
#include <QtCore/QStringList>

#include <memory>
#include <optional>
#include <utility>

class Progress;

/**
 * What `ztmark job` marks, part after part: a drawing with its variant texts, or foreign files.
 *
 * The numbers of a drawing are kept in its file. A part's numbers are used up when the part is in a
 * file that a machine runs, and never come again.
 */
class JobSource
{
    Q_DECLARE_TR_FUNCTIONS(JobSource)

public:
    /** False, told on stderr, when nothing could be opened. */
    bool open(const InputFiles &files, ForeignFiles &foreign, const hostkit::MarkJobOptions &layout,
              Progress &progress);

    /**
     * The pens that the drawing carries; none of a drawing without, and of foreign files. Those
     * that cannot be read are told on stderr, and none.
     */
    QVector<jobkit::Pen> pens() const;

    /** False when one of several files could not be taken in. */
    bool isWhole() const { return m_isWhole; }

    /** Whether parts differ: the drawing has variant texts. */
    bool hasVariants() const { return !m_present.isEmpty(); }

    /** What the variant texts of the present part show, one line. */
    QString variants() const { return m_present.join(QLatin1Char(' ')); }

    /**
     * Whether all shapes mark what they were told; false is told on stderr. Order: after `items`.
     */
    bool isReady(bool marksAsShown) const;

    /** Whether the drawing lets JSON and CSV count y upward; false for other files. */
    bool isYUp() const;

    /** Whether all fonts of a drawing are here; which are not was told when it was opened. */
    bool hasItsFonts() const { return m_drawing.report.missingFonts.isEmpty(); }

    /** Names of the files that its variant texts take their rows from. */
    std::vector<std::string> textFiles() const;

    /** The objects of the present part, the drawing's own order kept. */
    QVector<jobkit::JobItem> items();

    /**
     * Keeps other jobs from taking numbers of a drawing, until `unlock` or for as long as this
     * lives. Waits a while for one that does. Order: before `open`, so that what is read holds.
     */
    void lockBeforehand(const InputFiles &files, Progress &progress);

    /** Lets others take numbers: none are taken here. */
    void unlock();

    /**
     * Whether numbers can be taken, and kept in the drawing afterwards; false is told on stderr.
     * Order: after `lockBeforehand`.
     */
    bool isLocked(const InputFiles &files) const;

    /**
     * Passes over the numbers of a job that was killed before they were kept in the drawing, and
     * tells which: its files may have been run. False, told on stderr, when there are none after
     * them. Order: while it is locked.
     */
    bool passInterrupted();

    /**
     * Notes beside the drawing that a job takes the numbers of so many parts, before its first
     * file is written. `last` is what the last part shows. False, told on stderr, when it cannot.
     */
    bool noteTaken(int parts, const QString &first, const QString &last);

    /** Takes the note back: no file of the job is there. */
    void forgetTaken();

    /** Whether there are numbers for so many parts; false is told on stderr. */
    bool hasEnough(int parts) const;

    /** On to the next part. False, told on stderr, when a text has nothing to show. */
    bool next();

    /**
     * Writes the drawing with the numbers of the next part, unless another program wrote it since
     * it was read. False, told on stderr, when it cannot be written.
     */
    bool store(Progress &progress);

    /** What the next job marks first; empty when the numbers are used up. */
    QString nextVariants() const { return m_isUsedUp ? QString() : variants(); }

private:
    bool openDrawing(const InputFiles &files, Progress &progress);
    bool openForeign(const InputFiles &files, ForeignFiles &foreign,
                     const hostkit::MarkJobOptions &layout, Progress &progress);
    bool showPart(const QStringList &errors);
    void toMiddle(QVector<jobkit::JobItem> *items) const;

    OpenedDrawing m_drawing;
    QVector<ZTAbstractGraphicsItem *> m_items; ///< those to be marked. Owner: the document
    std::string m_name;                        ///< of the drawing, or of the first file
    QStringList m_present;                     ///< what the variant texts show
    bool m_isForeign = false;
    bool m_isWhole = true;
    bool m_isUsedUp = false;
    std::unique_ptr<jobkit::NumberLock> m_lock;
    jobkit::NumberLock::Result m_lockResult = jobkit::NumberLock::Result::Impossible;
    std::pair<qint64, QDateTime> m_readAs;          ///< size and time of the file when it was read
    QByteArray m_stored;                            ///< how far the texts are in the drawing's file
    int m_passed = 0;                               ///< parts of an interrupted job
    std::optional<jobkit::NumberJournal> m_journal; ///< of it
};
