#include "platform/internet/UrlCache.h"

#include "platform/system/LastError.h"

#include <cstring>
#include <mutex>

namespace
{

class ChosenSource
{
public:
    void Set(std::shared_ptr<IUrlCacheSource> source)
    {
        const std::lock_guard lock(m_mutex);
        m_source.swap(source);
    }

    std::shared_ptr<IUrlCacheSource> Get()
    {
        const std::lock_guard lock(m_mutex);
        return m_source;
    }

private:
    std::mutex m_mutex;
    std::shared_ptr<IUrlCacheSource> m_source;
};

ChosenSource& Source()
{
    static ChosenSource source;
    return source;
}

BOOL Answer(DWORD error)
{
    SetLastError(error);
    return error == ERROR_SUCCESS;
}

// Copies the text with its zero to `at` and moves `at` behind it.
char* Place(char*& at, const std::string& text)
{
    char* const start = at;
    std::memcpy(at, text.c_str(), text.size() + 1);
    at += text.size() + 1;
    return start;
}

} // namespace

void SetUrlCacheSource(std::shared_ptr<IUrlCacheSource> source)
{
    Source().Set(std::move(source));
}

void ExpectUrlCacheLookups(const std::vector<std::string>& urls)
{
    if (const auto source = Source().Get())
        source->Expect(urls);
}

BOOL GetUrlCacheEntryInfoA(const char* url, INTERNET_CACHE_ENTRY_INFOA* buffer, DWORD* size)
{
    if (!url || !size)
        return Answer(ERROR_INVALID_PARAMETER);
    const auto source = Source().Get();
    const std::string name = url;
    std::string file;
    std::uint64_t length = 0;
    // Who reads only the low half of the size would take a longer copy for another one.
    if (!source || !source->Find(name, file, length) || length > UINT32_MAX)
        return Answer(ERROR_FILE_NOT_FOUND);
    const std::size_t needed = sizeof *buffer + name.size() + 1 + file.size() + 1;
    const bool fits = buffer && *size >= needed;
    *size = static_cast<DWORD>(needed);
    if (!fits)
        return Answer(ERROR_INSUFFICIENT_BUFFER);
    INTERNET_CACHE_ENTRY_INFOA entry;
    entry.dwStructSize = static_cast<DWORD>(needed);
    char* text = reinterpret_cast<char*>(buffer) + sizeof entry;
    entry.lpszSourceUrlName = Place(text, name);
    entry.lpszLocalFileName = Place(text, file);
    entry.dwSizeLow = static_cast<DWORD>(length);
    std::memcpy(static_cast<void*>(buffer), &entry, sizeof entry);
    return Answer(ERROR_SUCCESS);
}
