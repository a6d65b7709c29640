// A 32-bit word that the window's thread and a worker share: written whole, polled, with no order promised between
// one word and another. The sole effect of a late reading is that a change takes hold one poll later.
#pragma once

#include <atomic>
#include <cstdint>

class CFlag
{
public:
    constexpr CFlag(std::int32_t value = 0) : m_value(value)
    {}
    CFlag(const CFlag&) = delete;

    CFlag& operator=(std::int32_t value)
    {
        m_value.store(value, std::memory_order_relaxed);
        return *this;
    }
    CFlag& operator=(const CFlag&) = delete;
    operator std::int32_t() const
    {
        return m_value.load(std::memory_order_relaxed);
    }

private:
    std::atomic<std::int32_t> m_value;
};
