#include "bench/HistoryBench.h"

#include "bench/HistoryData.h"
#include "bench/Rounds.h"
#include "persist/HistoryStore.h"

#include "platform/testing/TempHome.h"

#include <cstdio>
#include <stdexcept>
#include <string>

namespace
{

constexpr int kFilesOfPage = 3;

void Row(const char* what, int count, const std::vector<double>& times, double& before)
{
    const double each = MedianOf(times) / count;
    std::printf("| %s %d | %.4f s | %.2f us | ", what, count, MedianOf(times), each * 1e6);
    if (before > 0)
        std::printf("%.2f |\n", each / before);
    else
        std::printf("|\n");
    before = each;
}

void BenchLoading(int rounds)
{
    double before = 0;
    for (const int pages : {1000, 10000, 100000})
    {
        const TempHome home;
        WriteHistory(pages, kFilesOfPage, home.Folder());
        std::vector<double> times;
        for (int round = 0; round < rounds; ++round)
        {
            CHistoryStore store;
            times.push_back(TimeOf([&store] { store.LoadAll(); }));
            if (store.GetItems().size() != static_cast<std::size_t>(pages))
                throw std::runtime_error("the history did not come back");
        }
        Row("LoadAll, pages:", pages, times, before);
    }
}

void BenchMarking(int rounds)
{
    constexpr int kPages = 100;
    double before = 0;
    for (const int files : {1000, 10000, 100000})
    {
        std::vector<double> times;
        for (int round = 0; round < rounds; ++round)
        {
            CHistoryStore store;
            for (int page = 0; page < kPages; ++page)
                store.AddItem(PageWithFiles(page, files / kPages));
            times.push_back(TimeOf([&] { MarkAll(store, kPages, files / kPages, "/home/user/Download"); }));
        }
        Row("MarkFileDone, files:", files, times, before);
    }
}

} // namespace

void BenchHistory(int rounds)
{
    std::printf("\n| History | Time | For each | To the size before |\n|---|---|---|---|\n");
    BenchLoading(rounds);
    BenchMarking(rounds);
}
