// The line of a cookie file, seven fields with tabs between them:
//
//   example.org	TRUE	/	FALSE	1790000000	name	value
//
// The domain, whether hosts below it count, the path, whether the cookie is secure, its end. A field that is empty
// moves those behind it, but for the value, which may be.
#include "platform/internet/Cookies_p.h"

#include "platform/internet/UrlRules_p.h"

#include <algorithm>
#include <mutex>
#include <string_view>

namespace
{

// What browsers keep at most: the name with the value, and the path.
constexpr std::size_t kLongestPair = 4096;
constexpr std::size_t kLongestPath = 1024;

struct ChosenSource
{
    std::mutex mutex;
    std::shared_ptr<ICookieSource> source;
};

ChosenSource& Chosen()
{
    static ChosenSource chosen;
    return chosen;
}

bool HasNone(std::string_view text, std::string_view separators)
{
    return std::ranges::none_of(text, [separators](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 || byte == 0x7F || separators.find(c) != std::string_view::npos;
    });
}

// Without brackets, as the engine has an address.
std::string_view DomainOf(const Cookie& cookie)
{
    std::string_view domain = cookie.domain;
    if (domain.starts_with('.'))
        domain.remove_prefix(1);
    if (!IsHostName(domain))
        return {};
    return domain.starts_with('[') ? domain.substr(1, domain.size() - 2) : domain;
}

bool IsSound(const Cookie& cookie)
{
    return !cookie.name.empty() && cookie.name.size() + cookie.value.size() <= kLongestPair &&
           HasNone(cookie.name, ";=") && HasNone(cookie.value, ";") && cookie.path.starts_with('/') &&
           cookie.path.size() <= kLongestPath && HasNone(cookie.path, ";");
}

const char* Word(bool value)
{
    return value ? "TRUE" : "FALSE";
}

} // namespace

void SetCookieSource(std::shared_ptr<ICookieSource> source)
{
    const std::lock_guard lock(Chosen().mutex);
    Chosen().source.swap(source);
}

std::shared_ptr<ICookieSource> CookieSource()
{
    const std::lock_guard lock(Chosen().mutex);
    return Chosen().source;
}

std::string CookieLine(const Cookie& cookie)
{
    const std::string_view domain = DomainOf(cookie);
    if (domain.empty() || !IsSound(cookie))
        return {};
    std::string line(domain);
    for (const std::string& field : {std::string(Word(!cookie.hostOnly)), cookie.path, std::string(Word(cookie.secure)),
                                     std::to_string(cookie.expires), cookie.name, cookie.value})
        line.append("\t").append(field);
    return line;
}
