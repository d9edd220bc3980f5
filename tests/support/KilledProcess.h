#pragma once

#include <sys/types.h>

#include <functional>

namespace testsupport {

/** How many processes a test kills: `ZT_KILLS`, or else a few. */
int killCount(int few);

/** One round of what a process does again and again; false ends it. */
using Round = std::function<bool(int round)>;

/**
 * A copy of this process that does its rounds until it is killed. The first one is done when the
 * constructor returns.
 */
class KilledProcess
{
public:
    explicit KilledProcess(const Round &round);
    ~KilledProcess();
    KilledProcess(const KilledProcess &) = delete;
    KilledProcess &operator=(const KilledProcess &) = delete;

    /** Whether it lived until the signal came. */
    bool kill();

    /** Whether the signal came amid a round. */
    bool wasAtWork() const;

private:
    pid_t m_process = -1;
    int m_news = -1;
    char m_lastNews = '\0';
};

} // namespace testsupport
