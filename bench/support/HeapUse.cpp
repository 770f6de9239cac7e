#include <bench/support/HeapUse.h>

#include <malloc.h>

namespace korvel::Bench {

double HeapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    // Small blocks of all threads, and large blocks that have pages of their own.
    return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

} // namespace korvel::Bench
