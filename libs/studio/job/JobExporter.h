#pragma once

#include <studio/job/JobRun.h>

#include <jobkit/marks/NumberJournal.h>
#include <jobkit/marks/NumberLock.h>
#include <jobkit/plan/JobFrame.h>

#include <QtCore/QObject>

#include <functional>
#include <optional>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace studio {

class LongWork;
class Messages;
class TextTools;

/** What is to be written of a job. */
struct JobExport
{
    QString path;           ///< its extension says in which form
    int parts = 1;          ///< 1 to `JobExporter::kMostParts`
    bool isOneFile = false; ///< several parts in one file, with a pause between them
    std::optional<jobkit::FrameKind> frame; ///< the frame of the job in its place
    bool isAsShown = false; ///< also shapes that mark something else than they were given
};

/**
 * Writes jobs as files for machines.
 *
 * Variant texts move on once a part; the drawing shows the next part's values when all files are
 * whole, and those from before where anything fails or is cancelled: no number is given twice, and
 * none is lost.
 */
class JobExporter : public QObject
{
    Q_OBJECT

public:
    static constexpr int kMostParts = 10000;

    /** All are borrowed and outlive the exporter. */
    JobExporter(ZTGraphicsDocument &document, TextTools &texts, Messages &messages,
                QWidget &window);

    /**
     * Where the drawing's file is asked for; empty without one. Numbers that are taken are noted
     * beside it until it is saved.
     */
    void setDrawingPath(const std::function<QString()> &path) { m_drawingPath = path; }

    /** Whether another program wrote that file since: then its numbers may be taken. */
    void setDrawingForeign(const std::function<bool()> &isForeign) { m_isForeign = isForeign; }

    /** The file holds the numbers as they are: what was noted of exports from here is settled. */
    void noteSaved(const QString &path);

    /** Files that an export writes: one, or one a part with its number before the extension. */
    static QStringList filesOf(const JobExport &wanted);

    /** Whether the drawing has variant texts, which move on once a part. */
    bool hasNumbers() const;

    /**
     * Writes a job; false where it was not, after telling why. Shapes that mark something else than
     * they were given are asked about, without waiting: a yes writes the job after all.
     *
     * The plan of `shown` (may be null) is what is written as the first part, if it is a plan of
     * what the drawing marks now: what was looked at is what the machine gets. Further parts whose
     * texts are others are ordered by a fixed number of steps, however long that takes.
     */
    bool write(const JobExport &wanted, const JobSettings &settings,
               const std::shared_ptr<const Job> &shown = nullptr);

Q_SIGNALS:
    void written(const QStringList &files, int parts);

private:
    class Numbers;

    bool writeParts(const JobExport &wanted, const JobRequest &request,
                    const std::shared_ptr<const Job> &shown);
    bool takeLock(const QString &target, std::optional<jobkit::NumberLock> *lock);
    bool goPastMarkedParts(const QString &path);
    bool passInterrupted(const QString &target);
    bool noteTaken(const JobExport &wanted);
    void noteWritten(bool isWritten);
    void goOn(int parts);
    void endParts();
    bool planParts(const JobExport &wanted, JobRequest request,
                   const std::shared_ptr<const Job> &shown, QVector<jobkit::JobPlan> *plans);
    bool planPart(const JobExport &wanted, JobRequest request,
                  const std::shared_ptr<const Job> &shown, LongWork &work,
                  QVector<jobkit::JobPlan> *plans);
    bool writeFiles(const JobExport &wanted, const JobRequest &request,
                    const QVector<jobkit::JobPlan> &plans);
    bool fail(const QString &path, const QString &why);
    bool failToWrite(const QString &path, const QString &reason, const QStringList &written);
    void askAboutNotReady(const JobExport &wanted, const JobSettings &settings, int part,
                          const GatheredItems &gathered);

    ZTGraphicsDocument &m_document;
    TextTools &m_texts;
    Messages &m_messages;
    QWidget &m_window;
    std::function<QString()> m_drawingPath;
    std::function<bool()> m_isForeign;
    std::weak_ptr<const Job> m_shown;              ///< of the present export
    std::optional<jobkit::NumberJournal> m_before; ///< the journal before the present export
    std::optional<jobkit::NumberJournal> m_own;    ///< as it was left here, until a save
};

} // namespace studio
