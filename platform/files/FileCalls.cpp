#include "platform/files/FileCalls.h"

#include "platform/files/NativePath_p.h"
#include "platform/system/LastError.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

BOOL CreateDirectoryA(const char* path, void*)
{
    if (mkdir(NativePath(path).c_str(), 0777) == 0)
        return TRUE;
    SetLastErrorFromErrno(errno);
    // For a folder the missing thing can only be one on the way.
    if (GetLastError() == ERROR_FILE_NOT_FOUND)
        SetLastError(ERROR_PATH_NOT_FOUND);
    return FALSE;
}

BOOL DeleteFileA(const char* path)
{
    if (unlink(NativePath(path).c_str()) == 0)
        return TRUE;
    SetLastErrorFromErrno(errno);
    return FALSE;
}

int _chdir(const char* folder)
{
    if (chdir(NativePath(folder).c_str()) == 0)
        return 0;
    SetLastErrorFromErrno(errno);
    return -1;
}
