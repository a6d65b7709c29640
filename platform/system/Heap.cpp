#include "platform/system/Heap.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>

namespace
{

std::atomic<std::size_t> g_limit{SIZE_MAX};

} // namespace

void* HeapAlloc(std::size_t size)
{
    return size > g_limit.load(std::memory_order_relaxed) ? nullptr : std::calloc(size > 0 ? size : 1, 1);
}

void HeapFree(void* block)
{
    std::free(block);
}

void SetHeapLimit(std::size_t limit)
{
    g_limit.store(limit, std::memory_order_relaxed);
}
