#pragma once

namespace korvel::Bench {

/// Bytes that the whole program holds on the heap at this moment.
double HeapInUse();

} // namespace korvel::Bench
