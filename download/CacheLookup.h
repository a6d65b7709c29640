// The look-up of the URL cache with its growing buffer. On one thread, for the length of a run.
#pragma once

#include "platform/internet/UrlCache.h"
#include "platform/system/Memory.h"

#include <string>

class CCacheLookup
{
public:
    enum class Result
    {
        Found,
        BufferTooSmall, // the next look-up has the room that was asked for
        NotCached,
        OutOfMemory,
    };

    Result Find(const std::string& url);
    // The entry that was found, until the next look-up.
    const INTERNET_CACHE_ENTRY_INFOA& Entry() const
    {
        return *m_buffer;
    }

private:
    DWORD m_nSize = 4096; // takes what the cache asks for and never shrinks
    GlobalPtr<INTERNET_CACHE_ENTRY_INFOA> m_buffer;
};
