#include "persist/HistoryStore.h"

#include "platform/system/Time.h"

void CHistoryFile::SetUrl(const std::string& url)
{
    m_szUrl = url;
}

void CHistoryFile::SetLocalPath(const std::string& path)
{
    m_szLocalPath = path;
}

CHistoryItem::CHistoryItem() : m_time(static_cast<std::int32_t>(CTime::GetCurrentTime().GetTime()))
{}

void CHistoryItem::SetPageUrl(const std::string& url)
{
    m_szPageUrl = url;
}

std::string CHistoryItem::GetPageUrl() const
{
    return m_szPageUrl.c_str();
}

void CHistoryItem::SetTime(std::int32_t time)
{
    m_time = time;
}

std::int32_t CHistoryItem::GetTime() const
{
    return m_time;
}

void CHistoryItem::AddFile(const CHistoryFile& file)
{
    m_files.push_back(file);
}

void CHistoryStore::Clear()
{
    m_items.clear();
    m_dayNames.clear();
    m_pageIndex.clear();
    m_fileIndex.clear();
    m_bFilesIndexed = false;
}

void CHistoryStore::AddItem(CHistoryItem item)
{
    m_bFilesIndexed = false;
    const auto [place, isNew] = m_pageIndex.try_emplace(item.GetPageUrl(), m_items.size());
    if (isNew)
    {
        m_items.push_back(std::move(item));
        return;
    }
    std::vector<CHistoryFile>& files = m_items[place->second].m_files;
    files.insert(files.end(), item.m_files.begin(), item.m_files.end());
}

void CHistoryStore::MarkFileDone(const std::string& url, const std::string& path)
{
    if (!m_bFilesIndexed)
        IndexFiles();
    const auto found = m_fileIndex.find(url);
    if (found == m_fileIndex.end())
        return;
    const auto [item, file] = found->second;
    m_items[item].m_files[file].SetLocalPath(path);
    m_items[item].m_files[file].m_bDone = true;
}

// Made anew at the first mark behind an AddItem: a run adds all its pages first.
void CHistoryStore::IndexFiles()
{
    m_fileIndex.clear();
    for (std::size_t item = 0; item < m_items.size(); ++item)
    {
        const std::vector<CHistoryFile>& files = m_items[item].m_files;
        for (std::size_t file = 0; file < files.size(); ++file)
            m_fileIndex.try_emplace(files[file].m_szUrl, item, file);
    }
    m_bFilesIndexed = true;
}
