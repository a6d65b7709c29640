// Copying. The copy takes its target's place when it is whole, so a target never stands there half, and an old one
// survives a copy that fails or is cancelled.
#include "platform/files/File.h"
#include "platform/files/FileCalls.h"
#include "platform/files/MirrorFile.h"
#include "platform/system/LastError.h"

#include <memory>

namespace
{

constexpr std::size_t kBlock = std::size_t{64} * 1024;

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

    bool Run(CFile& from, CMirrorFile& to)
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

} // namespace

BOOL CopyFileExA(const char* existingFile, const char* newFile, LPPROGRESS_ROUTINE routine, void* data, BOOL*,
                 DWORD flags)
{
    if ((flags & ~COPY_FILE_FAIL_IF_EXISTS) != 0)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    CFile from;
    if (!from.Open(existingFile, CFile::modeRead))
        return FALSE;
    CMirrorFile to;
    const auto place = flags == 0 ? CMirrorFile::Place::Any : CMirrorFile::Place::Free;
    return to.Open(newFile, place) && Copy(routine, data).Run(from, to) && to.Close();
}
