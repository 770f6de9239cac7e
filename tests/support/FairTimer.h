#pragma once

#include <QElapsedTimer>

namespace korvel::Test {

/// How long something takes in one thread, and what of that is its own on a machine where others compute,
/// too.
class FairTimer
{
public:
    /// Begins to count.
    FairTimer();

    /// Counts from now on.
    void Restart();
    /// The time that has passed, in milliseconds.
    qint64 Elapsed() const;
    /// The same without the time in which this thread could have gone on but others had the processors. Where
    /// the system does not tell that, and only Linux does, it is all the time that has passed.
    qint64 OwnElapsed() const;

private:
    QElapsedTimer m_timer;
    qint64 m_queuedBefore = 0;
};

} // namespace korvel::Test
