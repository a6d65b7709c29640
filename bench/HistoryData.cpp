#include "bench/HistoryData.h"

namespace
{

constexpr int kDays = 365;

} // namespace

std::string PageUrl(int page)
{
    return "http://www.example.com/gallery/" + std::to_string(page) + "/index.php?set=7";
}

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

void WriteHistory(int pages, int files, const std::string& folder)
{
    constexpr std::int32_t kFirstDay = 1041422400;
    constexpr std::int32_t kSecondsOfDay = 86400;
    CHistoryStore store;
    for (int page = 0; page < pages; ++page)
    {
        CHistoryItem item = PageWithFiles(page, files);
        item.SetTime(kFirstDay + page * kDays / pages * kSecondsOfDay);
        store.AddItem(std::move(item));
    }
    MarkAll(store, pages, files, folder);
    store.SaveItems();
}
