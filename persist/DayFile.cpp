#include "persist/DayFile.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

namespace
{

// How every record begins, behind its first byte.
constexpr std::string_view kRecordRest = "DOWNLOAD>\r\n";

// Reads from the present position on, as much as there is; empty at the end.
template <std::size_t Size>
std::string_view ReadBlock(CFile& file, std::array<char, Size>& block)
{
    std::size_t got = 0;
    file.Read(block.data(), block.size(), got);
    return {block.data(), got};
}

// The place of the first zero byte; the length if there is none.
std::uint64_t FindZero(CFile& file)
{
    std::array<char, 65536> block;
    std::uint64_t end = 0;
    file.SeekTo(0);
    for (;;)
    {
        const std::string_view read = ReadBlock(file, block);
        const std::size_t zero = std::min(read.find('\0'), read.size());
        end += zero;
        if (zero < read.size() || read.empty())
            return end;
    }
}

} // namespace

CDayFile::CDayFile(const std::string& path)
    : m_path(path), m_bOpen(m_file.Open(path, CFile::modeCreate | CFile::modeNoTruncate | CFile::modeReadWrite) &&
                            m_file.LockRange(0, std::numeric_limits<std::int64_t>::max()))
{
    if (m_bOpen)
        CutRemains();
}

void CDayFile::CutRemains()
{
    const std::uint64_t zero = FindZero(m_file);
    std::array<char, kRecordRest.size()> block;
    m_file.SeekTo(zero + 1);
    if (zero < m_file.GetLength() && kRecordRest.starts_with(ReadBlock(m_file, block)))
        m_file.SetLength(zero);
}

bool CDayFile::Append(const std::string& record)
{
    if (!m_bOpen || record.empty())
        return false;
    const std::uint64_t end = m_file.SeekToEnd();
    const bool written = m_file.SeekTo(end + 1) && m_file.Write(record.data() + 1, record.size() - 1) &&
                         m_file.SeekTo(end) && m_file.Write(record.data(), 1);
    if (!written)
        m_file.SetLength(end);
    return written;
}
