#pragma once

#include <hostkit/marks/MarkGraphBuilder.h>

#include <QtCore/QThread>
#include <QtCore/QTimer>

#include <memory>

namespace studio {

/**
 * One export of mark paths to a file: gathers them a little at a time in the event loop, then
 * writes in a thread of its own. The file appears whole or not at all.
 */
class ExportJob : public QObject
{
    Q_OBJECT

public:
    /** `document` is borrowed and outlives the job; its shapes should not change meanwhile. */
    ExportJob(const ZTGraphicsDocument &document, bool selectionOnly, const QString &path,
              QObject *parent = nullptr);

    /** Waits for the writing thread. */
    ~ExportJob() override;

    /**
     * Begins, and works for up to `budgetMs` before it returns. `finished` comes later in any
     * case.
     */
    void start(int budgetMs);

    /**
     * Gives up; `finished` does not come. What stood in the file stays.
     *
     * Owner: from here on the job deletes itself, when its thread has ended.
     */
    void cancel();

    QString path() const { return target; }
    int objects() const { return objectCount; }
    bool isWriting() const { return writer != nullptr; }

Q_SIGNALS:
    /** Shapes gathered so far, of how many. */
    void progress(int done, int total);

    /** All is gathered, writing begins. */
    void writing();

    /** `error` is empty when the file was written; else it says why not, in one sentence. */
    void finished(const QString &error);

private:
    void gather();
    void write();
    void writeFile() noexcept;
    void finish();

    std::unique_ptr<hostkit::MarkGraphBuilder> builder;
    QString target;
    QString partPath; ///< where the thread writes until all is there
    QTimer nextStep;
    int budgetOfStepMs = 0;
    int objectCount = 0;
    bool isCancelled = false;
    std::unique_ptr<QThread> writer;
    hostkit::DrawingMarks marks; ///< the thread's while it runs
    QString error;               ///< the thread's while it runs
};

} // namespace studio
