// The tagged value that collection operations take their index in. Only the two types that the program uses exist.
#pragma once

#include "platform/com/Unknown.h"

using VARTYPE = WORD;

inline constexpr VARTYPE VT_EMPTY = 0;
inline constexpr VARTYPE VT_I4 = 3;

struct VARIANT
{
    VARTYPE vt = VT_EMPTY;
    LONG lVal = 0;
};

// A value of type VT_I4.
constexpr VARIANT VariantI4(LONG value)
{
    return {VT_I4, value};
}

// Empties the value; E_INVALIDARG for a type that does not exist.
HRESULT VariantClear(VARIANT* value);
