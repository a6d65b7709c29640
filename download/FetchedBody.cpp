#include "download/FetchedBody.h"

#include "platform/system/LastError.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace
{
// What is written is in the processor's cache still, and the machine has pages for it at hand: in steps of megabytes it
// looks for large ones that nobody used before, which takes several times as long.
constexpr DWORD kWriteSize = 256u << 10;
} // namespace

CFetchedBody::CFetchedBody(std::string folder, DWORD size)
    : m_folder(std::move(folder)), m_size(size), m_data(static_cast<char*>(GlobalAlloc(GPTR, size))),
      m_bAhead(size > kWriteSize)
{}

void CFetchedBody::Append(const char* data, DWORD size)
{
    const DWORD taken = std::min(size, m_size - m_received);
    std::memcpy(m_data.get() + m_received, data, taken);
    m_received += taken;
    if (m_bAhead && m_received - m_written >= kWriteSize)
        WriteAhead();
}

void CFetchedBody::WriteAhead()
{
    m_bOpen = m_bOpen || m_file.OpenNameless(m_folder);
    m_bAhead = m_bOpen && WriteRest();
}

bool CFetchedBody::WriteRest()
{
    while (m_written < m_received)
    {
        const DWORD count = std::min(kWriteSize, m_received - m_written);
        if (!m_file.SeekTo(m_written) || !m_file.Write(m_data.get() + m_written, count))
            return false;
        m_written += count;
        GlobalDiscard(m_data.get(), m_written);
    }
    return true;
}

bool CFetchedBody::OpenFor(const std::string& path)
{
    if (m_bOpen)
        m_file.SetPlace(path);
    else
        m_bOpen = m_file.Open(path, CMirrorFile::Place::Free);
    return m_bOpen;
}

bool CFetchedBody::Write(const std::string& path)
{
    return OpenFor(path) && WriteRest() && FillUp() && m_file.Close();
}

// Once: where the place was taken at the last moment, the file for the next one is whole, and may be closed.
bool CFetchedBody::FillUp()
{
    m_bFull = m_bFull || m_received == m_size || m_file.SetLength(m_size);
    return m_bFull;
}

// Into the memory again, for a file in another place.
bool CFetchedBody::TakeBack()
{
    std::size_t got = 0;
    const bool whole = m_file.SeekTo(0) && m_file.Read(m_data.get(), m_written, got) && got == m_written;
    m_file.Abort();
    m_bOpen = false;
    m_bFull = false;
    m_written = 0;
    return whole;
}

// The save folder may have become one on another file system meanwhile.
bool CFetchedBody::Store(const std::string& path)
{
    return Write(path) || (GetLastError() == ERROR_NOT_SAME_DEVICE && TakeBack() && Write(path));
}
