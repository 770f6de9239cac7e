#include <bench/FirstShow.h>

#include <bench/support/Comparison.h>

#include <ui/VenueDbDialog.h>

#include <QApplication>
#include <QProcess>

#include <cstdio>

namespace korvel::Bench {

using Ui::VenueDatabase::VenueDbDialog;

int PrintFirstShow()
{
    const double start = NowOn(Clock::Thread);
    VenueDbDialog dialog;
    const double constructed = NowOn(Clock::Thread);
    dialog.SetDayMode(true);
    dialog.Open(nullptr);
    QApplication::processEvents();
    dialog.repaint();
    const double shown = NowOn(Clock::Thread);
    std::printf("%.0f %.0f\n", constructed - start, shown - constructed);
    return 0;
}

namespace {

/// The dialog constructed and shown for the first time in a process, every time in a new one.
void FirstShow(benchmark::State& state)
{
    std::vector<double> constructed;
    std::vector<double> shown;
    for ([[maybe_unused]] const auto _ : state) {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {QLatin1String(c_firstShowOption)});
        process.waitForFinished();
        const QList<QByteArray> numbers = process.readAllStandardOutput().trimmed().split(' ');
        if (numbers.size() != 2) {
            state.SkipWithError("the dialog was not shown");
            return;
        }
        constructed.push_back(numbers.at(0).toDouble() / 1e6);
        shown.push_back(numbers.at(1).toDouble() / 1e6);
        state.SetIterationTime((constructed.back() + shown.back()) / 1e3);
    }
    state.counters["constructedMs"] = Median(constructed);
    state.counters["shownMs"] = Median(shown);
    state.counters["figure"] = Median(constructed) + Median(shown);
}
BENCHMARK(FirstShow)->Iterations(15)->UseManualTime();

} // namespace

} // namespace korvel::Bench
