// The registry: keys below two roots, held in one readable file for each root in the home folder
// (see files/InstallHome.h). The format is told in Registry.cpp. Any thread and any process may call: every call reads
// the file anew, and a write replaces the file whole.
#pragma once

#include "platform/Types.h"

enum class HKEY : std::uintptr_t
{
    Null = 0
};

inline constexpr HKEY HKEY_CURRENT_USER = static_cast<HKEY>(0x80000001);
inline constexpr HKEY HKEY_LOCAL_MACHINE = static_cast<HKEY>(0x80000002);

inline constexpr DWORD REG_SZ = 1;

// All return ERROR_SUCCESS or an error code of LastError.h. Key and value names are compared without case.
LONG RegOpenKeyA(HKEY key, const char* subKey, HKEY* result);
LONG RegCreateKeyA(HKEY key, const char* subKey, HKEY* result);
// *size is the room in bytes on the way in, and what the value needs with its terminating zero on the way out. With too
// little room the answer is ERROR_INSUFFICIENT_BUFFER and `data` is untouched. `data` may be null to ask for the size.
LONG RegQueryValueExA(HKEY key, const char* name, DWORD* reserved, DWORD* type, BYTE* data, DWORD* size);
LONG RegSetValueExA(HKEY key, const char* name, DWORD reserved, DWORD type, const BYTE* data, DWORD size);
LONG RegCloseKey(HKEY key);
