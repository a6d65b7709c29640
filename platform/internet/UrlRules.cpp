#include "platform/internet/UrlRules_p.h"

#include <algorithm>
#include <cctype>

bool IsHostName(std::string_view host)
{
    const auto isName = [](unsigned char c) {
        return std::isalnum(c) || c >= 0x80 || c == '-' || c == '.' || c == '_';
    };
    const auto isAddress = [](unsigned char c) { return std::isxdigit(c) || c == ':' || c == '.'; };
    if (host.starts_with('['))
        return host.size() > 2 && host.ends_with(']') &&
               std::ranges::all_of(host.substr(1, host.size() - 2), isAddress);
    return !host.empty() && std::ranges::all_of(host, isName);
}

std::string RequestPath(std::string_view path)
{
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string request;
    if (!path.starts_with('/'))
        request += '/';
    for (const char byte : path.substr(0, path.find('#')))
    {
        const auto value = static_cast<unsigned char>(byte);
        if (value > ' ' && value <= 126)
            request += byte;
        else
            request.append({'%', kDigits[value >> 4], kDigits[value & 15]});
    }
    return request;
}
