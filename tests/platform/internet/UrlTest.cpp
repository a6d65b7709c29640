#include "platform/internet/Internet.h"
#include "platform/internet/UrlCache.h"
#include "platform/system/LastError.h"

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

TEST(UrlCache, FillsARoomThatIsJustLargeEnoughAndMissesCopiesBeyond32Bits)
{
    struct OneCopy : IUrlCacheSource
    {
        bool Find(const std::string&, std::string& file, std::uint64_t& size) override
        {
            file = "/copy";
            size = m_size;
            return true;
        }
        std::uint64_t m_size = 0xFFFFFFFF;
    };
    const auto source = std::make_shared<OneCopy>();
    const auto look = [](char* room, DWORD& size) {
        GetUrlCacheEntryInfoA("http://h/a", reinterpret_cast<INTERNET_CACHE_ENTRY_INFOA*>(room), &size);
        return GetLastError();
    };
    SetUrlCacheSource(source);
    DWORD size = 0;
    EXPECT_EQ(look(nullptr, size), ERROR_INSUFFICIENT_BUFFER);
    const std::unique_ptr<char[]> room(new char[size]);
    DWORD small = size - 1;
    EXPECT_EQ(look(room.get(), small), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(small, size);
    EXPECT_EQ(look(room.get(), size), ERROR_SUCCESS);
    const auto* entry = reinterpret_cast<const INTERNET_CACHE_ENTRY_INFOA*>(room.get());
    EXPECT_STREQ(entry->lpszLocalFileName, "/copy");
    EXPECT_STREQ(entry->lpszSourceUrlName, "http://h/a");
    EXPECT_EQ(entry->dwSizeLow, 0xFFFFFFFF);
    ++source->m_size;
    EXPECT_EQ(look(room.get(), size), ERROR_FILE_NOT_FOUND);
    SetUrlCacheSource(nullptr);
    EXPECT_EQ(look(room.get(), size), ERROR_FILE_NOT_FOUND);
}

} // namespace
