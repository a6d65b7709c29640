// File operations by path. Paths are byte text in the system's code page. A result of FALSE comes with the last
// error. Any thread may call.
#pragma once

#include "platform/Types.h"

union LARGE_INTEGER
{
    struct
    {
        DWORD LowPart;
        LONG HighPart;
    } u;
    std::int64_t QuadPart;
};

inline constexpr DWORD PROGRESS_CONTINUE = 0;
inline constexpr DWORD PROGRESS_CANCEL = 1;
inline constexpr DWORD COPY_FILE_FAIL_IF_EXISTS = 1;
inline constexpr DWORD CALLBACK_CHUNK_FINISHED = 0;
inline constexpr DWORD CALLBACK_STREAM_SWITCH = 1;

using LPPROGRESS_ROUTINE = DWORD (*)(LARGE_INTEGER totalFileSize, LARGE_INTEGER totalBytesTransferred,
                                     LARGE_INTEGER streamSize, LARGE_INTEGER streamBytesTransferred, DWORD streamNumber,
                                     DWORD callbackReason, void* sourceFile, void* destinationFile, void* data);

// Copies a file, overwriting an existing target; with COPY_FILE_FAIL_IF_EXISTS whatever stands there stays, also what
// came during the copy, and the last error is ERROR_ALREADY_EXISTS. The routine is called on the calling thread before
// the first block and after each block of 64 KB. When it answers PROGRESS_CANCEL, or the copy fails, no partial target
// remains. `cancel` is not read (callers pass null), and no other flag is known.
BOOL CopyFileExA(const char* existingFile, const char* newFile, LPPROGRESS_ROUTINE routine, void* data, BOOL* cancel,
                 DWORD flags);
BOOL CreateDirectoryA(const char* path, void* security);
BOOL DeleteFileA(const char* path);
// 0, or -1 if the folder cannot be entered. It changes the folder of the whole process.
int _chdir(const char* folder);
