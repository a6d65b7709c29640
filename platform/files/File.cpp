#include "platform/files/File.h"

#include "platform/files/NativePath_p.h"
#include "platform/files/Path.h"
#include "platform/system/LastError.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace
{

constexpr std::chrono::seconds kLockPatience(5);
constexpr std::chrono::milliseconds kLockPoll(5);

bool FailWithErrno()
{
    SetLastErrorFromErrno(errno);
    return false;
}

int OpenMode(UINT flags)
{
    static constexpr int kAccess[] = {O_RDONLY, O_WRONLY, O_RDWR, O_RDWR};
    int mode = kAccess[flags & 3];
    if (flags & CFile::modeCreate)
        mode |= flags & CFile::modeNoTruncate ? O_CREAT : O_CREAT | O_TRUNC;
    // Without O_NONBLOCK a pipe in the file's place would hold the caller up.
    return mode | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
}

std::string FullName(const std::string& native)
{
    const std::unique_ptr<char, void (*)(void*)> resolved(realpath(native.c_str(), nullptr), std::free);
    return PathFromNative(resolved ? resolved.get() : native);
}

} // namespace

CFile::~CFile()
{
    Close();
}

bool CFile::Open(const std::string& path, UINT flags)
{
    Close();
    const int descriptor = open(NativePath(path).c_str(), OpenMode(flags), 0666);
    if (descriptor < 0)
        return FailWithErrno();
    struct stat status = {};
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
    {
        close(descriptor);
        SetLastError(ERROR_ACCESS_DENIED);
        return false;
    }
    m_descriptor = descriptor;
    return true;
}

bool CFile::Write(const void* data, std::size_t size)
{
    const char* from = static_cast<const char*>(data);
    while (size > 0)
    {
        const ssize_t written = write(m_descriptor, from, size);
        if (written < 0 && errno != EINTR)
            return FailWithErrno();
        const auto step = static_cast<std::size_t>(std::max<ssize_t>(written, 0));
        from += step;
        size -= step;
    }
    return true;
}

bool CFile::Read(void* data, std::size_t size, std::size_t& got)
{
    char* to = static_cast<char*>(data);
    got = 0;
    while (got < size)
    {
        const ssize_t count = read(m_descriptor, to + got, size - got);
        if (count == 0)
            break;
        if (count < 0 && errno != EINTR)
            return FailWithErrno();
        got += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }
    return true;
}

std::uint64_t CFile::GetLength() const
{
    struct stat status = {};
    return fstat(m_descriptor, &status) == 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
}

std::uint64_t CFile::SeekToEnd()
{
    const off_t position = lseek(m_descriptor, 0, SEEK_END);
    return position < 0 ? 0 : static_cast<std::uint64_t>(position);
}

bool CFile::SeekTo(std::uint64_t offset)
{
    return lseek(m_descriptor, static_cast<off_t>(offset), SEEK_SET) >= 0 || FailWithErrno();
}

bool CFile::LockRange(std::uint64_t position, std::uint64_t count)
{
    struct flock range = {};
    range.l_type = F_WRLCK;
    range.l_whence = SEEK_SET;
    range.l_start = static_cast<off_t>(position);
    range.l_len = static_cast<off_t>(count);
    const auto deadline = std::chrono::steady_clock::now() + kLockPatience;
    // Locks of the open file, not of the process: two threads keep each other out, too.
    while (fcntl(m_descriptor, F_OFD_SETLK, &range) != 0)
    {
        if (errno == ENOLCK || errno == EOPNOTSUPP)
            return true;
        const bool held = errno == EAGAIN || errno == EACCES || errno == EINTR;
        if (!held || std::chrono::steady_clock::now() > deadline)
            return FailWithErrno();
        std::this_thread::sleep_for(kLockPoll);
    }
    return true;
}

bool CFile::SetLength(std::uint64_t length)
{
    return ftruncate(m_descriptor, static_cast<off_t>(length)) == 0 || FailWithErrno();
}

bool CFile::Flush()
{
    return fsync(m_descriptor) == 0 || FailWithErrno();
}

bool CFile::Close()
{
    if (m_descriptor < 0)
        return true;
    const int result = close(m_descriptor);
    m_descriptor = -1;
    // After an interrupted close the descriptor is gone all the same.
    return result == 0 || errno == EINTR || FailWithErrno();
}

bool CFile::GetStatus(const std::string& path, CFileStatus& status)
{
    if (path.empty() || path.back() == kPathSeparator)
        return false;
    const std::string native = NativePath(path);
    struct stat found = {};
    // A link that leads nowhere counts as something that stands there: a new file would be made wherever it points.
    if (stat(native.c_str(), &found) != 0 && lstat(native.c_str(), &found) != 0)
        return FailWithErrno();
    status.m_bFolder = S_ISDIR(found.st_mode);
    status.m_size = S_ISREG(found.st_mode) ? found.st_size : 0;
    status.m_szFullName = FullName(native);
    return true;
}
