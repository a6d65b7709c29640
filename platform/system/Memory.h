// Blocks of memory whose size somebody else names: a server, a file, a cache. Any thread may call.
#pragma once

#include "platform/Types.h"

#include <cstddef>
#include <memory>

inline constexpr UINT GPTR = 0x0040; // fixed, filled with zero bytes

// A block of zero bytes, or null if it cannot be had; freed with GlobalFree. `flags` must be GPTR. Pages that are never
// touched cost nothing.
void* GlobalAlloc(UINT flags, std::size_t size);
// The first `size` bytes of a block are not needed any more: those of its pages that lie wholly in them go back to the
// machine at once. The bytes hold anything then.
void GlobalDiscard(void* block, std::size_t size);
// Null is allowed. Always returns null.
void* GlobalFree(void* block);

// Blocks above the limit cannot be had: for tests of what happens then. No limit at start.
void SetMemoryLimit(std::size_t limit);

struct GlobalDeleter
{
    void operator()(void* block) const
    {
        GlobalFree(block);
    }
};

template <class T>
using GlobalPtr = std::unique_ptr<T, GlobalDeleter>;
