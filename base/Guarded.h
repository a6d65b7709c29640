// A value that one thread replaces while others read it: a reader sees the old value or the new one, whole.
#pragma once

#include <memory>
#include <mutex>
#include <utility>

template <class T>
class CGuarded
{
public:
    CGuarded() = default;
    CGuarded(const CGuarded&) = delete;
    CGuarded& operator=(const CGuarded&) = delete;

    // The value as it is now; it stays as it is for as long as the caller holds it.
    std::shared_ptr<const T> Get() const
    {
        const std::lock_guard lock(m_mutex);
        return m_value;
    }
    void Set(T value)
    {
        auto next = std::make_shared<const T>(std::move(value));
        const std::lock_guard lock(m_mutex);
        m_value.swap(next);
    }

private:
    mutable std::mutex m_mutex;
    std::shared_ptr<const T> m_value = std::make_shared<const T>();
};
