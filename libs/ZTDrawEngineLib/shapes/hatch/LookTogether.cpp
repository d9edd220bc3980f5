#include <ZTDrawEngineLib/shapes/hatch/LateHatch_p.h>

#include <QtCore/QThread>
#include <QtCore/QThreadPool>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <new>

namespace zthatch {

namespace {

/** Fewer hatches are looked at sooner than threads are woken for them. */
constexpr std::size_t kFewHatches = 4;

/** What the threads of one look share. */
class Look
{
public:
    Look(const std::vector<LateHatch> &hatches, int threads, int budgetMs)
        : m_hatches(hatches), m_handful(handfulOf(hatches.size(), threads)),
          m_end(std::chrono::steady_clock::now() + std::chrono::milliseconds(budgetMs))
    {
    }

    /** One at least, and one after the other until none is left or the time is over. */
    void run()
    {
        for (;;) {
            const std::size_t begin = m_next.fetch_add(m_handful);
            const std::size_t end = std::min(begin + m_handful, m_hatches.size());
            for (std::size_t number = begin; number < end; ++number) {
                if (!isLaidOut(m_hatches[number]) || std::chrono::steady_clock::now() >= m_end)
                    return;
            }
            if (end == m_hatches.size())
                return;
        }
    }

    void noteHelper()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        ++m_helpers;
    }

    void noteHelperGone()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        --m_helpers;
        m_gone.notify_one();
    }

    void waitForHelpers()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_gone.wait(lock, [this] { return m_helpers == 0; });
    }

private:
    /** Neighbours lie side by side in memory; small hatches are sooner laid out than shared. */
    static std::size_t handfulOf(std::size_t hatches, int threads)
    {
        constexpr std::size_t kHandfulsAThread = 16;
        constexpr std::size_t kLargestHandful = 64;
        const std::size_t handfuls = kHandfulsAThread * static_cast<std::size_t>(threads);
        return std::clamp<std::size_t>(hatches / handfuls, 1, kLargestHandful);
    }

    /** Nothing is thrown: who looks at the hatch itself hears of the lack of memory. */
    static bool isLaidOut(const LateHatch &hatch)
    {
        try {
            static_cast<void>(hatch.lines());
            return true;
        } catch (const std::bad_alloc &) {
            return false;
        }
    }

    const std::vector<LateHatch> &m_hatches;
    const std::size_t m_handful; ///< taken at once
    const std::chrono::steady_clock::time_point m_end;
    std::atomic<std::size_t> m_next{0};
    std::mutex m_mutex;
    std::condition_variable m_gone;
    int m_helpers = 0;
};

} // namespace

void lookTogether(const std::vector<LateHatch> &hatches, int budgetMs)
{
    if (hatches.size() < kFewHatches)
        return;
    const int threads = std::max(1, QThread::idealThreadCount());
    Look look(hatches, threads, budgetMs);
    // Only threads that are free: one that is queued might begin when there is nothing left to do.
    for (int helpers = threads - 1; helpers > 0; --helpers) {
        look.noteHelper();
        const bool isStarted = QThreadPool::globalInstance()->tryStart([&look] {
            look.run();
            look.noteHelperGone();
        });
        if (!isStarted) {
            look.noteHelperGone();
            break;
        }
    }
    look.run();
    look.waitForHelpers();
}

} // namespace zthatch
