#pragma once

namespace korvel::Bench {

/// The option with which the program times the first dialog of its life instead of running benchmarks.
constexpr const char* c_firstShowOption = "--first-show";

/// Constructs the venue database dialog, shows it until it is painted, and prints the nanoseconds of both.
/// Returns the exit code.
int PrintFirstShow();

} // namespace korvel::Bench
