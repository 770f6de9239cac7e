#include <server/http/StopSignal.h>

#include <QDeadlineTimer>
#include <QMutexLocker>

namespace korvel::Demo {

bool StopSignal::WaitFor(int milliseconds)
{
    const QMutexLocker lock(&m_mutex);
    QDeadlineTimer deadline(milliseconds);
    while (!m_stopped && m_condition.wait(&m_mutex, deadline)) { }
    return m_stopped;
}

void StopSignal::Stop()
{
    const QMutexLocker lock(&m_mutex);
    m_stopped = true;
    m_condition.wakeAll();
}

void StopSignal::Reset()
{
    const QMutexLocker lock(&m_mutex);
    m_stopped = false;
}

} // namespace korvel::Demo
