#include "platform/files/NativePath_p.h"

#include "platform/system/LastError.h"
#include "platform/text/CodePage.h"
#include "platform/text/CodePage_p.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>

std::string NativePath(const std::string& path)
{
    return GetACP() == kCodePageUtf8 ? path : AnsiToUtf8(path);
}

std::string PathFromNative(const std::string& native)
{
    return GetACP() == kCodePageUtf8 ? native : Utf8ToAnsi(native);
}

bool ReplaceFileBy(const std::string& fresh, const std::string& target)
{
    if (std::rename(NativePath(fresh).c_str(), NativePath(target).c_str()) == 0)
        return true;
    SetLastErrorFromErrno(errno);
    return false;
}

bool MoveToFreePlace(const std::string& fresh, const std::string& target)
{
    const std::string to = NativePath(target);
    if (renameat2(AT_FDCWD, NativePath(fresh).c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    // Not every file system can do that in one step.
    struct stat status = {};
    if ((errno == EINVAL || errno == ENOSYS) && lstat(to.c_str(), &status) != 0 && errno == ENOENT)
        return ReplaceFileBy(fresh, target);
    SetLastErrorFromErrno(errno == EINVAL || errno == ENOSYS ? EEXIST : errno);
    return false;
}
