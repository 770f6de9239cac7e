#include <tests/tour/Watchdog.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace korvel::Demo {

Watchdog::Watchdog(int seconds)
    : m_thread([this, seconds] { Watch(seconds); })
{
}

Watchdog::~Watchdog()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isOver = true;
    }
    m_ended.notify_all();
    m_thread.join();
}

void Watchdog::SetPlace(const std::string& place)
{
    const std::lock_guard lock(m_mutex);
    m_place = place;
}

void Watchdog::Watch(int seconds)
{
    std::unique_lock lock(m_mutex);
    if (m_ended.wait_for(lock, std::chrono::seconds(seconds), [this] { return m_isOver; }))
        return;
    std::fprintf(stderr, "FAIL  hangs in: %s\n", m_place.c_str());
    std::fflush(stderr);
    // Whatever hangs would hang in any orderly way out as well.
    std::_Exit(3);
}

} // namespace korvel::Demo
