// Blocks of memory whose size somebody else names: a server, a file, a cache. Any thread may call.
#pragma once

#include <cstddef>
#include <memory>

// A block of zero bytes, or null if it cannot be had; freed with HeapFree. Pages that are never touched cost nothing.
void* HeapAlloc(std::size_t size);
void HeapFree(void* block);

// Blocks above the limit cannot be had: for tests of what happens then. No limit at start.
void SetHeapLimit(std::size_t limit);

struct HeapDeleter
{
    void operator()(void* block) const
    {
        HeapFree(block);
    }
};

template <class T>
using HeapPtr = std::unique_ptr<T, HeapDeleter>;
