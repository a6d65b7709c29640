// Copying. The copy is written beside its target under a name of its own and moved to the target's place at the end, so
// a target never stands there half, and an old one survives a copy that fails or is cancelled.
#include "platform/files/File.h"
#include "platform/files/FileCalls.h"
#include "platform/files/NativePath_p.h"
#include "platform/files/Path.h"
#include "platform/system/LastError.h"

#include <atomic>
#include <memory>
#include <string>
#include <unistd.h>

namespace
{

constexpr std::size_t kBlock = std::size_t{64} * 1024;

// Hidden, and of no other copy of this or another process.
std::string NameBeside(const std::string& target)
{
    static std::atomic<unsigned> copies = 0;
    const std::size_t folderEnd = target.rfind(kPathSeparator) + 1;
    return target.substr(0, folderEnd) + ".copy-" + std::to_string(getpid()) + '-' + std::to_string(++copies);
}

LARGE_INTEGER Large(std::uint64_t value)
{
    LARGE_INTEGER large;
    large.QuadPart = static_cast<std::int64_t>(value);
    return large;
}

class Copy
{
public:
    Copy(LPPROGRESS_ROUTINE routine, void* data) : m_routine(routine), m_data(data)
    {}

    bool Run(CFile& from, CFile& to)
    {
        m_total = from.GetLength();
        if (!Report(CALLBACK_STREAM_SWITCH))
            return false;
        const auto block = std::make_unique<char[]>(kBlock);
        for (;;)
        {
            std::size_t got = 0;
            if (!from.Read(block.get(), kBlock, got))
                return false;
            if (got == 0)
                return true;
            if (!to.Write(block.get(), got))
                return false;
            m_done += got;
            if (!Report(CALLBACK_CHUNK_FINISHED))
                return false;
        }
    }

private:
    bool Report(DWORD reason) const
    {
        const bool goOn = !m_routine || m_routine(Large(m_total), Large(m_done), Large(m_total), Large(m_done), 1,
                                                  reason, nullptr, nullptr, m_data) != PROGRESS_CANCEL;
        if (!goOn)
            SetLastError(ERROR_REQUEST_ABORTED);
        return goOn;
    }

    const LPPROGRESS_ROUTINE m_routine;
    void* const m_data;
    std::uint64_t m_total = 0;
    std::uint64_t m_done = 0;
};

bool IsFolder(const std::string& path)
{
    CFileStatus status;
    return CFile::GetStatus(path, status) && status.m_bFolder;
}

} // namespace

BOOL CopyFileExA(const char* existingFile, const char* newFile, LPPROGRESS_ROUTINE routine, void* data, BOOL*,
                 DWORD flags)
{
    if (flags != 0)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    CFile from;
    if (!from.Open(existingFile, CFile::modeRead))
        return FALSE;
    const std::string target = newFile;
    if (target.empty() || target.back() == kPathSeparator || IsFolder(target))
    {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    const std::string beside = NameBeside(target);
    CFile to;
    if (!to.Open(beside, CFile::modeCreate | CFile::modeWrite))
        return FALSE;
    if (Copy(routine, data).Run(from, to) && to.Close() && ReplaceFileBy(beside, target))
        return TRUE;
    const DWORD error = GetLastError();
    to.Close();
    DeleteFileA(beside.c_str());
    SetLastError(error);
    return FALSE;
}
