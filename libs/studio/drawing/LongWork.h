#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QPointer>
#include <QtCore/QString>

#include <functional>

QT_BEGIN_NAMESPACE
class QProgressDialog;
class QWidget;
QT_END_NAMESPACE

namespace studio {

/**
 * Work that takes a moment or long: the caller waits for it, and after a moment the user sees how
 * far it is. From then on the window is blocked and everything else goes on.
 */
class LongWork
{
public:
    enum class Cancel { Possible, Impossible };

    /** Work shorter than this shows nothing; no event runs meanwhile. */
    static constexpr int kQuietMs = 300;

    /** `window` is borrowed and outlives the work. */
    LongWork(QWidget &window, const QString &label, Cancel cancel, int quietMs = kQuietMs);
    ~LongWork();
    LongWork(const LongWork &) = delete;
    LongWork &operator=(const LongWork &) = delete;

    /**
     * Does a job in another thread and waits.
     *
     * Owner: what the job uses has to be its own, because a cancelled job runs on unheeded.
     * Failure: false when the user cancelled.
     */
    bool run(const std::function<void()> &job);

    /** Says from now on what is being done. */
    void setLabel(const QString &label);

    /** Tells how far the work in this thread is; false when the user cancelled. */
    bool step(int done, int total);

private:
    void showProgress(int done, int total);

    QWidget &m_window;
    QString m_label;
    Cancel m_cancel;
    int m_quietMs;
    QElapsedTimer m_clock;
    QElapsedTimer m_sinceEvents;
    QPointer<QProgressDialog> m_dialog;
    bool m_isCancelled = false;
};

} // namespace studio
