#include "download/CacheLookup.h"

#include "platform/system/LastError.h"

CCacheLookup::CCacheLookup(const CUrlList& urls)
{
    ExpectUrlCacheLookups({urls.begin(), urls.end()});
}

CCacheLookup::~CCacheLookup()
{
    ExpectUrlCacheLookups({});
}

CCacheLookup::Result CCacheLookup::Find(const std::string& url)
{
    m_buffer.reset();
    m_buffer.reset(static_cast<INTERNET_CACHE_ENTRY_INFOA*>(GlobalAlloc(GPTR, m_nSize)));
    if (!m_buffer)
        return Result::OutOfMemory;
    m_buffer->dwStructSize = m_nSize;
    DWORD size = m_nSize;
    GetUrlCacheEntryInfoA(url.c_str(), m_buffer.get(), &size);
    switch (GetLastError())
    {
    case ERROR_SUCCESS:
        return Result::Found;
    case ERROR_INSUFFICIENT_BUFFER:
        m_nSize = size;
        return Result::BufferTooSmall;
    default:
        return Result::NotCached;
    }
}
