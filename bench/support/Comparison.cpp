#include <bench/support/Comparison.h>

#include <algorithm>
#include <ctime>

namespace korvel::Bench {

namespace {

/// The value below which \p share of \p values lie.
double Quantile(std::vector<double> values, double share)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    const double place = share * static_cast<double>(values.size() - 1);
    const auto below = static_cast<std::size_t>(place);
    const std::size_t above = std::min(below + 1, values.size() - 1);
    return values[below] + (values[above] - values[below]) * (place - static_cast<double>(below));
}

clockid_t ClockId(Clock clock)
{
    switch (clock) {
    case Clock::Thread:
        return CLOCK_THREAD_CPUTIME_ID;
    case Clock::Process:
        return CLOCK_PROCESS_CPUTIME_ID;
    case Clock::Wall:
        break;
    }
    return CLOCK_MONOTONIC;
}

} // namespace

double NowOn(Clock clock)
{
    timespec now{};
    clock_gettime(ClockId(clock), &now);
    return static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec);
}

double Median(std::vector<double> values)
{
    return Quantile(std::move(values), 0.5);
}

void Comparison::Add(double oursTime, double referenceTime)
{
    m_ours.push_back(oursTime);
    m_references.push_back(referenceTime);
    m_ratios.push_back(oursTime / referenceTime);
    m_state.SetIterationTime(oursTime / 1e9);
}

void Comparison::Finish()
{
    m_state.counters["figure"] = Median(m_ratios);
    m_state.counters["low"] = Quantile(m_ratios, 0.25);
    m_state.counters["high"] = Quantile(m_ratios, 0.75);
    m_state.counters["oursMs"] = Median(m_ours) / 1e6;
    m_state.counters["referenceMs"] = Median(m_references) / 1e6;
}

} // namespace korvel::Bench
