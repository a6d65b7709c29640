// A line to a server: one transfer at a time through libcurl, which nothing else includes.
//
// curl runs only inside Work, on the calling thread. A line keeps resolved names and the certificate store for its next
// transfer; connections are not kept.
#pragma once

#include "platform/Types.h"

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

// What arrives on a line. Called inside Work; must not throw.
class ILineSink
{
public:
    virtual void OnConnected() = 0;
    // A line of the response's head or of its trailers, with its line end. False breaks the transfer off.
    virtual bool OnHeadLine(std::string_view line) = 0;
    virtual void OnBody(std::string_view bytes) = 0;

protected:
    ~ILineSink() = default;
};

class CurlLine
{
public:
    // Null if there is no memory for it.
    static std::unique_ptr<CurlLine> Make(const std::string& agent, std::chrono::milliseconds connectLimit);
    ~CurlLine();
    CurlLine(const CurlLine&) = delete;
    CurlLine& operator=(const CurlLine&) = delete;

    // Switches the cookie engine on, which holds what it is given and what servers set, in memory alone, and sends what
    // belongs to each request.
    void UseCookies();
    // A line of a cookie file. One that is there under the same name, domain and path gives way.
    void AddCookie(const std::string& line);
    // Switches the engine off and empties it.
    void ForgetCookies();

    // Begins a GET; `url` is http or https. Port 80 is looked for at `httpPort`.
    void Start(const std::string& url, WORD httpPort, ILineSink& sink);
    // Ends the transfer, whatever its state, and closes its connection.
    void Stop();

    // Does what can be done without waiting.
    void Work();
    // Waits for something to do.
    void Wait(std::chrono::milliseconds limit);

    bool IsOver() const;
    // How it went, once it is over: ERROR_SUCCESS or an error code of Internet.h. A body that ends early is no error.
    DWORD Result() const;

private:
    struct Handles;

    explicit CurlLine(std::unique_ptr<Handles> handles);

    std::unique_ptr<Handles> m_handles;
};

// The address a redirect from `base` leads to, without a user name or password; empty if it is not http or https.
std::string ResolveRedirect(const std::string& base, const std::string& target);
// The host as it is asked for: lower case, an IPv6 address in brackets, other scripts in their ASCII form; empty for no
// URL.
std::string HostOf(const std::string& url);
