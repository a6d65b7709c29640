// Windows are handles: a slot and a generation in one number. The handle of a window that has gone is never that of
// another one, so IsWindow is safe from any thread at any time, and so is every operation of Calls.h.
#pragma once

#include <cstdint>

struct HWND
{
    std::uint64_t value = 0;

    constexpr explicit operator bool() const
    {
        return value != 0;
    }
    constexpr bool operator==(const HWND&) const = default;
};

// A menu; a number that is never used twice.
struct HMENU
{
    std::uint64_t value = 0;

    constexpr explicit operator bool() const
    {
        return value != 0;
    }
    constexpr bool operator==(const HMENU&) const = default;
};

// A picture of the resources as an icon, by its number; 0 is none.
struct HICON
{
    std::uint32_t resource = 0;

    constexpr explicit operator bool() const
    {
        return resource != 0;
    }
    constexpr bool operator==(const HICON&) const = default;
};
