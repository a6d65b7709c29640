#include "platform/system/Memory.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <sys/mman.h>

namespace
{

std::atomic<std::size_t> g_limit{SIZE_MAX};

// Advises on the huge pages that lie wholly in a range.
void Advise(void* start, std::size_t size, int advice)
{
    constexpr std::uintptr_t kHugePage = 2u << 20;
    const auto first = (reinterpret_cast<std::uintptr_t>(start) + kHugePage - 1) & ~(kHugePage - 1);
    const auto end = (reinterpret_cast<std::uintptr_t>(start) + size) & ~(kHugePage - 1);
    if (first < end)
        madvise(reinterpret_cast<void*>(first), end - first, advice);
}

} // namespace

void* GlobalAlloc(UINT flags, std::size_t size)
{
    if (flags != GPTR || size > g_limit.load(std::memory_order_relaxed))
        return nullptr;
    void* const block = std::calloc(size > 0 ? size : 1, 1);
    // A block of hundreds of megabytes that is filled once costs more in page faults than in copying.
    if (block)
        Advise(block, size, MADV_HUGEPAGE);
    return block;
}

void GlobalDiscard(void* block, std::size_t size)
{
    Advise(block, size, MADV_DONTNEED);
}

void* GlobalFree(void* block)
{
    std::free(block);
    return nullptr;
}

void SetMemoryLimit(std::size_t limit)
{
    g_limit.store(limit, std::memory_order_relaxed);
}
