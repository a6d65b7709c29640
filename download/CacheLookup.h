// The look-ups of a run in the URL cache, with their growing buffer. On one thread.
#pragma once

#include "base/UrlList.h"

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

    // The addresses that will be looked up, in their order.
    explicit CCacheLookup(const CUrlList& urls);
    ~CCacheLookup();
    CCacheLookup(const CCacheLookup&) = delete;
    CCacheLookup& operator=(const CCacheLookup&) = delete;

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
