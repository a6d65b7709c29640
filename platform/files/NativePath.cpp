#include "platform/files/NativePath_p.h"

#include "platform/system/LastError.h"
#include "platform/text/CodePage.h"
#include "platform/text/CodePage_p.h"

#include <cerrno>
#include <cstdio>

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
