#include <tests/support/HangGuard.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace korvel::Test {

namespace {

constexpr int c_slice = 100;

} // namespace

HangGuard::HangGuard(int limit)
    : m_limit(limit)
    , m_thread([this]() { Run(); })
{
}

HangGuard::~HangGuard()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_isEnding = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void HangGuard::Set(const QByteArray& what)
{
    {
        const std::scoped_lock lock(m_mutex);
        m_what = what;
        ++m_changes;
    }
    m_changed.notify_all();
}

void HangGuard::Run()
{
    std::unique_lock lock(m_mutex);
    while (!m_isEnding) {
        const int changes = m_changes;
        const auto hasChanged = [&]() { return m_isEnding || m_changes != changes; };
        if (m_what.isEmpty()) {
            m_changed.wait(lock, hasChanged);
            continue;
        }
        // In slices: a machine that stood still meanwhile has used up one of them, not all.
        bool isOver = false;
        for (int passed = 0; !isOver && passed < m_limit; passed += c_slice)
            isOver = m_changed.wait_for(lock, std::chrono::milliseconds(c_slice), hasChanged);
        if (!isOver) {
            std::fprintf(stderr, "Hangs: %s\n", m_what.constData());
            std::abort();
        }
    }
}

HangGuard::Watch::Watch(HangGuard& guard, const QString& what)
    : m_guard(guard)
{
    m_guard.Set(what.toUtf8());
}

HangGuard::Watch::~Watch()
{
    m_guard.Set({});
}

} // namespace korvel::Test
