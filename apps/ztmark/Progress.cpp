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

Progress::Progress(bool wanted) : started(std::chrono::steady_clock::now())
{
    if (wanted && isatty(STDERR_FILENO) == 1)
        watcher = std::thread(&Progress::watch, this);
}

Progress::~Progress() { finish(); }

void Progress::begin(const QString &step)
{
    const std::lock_guard<std::mutex> lock(mutex);
    text = console::printable(step.toStdString());
}

void Progress::finish()
{
    if (!watcher.joinable())
        return;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        finished = true;
    }
    changed.notify_one();
    watcher.join();
    if (shown)
        std::fputs(kEraseLine, stderr);
}

/** The work itself blocks in the library, so another thread keeps the line alive. */
void Progress::watch()
{
    std::unique_lock<std::mutex> lock(mutex);
    auto next = started + kPatience;
    while (!changed.wait_until(lock, next, [this] { return finished; })) {
        show();
        next += kRefresh;
    }
}

void Progress::show()
{
    const auto elapsed = std::chrono::steady_clock::now() - started;
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(elapsed).count();
    std::fprintf(stderr, "%sztmark: %s, %lld s", kEraseLine, text.c_str(),
                 static_cast<long long>(seconds));
    std::fflush(stderr);
    shown = true;
}
