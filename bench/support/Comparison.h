#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <vector>

namespace korvel::Bench {

/// What a timing counts.
enum class Clock
{
    Thread
    = 0, ///< the time that this thread had a processor: what other programs do to the machine hardly shows
    Process = 1, ///< the same for all threads together: for painting, which Qt divides among several
    Wall = 2, ///< the time that passes: for what waits or runs in several threads or programs
};

/// Nanoseconds on \p clock since some fixed moment.
double NowOn(Clock clock);

/// The middle value, 0 for none.
double Median(std::vector<double> values);

/// Nanoseconds that \p function takes; its result lives on until the clock has been read.
template <typename Function> double TimeOf(Clock clock, Function&& function)
{
    const double start = NowOn(clock);
    if constexpr (std::is_void_v<std::invoke_result_t<Function>>) {
        function();
        benchmark::ClobberMemory();
        return NowOn(clock) - start;
    } else {
        auto result = function();
        benchmark::DoNotOptimize(result);
        const double duration = NowOn(clock) - start;
        return duration;
    }
}

/// Times two things in turn and judges by the middle one of the ratios of each pair, so that a figure holds
/// on a machine that is busy with other things or changes its speed.
///
/// The benchmark must use UseManualTime(). Its counters afterwards: "figure" (the ratio ours / reference),
/// "low" and "high" (the quartiles of the ratios), "oursMs" and "referenceMs" (medians).
class Comparison
{
public:
    explicit Comparison(benchmark::State& state, Clock clock = Clock::Thread)
        : m_state(state)
        , m_clock(clock)
    {
    }

    /// Runs before each of the two, not timed.
    std::function<void()> prepare;

    template <typename Ours, typename Reference> void Run(Ours&& ours, Reference&& reference)
    {
        RunTimed([&]() { return TimeOf(m_clock, ours); }, [&]() { return TimeOf(m_clock, reference); });
    }

    /// The same for things that measure themselves; both return nanoseconds.
    template <typename Ours, typename Reference> void RunTimed(Ours&& ours, Reference&& reference)
    {
        const auto prepared = [this](auto& function) {
            if (prepare)
                prepare();
            return function();
        };
        prepared(ours);
        prepared(reference);
        bool isOursFirst = false;
        for ([[maybe_unused]] const auto _ : m_state) {
            // Neither always comes second, where memory and caches are as the other left them.
            isOursFirst = !isOursFirst;
            double oursTime = isOursFirst ? prepared(ours) : 0;
            const double referenceTime = prepared(reference);
            if (!isOursFirst)
                oursTime = prepared(ours);
            Add(oursTime, referenceTime);
        }
        Finish();
    }

private:
    void Add(double oursTime, double referenceTime);
    void Finish();

    benchmark::State& m_state;
    Clock m_clock;
    std::vector<double> m_ours;
    std::vector<double> m_references;
    std::vector<double> m_ratios;
};

} // namespace korvel::Bench
