#include "platform/window/WindowTable_p.h"

#include "platform/window/WindowRecord_p.h"

#include <algorithm>

namespace
{

// The slot counts from 1 in the low half, so no handle is null.
std::size_t SlotOf(HWND window)
{
    return static_cast<std::size_t>(window.value & 0xFFFFFFFF) - 1;
}

std::uint32_t GenerationOf(HWND window)
{
    return static_cast<std::uint32_t>(window.value >> 32);
}

} // namespace

WindowTable& WindowTable::Get()
{
    // Never freed: a worker may ask for a window until the process has ended.
    static auto& table = *new WindowTable;
    return table;
}

bool WindowTable::Contains(HWND window) const
{
    const std::size_t slot = SlotOf(window);
    return slot < kMostWindows && GenerationOf(window) != 0 &&
           m_live[slot].load(std::memory_order_acquire) == GenerationOf(window);
}

HWND WindowTable::Add(std::shared_ptr<WindowRecord> record)
{
    const std::lock_guard lock(m_mutex);
    auto slot = std::find_if(m_slots.begin(), m_slots.end(), [](const Slot& s) { return !s.record; });
    if (slot == m_slots.end())
        slot = m_slots.insert(slot, Slot());
    const auto index = static_cast<std::size_t>(slot - m_slots.begin());
    slot->record = std::move(record);
    m_live.at(index).store(++slot->generation, std::memory_order_release);
    return {static_cast<std::uint64_t>(slot->generation) << 32 | (index + 1)};
}

std::shared_ptr<WindowRecord> WindowTable::Find(HWND window) const
{
    if (!Contains(window))
        return nullptr;
    const std::lock_guard lock(m_mutex);
    return Contains(window) ? m_slots[SlotOf(window)].record : nullptr;
}

void WindowTable::Remove(HWND window)
{
    // What the record's last holder frees, it frees without the lock.
    std::shared_ptr<WindowRecord> removed;
    const std::lock_guard lock(m_mutex);
    if (!Contains(window))
        return;
    m_live[SlotOf(window)].store(0, std::memory_order_release);
    removed.swap(m_slots[SlotOf(window)].record);
}

std::vector<std::shared_ptr<WindowRecord>> WindowTable::All() const
{
    const std::lock_guard lock(m_mutex);
    std::vector<std::shared_ptr<WindowRecord>> records;
    for (const Slot& slot : m_slots)
    {
        if (slot.record)
            records.push_back(slot.record);
    }
    return records;
}
