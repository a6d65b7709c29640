// The server stands in for the proxy of every host.
#include "platform/internet/CurlLine_p.h"
#include "platform/internet/Internet.h"
#include "platform/testing/HttpTestServer.h"
#include "platform/testing/MemoryCookies.h"

#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>

namespace
{

class Cookies : public testing::Test
{
protected:
    Cookies()
    {
        const std::string address = "http://127.0.0.1:" + std::to_string(m_server.Port());
        unsetenv("VANTROY_HTTP_PORT");
        setenv("http_proxy", address.c_str(), 1);
        setenv("https_proxy", address.c_str(), 1);
    }
    ~Cookies() override
    {
        unsetenv("http_proxy");
        unsetenv("https_proxy");
        InternetCloseHandle(m_internet);
    }

    // What the Cookie header of each request had, "-" without one.
    std::vector<std::string> Sent(const std::string& host, const std::string& path, INTERNET_PORT port = 0)
    {
        const auto before = static_cast<std::ptrdiff_t>(m_server.RequestHeads().size());
        const HINTERNET connection =
            InternetConnectA(m_internet, host.c_str(), port, "", "", INTERNET_SERVICE_HTTP, 0, 0);
        const HINTERNET request = HttpOpenRequestA(connection, "GET", path.c_str(), "HTTP/1.0", nullptr, nullptr, 0, 0);
        HttpSendRequestA(request, nullptr, 0, nullptr, 0);
        InternetCloseHandle(request);
        InternetCloseHandle(connection);
        std::vector<std::string> heads = m_server.RequestHeads();
        heads.erase(heads.begin(), heads.begin() + before);
        for (std::string& head : heads)
        {
            const std::size_t at = head.find("\r\nCookie: ");
            head = at == std::string::npos ? "-" : head.substr(at + 10, head.find('\r', at + 2) - at - 10);
        }
        return heads;
    }
    void Redirect(const std::string& from, const std::string& to, const std::string& heads = "")
    {
        m_server.Serve(from, HttpAnswer{.raw = "HTTP/1.0 302 Found\r\nLocation: " + to + "\r\n" + heads + "\r\n"});
    }

    using Sent_t = std::vector<std::string>;

