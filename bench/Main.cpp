#include <bench/Main.h>

#include <benchmark/benchmark.h>

#include <QString>

using namespace Qt::StringLiterals;

namespace korvel::Bench {

int RunBenchmarks(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::AddCustomContext("qt", qVersion());
    benchmark::AddCustomContext("zone", qEnvironmentVariable("TZ", u"unset"_s).toStdString());
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

} // namespace korvel::Bench
