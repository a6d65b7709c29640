#include "platform/internet/Internet.h"

#include "platform/internet/UrlRules_p.h"
#include "platform/system/LastError.h"
#include "platform/text/Ascii_p.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <string_view>

namespace
{

struct Parts
{
    std::string_view scheme;
    std::string_view host;
    std::string_view path;
};

bool IsKnownScheme(std::string_view scheme)
{
    static constexpr std::string_view kKnown[] = {"http", "https", "ftp"};
    return std::ranges::any_of(kKnown, [&](std::string_view known) { return SameButForCapitals(known, scheme); });
}

// Digits behind the colon, none at all included.
bool IsPort(std::string_view port)
{
    return port.size() <= 5 && std::ranges::all_of(port, [](unsigned char c) { return std::isdigit(c) != 0; });
}

// "user:password@host:port" to the host; empty if there is none or the port is no number.
std::string_view HostOf(std::string_view authority)
{
    authority.remove_prefix(authority.rfind('@') + 1);
    const std::size_t bracket = authority.starts_with('[') ? authority.find(']') : 0;
    const std::size_t colon = authority.find(':', std::min(bracket, authority.size()));
    if (colon != std::string_view::npos && !IsPort(authority.substr(colon + 1)))
        return {};
    return authority.substr(0, colon);
}

bool Crack(std::string_view url, Parts& parts)
{
    const std::size_t schemeEnd = url.find("://");
    if (schemeEnd == std::string_view::npos || !IsKnownScheme(url.substr(0, schemeEnd)))
        return false;
    parts.scheme = url.substr(0, schemeEnd);
    const std::string_view rest = url.substr(schemeEnd + 3);
    const std::size_t pathStart = std::min(rest.find_first_of("/?#"), rest.size());
    parts.host = HostOf(rest.substr(0, pathStart));
    parts.path = rest.substr(pathStart);
    return IsHostName(parts.host);
}

void Hand(std::string_view part, const char*& text, DWORD& length)
{
    if (length == 0)
        return;
    text = part.empty() ? nullptr : part.data();
    length = static_cast<DWORD>(part.size());
}

} // namespace

BOOL InternetCrackUrlA(const char* url, DWORD length, DWORD, URL_COMPONENTSA* parts)
{
    Parts found;
    const bool cracked =
        Crack(length == 0 ? std::string_view(url) : std::string_view(url, strnlen(url, length)), found);
    if (!cracked)
        found = {};
    Hand(found.scheme, parts->lpszScheme, parts->dwSchemeLength);
    Hand(found.host, parts->lpszHostName, parts->dwHostNameLength);
    Hand(found.path, parts->lpszUrlPath, parts->dwUrlPathLength);
    if (!cracked)
        SetLastError(ERROR_INTERNET_INVALID_URL);
    return cracked;
}
