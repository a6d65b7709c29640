#include "platform/internet/Internet.h"

#include "platform/internet/HttpExchange_p.h"
#include "platform/internet/UrlRules_p.h"
#include "platform/system/LastError.h"
#include "platform/text/CodePage.h"

#include <charconv>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <string>
#include <unordered_map>

class InternetHandle
{
public:
    virtual ~InternetHandle() = default;
};

namespace
{

constexpr INTERNET_PORT kHttpPort = 80;

struct Session : InternetHandle
{
    std::shared_ptr<HttpClient> client;
};

struct Connection : InternetHandle
{
    std::shared_ptr<HttpClient> client;
    std::string server; // "http://host" or "http://host:port"
    INTERNET_PORT httpPort = kHttpPort;
};

struct Request : InternetHandle
{
    std::shared_ptr<HttpClient> client;
    std::string url;
    INTERNET_PORT httpPort = kHttpPort;
    std::unique_ptr<HttpExchange> exchange; // null until it was sent
};

class OpenHandles
{
public:
    HINTERNET Add(std::shared_ptr<InternetHandle> object)
    {
        const std::lock_guard lock(m_mutex);
        const auto handle = reinterpret_cast<HINTERNET>(++m_last); // NOLINT(performance-no-int-to-ptr)
        m_objects.emplace(handle, std::move(object));
        return handle;
    }

    // Null, with the last error set, if the handle is not open or of another kind.
    template <class Kind>
    std::shared_ptr<Kind> Find(HINTERNET handle)
    {
        std::shared_ptr<Kind> object;
        {
            const std::lock_guard lock(m_mutex);
            const auto found = m_objects.find(handle);
            if (found != m_objects.end())
                object = std::dynamic_pointer_cast<Kind>(found->second);
        }
        if (!object)
            SetLastError(ERROR_INTERNET_INCORRECT_HANDLE_TYPE);
        return object;
    }

    std::shared_ptr<InternetHandle> Remove(HINTERNET handle)
    {
        const std::lock_guard lock(m_mutex);
        const auto found = m_objects.extract(handle);
        return found.empty() ? nullptr : std::move(found.mapped());
    }

private:
    std::mutex m_mutex;
    std::unordered_map<HINTERNET, std::shared_ptr<InternetHandle>> m_objects;
    std::uintptr_t m_last = 0;
};

OpenHandles& Handles()
{
    static OpenHandles handles;
    return handles;
}

// The port that stands for the default one of the HTTP service.
INTERNET_PORT DefaultHttpPort()
{
    const char* text = std::getenv("VANTROY_HTTP_PORT");
    INTERNET_PORT port = 0;
    if (text)
        std::from_chars(text, text + std::strlen(text), port);
    return port == 0 ? kHttpPort : port;
}

BOOL Answer(DWORD error)
{
    if (error != ERROR_SUCCESS)
        SetLastError(error);
    return error == ERROR_SUCCESS;
}

HINTERNET Refuse(DWORD error)
{
    SetLastError(error);
    return nullptr;
}

// The exchange of a request that was sent; null with the last error set.
std::shared_ptr<Request> FindSent(HINTERNET handle)
{
    auto request = Handles().Find<Request>(handle);
    if (request && !request->exchange)
    {
        SetLastError(ERROR_INTERNET_INCORRECT_HANDLE_STATE);
        return nullptr;
    }
    return request;
}

} // namespace

HINTERNET InternetOpenA(const char* agent, DWORD, const char*, const char*, DWORD)
{
    auto session = std::make_shared<Session>();
    session->client = std::make_shared<HttpClient>(agent ? agent : "");
    return Handles().Add(std::move(session));
}

BOOL InternetUseCookies(HINTERNET internet)
{
    const auto session = Handles().Find<Session>(internet);
    if (!session)
        return FALSE;
    session->client->UseCookies();
    return TRUE;
}

HINTERNET InternetConnectA(HINTERNET internet, const char* host, INTERNET_PORT port, const char*, const char*,
                           DWORD service, DWORD, UINT_PTR)
{
    const auto session = Handles().Find<Session>(internet);
    if (!session)
        return nullptr;
    if (service != INTERNET_SERVICE_HTTP)
        return Refuse(ERROR_INVALID_PARAMETER);
    if (!host || !IsHostName(host))
        return Refuse(ERROR_INTERNET_INVALID_URL);
    auto connection = std::make_shared<Connection>();
    connection->client = session->client;
    connection->server = "http://" + AnsiToUtf8(host);
    if (port != INTERNET_INVALID_PORT_NUMBER)
        connection->server += ':' + std::to_string(port);
    connection->httpPort = port == INTERNET_INVALID_PORT_NUMBER ? DefaultHttpPort() : kHttpPort;
    return Handles().Add(std::move(connection));
}

HINTERNET HttpOpenRequestA(HINTERNET connection, const char* verb, const char* path, const char*, const char*,
                           const char**, DWORD, UINT_PTR)
{
    const auto parent = Handles().Find<Connection>(connection);
    if (!parent)
        return nullptr;
    if (verb && std::strcmp(verb, "GET") != 0)
        return Refuse(ERROR_INVALID_PARAMETER);
    auto request = std::make_shared<Request>();
    request->client = parent->client;
    request->url = parent->server + RequestPath(path ? path : "");
    request->httpPort = parent->httpPort;
    return Handles().Add(std::move(request));
}

BOOL HttpSendRequestA(HINTERNET request, const char* headers, DWORD headersLength, void* body, DWORD bodyLength)
{
    const auto found = Handles().Find<Request>(request);
    if (!found)
        return FALSE;
    if ((headers && headersLength != 0) || (body && bodyLength != 0))
        return Answer(ERROR_INVALID_PARAMETER);
    auto exchange = std::make_unique<HttpExchange>(found->client, found->url, found->httpPort);
    const DWORD error = exchange->Send();
    found->exchange = error == ERROR_SUCCESS ? std::move(exchange) : nullptr;
    return Answer(error);
}

BOOL HttpQueryInfoA(HINTERNET request, DWORD infoLevel, void* buffer, DWORD* size, DWORD*)
{
    const auto found = FindSent(request);
    if (!found)
        return FALSE;
    if (infoLevel != HTTP_QUERY_CONTENT_LENGTH || !size)
        return Answer(ERROR_INVALID_PARAMETER);
    const auto& text = found->exchange->Head().ContentLength();
    if (!text)
        return Answer(ERROR_HTTP_HEADER_NOT_FOUND);
    const std::size_t needed = text->size() + 1;
    const bool fits = buffer && *size >= needed;
    *size = static_cast<DWORD>(fits ? text->size() : needed);
    if (!fits)
        return Answer(ERROR_INSUFFICIENT_BUFFER);
    std::memcpy(buffer, text->c_str(), needed);
    return TRUE;
}

BOOL InternetReadFile(HINTERNET request, void* buffer, DWORD wanted, DWORD* got)
{
    *got = 0;
    const auto found = FindSent(request);
    if (!found)
        return FALSE;
    std::size_t count = 0;
    const DWORD error = found->exchange->Read(buffer, wanted, count);
    *got = static_cast<DWORD>(count);
    return Answer(error);
}

BOOL InternetCloseHandle(HINTERNET handle)
{
    return Handles().Remove(handle) ? TRUE : Answer(ERROR_INTERNET_INCORRECT_HANDLE_TYPE);
}
