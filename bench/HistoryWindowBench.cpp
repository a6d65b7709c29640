// The history window at growing sizes, as a user meets it: from the command to the painted window, and from the click
// on a page to its files. Prints a Markdown table; each figure is the median of several rounds.
//
// usage: bench_history_window [ROUNDS]

#include "bench/HistoryData.h"
#include "bench/Rounds.h"
#include "historyview/HistoryFrame.h"
#include "resources/ResourceIds.h"
#include "resources/Resources.h"

#include "platform/testing/Robot.h"
#include "platform/testing/TempHome.h"
#include "platform/window/WinApp.h"

#include <cstdio>

namespace
{

constexpr const char* kWindow = "Download History";

CWinApp theApp;

// Opens the window, has the script done, and closes it.
void WithWindow(const std::function<void(Robot&)>& script)
{
    bool open = true;
    HWND window;
    RunScript(
        [&] {
            auto* frame = new CHistoryFrame([&open] { open = false; });
            frame->LoadFrame(IDR_HISTORY);
            window = frame->GetSafeHwnd();
            frame->ShowWindow(SW_SHOW);
            ServeMessagesUntil([&open] { return !open; }, std::chrono::minutes(5));
        },
        [&](Robot& robot) {
            robot.WaitForWindow(kWindow);
            script(robot);
            PostMessageA(window, WM_CLOSE, 0, 0);
        });
}

void Row(const char* what, int count, int rounds, const std::function<double()>& measure)
{
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round)
        times.push_back(measure());
    std::printf("| %s %d | %.3f s |\n", what, count, MedianOf(times));
}

void BenchOpening(int rounds)
{
    for (const int pages : {1000, 10000, 50000})
    {
        const TempHome home;
        WriteHistory(pages, 3, home.Folder());
        Row("opening on pages in 365 days:", pages, rounds, [] {
            const auto start = Clock::now();
            double seconds = 0;
            WithWindow([&](Robot& robot) {
                robot.RowCount(kWindow);
                seconds = Seconds(Clock::now() - start).count();
            });
            return seconds;
        });
    }
}

void BenchSelecting(int rounds)
{
    for (const int files : {5000, 50000})
    {
        const TempHome home;
        WriteHistory(1, files, home.Folder());
        for (int file = 0; file < files; ++file)
            home.Write(std::to_string(file) + ".jpg", "picture");
        Row("selecting a page with files:", files, rounds, [] {
            double seconds = 0;
            WithWindow([&seconds](Robot& robot) {
                robot.TreeNodes(kWindow);
                robot.Key("Home");
                robot.Key("Down");
                seconds = TimeOf([&robot] {
                    robot.Key("Down");
                    robot.RowCount(kWindow);
                });
            });
            return seconds;
        });
    }
}

} // namespace

int main(int argc, char** argv)
{
    StartTestDesktop(argc, argv);
    AfxSetResources(VantroyResources());
    const int rounds = RoundsAsked(argc, argv);
    std::printf("| History window | Time |\n|---|---|\n");
    BenchOpening(rounds);
    BenchSelecting(rounds);
    StopTestDesktop();
    return 0;
}
