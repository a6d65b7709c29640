#include "base/ContentLength.h"

#include <cstdlib>

std::optional<long long> ContentLengthOf(HINTERNET request)
{
    char text[32] = {};
    DWORD room = sizeof(text);
    if (!HttpQueryInfoA(request, HTTP_QUERY_CONTENT_LENGTH, text, &room, nullptr))
        return std::nullopt;
    text[sizeof(text) - 1] = '\0';
    return std::atoll(text);
}
