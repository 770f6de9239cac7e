#pragma once

#include <QString>

#include <condition_variable>
#include <mutex>
#include <thread>

namespace korvel::Test {

/// Ends the process with a message when what is watched takes too long: for code that may block the very
/// thread that a test's own timers need. Watches from a thread of its own.
class HangGuard
{
public:
    /// \p limit in milliseconds is what one Watch may last.
    explicit HangGuard(int limit);
    ~HangGuard();
    Q_DISABLE_COPY_MOVE(HangGuard)

    /// Watches as long as it lives; \p what names it in the message. One at a time.
    class Watch
    {
    public:
        Watch(HangGuard& guard, const QString& what);
        ~Watch();
        Q_DISABLE_COPY_MOVE(Watch)

    private:
        HangGuard& m_guard;
    };

private:
    void Set(const QByteArray& what);
    void Run();

    int m_limit;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    QByteArray m_what;
    int m_changes = 0;
    bool m_isEnding = false;
    std::thread m_thread;
};

} // namespace korvel::Test
