#pragma once

#include "platform/Types.h"

// A 128-bit identifier of an interface or a class, laid out as published.
struct GUID
{
    DWORD Data1 = 0;
    WORD Data2 = 0;
    WORD Data3 = 0;
    BYTE Data4[8] = {};

    bool operator==(const GUID&) const = default;
};

using IID = GUID;
using CLSID = GUID;
using REFIID = const IID&;
using REFCLSID = const CLSID&;
