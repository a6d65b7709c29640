// The registry: keys below two roots, held in one readable file for each root in the home folder
// (see files/InstallHome.h). The format is told in Registry.cpp. Any thread and any process may call: every call reads
// the file anew, and a write replaces the file whole.
#pragma once

#include "platform/Types.h"

enum class HKEY : std::uintptr_t
{
    Null = 0
};

inline constexpr HKEY HKEY_CLASSES_ROOT = static_cast<HKEY>(0x80000000); // what opens which kind of file
inline constexpr HKEY HKEY_CURRENT_USER = static_cast<HKEY>(0x80000001);
inline constexpr HKEY HKEY_LOCAL_MACHINE = static_cast<HKEY>(0x80000002);

inline constexpr DWORD REG_SZ = 1;

// Rights of an open key, under their published numbers.
inline constexpr DWORD KEY_QUERY_VALUE = 0x00001;
inline constexpr DWORD KEY_READ_WRITE = 0x2001F;
inline constexpr DWORD KEY_ALL_ACCESS = 0xF003F;

inline constexpr DWORD REG_OPTION_NON_VOLATILE = 0;

// All return ERROR_SUCCESS or an error code of LastError.h. Key and value names are compared without case.
LONG RegOpenKeyA(HKEY key, const char* subKey, HKEY* result);
LONG RegCreateKeyA(HKEY key, const char* subKey, HKEY* result);

// The same with the rights asked for, which are those of the files. `reserved`, `keyClass`, `options` and `security`
// are not read; *disposition, if it is not null, is not written.
LONG RegOpenKeyExA(HKEY key, const char* subKey, DWORD options, DWORD access, HKEY* result);
LONG RegCreateKeyExA(HKEY key, const char* subKey, DWORD reserved, char* keyClass, DWORD options, DWORD access,
                     void* security, HKEY* result, DWORD* disposition);

// The name of the sub-key at an index, zero-terminated. *size is the room in bytes with the zero on the way in, the
// length without it on the way out. ERROR_NO_MORE_ITEMS behind the last one; ERROR_MORE_DATA if there is too little
// room. The last four are not used and null.
LONG RegEnumKeyExA(HKEY key, DWORD index, char* name, DWORD* size, DWORD* reserved, char* keyClass, DWORD* classSize,
                   void* lastWrite);
// ERROR_ACCESS_DENIED for a key that has sub-keys.
LONG RegDeleteKeyA(HKEY key, const char* subKey);

// *size is the room in bytes on the way in, and what the value needs with its terminating zero on the way out. With too
// little room the answer is ERROR_INSUFFICIENT_BUFFER and `data` is untouched. `data` may be null to ask for the size.
LONG RegQueryValueExA(HKEY key, const char* name, DWORD* reserved, DWORD* type, BYTE* data, DWORD* size);
// The same for the default value of a key below (or of the key itself, for null), which must have one.
LONG RegQueryValueA(HKEY key, const char* subKey, char* data, LONG* size);
LONG RegSetValueExA(HKEY key, const char* name, DWORD reserved, DWORD type, const BYTE* data, DWORD size);
LONG RegCloseKey(HKEY key);

// Whether a key may be opened for writing, made or deleted; its path is that from the root. Everything may at start:
// for tests of what happens where a right is missing. Null restores that.
using RegistryGuard = bool (*)(HKEY root, const char* path);
void SetRegistryGuard(RegistryGuard guard);
