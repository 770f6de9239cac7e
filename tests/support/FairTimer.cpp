#include <tests/support/FairTimer.h>

#include <QByteArrayList>
#include <QFile>

using namespace Qt::StringLiterals;

namespace korvel::Test {

namespace {

/// How long the calling thread has stood in the queue for a processor since it began, in milliseconds.
qint64 TimeInQueue()
{
    QFile file(u"/proc/thread-self/schedstat"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    // The time on a processor and the time in the queue, in nanoseconds, and how often it had its turn.
    return file.readAll().split(' ').value(1).toLongLong() / 1'000'000;
}

} // namespace

FairTimer::FairTimer()
{
    Restart();
}

void FairTimer::Restart()
{
    m_timer.start();
    m_queuedBefore = TimeInQueue();
}

qint64 FairTimer::Elapsed() const
{
    return m_timer.elapsed();
}

qint64 FairTimer::OwnElapsed() const
{
    return Elapsed() - (TimeInQueue() - m_queuedBefore);
}

} // namespace korvel::Test
