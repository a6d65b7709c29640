// Comparing without regard to capitals by the letters of ASCII alone. The C library goes by the locale: in a Turkish
// one "I" is no "i".
#pragma once

#include <algorithm>
#include <string_view>

inline char LowerAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

inline bool SameButForCapitals(std::string_view left, std::string_view right)
{
    return std::ranges::equal(left, right, {}, LowerAscii, LowerAscii);
}
