#include "platform/files/FileFind.h"

#include "platform/files/File.h"
#include "platform/files/NativePath_p.h"
#include "platform/files/Path.h"
#include "platform/system/LastError.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <memory>

namespace
{

constexpr std::string_view kAll = "*.*";

struct FolderCloser
{
    void operator()(DIR* folder) const
    {
        closedir(folder);
    }
};

} // namespace

BOOL CFileFind::FindFile(const std::string& pattern)
{
    m_names.clear();
    m_next = 0;
    m_folder = pattern.substr(0, pattern.rfind(kPathSeparator) + 1);
    if (pattern.substr(m_folder.size()) != kAll)
        return FindOne(pattern.substr(m_folder.size()));
    const std::unique_ptr<DIR, FolderCloser> folder(opendir(NativePath(m_folder).c_str()));
    if (!folder)
    {
        SetLastErrorFromErrno(errno);
        return FALSE;
    }
    while (const dirent* entry = readdir(folder.get()))
        m_names.push_back(PathFromNative(entry->d_name));
    std::ranges::sort(m_names);
    return !m_names.empty();
}

BOOL CFileFind::FindOne(const std::string& name)
{
    CFileStatus status;
    if (name.empty() || !CFile::GetStatus(m_folder + name, status))
    {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return FALSE;
    }
    m_names = {name};
    return TRUE;
}

BOOL CFileFind::FindNextFile()
{
    m_next = std::min(m_next + 1, m_names.size());
    return m_next < m_names.size();
}

std::string CFileFind::GetFileName() const
{
    return m_next > 0 ? m_names[m_next - 1] : std::string();
}

std::string CFileFind::GetFilePath() const
{
    return m_folder + GetFileName();
}

std::string CFileFind::GetFileTitle() const
{
    const std::string name = GetFileName();
    const std::size_t dot = name.rfind('.');
    return IsDots() || dot == std::string::npos || dot == 0 ? name : name.substr(0, dot);
}

BOOL CFileFind::IsDots() const
{
    const std::string name = GetFileName();
    return name == "." || name == "..";
}

BOOL CFileFind::IsDirectory() const
{
    CFileStatus status;
    return CFile::GetStatus(GetFilePath(), status) && status.m_bFolder;
}
