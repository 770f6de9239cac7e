#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace korvel::Demo {

/// Ends the process with exit code 3 when its owner stays alive for too long, even if the event loop stands
/// still.
class Watchdog
{
public:
    explicit Watchdog(int seconds);
    ~Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    /// What the message names as the place of the hang.
    void SetPlace(const std::string& place);

private:
    void Watch(int seconds);

    std::mutex m_mutex;
    std::condition_variable m_ended;
    bool m_isOver = false;
    std::string m_place;
    std::thread m_thread;
};

} // namespace korvel::Demo
