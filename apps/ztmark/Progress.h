#pragma once

#include <QtCore/QString>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

/**
 * Says on stderr what is going on, on one line that is taken away in the end. Silent while the
 * work has taken less than a second, and where stderr is no terminal.
 */
class Progress
{
public:
    explicit Progress(bool wanted);
    ~Progress();
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    /** What is done from now on. */
    void begin(const QString &step);

    /** Takes the line away, so that messages can follow; nothing is shown afterwards. */
    void finish();

private:
    void show();
    void watch();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::string m_text;
    bool m_finished = false;
    bool m_shown = false;
    std::chrono::steady_clock::time_point m_started;
    std::thread m_watcher;
};
