#pragma once

#include <QtCore/QObject>

QT_BEGIN_NAMESPACE
class QSocketNotifier;
QT_END_NAMESPACE

namespace studio {

/**
 * Turns the signals that ask a process to end (SIGTERM, SIGINT, SIGHUP) into a Qt signal, on the
 * thread of this object. One at a time in a process.
 *
 * Limit: does nothing where the system has no such signals.
 */
class TerminationWatch : public QObject
{
    Q_OBJECT

public:
    explicit TerminationWatch(QObject *parent = nullptr);

    /** The process ends on these signals again. */
    ~TerminationWatch() override;

Q_SIGNALS:
    void asked();

private:
    void receive();

    QSocketNotifier *m_notifier = nullptr; ///< child
};

} // namespace studio
