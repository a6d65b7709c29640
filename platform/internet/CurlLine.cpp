#include "platform/internet/CurlLine_p.h"

#include "platform/internet/Internet.h"
#include "platform/system/LastError.h"
#include "platform/text/Ascii_p.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <curl/curl.h>
#include <mutex>
#include <sys/socket.h>

namespace
{

constexpr long kReceiveBuffer = 64L * 1024; // stays in the cache between receiving and reading

template <auto Function>
struct FreedBy
{
    template <class Handle>
    void operator()(Handle* handle) const
    {
        Function(handle);
    }
};

using EasyHandle = std::unique_ptr<CURL, FreedBy<curl_easy_cleanup>>;
using MultiHandle = std::unique_ptr<CURLM, FreedBy<curl_multi_cleanup>>;
using UrlHandle = std::unique_ptr<CURLU, FreedBy<curl_url_cleanup>>;
using TextList = std::unique_ptr<curl_slist, FreedBy<curl_slist_free_all>>;
using CurlText = std::unique_ptr<char, FreedBy<curl_free>>;

DWORD ErrorOf(CURLcode result)
{
    switch (result)
    {
    case CURLE_OK:
    case CURLE_PARTIAL_FILE: // a chunked body without its end
        return ERROR_SUCCESS;
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
        return ERROR_INTERNET_NAME_NOT_RESOLVED;
    case CURLE_COULDNT_CONNECT:
        return ERROR_INTERNET_CANNOT_CONNECT;
    case CURLE_OPERATION_TIMEDOUT:
        return ERROR_INTERNET_TIMEOUT;
    case CURLE_URL_MALFORMAT:
        return ERROR_INTERNET_INVALID_URL;
    case CURLE_PEER_FAILED_VERIFICATION:
        return ERROR_INTERNET_INVALID_CA;
    case CURLE_SSL_CONNECT_ERROR:
        return ERROR_INTERNET_SECURITY_CHANNEL_ERROR;
    case CURLE_SEND_ERROR:
    case CURLE_RECV_ERROR:
    case CURLE_GOT_NOTHING:
        return ERROR_INTERNET_CONNECTION_ABORTED;
    case CURLE_UNSUPPORTED_PROTOCOL: // curl's name for an answer that is not HTTP
    case CURLE_WEIRD_SERVER_REPLY:
    case CURLE_BAD_CONTENT_ENCODING:
    case CURLE_WRITE_ERROR: // the sink broke off
        return ERROR_HTTP_INVALID_SERVER_RESPONSE;
    case CURLE_OUT_OF_MEMORY:
        return ERROR_NOT_ENOUGH_MEMORY;
    default:
        return ERROR_INTERNET_INTERNAL_ERROR;
    }
}

// What the user exempts from the proxy, and this machine itself, as the desktop's default has it.
std::string HostsWithoutProxy()
{
    static constexpr const char* kOwn = "localhost,127.0.0.0/8,::1";
    const char* users = std::getenv("no_proxy");
    if (!users)
        users = std::getenv("NO_PROXY");
    if (!users || !*users)
        return kOwn;
    return std::strcmp(users, "*") == 0 ? "*" : std::string(users) + ',' + kOwn;
}

std::size_t TakeHeadLine(char* line, std::size_t, std::size_t size, void* sink)
{
    return static_cast<ILineSink*>(sink)->OnHeadLine({line, size}) ? size : 0;
}

std::size_t TakeBody(char* data, std::size_t, std::size_t size, void* sink)
{
    static_cast<ILineSink*>(sink)->OnBody({data, size});
    return size;
}

std::string PartOf(const UrlHandle& url, CURLUPart part, unsigned flags = 0)
{
    char* text = nullptr;
    curl_url_get(url.get(), part, &text, flags);
    const CurlText owned(text);
    return text ? text : "";
}

// A program that is started meanwhile must not hold the connection.
curl_socket_t OpenSocket(void*, curlsocktype, curl_sockaddr* address)
{
    return socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
}

int NoteConnection(void* sink, char*, char*, int, int)
{
    static_cast<ILineSink*>(sink)->OnConnected();
    return CURL_PREREQFUNC_OK;
}

} // namespace

struct CurlLine::Handles
{
    MultiHandle multi{curl_multi_init()};
    EasyHandle easy{curl_easy_init()};
    TextList headers{curl_slist_append(curl_slist_append(nullptr, "Accept:"), "Proxy-Connection:")}; // left out
    TextList connectTo;
    bool running = false;
    bool over = false;
    CURLcode result = CURLE_OK;

    bool AreMade() const
    {
        return multi && easy && headers;
    }

    template <class Value>
    void Set(CURLoption option, Value value)
    {
        curl_easy_setopt(easy.get(), option, value);
    }

    void Finish(CURLcode how)
    {
        over = true;
        result = how;
    }
};