    HttpTestServer m_server;
    MemoryCookies m_memory;
    MemoryCookies::Source* const m_source = m_memory.source.get();
    const HINTERNET m_internet = InternetOpenA("Vantroy", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0);
};

TEST_F(Cookies, GoWhereTheyBelongAlone)
{
    const Cookie wide{.name = "n", .value = "v", .domain = "site.example"};
    const Cookie own{.name = "n", .value = "v", .domain = "site.example", .hostOnly = true};
    const auto with = [&wide](auto member, auto value) {
        Cookie cookie = wide;
        cookie.*member = value;
        return cookie;
    };
    const std::string host = "site.example";
    const std::string name = "n=v";
    const std::tuple<Cookie, std::string, std::string, std::string> rows[] = {
        {wide, host, "/", name},
        {wide, "a.SITE.example", "/", name},
        {with(&Cookie::domain, ".site.example"), "a.site.example", "/", name},
        {with(&Cookie::domain, "SITE.example"), host, "/", name},
        {own, host, "/", name},
        {own, "a.site.example", "/", "-"},
        {wide, "mysite.example", "/", "-"},
        {wide, "site.example.org", "/", "-"},
        {with(&Cookie::domain, "a.site.example"), host, "/", "-"},
        {with(&Cookie::path, "/a"), host, "/a", name},
        {with(&Cookie::path, "/a"), host, "/a/b?c", name},
        {with(&Cookie::path, "/a"), host, "/ab", "-"},
        {with(&Cookie::path, "/a/"), host, "/a/b", name},
        {with(&Cookie::path, "/a"), host, "/", "-"},
        {with(&Cookie::secure, true), host, "/", "-"},
        {with(&Cookie::expires, std::time(nullptr) - 1000), host, "/", "-"},
        {with(&Cookie::expires, INT64_MAX), host, "/", name},
        {with(&Cookie::expires, INT64_MIN), host, "/", "-"},
        {with(&Cookie::value, ""), host, "/", "n="},
        {with(&Cookie::value, "a=\"b c\", \xC3\xBC%"), host, "/", "n=a=\"b c\", \xC3\xBC%"},
        {with(&Cookie::value, std::string(4095, 'v')), host, "/", "n=" + std::string(4095, 'v')},
        {with(&Cookie::value, std::string(4096, 'v')), host, "/", "-"},
        {with(&Cookie::value, "v\r\nX-Evil: 1"), host, "/", "-"},
        {with(&Cookie::value, "v\tw"), host, "/", "-"},
        {with(&Cookie::value, std::string("v\0w", 3)), host, "/", "-"},
        {with(&Cookie::value, "v; other=1"), host, "/", "-"},
        {with(&Cookie::name, ""), host, "/", "-"},
        {with(&Cookie::name, "a\tb"), host, "/", "-"},
        {with(&Cookie::name, "a=b"), host, "/", "-"},
        {with(&Cookie::name, "__Secure-n"), host, "/", "-"},
        {with(&Cookie::name, "__Host-n"), host, "/", "-"},
        {with(&Cookie::path, ""), host, "/", "-"},
        {with(&Cookie::path, "TRUE"), host, "/", "-"},
        {with(&Cookie::path, "/\tTRUE\t0\tm\tw"), host, "/", "-"},
        {with(&Cookie::domain, ""), host, "/", "-"},
        {with(&Cookie::domain, "#site.example"), host, "/", "-"},
        {with(&Cookie::domain, "Set-Cookie: a=b"), host, "/", "-"},
        {with(&Cookie::domain, "site.example\nsite.example"), host, "/", "-"},
        {with(&Cookie::domain, "192.0.2.1"), "192.0.2.1", "/", name},
        {with(&Cookie::domain, "0.2.1"), "192.0.2.1", "/", "-"},
        {with(&Cookie::domain, "[2001:db8::1]"), "[2001:db8::1]", "/", name},
    };
    ASSERT_TRUE(InternetUseCookies(m_internet));
    for (const auto& [cookie, at, path, sent] : rows)
    {
        SCOPED_TRACE(cookie.name + '=' + cookie.value.substr(0, 40) + ' ' + cookie.domain + cookie.path + " at " + at);
        m_source->cookies = {cookie};
        EXPECT_EQ(Sent(at, path), Sent_t{sent});
        // Beside one that is sound, it changes nothing.
        m_source->cookies.push_back({.name = "sound", .value = "1", .domain = at});
        const std::string both = Sent(at, path).at(0);
        EXPECT_NE(both.find("sound=1"), std::string::npos) << both;
        EXPECT_EQ(both.size(), sent == "-" ? 7 : sent.size() + 9);
        EXPECT_EQ(m_server.RequestHeads().back().find("X-Evil"), std::string::npos);
    }
}

TEST(HostOf, IsTheHostThatIsAskedFor)
{
    const std::pair<const char*, const char*> rows[] = {
        {"http://A.Example:81/b", "a.example"},
        {"https://u:p@h.example?x", "h.example"},
        {"http://[2001:DB8::1]:8/", "[2001:db8::1]"},
        {"http://127.1/", "127.0.0.1"},
        {"http:///", ""},
        {"", ""},
    };
    for (const auto& [url, host] : rows)
        EXPECT_EQ(HostOf(url), host) << url;
}

TEST_F(Cookies, OfThisMachineMayBeSecureOverPlainHttp)
{
    InternetUseCookies(m_internet);
    m_source->cookies = {{.name = "__Host-n", .value = "v", .domain = "127.0.0.1", .hostOnly = true, .secure = true},
                         {.name = "__Host-o", .value = "v", .domain = "127.0.0.1", .secure = true}};
    EXPECT_EQ(Sent("127.0.0.1", "/", static_cast<INTERNET_PORT>(m_server.Port())), Sent_t{"__Host-n=v"});
}

TEST_F(Cookies, AreChosenAnewAtEachRedirect)
{
    InternetUseCookies(m_internet);
    m_source->cookies = {{.name = "a", .value = "1", .domain = "site.example"},
                         {.name = "b", .value = "2", .domain = "other.example", .path = "/in"}};
    Redirect("http://site.example/go", "http://other.example/go");
    Redirect("http://other.example/go", "http://other.example/in");
    Redirect("http://other.example/in", "http://site.example/end");
    EXPECT_EQ(Sent("site.example", "/go"), (Sent_t{"a=1", "-", "b=2", "a=1"}));
    EXPECT_EQ(m_source->asked,
              (Sent_t{">site.example", "first>other.example", "first>other.example", "first>site.example"}));
    // A proxy that is asked for a tunnel sees none.
    Redirect("http://site.example/tls", "https://site.example/end");
    EXPECT_EQ(Sent("site.example", "/tls"), (Sent_t{"a=1", "-"}));
    EXPECT_EQ(m_server.Requests().back().substr(0, 25), "CONNECT site.example:443 ");
}

TEST_F(Cookies, ThatAServerSetsEndWithTheExchange)
{
    InternetUseCookies(m_internet);
    m_source->cookies = {{.name = "old", .value = "1", .domain = "site.example", .hostOnly = true},
                         {.name = "gone", .value = "1", .domain = "site.example", .hostOnly = true}};
    Redirect("http://site.example/go", "/end",
             "Set-Cookie: old=2\r\nSet-Cookie: gone=; Max-Age=0\r\nSet-Cookie: fresh=3\r\n"
             "Set-Cookie: foreign=4; Domain=other.example\r\n");
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(Sent("site.example", "/go"), (Sent_t{"gone=1; old=1", "fresh=3; old=2"})) << i;
}

} // namespace
