#pragma once

namespace korvel::Bench {

/// Runs the benchmarks of this program as the options of Google Benchmark say; returns the exit code.
int RunBenchmarks(int argc, char** argv);

} // namespace korvel::Bench
