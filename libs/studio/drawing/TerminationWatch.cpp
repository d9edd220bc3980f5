#include <studio/drawing/TerminationWatch.h>

#include <QtCore/QSocketNotifier>

#ifdef Q_OS_UNIX
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace studio {

#ifdef Q_OS_UNIX

namespace {

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};

int pipeEnds[2] = {-1, -1}; // read, write

// Nothing but writing to a pipe is allowed in here.
void onSignal(int)
{
    const char byte = 1;
    [[maybe_unused]] const auto count = write(pipeEnds[1], &byte, 1);
}

} // namespace

TerminationWatch::TerminationWatch(QObject *parent) : QObject(parent)
{
    if (pipe(pipeEnds) != 0)
        return;
    for (const int end : pipeEnds) {
        fcntl(end, F_SETFD, FD_CLOEXEC);
        fcntl(end, F_SETFL, O_NONBLOCK);
    }
    m_notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &TerminationWatch::receive);
    for (const int number : kSignals) {
        struct sigaction action = {};
        action.sa_handler = &onSignal;
        action.sa_flags = SA_RESTART;
        sigaction(number, &action, nullptr);
    }
}

TerminationWatch::~TerminationWatch()
{
    if (m_notifier == nullptr)
        return;
    for (const int number : kSignals)
        std::signal(number, SIG_DFL);
    delete m_notifier;
    for (int &end : pipeEnds) {
        close(end);
        end = -1;
    }
}

void TerminationWatch::receive()
{
    char byte = 0;
    while (read(pipeEnds[0], &byte, 1) == 1) {
    }
    Q_EMIT asked();
}

#else

TerminationWatch::TerminationWatch(QObject *parent) : QObject(parent) {}
TerminationWatch::~TerminationWatch() = default;
void TerminationWatch::receive() {}

#endif

} // namespace studio
