#include "platform/system/Memory.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <sys/mman.h>

namespace
{

std::atomic<std::size_t> g_limit{SIZE_MAX};

// A block of hundreds of megabytes that is filled once costs more in page faults than in copying.
void AskForHugePages(void* block, std::size_t size)
{
    constexpr std::uintptr_t kHugePage = 2u << 20;
    const auto start = (reinterpret_cast<std::uintptr_t>(block) + kHugePage - 1) & ~(kHugePage - 1);
    const auto end = (reinterpret_cast<std::uintptr_t>(block) + size) & ~(kHugePage - 1);
    if (start < end)
        madvise(reinterpret_cast<void*>(start), end - start, MADV_HUGEPAGE);
}

} // namespace

void* GlobalAlloc(UINT flags, std::size_t size)
{
    if (flags != GPTR || size > g_limit.load(std::memory_order_relaxed))
        return nullptr;
    void* const block = std::calloc(size > 0 ? size : 1, 1);
    if (block)
        AskForHugePages(block, size);
    return block;
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
