#pragma once

#include <QMutex>
#include <QWaitCondition>

namespace korvel::Demo {

/// Lets threads wait in a way that the end of the server interrupts. All members may be used from every
/// thread.
class StopSignal
{
public:
    /// Waits \p milliseconds, less when Stop() is or was called. True when it was.
    bool WaitFor(int milliseconds);
    /// Ends every wait, now and in future, until Reset().
    void Stop();
    void Reset();

private:
    QMutex m_mutex;
    QWaitCondition m_condition;
    bool m_stopped = false;
};

} // namespace korvel::Demo
