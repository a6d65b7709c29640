// Integer and geometry types under the names that the desktop publishes for them. Sizes are the
// desktop's: DWORD and HRESULT have 32 bits everywhere, WPARAM and LPARAM the width of a pointer.
#pragma once

#include <cstdint>

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using BOOL = std::int32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;
using DWORD = std::uint32_t;
using HRESULT = std::int32_t;
using UINT_PTR = std::uintptr_t;
using INT_PTR = std::intptr_t;
using DWORD_PTR = std::uintptr_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;

inline constexpr BOOL FALSE = 0;
inline constexpr BOOL TRUE = 1;

struct POINT
{
    LONG x = 0;
    LONG y = 0;
};

struct SIZE
{
    LONG cx = 0;
    LONG cy = 0;
};

struct RECT
{
    LONG left = 0;
    LONG top = 0;
    LONG right = 0;
    LONG bottom = 0;
};
