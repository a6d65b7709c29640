#include "platform/files/MirrorFile.h"

#include "platform/files/FileCalls.h"
#include "platform/files/NativePath_p.h"
#include "platform/files/Path.h"
#include "platform/system/LastError.h"

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr mode_t kNewFile = 0666;
constexpr int kMostNames = 10'000;

std::string FolderOf(const std::string& path)
{
    return path.substr(0, path.rfind(kPathSeparator) + 1);
}

// Hidden, and of no other file of this process. It may stand there all the same: left by a process that was killed and
// had the same number, or, in a folder that machines share, in the hands of another one's.
std::string NameBeside(const std::string& target)
{
    static std::atomic<unsigned> count = 0;
    return FolderOf(target) + ".new-" + std::to_string(getpid()) + '-' + std::to_string(++count);
}

// Why nothing may take the place of what stands at a path; ERROR_SUCCESS if it may, or if nothing stands there.
DWORD RefusalOf(const std::string& path, bool stands, CMirrorFile::Place place)
{
    CFile file;
    if (path.empty() || path.back() == kPathSeparator)
        return ERROR_ACCESS_DENIED;
    if (place == CMirrorFile::Place::Free)
        return stands ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS;
    return file.Open(path, CFile::modeWrite) || GetLastError() == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : GetLastError();
}

// A file that has no name and goes with its last descriptor; below 0 where the file system knows none.
int OpenTemporary(const std::string& folder)
{
    if (access("/proc/self/fd", X_OK) != 0)
        return -1;
    return open(NativePath(folder.empty() ? "." : folder).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, kNewFile);
}

// False with errno.
bool GiveName(int descriptor, const std::string& path)
{
    const std::string self = "/proc/self/fd/" + std::to_string(descriptor);
    return linkat(AT_FDCWD, self.c_str(), AT_FDCWD, NativePath(path).c_str(), AT_SYMLINK_FOLLOW) == 0;
}

} // namespace

CMirrorFile::~CMirrorFile()
{
    Abort();
}

bool CMirrorFile::Open(const std::string& path, Place place)
{
    Abort();
    CFileStatus status;
    const bool stands = GetStatus(path, status);
    if (const DWORD refusal = RefusalOf(path, stands, place); refusal != ERROR_SUCCESS)
    {
        SetLastError(refusal);
        return false;
    }
    m_place = place;
    m_target = stands ? status.m_szFullName : path;
    if (!OpenBeside())
        return false;
    struct stat old = {};
    if (stands && stat(NativePath(m_target).c_str(), &old) == 0)
        fchmod(m_descriptor, old.st_mode & 07777);
    return true;
}

bool CMirrorFile::OpenNameless(const std::string& folder)
{
    Abort();
    m_place = Place::Free;
    m_descriptor = OpenTemporary(folder);
    if (m_descriptor < 0)
        SetLastErrorFromErrno(errno);
    return m_descriptor >= 0;
}

bool CMirrorFile::OpenBeside()
{
    m_descriptor = OpenTemporary(FolderOf(m_target));
    return m_descriptor >= 0 || TakeNameBeside([this](const std::string& name) {
               m_descriptor = open(NativePath(name).c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, kNewFile);
               return m_descriptor >= 0;
           });
}

// `take` gives a name to the file, and is false with errno if it cannot.
template <class Take>
bool CMirrorFile::TakeNameBeside(const Take& take)
{
    int error = EEXIST;
    for (int tries = 0; error == EEXIST && tries < kMostNames; ++tries)
    {
        const std::string name = NameBeside(m_target);
        if (take(name))
        {
            m_name = name;
            return true;
        }
        error = errno;
    }
    SetLastErrorFromErrno(error);
    return false;
}

bool CMirrorFile::TakePlace()
{
    if (m_place == Place::Free)
        return TakeFreePlace();
    const auto give = [this](const std::string& name) { return GiveName(m_descriptor, name); };
    return (!m_name.empty() || TakeNameBeside(give)) && CFile::Close() && ReplaceFileBy(m_name, m_target);
}

// A file without a name takes the free place as its first one, so that no other name is ever left behind.
bool CMirrorFile::TakeFreePlace()
{
    if (!m_name.empty())
        return (m_descriptor < 0 || CFile::Close()) && MoveToFreePlace(m_name, m_target);
    if (!GiveName(m_descriptor, m_target))
    {
        SetLastErrorFromErrno(errno);
        return false;
    }
    m_name = m_target;
    return CFile::Close();
}

bool CMirrorFile::Close()
{
    const bool taken = TakePlace();
    const DWORD error = GetLastError();
    if (!taken && m_place == Place::Free && (error == ERROR_ALREADY_EXISTS || error == ERROR_NOT_SAME_DEVICE))
        return false;
    if (taken)
        m_name.clear();
    Abort();
    SetLastError(error);
    return taken;
}

void CMirrorFile::SetPlace(const std::string& path)
{
    m_target = path;
}

void CMirrorFile::Abort()
{
    CFile::Close();
    if (!m_name.empty())
        DeleteFileA(m_name.c_str());
    m_name.clear();
}
