// The history window at growing sizes, as a user meets it: from the command to the painted window, and from the click
// on a page to its files.

#include "bench/Bench.h"
#include "bench/HistoryData.h"
#include "historyview/HistoryFrame.h"
#include "resources/ResourceIds.h"
#include "resources/Resources.h"

#include "platform/testing/Robot.h"
#include "platform/window/WinApp.h"

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

// From the making of the window to a list that answers.
double TimeOpening()
{
    const auto start = Clock::now();
    double seconds = 0;
    WithWindow([&](Robot& robot) {
        robot.RowCount(kWindow);
        seconds = Seconds(Clock::now() - start).count();
    });
    return seconds;
}

// From the key that goes to the page to the list of its files.
double TimeSelecting()
{
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
}

struct Pages
{
    const StoredHistory sizes[3] = {{5000, 3}, {15000, 3}, {50000, 3}};
};

void MeasureOpening(Pages& pages)
{
    for (const StoredHistory& history : pages.sizes)
    {
        history.Enter();
        Record("vantroy", TimeOpening(), history.Pages());
    }
}

struct PagesOfFiles
{
    const StoredHistory sizes[3] = {{1, 5000, Files::Stored}, {1, 15000, Files::Stored}, {1, 50000, Files::Stored}};
};

void MeasureSelecting(PagesOfFiles& pages)
{
    for (const StoredHistory& history : pages.sizes)
    {
        history.Enter();
        Record("vantroy", TimeSelecting(), history.FilesOfPage());
    }
}

} // namespace

int main(int argc, char** argv)
{
    StartTestDesktop(argc, argv);
    AfxSetResources(VantroyResources());
    const int status =
        RunLines(argc, argv, {{"history-window", With(MeasureOpening)}, {"page-of-files", With(MeasureSelecting)}});
    StopTestDesktop();
    return status;
}
