#pragma once

#include <hostkit/files/Failure.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/marks/MarkGraphWriter.h>

#include <QtCore/QThread>
#include <QtCore/QTimer>

#include <atomic>
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
    /**
     * `document` is borrowed and outlives the job; its shapes should not change meanwhile. `look`
     * is for the pictures among the forms.
     */
    ExportJob(const ZTGraphicsDocument &document, bool selectionOnly, const QString &path,
              const hostkit::MarkPictureLook &look = {}, QObject *parent = nullptr);

    /** Waits for the writing thread. */
    ~ExportJob() override;

    /**
     * Begins, and works for up to `budgetMs` before it returns. `finished` comes later in any
     * case.
     */
    void start(int budgetMs);

    /**
     * Gives up; `finished` does not come. What stood in the file stays, unless the new one was just
     * taking its place.
     *
     * Owner: from here on the job deletes itself, when its thread has ended.
     */
    void cancel();

    QString path() const { return m_target; }
    int objects() const { return m_objectCount; }
    bool isWriting() const { return m_writer != nullptr; }

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
    void fail(const QString &reason);
    void finish();

    std::unique_ptr<hostkit::MarkGraphBuilder> m_builder;
    QString m_target;
    hostkit::MarkPictureLook m_look;
    QTimer m_nextStep;
    int m_budgetOfStepMs = 0;
    int m_objectCount = 0;
    std::atomic<bool> m_isCancelled = false;
    std::unique_ptr<QThread> m_writer;
    hostkit::DrawingMarks m_marks; ///< the thread's while it runs
    hostkit::Failure m_failure;    ///< the thread's while it runs
};

} // namespace studio
