// Which class a text means. Any thread.
#pragma once

#include "platform/com/Guid.h"

inline constexpr HRESULT CO_E_CLASSSTRING = static_cast<HRESULT>(0x800401F3);

// From the text form, "{00020400-0000-0000-C000-000000000046}", in capitals or not. CO_E_CLASSSTRING, with an empty
// identifier, for anything else; E_INVALIDARG for a null pointer.
HRESULT CLSIDFromString(const wchar_t* text, CLSID* clsid);
// From the name of a program's class: the text form is the default value of the key <name>\CLSID of HKEY_CLASSES_ROOT.
// Results as above.
HRESULT CLSIDFromProgID(const wchar_t* name, CLSID* clsid);
