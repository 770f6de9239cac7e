#pragma once

#include <QStringList>

namespace korvel::Bench {

/// The option with which the program measures the memory of one search instead of running benchmarks. The
/// port of the server's proxy and a file with its authority's certificate follow.
constexpr const char* c_searchMemoryOption = "--search-memory";

/// Searches for all venues in this process and prints the bytes that it held at most and holds afterwards,
/// the venues included. Returns the exit code.
int PrintSearchMemory(const QStringList& arguments);

} // namespace korvel::Bench
