#include "persist/DayFile.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <string_view>

namespace
{

// How every record begins, behind its first byte.
constexpr std::string_view kRecordRest = "DOWNLOAD>\r\n";

using Block = std::array<char, 65536>;

// Reads from the present position on, as much as there is, empty at the end; nothing if the file cannot be read.
std::optional<std::string_view> ReadBlock(CFile& file, Block& block)
{
    std::size_t got = 0;
    if (!file.Read(block.data(), block.size(), got))
        return std::nullopt;
    return std::string_view(block.data(), got);
}

// The place of the first zero byte, if there is one.
std::optional<std::uint64_t> FindZero(CFile& file)
{
    Block block;
    std::uint64_t end = 0;
    file.SeekTo(0);
    for (;;)
    {
        const std::optional<std::string_view> read = ReadBlock(file, block);
        if (!read || read->empty())
            return std::nullopt;
        if (const std::size_t zero = read->find('\0'); zero != std::string_view::npos)
            return end + zero;
        end += read->size();
    }
}

// Whether what stands from the place of a zero byte on is no text of anybody: a record that does not count yet, or the
// zeros and line ends in which a file can end after a power cut.
bool IsRemains(CFile& file, std::uint64_t zero)
{
    constexpr std::string_view kBlanks("\0 \t\r\n", 5);
    Block block;
    file.SeekTo(zero + 1);
    std::optional<std::string_view> read = ReadBlock(file, block);
    if (read && kRecordRest.starts_with(read->substr(0, kRecordRest.size())))
        return true;
    while (read && !read->empty() && read->find_first_not_of(kBlanks) == std::string_view::npos)
        read = ReadBlock(file, block);
    return read && read->empty();
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
    const std::optional<std::uint64_t> zero = FindZero(m_file);
    if (zero && IsRemains(m_file, *zero))
        m_file.SetLength(*zero);
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
