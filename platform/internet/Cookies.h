// The cookies that go with a request: those that the browser would send itself.
#pragma once

#include "platform/Types.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

struct Cookie
{
    std::string name;
    std::string value;
    std::string domain;    // "example.org", an address, or one in brackets
    bool hostOnly = false; // not for the hosts below the domain
    std::string path = "/";
    bool secure = false;      // for https, and for this machine, alone
    std::int64_t expires = 0; // seconds since 1970; 0 ends with the browser's session
};

// Where cookies come from. The real one asks the browsers (browser/Browsers.h).
class ICookieSource
{
public:
    virtual ~ICookieSource() = default;
    // The cookies for a host and for the domains it is in, whatever their path; `host` is lower case, an IPv6 address
    // in brackets. `browser` names who answered: empty at the start of an exchange, and handed in again at its
    // redirects, which that browser alone answers. Called on the thread that sends; may wait, but not for long.
    virtual std::vector<Cookie> Find(const std::string& host, std::string& browser) = 0;
};

// Chosen at start; null means no cookies.
void SetCookieSource(std::shared_ptr<ICookieSource> source);
