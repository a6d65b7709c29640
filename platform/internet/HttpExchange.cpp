#include "platform/internet/HttpExchange_p.h"

#include "platform/internet/Internet.h"
#include "platform/system/LastError.h"
#include "platform/system/Thread.h"

#include <algorithm>
#include <cstring>

namespace
{

constexpr int kMostRedirects = 10;
// How late a cancel is noticed at most.
constexpr std::chrono::milliseconds kStep{20};

HttpLimits g_limits;

} // namespace

void SetHttpLimits(const HttpLimits& limits)
{
    g_limits = limits;
}

HttpClient::HttpClient(std::string agent) : m_agent(std::move(agent)), m_limits(g_limits)
{}

std::unique_ptr<CurlLine> HttpClient::TakeLine()
{
    {
        const std::lock_guard lock(m_mutex);
        if (!m_free.empty())
        {
            auto line = std::move(m_free.back());
            m_free.pop_back();
            return line;
        }
    }
    return CurlLine::Make(m_agent, m_limits.connect);
}

void HttpClient::GiveBack(std::unique_ptr<CurlLine> line)
{
    const std::lock_guard lock(m_mutex);
    m_free.push_back(std::move(line));
}

HttpExchange::HttpExchange(std::shared_ptr<HttpClient> client, std::string url, WORD httpPort)
    : m_client(std::move(client)), m_url(std::move(url)), m_httpPort(httpPort)
{}

HttpExchange::~HttpExchange()
{
    if (!m_line)
        return;
    m_line->Stop();
    m_line->ForgetCookies();
    m_client->GiveBack(std::move(m_line));
}

DWORD HttpExchange::Send()
{
    m_line = m_client->TakeLine();
    if (!m_line)
        return ERROR_NOT_ENOUGH_MEMORY;
    m_cookies = m_client->Cookies();
    if (m_cookies)
        m_line->UseCookies();
    for (int redirects = 0;; ++redirects)
    {
        if (const DWORD error = FetchHead(); error != ERROR_SUCCESS)
            return error;
        const auto target = m_head.RedirectTarget();
        if (!target)
            break;
        m_url = redirects < kMostRedirects ? ResolveRedirect(m_url, *target) : "";
        if (m_url.empty())
            return ERROR_HTTP_REDIRECT_FAILED;
    }
    m_left = m_head.BodyLength().value_or(UINT64_MAX);
    return ERROR_SUCCESS;
}

DWORD HttpExchange::FetchHead()
{
    m_head = {};
    m_body.clear();
    m_connected = false;
    GiveCookies();
    m_line->Start(m_url, m_httpPort, *this);
    const DWORD error = Serve([this] { return m_head.IsComplete(); });
    return error == ERROR_SUCCESS && !m_head.IsComplete() ? ERROR_HTTP_INVALID_SERVER_RESPONSE : error;
}

// What a server sets on the way stays for the redirects behind it, as in a browser; so none is given a second time,
// which would undo that.
void HttpExchange::GiveCookies()
{
    if (!m_cookies)
        return;
    for (const Cookie& cookie : m_cookies->Find(HostOf(m_url), m_browser))
    {
        const std::string line = CookieLine(cookie);
        if (!line.empty() && m_given.insert(cookie.name + '\t' + cookie.domain + '\t' + cookie.path).second)
            m_line->AddCookie(line);
    }
}

DWORD HttpExchange::Read(void* data, std::size_t wanted, std::size_t& got)
{
    got = 0;
    if (m_left == 0)
        return ERROR_SUCCESS;
    const DWORD error = Serve([this] { return m_read < m_body.size(); });
    if (error != ERROR_SUCCESS)
        return error;
    got = std::min<std::uint64_t>({wanted, m_body.size() - m_read, m_left});
    if (got == 0)
        return ERROR_SUCCESS;
    std::memcpy(data, m_body.data() + m_read, got);
    m_read += got;
    m_left -= got;
    return ERROR_SUCCESS;
}

// Lets the line work until `ready` holds or the transfer is over. What arrived before a failure is handed out first.
template <class Ready>
DWORD HttpExchange::Serve(const Ready& ready)
{
    if (!ready())
        m_lastArrival = Clock::now();
    while (!IsSynchronousIoCancelled())
    {
        if (ready())
            return ERROR_SUCCESS;
        if (m_line->IsOver())
            return m_line->Result();
        m_body.clear();
        m_read = 0;
        m_line->Work();
        if (ready() || m_line->IsOver())
            continue;
        if (IsSilent())
            return ERROR_INTERNET_TIMEOUT;
        m_line->Wait(kStep);
    }
    return ERROR_INTERNET_OPERATION_CANCELLED;
}

// The making of the connection has a limit of its own.
bool HttpExchange::IsSilent() const
{
    return m_connected && Clock::now() - m_lastArrival > m_client->Limits().silence;
}

void HttpExchange::OnConnected()
{
    m_connected = true;
    m_lastArrival = Clock::now();
}

// A head has to come whole before the silence is over: one that drips would hold its caller for days.
bool HttpExchange::OnHeadLine(std::string_view line)
{
    return m_head.AddLine(line) != ResponseHead::State::TooLong;
}

void HttpExchange::OnBody(std::string_view bytes)
{
    m_lastArrival = Clock::now();
    m_body.insert(m_body.end(), bytes.begin(), bytes.end());
}
