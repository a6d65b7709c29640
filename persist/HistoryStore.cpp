#include "persist/HistoryStore.h"

#include <algorithm>
#include <ctime>

void CHistoryFile::SetUrl(const std::string& url)
{
    m_szUrl = url;
}

void CHistoryFile::SetLocalPath(const std::string& path)
{
    m_szLocalPath = path;
}

CHistoryItem::CHistoryItem() : m_time(static_cast<std::int32_t>(std::time(nullptr)))
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
}

void CHistoryStore::AddItem(const CHistoryItem& item)
{
    const auto same = std::find_if(m_items.begin(), m_items.end(), [&item](const CHistoryItem& other) {
        return other.GetPageUrl() == item.GetPageUrl();
    });
    if (same == m_items.end())
        m_items.push_back(item);
    else
        same->m_files.insert(same->m_files.end(), item.m_files.begin(), item.m_files.end());
}

void CHistoryStore::MarkFileDone(const std::string& url, const std::string& path)
{
    for (CHistoryItem& item : m_items)
    {
        for (CHistoryFile& file : item.m_files)
        {
            if (std::string_view(file.m_szUrl) != url)
                continue;
            file.SetLocalPath(path);
            file.m_bDone = true;
            return;
        }
    }
}
