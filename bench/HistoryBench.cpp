// The history without its window, at growing sizes.

#include "bench/Bench.h"
#include "bench/HistoryData.h"
#include "persist/HistoryStore.h"

namespace
{

constexpr int kFilesOfPage = 3;

struct Histories
{
    const StoredHistory sizes[4] = {
        {10000, kFilesOfPage}, {30000, kFilesOfPage}, {100000, kFilesOfPage}, {300000, kFilesOfPage}};
};

void MeasureLoading(Histories& histories)
{
    for (const StoredHistory& history : histories.sizes)
    {
        history.Enter();
        CHistoryStore store;
        Record("vantroy", TimeOf([&store] { store.LoadAll(); }), history.Pages());
        Expect(store.GetItems().size() == static_cast<std::size_t>(history.Pages()), "the history did not come back");
    }
}

void MeasureMarking()
{
    constexpr int kPages = 100;
    for (const int files : {1000, 10000, 100000})
    {
        CHistoryStore store;
        for (int page = 0; page < kPages; ++page)
            store.AddItem(PageWithFiles(page, files / kPages));
        Record("vantroy", TimeOf([&] { MarkAll(store, kPages, files / kPages, "/home/user/Download"); }), files);
    }
}

} // namespace

int main(int argc, char** argv)
{
    return RunLines(argc, argv, {{"history", With(MeasureLoading)}, {"marks", MeasureMarking}});
}
