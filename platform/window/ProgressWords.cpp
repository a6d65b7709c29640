#include "platform/window/ProgressWords_p.h"

#include <algorithm>

LRESULT ProgressWords::Answer(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case PBM_SETPOS:
        return m_position.exchange(static_cast<DWORD>(wParam), std::memory_order_relaxed);
    case PBM_SETRANGE32:
        m_low.store(static_cast<DWORD>(wParam), std::memory_order_relaxed);
        m_high.store(static_cast<DWORD>(lParam), std::memory_order_relaxed);
        return 0;
    default:
        return m_position.load(std::memory_order_relaxed);
    }
}

int ProgressWords::Step() const
{
    const std::uint64_t low = m_low.load(std::memory_order_relaxed);
    const std::uint64_t high = m_high.load(std::memory_order_relaxed);
    if (high <= low)
        return 0;
    const std::uint64_t position = std::clamp<std::uint64_t>(m_position.load(std::memory_order_relaxed), low, high);
    return static_cast<int>((position - low) * kSteps / (high - low));
}
