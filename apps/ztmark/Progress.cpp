#include "Progress.h"

#include "Console.h"

#include <cstdio>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 1s;
constexpr auto kRefresh = 500ms;
constexpr char kEraseLine[] = "\r\x1b[K";

} // namespace

Progress::Progress(bool wanted) : m_started(std::chrono::steady_clock::now())
{
    if (wanted && isatty(STDERR_FILENO) == 1)
        m_watcher = std::thread(&Progress::watch, this);
}

Progress::~Progress() { finish(); }

void Progress::begin(const QString &step)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_text = console::printable(step.toStdString());
}

void Progress::finish()
{
    if (!m_watcher.joinable())
        return;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_finished = true;
    }
    m_changed.notify_one();
    m_watcher.join();
    if (m_shown)
        std::fputs(kEraseLine, stderr);
}

/** The work itself blocks in the library, so another thread keeps the line alive. */
void Progress::watch()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    auto next = m_started + kPatience;
    while (!m_changed.wait_until(lock, next, [this] { return m_finished; })) {
        show();
        next += kRefresh;
    }
}

void Progress::show()
{
    const auto elapsed = std::chrono::steady_clock::now() - m_started;
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(elapsed).count();
    std::fprintf(stderr, "%sztmark: %s, %lld s", kEraseLine, m_text.c_str(),
                 static_cast<long long>(seconds));
    std::fflush(stderr);
    m_shown = true;
}
