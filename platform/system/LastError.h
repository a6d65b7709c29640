// The last-error code of the calling thread, and the system's texts for such codes.
#pragma once

#include "platform/Types.h"

inline constexpr DWORD ERROR_SUCCESS = 0;
inline constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
inline constexpr DWORD ERROR_PATH_NOT_FOUND = 3;
inline constexpr DWORD ERROR_ACCESS_DENIED = 5;
inline constexpr DWORD ERROR_INVALID_HANDLE = 6;
inline constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
inline constexpr DWORD ERROR_BAD_FORMAT = 11;
inline constexpr DWORD ERROR_OUTOFMEMORY = 14;
inline constexpr DWORD ERROR_NOT_SAME_DEVICE = 17;
inline constexpr DWORD ERROR_GEN_FAILURE = 31; // every failure of the machine without a code of its own here
inline constexpr DWORD ERROR_INVALID_PARAMETER = 87;
inline constexpr DWORD ERROR_DISK_FULL = 112;
inline constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
inline constexpr DWORD ERROR_ALREADY_EXISTS = 183;
inline constexpr DWORD ERROR_FILENAME_EXCED_RANGE = 206;
inline constexpr DWORD ERROR_MORE_DATA = 234;
inline constexpr DWORD ERROR_NO_MORE_ITEMS = 259;
inline constexpr DWORD ERROR_OPERATION_ABORTED = 995;
inline constexpr DWORD ERROR_REQUEST_ABORTED = 1235;

DWORD GetLastError();
void SetLastError(DWORD code);
// Sets the last error from an errno value (ENOENT gives ERROR_FILE_NOT_FOUND and so on).
void SetLastErrorFromErrno(int error);

inline constexpr DWORD FORMAT_MESSAGE_ALLOCATE_BUFFER = 0x100;
inline constexpr DWORD FORMAT_MESSAGE_IGNORE_INSERTS = 0x200;
inline constexpr DWORD FORMAT_MESSAGE_FROM_SYSTEM = 0x1000;

// The text for a code of the list above that the machine has one for (ERROR_BAD_FORMAT, ERROR_MORE_DATA and
// ERROR_NO_MORE_ITEMS are those without), or for a result that carries one or stands in com/Unknown.h, from the
// system's message catalogue. Only the three flags above, together, are offered: *buffer receives a block to be freed
// with LocalFree. Returns its length in bytes, 0 if there is no text for the code (then *buffer is null). `language`
// and `arguments` are not read.
DWORD FormatMessageA(DWORD flags, const void* source, DWORD code, DWORD language, char** buffer, DWORD size,
                     void* arguments);
// Frees a block that FormatMessageA allocated; null is allowed. Always returns null.
void* LocalFree(void* block);
