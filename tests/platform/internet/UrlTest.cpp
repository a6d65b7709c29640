#include "platform/internet/Internet.h"
#include "platform/internet/UrlCache.h"
#include "platform/system/LastError.h"
#include "platform/testing/MemoryUrlCache.h"

#include <cstring>
#include <gtest/gtest.h>

namespace
{

std::string Part(const char* text, DWORD length)
{
    return text ? std::string(text, length) : "(null " + std::to_string(length) + ")";
}

TEST(CrackUrl, SplitsWhatItKnows)
{
    const std::string none = "(null 0)";
    const std::tuple<std::string, std::string, std::string> rows[] = {
        {"http://a.example/p/q?r=/s#t", "a.example", "/p/q?r=/s#t"},
        {"HTTPS://user:pa@ss@h:8080/x", "h", "/x"},
        {"ftp://h", "h", none},
        {"http://h:/", "h", "/"},
        {"http://[::1]:80/x", "[::1]", "/x"},
        {"http://h?x=1", "h", "?x=1"},
        {"http://\xC3\xBC.example/\xC3\xBC", "\xC3\xBC.example", "/\xC3\xBC"},
        {"data:image/png;base64,AAAA", none, none},
        {"blob:http://h/x", none, none},
        {"http:///x", none, none},
        {"http://h:99x/x", none, none},
        {"http://[::1/x", none, none},
        {"http://a b/x", none, none},
        {"http://h\\x/y", none, none},
        {"file:///etc/passwd", none, none},
        {"://h/x", none, none},
        {"", none, none},
    };
    for (const auto& [url, host, path] : rows)
    {
        URL_COMPONENTSA parts;
        parts.dwStructSize = sizeof parts;
        parts.dwSchemeLength = parts.dwHostNameLength = parts.dwUrlPathLength = 1;
        EXPECT_EQ(InternetCrackUrlA(url.c_str(), static_cast<DWORD>(url.size()), 0, &parts), host != none) << url;
        EXPECT_EQ(Part(parts.lpszHostName, parts.dwHostNameLength), host) << url;
        EXPECT_EQ(Part(parts.lpszUrlPath, parts.dwUrlPathLength), path) << url;
        EXPECT_EQ(parts.lpszScheme != nullptr, host != none) << url;
    }
}

TEST(UrlCache, FillsARoomThatIsJustLargeEnough)
{
    MemoryUrlCache cache;
    cache.Add("http://h/a", "/copy");
    DWORD size = 0;
    EXPECT_FALSE(GetUrlCacheEntryInfoA("http://h/a", nullptr, &size));
    const std::unique_ptr<char[]> buffer(new char[size]);
    auto* entry = reinterpret_cast<INTERNET_CACHE_ENTRY_INFOA*>(buffer.get());
    DWORD small = size - 1;
    EXPECT_FALSE(GetUrlCacheEntryInfoA("http://h/a", entry, &small));
    EXPECT_EQ(small, size);
    ASSERT_TRUE(GetUrlCacheEntryInfoA("http://h/a", entry, &size));
    EXPECT_STREQ(entry->lpszLocalFileName, "/copy");
    EXPECT_STREQ(entry->lpszSourceUrlName, "http://h/a");
}

TEST(UrlCache, CopiesBeyond32BitsAndNoSourceAreMisses)
{
    struct HugeSource : IUrlCacheSource
    {
        bool Find(const std::string&, std::string&, std::uint64_t& size) override
        {
            size = m_size;
            return true;
        }
        std::uint64_t m_size = 0xFFFFFFFF;
    };
    const auto source = std::make_shared<HugeSource>();
    const auto look = [] {
        DWORD size = 0;
        GetUrlCacheEntryInfoA("http://h/a", nullptr, &size);
        return GetLastError();
    };
    SetUrlCacheSource(source);
    EXPECT_EQ(look(), ERROR_INSUFFICIENT_BUFFER);
    ++source->m_size;
    EXPECT_EQ(look(), ERROR_FILE_NOT_FOUND);
    SetUrlCacheSource(nullptr);
    EXPECT_EQ(look(), ERROR_FILE_NOT_FOUND);
}

} // namespace