std::unique_ptr<CurlLine> CurlLine::Make(const std::string& agent, std::chrono::milliseconds connectLimit)
{
    static std::once_flag once;
    std::call_once(once, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
    auto handles = std::make_unique<Handles>();
    if (!handles->AreMade())
        return nullptr;
    handles->Set(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_0));
    handles->Set(CURLOPT_PROTOCOLS_STR, "http,https");
    handles->Set(CURLOPT_PATH_AS_IS, 1L);
    handles->Set(CURLOPT_USERAGENT, agent.empty() ? nullptr : agent.c_str());
    handles->Set(CURLOPT_HTTPHEADER, handles->headers.get());
    handles->Set(CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
    handles->Set(CURLOPT_NOPROXY, HostsWithoutProxy().c_str());
    // curl refuses a length that is no number and fails a body that is shorter; here both are the reader's to judge.
    handles->Set(CURLOPT_IGNORE_CONTENT_LENGTH, 1L);
    handles->Set(CURLOPT_FORBID_REUSE, 1L);
    handles->Set(CURLOPT_BUFFERSIZE, kReceiveBuffer);
    handles->Set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(connectLimit.count()));
    handles->Set(CURLOPT_NOSIGNAL, 1L);
    // Stop does not wait for a name that is still being resolved.
    handles->Set(CURLOPT_QUICK_EXIT, 1L);
    handles->Set(CURLOPT_HEADERFUNCTION, &TakeHeadLine);
    handles->Set(CURLOPT_WRITEFUNCTION, &TakeBody);
    handles->Set(CURLOPT_PREREQFUNCTION, &NoteConnection);
    handles->Set(CURLOPT_OPENSOCKETFUNCTION, &OpenSocket);
    return std::unique_ptr<CurlLine>(new CurlLine(std::move(handles)));
}

CurlLine::CurlLine(std::unique_ptr<Handles> handles) : m_handles(std::move(handles))
{}

CurlLine::~CurlLine()
{
    Stop();
}

void CurlLine::UseCookies()
{
    m_handles->Set(CURLOPT_COOKIEFILE, ""); // no file
}

void CurlLine::AddCookie(const std::string& line)
{
    m_handles->Set(CURLOPT_COOKIELIST, line.c_str());
}

void CurlLine::ForgetCookies()
{
    m_handles->Set(CURLOPT_COOKIEFILE, static_cast<const char*>(nullptr));
}

void CurlLine::Start(const std::string& url, WORD httpPort, ILineSink& sink)
{
    Stop();
    Handles& line = *m_handles;
    const std::string redirect = ":80::" + std::to_string(httpPort);
    line.connectTo.reset(httpPort == 80 ? nullptr : curl_slist_append(nullptr, redirect.c_str()));
    line.Set(CURLOPT_URL, url.c_str());
    line.Set(CURLOPT_CONNECT_TO, line.connectTo.get());
    line.Set(CURLOPT_HEADERDATA, &sink);
    line.Set(CURLOPT_WRITEDATA, &sink);
    line.Set(CURLOPT_PREREQDATA, &sink);
    line.over = false;
    line.running = curl_multi_add_handle(line.multi.get(), line.easy.get()) == CURLM_OK;
    if (!line.running)
        line.Finish(CURLE_FAILED_INIT);
}

void CurlLine::Stop()
{
    if (m_handles->running)
        curl_multi_remove_handle(m_handles->multi.get(), m_handles->easy.get());
    m_handles->running = false;
}

void CurlLine::Work()
{
    CURLM* const multi = m_handles->multi.get();
    int count = 0;
    if (curl_multi_perform(multi, &count) != CURLM_OK)
        m_handles->Finish(CURLE_FAILED_INIT);
    while (const CURLMsg* message = curl_multi_info_read(multi, &count))
        if (message->msg == CURLMSG_DONE)
            m_handles->Finish(message->data.result);
}

void CurlLine::Wait(std::chrono::milliseconds limit)
{
    curl_multi_poll(m_handles->multi.get(), nullptr, 0, static_cast<int>(limit.count()), nullptr);
}

bool CurlLine::IsOver() const
{
    return m_handles->over;
}

DWORD CurlLine::Result() const
{
    return ErrorOf(m_handles->result);
}

std::string ResolveRedirect(const std::string& base, const std::string& target)
{
    const UrlHandle url(curl_url());
    const auto set = [&](CURLUPart part, const char* text, unsigned flags) {
        return curl_url_set(url.get(), part, text, flags) == CURLUE_OK;
    };
    if (!url || !set(CURLUPART_URL, base.c_str(), 0) ||
        !set(CURLUPART_URL, target.c_str(), CURLU_URLENCODE | CURLU_ALLOW_SPACE) || !set(CURLUPART_USER, nullptr, 0) ||
        !set(CURLUPART_PASSWORD, nullptr, 0))
        return {};
    const std::string scheme = PartOf(url, CURLUPART_SCHEME);
    return scheme == "http" || scheme == "https" ? PartOf(url, CURLUPART_URL) : "";
}

std::string HostOf(const std::string& url)
{
    const UrlHandle parts(curl_url());
    if (!parts || curl_url_set(parts.get(), CURLUPART_URL, url.c_str(), 0) != CURLUE_OK)
        return {};
    std::string host = PartOf(parts, CURLUPART_HOST, CURLU_PUNYCODE);
    std::ranges::transform(host, host.begin(), LowerAscii);
    return host;
}
