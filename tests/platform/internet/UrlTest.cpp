#include "platform/internet/Internet.h"
#include "platform/internet/ResponseHead_p.h"
#include "platform/internet/UrlCache.h"
#include "platform/system/LastError.h"
#include "platform/testing/MemoryUrlCache.h"
#include "platform/testing/TempHome.h"

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
    struct Row
    {
        std::string url, host, path;
    };
    const Row rows[] = {
        {"http://a.example/p/q?r=/s#t", "a.example", "/p/q?r=/s#t"},
        {"HTTPS://user:pa@ss@h:8080/x", "h", "/x"},
        {"ftp://h", "h", none},
        {"http://h:/", "h", "/"},
        {"http://[::1]:80/x", "[::1]", "/x"},
        {"http://h?x=1", "h", "?x=1"},
        {"http://\xC3\xBC.example/\xC3\xBC", "\xC3\xBC.example", "/\xC3\xBC"},
        {"data:image/png;base64,AAAA", none, none},
        {"blob:http://h/x", none, none},
        {"about:blank", none, none},
        {"http:///x", none, none},
        {"http://h:99x/x", none, none},
        {"http://[::1/x", none, none},
        {"http://a b/x", none, none},
        {"http://h\\x/y", none, none},
        {"file:///etc/passwd", none, none},
        {"://h/x", none, none},
        {"", none, none},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.url);
        URL_COMPONENTSA parts;
        parts.dwStructSize = sizeof parts;
        parts.dwSchemeLength = parts.dwHostNameLength = parts.dwUrlPathLength = 1;
        const BOOL cracked = InternetCrackUrlA(row.url.c_str(), static_cast<DWORD>(row.url.size()), 0, &parts);
        EXPECT_EQ(cracked, row.host != none);
        EXPECT_EQ(Part(parts.lpszHostName, parts.dwHostNameLength), row.host);
        EXPECT_EQ(Part(parts.lpszUrlPath, parts.dwUrlPathLength), row.path);
        EXPECT_EQ(parts.lpszScheme != nullptr, cracked != FALSE);
    }
}

TEST(ResponseHead, NumbersAndRedirects)
{
    struct Row
    {
        const char* text;
        std::optional<std::uint64_t> length;
    };
    for (const Row row : {Row{"12", 12}, Row{"0", 0}, Row{"-1", {}}, Row{"1x", {}},
                          Row{"18446744073709551615", UINT64_MAX}, Row{"18446744073709551616", {}}, Row{"", {}}})
    {
        ResponseHead head;
        head.AddLine("HTTP/1.0 200 OK\r\n");
        head.AddLine(std::string("content-LENGTH : ") + row.text + " \r\n");
        EXPECT_EQ(head.AddLine("\r\n"), ResponseHead::State::Complete);
        EXPECT_EQ(head.BodyLength().value_or(77), row.text[0] ? row.length.value_or(77) : 77) << row.text;
        EXPECT_EQ(head.ContentLength(), row.text);
        EXPECT_FALSE(head.RedirectTarget());
    }
}

class HugeSource : public IUrlCacheSource
{
public:
    bool Find(const std::string&, std::string& localFile, std::uint64_t& size) override
    {
        localFile = "/copy";
        size = m_size;
        return true;
    }
    std::uint64_t m_size = 0;
};

TEST(UrlCache, AnswersIntoTheCallersBuffer)
{
    const TempHome home;
    home.Write("copy", "12345");
    MemoryUrlCache cache;
    cache.Add("http://h/a", home.Path("copy"));
    DWORD size = 4096;
    EXPECT_FALSE(GetUrlCacheEntryInfoA("http://h/b", nullptr, &size));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(size, 4096u);

    size = 4;
    EXPECT_FALSE(GetUrlCacheEntryInfoA("http://h/a", nullptr, &size));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    const std::vector<char> exact(size, 'x');
    std::unique_ptr<char[]> buffer(new char[size]);
    auto* entry = reinterpret_cast<INTERNET_CACHE_ENTRY_INFOA*>(buffer.get());
    DWORD small = size - 1;
    EXPECT_FALSE(GetUrlCacheEntryInfoA("http://h/a", entry, &small));
    EXPECT_EQ(small, size);
    SetLastError(1);
    ASSERT_TRUE(GetUrlCacheEntryInfoA("http://h/a", entry, &size));
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
    EXPECT_EQ(entry->lpszLocalFileName, home.Path("copy"));
    EXPECT_STREQ(entry->lpszSourceUrlName, "http://h/a");
    EXPECT_EQ(entry->dwSizeLow, 5u);
    EXPECT_GE(entry->lpszLocalFileName, buffer.get());
    EXPECT_LT(entry->lpszLocalFileName, buffer.get() + size);
    EXPECT_EQ(cache.Lookups().size(), 4u);
}

TEST(UrlCache, CopiesBeyond32BitsAndNoSourceAreMisses)
{
    const auto source = std::make_shared<HugeSource>();
    SetUrlCacheSource(source);
    DWORD size = 0;
    for (const std::uint64_t length : {std::uint64_t{0xFFFFFFFF}, std::uint64_t{1} << 32})
    {
        source->m_size = length;
        GetUrlCacheEntryInfoA("http://h/a", nullptr, &size);
        EXPECT_EQ(GetLastError(), length >> 32 ? ERROR_FILE_NOT_FOUND : ERROR_INSUFFICIENT_BUFFER);
    }
    SetUrlCacheSource(nullptr);
    EXPECT_FALSE(GetUrlCacheEntryInfoA("http://h/a", nullptr, &size));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}

} // namespace
