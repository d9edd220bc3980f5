#pragma once

#include <studio/drawing/Autosaver.h>
#include <studio/drawing/TerminationWatch.h>
#include <studio/program/Messages.h>

#include <QtCore/QPointer>

#include <functional>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace studio {

class DrawingFiles;
class RecoveryDialog;

/** Where recovery files stand, and how much a crash may cost. */
struct CrashGuardSetup
{
    QString folder = RecoveryStore::defaultFolder();
    int intervalMs = 45000; ///< leaves time to write within Autosaver::kMostSeconds

    /** That of this user; the settings may shorten the interval. */
    static CrashGuardSetup ofUser();
};

/**
 * Sees to it that an end of the program does not cost a drawing: saves copies as it changes, and
 * at once when the process is asked to end; offers what was left behind.
 */
class CrashGuard : public QObject
{
    Q_OBJECT

public:
    /** All are borrowed and outlive this. */
    CrashGuard(DrawingFiles &files, Messages &messages, QWidget &window,
               const CrashGuardSetup &setup);

    Autosaver &autosaver() { return m_saver; }

    /**
     * Offers what was left behind, if there is something: once whatever the window asks or tells
     * at the time has been answered, one after the other.
     */
    void offerFound();

    /** The same as a user's command: says so when there is nothing. */
    void showDialog();

    /** The window closes, and the user let the drawing go. */
    void letGo() { m_saver.discard(); }

private:
    void whenNothingIsAsked(const std::function<void()> &next);
    void open(const QVector<RecoveryEntry> &entries);
    RecoveryStore::Findings findings();
    void recover(const RecoveryEntry &entry);

    DrawingFiles &m_files;
    Messages &m_messages;
    QWidget &m_window;
    RecoveryStore m_store;
    Autosaver m_saver;
    TerminationWatch m_termination;
    QPointer<RecoveryDialog> m_dialog;
};

} // namespace studio
