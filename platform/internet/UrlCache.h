// The URL cache: the copies of loaded resources that the browsers hold.
#pragma once

#include "platform/Types.h"

#include <memory>
#include <string>
#include <vector>

struct INTERNET_CACHE_ENTRY_INFOA
{
    DWORD dwStructSize = 0;
    char* lpszSourceUrlName = nullptr; // in the caller's buffer, behind this record
    char* lpszLocalFileName = nullptr; // the same; full path of the copy
    DWORD CacheEntryType = 0;
    DWORD dwUseCount = 0;
    DWORD dwHitRate = 0;
    DWORD dwSizeLow = 0; // bytes of the copy
    DWORD dwSizeHigh = 0;
};

// Looks a URL up. The last error tells the outcome: 0, the entry and the two texts it points to are in `buffer`;
// ERROR_INSUFFICIENT_BUFFER, *size now holds what is needed; ERROR_FILE_NOT_FOUND, no copy; any other, the look-up
// failed. The copy is a file of its own that stays for the life of the process. Any thread may call.
BOOL GetUrlCacheEntryInfoA(const char* url, INTERNET_CACHE_ENTRY_INFOA* buffer, DWORD* size);

// Tells the look-ups to come, in their order, so that the next ones are got ready while one is in hand; empty, none. A
// hint: every look-up gives the same without it. Any thread.
void ExpectUrlCacheLookups(const std::vector<std::string>& urls);

// Where the copies come from. The real one asks the browsers (browser/Browsers.h).
class IUrlCacheSource
{
public:
    virtual ~IUrlCacheSource() = default;
    // True with the path and the size of the copy; false if there is none. `url` is byte text as the program
    // holds it. Called on the thread that looks up.
    virtual bool Find(const std::string& url, std::string& localFile, std::uint64_t& size) = 0;
    virtual void Expect(const std::vector<std::string>&)
    {}
};

// Chosen at start; null means an empty cache.
void SetUrlCacheSource(std::shared_ptr<IUrlCacheSource> source);
