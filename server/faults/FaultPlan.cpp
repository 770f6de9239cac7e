#include <server/faults/FaultPlan.h>

#include <QMutexLocker>

namespace korvel::Demo {

void FaultPlan::Add(const Fault& fault)
{
    const QMutexLocker lock(&m_mutex);
    m_entries.append({fault, fault.GetSkip(), fault.GetTimes()});
}

void FaultPlan::Clear()
{
    const QMutexLocker lock(&m_mutex);
    m_entries.clear();
}

std::optional<Fault::Effect> FaultPlan::Take(const QString& host, const QByteArray& target)
{
    const QMutexLocker lock(&m_mutex);
    for (Entry& entry : m_entries) {
        if (entry.times == 0 || !entry.fault.Matches(host, target))
            continue;
        if (entry.skip > 0) {
            --entry.skip;
            continue;
        }
        if (entry.times > 0)
            --entry.times;
        return entry.fault.GetEffect();
    }
    return std::nullopt;
}

} // namespace korvel::Demo
