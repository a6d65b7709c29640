#include "platform/system/Time.h"

#include <ctime>

CTime CTime::GetCurrentTime()
{
    return CTime(std::time(nullptr));
}

std::string CTime::Format(const char* format) const
{
    const std::time_t time = m_time;
    std::tm local = {};
    char text[128] = {};
    if (!localtime_r(&time, &local))
        return {};
    return {text, std::strftime(text, sizeof(text), format, &local)};
}
