// HTTP as Internet.h promises it.
//
// An exchange is pulled: its line works only inside Send and Read, on the calling thread, so the socket's own buffer is
// what holds a fast server back, and a cancel needs no other thread.
#pragma once

#include "platform/internet/Cookies_p.h"
#include "platform/internet/CurlLine_p.h"
#include "platform/internet/ResponseHead_p.h"

#include <atomic>
#include <mutex>
#include <set>
#include <vector>

struct HttpLimits
{
    std::chrono::milliseconds connect{60'000};
    std::chrono::milliseconds silence{30'000};
};

// For clients made from now on; for tests, which cannot wait that long.
void SetHttpLimits(const HttpLimits& limits);

// What outlives one exchange: the user agent and the lines that are free. Any thread may use it.
class HttpClient
{
public:
    explicit HttpClient(std::string agent);

    // Null if there is no memory for a line.
    std::unique_ptr<CurlLine> TakeLine();
    void GiveBack(std::unique_ptr<CurlLine> line);

    void UseCookies()
    {
        m_usesCookies = true;
    }
    // Null if requests carry none.
    std::shared_ptr<ICookieSource> Cookies() const
    {
        return m_usesCookies ? CookieSource() : nullptr;
    }

    const HttpLimits& Limits() const
    {
        return m_limits;
    }

private:
    const std::string m_agent;
    const HttpLimits m_limits;
    std::atomic<bool> m_usesCookies = false;
    std::mutex m_mutex;
    std::vector<std::unique_ptr<CurlLine>> m_free;
};

class HttpExchange final : private ILineSink
{
public:
    // `url` is http or https and well-formed. Port 80 is looked for at `httpPort`, in redirects too.
    HttpExchange(std::shared_ptr<HttpClient> client, std::string url, WORD httpPort);
    ~HttpExchange();
    HttpExchange(const HttpExchange&) = delete;
    HttpExchange& operator=(const HttpExchange&) = delete;

    // Both give ERROR_SUCCESS or an error code of Internet.h. Send is called once, first.
    DWORD Send();
    // `got` is 0 at the end of the body: the server's close or the promised length, whichever comes first.
    DWORD Read(void* data, std::size_t wanted, std::size_t& got);

    // Of the final response, after Send.
    const ResponseHead& Head() const
    {
        return m_head;
    }

private:
    using Clock = std::chrono::steady_clock;

    DWORD FetchHead();
    void GiveCookies();
    template <class Ready>
    DWORD Serve(const Ready& ready);
    bool IsSilent() const;

    void OnConnected() override;
    bool OnHeadLine(std::string_view line) override;
    void OnBody(std::string_view bytes) override;

    const std::shared_ptr<HttpClient> m_client;
    std::string m_url;
    const WORD m_httpPort;
    std::unique_ptr<CurlLine> m_line;
    std::shared_ptr<ICookieSource> m_cookies; // null: the exchange knows no cookies
    std::string m_browser;                    // whose they are
    std::set<std::string> m_given;            // the name, domain and path of each that the line was given
    ResponseHead m_head;
    // What one turn of the line brought, at most a few receive buffers; it works again when all of it has been read.
    std::vector<char> m_body;
    std::size_t m_read = 0;
    std::uint64_t m_left = 0; // of the promised length
    bool m_connected = false;
    Clock::time_point m_lastArrival;
};
