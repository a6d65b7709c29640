// Which windows stand: the one place where a handle becomes a window.
#pragma once

#include "platform/window/Handle.h"

#include <memory>
#include <mutex>
#include <vector>

class WindowRecord;

// Any thread. The lock is held for the look-up alone, never while calling out.
class WindowTable
{
public:
    static WindowTable& Get();

    HWND Add(std::shared_ptr<WindowRecord> record);
    // Null for a window that has gone.
    std::shared_ptr<WindowRecord> Find(HWND window) const;
    void Remove(HWND window);
    std::vector<std::shared_ptr<WindowRecord>> All() const;

private:
    struct Slot
    {
        std::uint32_t generation = 0;
        std::shared_ptr<WindowRecord> record;
    };

    mutable std::mutex m_mutex;
    std::vector<Slot> m_slots;
};
