// Which windows stand: the one place where a handle becomes a window.
#pragma once

#include "platform/window/Handle.h"

#include <array>
#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

class WindowRecord;

// Any thread. The lock is held for the look-up alone, never while calling out; asking for a window that has gone takes
// none.
class WindowTable
{
public:
    static WindowTable& Get();

    bool Contains(HWND window) const;
    HWND Add(std::shared_ptr<WindowRecord> record);
    // Null for a window that has gone.
    std::shared_ptr<WindowRecord> Find(HWND window) const;
    void Remove(HWND window);
    std::vector<std::shared_ptr<WindowRecord>> All() const;

private:
    // The limit of the desktop that this layer stands for.
    static constexpr std::size_t kMostWindows = 65536;

    struct Slot
    {
        std::uint32_t generation = 0;
        std::shared_ptr<WindowRecord> record;
    };

    mutable std::mutex m_mutex;
    std::vector<Slot> m_slots;
    std::array<std::atomic<std::uint32_t>, kMostWindows> m_live{}; // generations, 0 for a free slot
};
