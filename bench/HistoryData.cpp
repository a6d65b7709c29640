#include "bench/HistoryData.h"

#include <cstdlib>

namespace
{

constexpr int kDays = 365;

std::string PageUrl(int page)
{
    return "http://www.example.com/gallery/" + std::to_string(page) + "/index.php?set=7";
}

} // namespace

CHistoryItem PageWithFiles(int page, int files)
{
    CHistoryItem item;
    item.SetPageUrl(PageUrl(page));
    for (int file = 0; file < files; ++file)
    {
        CHistoryFile entry;
        entry.SetUrl(PageUrl(page) + "/picture" + std::to_string(file) + ".jpg");
        item.AddFile(entry);
    }
    return item;
}

void MarkAll(CHistoryStore& store, int pages, int files, const std::string& folder)
{
    for (int page = 0; page < pages; ++page)
        for (int file = 0; file < files; ++file)
            store.MarkFileDone(PageUrl(page) + "/picture" + std::to_string(file) + ".jpg",
                               folder + '/' + std::to_string(file) + ".jpg");
}

StoredHistory::StoredHistory(int pages, int filesOfPage, Files files) : m_pages(pages), m_filesOfPage(filesOfPage)
{
    constexpr std::int32_t kFirstDay = 1041422400;
    constexpr std::int32_t kSecondsOfDay = 86400;
    CHistoryStore store;
    for (int page = 0; page < pages; ++page)
    {
        CHistoryItem item = PageWithFiles(page, filesOfPage);
        item.SetTime(kFirstDay + static_cast<std::int32_t>(std::int64_t{page} * kDays / pages) * kSecondsOfDay);
        store.AddItem(std::move(item));
    }
    MarkAll(store, pages, filesOfPage, m_home.Folder());
    store.SaveItems();
    if (files == Files::Stored)
        WriteFiles();
}

void StoredHistory::Enter() const
{
    setenv("VANTROY_HOME", m_home.Folder().c_str(), 1);
}

void StoredHistory::WriteFiles() const
{
    for (int file = 0; file < m_filesOfPage; ++file)
        m_home.Write(std::to_string(file) + ".jpg", "picture");
}
