#pragma once

#include <studio/drawing/RecoveryStore.h>
#include <studio/program/Messages.h>

#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <future>

namespace studio {

class DrawingSession;

/**
 * Keeps a copy of a changed drawing in a recovery file: at most an interval after a change it is
 * there. The copy goes when there is nothing to lose any more, and stays when the program dies.
 */
class Autosaver : public QObject
{
    Q_OBJECT

public:
    /** Limit: what a crash may cost at most, writing included. */
    static constexpr int kMostSeconds = 60;

    /** All are borrowed and outlive this. `folder` is where the recovery file goes. */
    Autosaver(DrawingSession &session, Messages &messages, const QString &folder, int intervalMs,
              QObject *parent = nullptr);

    /** Waits for a write under way. The recovery file stays. */
    ~Autosaver() override;

    /** At most so long after a change from now on. */
    void setIntervalMs(int intervalMs) { m_timer.setInterval(intervalMs); }

    /** Takes over the recovery file that the drawing has just been read from. */
    void adopt(std::shared_ptr<RecoverySlot> recovered);

    /** Writes at once what is not written yet, and waits for it: the program may end any moment. */
    void saveNow();

    /** The user let the drawing go: removes the recovery file. */
    void discard();

    QString recoveryPath() const; ///< empty as long as there is none

Q_SIGNALS:
    void autosaved();

private:
    void watch();
    void start();
    bool prepare(hostkit::DrawingFile *drawing);
    void finish();
    void take(const hostkit::Failure &result);
    void showFailureOnce(const QString &reason);

    DrawingSession &m_session;
    Messages &m_messages;
    QString m_folder;
    QTimer m_timer;
    std::shared_ptr<RecoverySlot> m_slot;    ///< null before the first write
    std::future<hostkit::Failure> m_writing; ///< valid while a write is under way
    quint64 m_writingRevision = 0;
    quint64 m_savedRevision = 0; ///< the revision that the recovery file holds
    bool m_hasSaved = false;
    bool m_hasTold = false; ///< of a failure, since the last success
};

} // namespace studio
