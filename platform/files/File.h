// Files of the machine. Paths are byte text in the system's code page, converted to UTF-8 for the file system. Any
// thread may use an object, one at a time.
#pragma once

#include "platform/Types.h"

#include <cstddef>
#include <cstdint>
#include <string>

struct CFileStatus
{
    std::int64_t m_size = 0; // bytes; 0 for a folder
    bool m_bFolder = false;
    std::string m_szFullName;
};

class CFile
{
public:
    // Open flags, under their published numbers.
    static constexpr UINT modeRead = 0x0000;
    static constexpr UINT modeWrite = 0x0001;
    static constexpr UINT modeReadWrite = 0x0002;
    static constexpr UINT modeCreate = 0x1000;     // a new file, or an old one cut to length 0
    static constexpr UINT modeNoTruncate = 0x2000; // with modeCreate: an old one keeps its content

    CFile() = default;
    ~CFile();
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;

    // False, with the last error set, if the file cannot be opened; a folder, a pipe or a device counts as such.
    bool Open(const std::string& path, UINT flags);
    // False if not every byte could be written or read; the last error says why. A read at the end is not an error.
    bool Write(const void* data, std::size_t size);
    bool Read(void* data, std::size_t size, std::size_t& got);
    std::uint64_t GetLength() const;
    std::uint64_t SeekToEnd();
    // Moves to `offset` bytes from the start, which may lie beyond the end.
    bool SeekTo(std::uint64_t offset);
    bool SetLength(std::uint64_t length);
    // Waits until what was written stands on the disk.
    bool Flush();
    // Keeps all other locks off the range until the file is closed; waits up to 5 s for one that stands. Only files
    // that lock are held off, in this process or another. True as well where the file system has no locks.
    bool LockRange(std::uint64_t position, std::uint64_t count);
    // False if the system reports a late write error here. Closing a closed file is true and does nothing.
    bool Close();

    // A look at a path without opening it; false if nothing stands there, and for any path that ends in the separator.
    static bool GetStatus(const std::string& path, CFileStatus& status);

protected:
    int m_descriptor = -1;
};
