#pragma once

#include <server/faults/Fault.h>

#include <QMutex>

namespace korvel::Demo {

/// The faults that a server is to show, with their counts. All members may be used from every thread.
class FaultPlan
{
public:
    void Add(const Fault& fault);
    void Clear();
    /// The effect of the first fault, in the order added, that is due for this request; counts it.
    std::optional<Fault::Effect> Take(const QString& host, const QByteArray& target);

private:
    struct Entry
    {
        Fault fault;
        int skip = 0;
        int times = 0;
    };

    QMutex m_mutex;
    QList<Entry> m_entries;
};

} // namespace korvel::Demo
