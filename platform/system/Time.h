// A moment of the calendar.
#pragma once

#include <cstdint>
#include <string>

class CTime
{
public:
    // Seconds since 1970 in UTC.
    explicit CTime(std::int64_t time) : m_time(time)
    {}
    static CTime GetCurrentTime();

    std::int64_t GetTime() const
    {
        return m_time;
    }
    // The moment in local time, as strftime formats it. Any thread.
    std::string Format(const char* format) const;

private:
    std::int64_t m_time;
};
