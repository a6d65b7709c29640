// Whole runs of the main dialog, with its progress window open, beside the tools that people use for the same job, over
// the same server; and what the progress window costs.

#include "app/MainDlg.h"
#include "app/SideWindows.h"
#include "base/UrlList.h"
#include "bench/BareRun.h"
#include "bench/Bench.h"
#include "bench/FetchPeers.h"
#include "bench/FileServer.h"
#include "bench/KeptHome.h"
#include "bench/PeakMemory.h"
#include "resources/ResourceIds.h"
#include "resources/Resources.h"

#include "platform/com/Com.h"
#include "platform/testing/MemoryBrowser.h"
#include "platform/testing/Robot.h"
#include "platform/window/WinApp.h"

#include <atomic>
#include <thread>
#include <unistd.h>

namespace
{

const ServedFiles kSmall{"-small.jpg", 1000, 30 * 1024};
const ServedFiles kBig{"-big.jpg", 1, 500u << 20};
const ServedFiles kMiddle{"-middle.jpg", 1, 300u << 20};

CWinApp theApp;
const FileServer* g_server = nullptr;

std::string UrlOf(const std::string& path)
{
    return "http://127.0.0.1" + path;
}

// The main dialog, which tells when its run is over.
class BenchDlg : public CMainDlg
{
public:
    using CMainDlg::CMainDlg;

    std::atomic<HWND> m_window{HWND{}};
    std::atomic<bool> m_bOver = false;
    Clock::time_point m_end;

private:
    BOOL OnInitDialog() override
    {
        const BOOL result = CMainDlg::OnInitDialog();
        m_window = GetSafeHwnd();
        return result;
    }
    void OnFetchEnds() override
    {
        CMainDlg::OnFetchEnds();
        m_end = Clock::now();
        m_bOver = true;
    }
};

MemoryWindow PageWith(const ServedFiles& files)
{
    MemoryWindow page{MemoryWindow::Kind::Page, L"http://page/", L"Page", {}, {}};
    for (const std::string& path : PathsOf(files))
    {
        const std::string url = UrlOf(path);
        page.images.push_back({std::wstring(url.begin(), url.end())});
    }
    return page;
}

// Seconds from the press of Download Now to the end of the run.
double TimeVantroy(const ServedFiles& files, const TempHome& home)
{
    MemoryBrowser browser;
    browser.SetWindows({PageWith(files)});
    CSideWindows sideWindows;
    BenchDlg dialog(sideWindows);
    SetSaveFolder(dialog, home);
    Clock::time_point start;
    RunScript([&dialog] { dialog.DoModal(); },
              [&](Robot& robot) {
                  robot.WaitForWindow("Vantroy");
                  start = Clock::now();
                  PostMessageA(dialog.m_window, WM_COMMAND, IDC_DOWNLOAD, 0);
                  while (!dialog.m_bOver)
                      usleep(1000);
                  PostMessageA(dialog.m_window, WM_CLOSE, 0, 0);
              });
    ExpectSaved(home, files.count);
    return Seconds(dialog.m_end - start).count();
}

// On a thread beside the user interface, as any run.
double TimeLoop(const ServedFiles& files, const TempHome& home, CProgressFields* fields = nullptr)
{
    BareRun run(fields);
    SetSaveFolder(run, home);
    CUrlList urls;
    for (const std::string& path : PathsOf(files))
        urls.AddTail(UrlOf(path));
    std::atomic<bool> over = false;
    double seconds = 0;
    std::thread worker([&] {
        seconds = TimeOf([&] { run.DownloadFiles(urls); });
        over = true;
    });
    ServeMessagesUntil([&over] { return over.load(); }, std::chrono::minutes(5));
    worker.join();
    ExpectSaved(home, files.count);
    return seconds;
}

double TimeWithWindow()
{
    CProgressDlg* const window = new CProgressDlg(nullptr); // deletes itself with its window
    Expect(window->Create(IDD_PROGRESS, nullptr), "no progress window");
    window->ShowWindow(SW_SHOW);
    const double seconds = TimeLoop(kMiddle, TempHome(), &window->m_fields);
    window->DestroyWindow();
    return seconds;
}

void MeasureSmall()
{
    const auto paths = PathsOf(kSmall);
    Record("vantroy", TimeVantroy(kSmall, KeptHome()));
    Record("without a window", TimeLoop(kSmall, KeptHome()));
    Record("wget", TimeWget(g_server->Port(), paths, KeptHome()));
    Record("curl", TimeCurl(g_server->Port(), paths, KeptHome()));
    Record("aria2c", TimeAria(g_server->Port(), paths, KeptHome()));
}

void MeasureBig()
{
    TakePeakMemory();
    Record("vantroy", TimeVantroy(kBig, TempHome()));
    Record("peak memory", TakePeakMemory());
    Record("curl", TimeCurl(g_server->Port(), PathsOf(kBig), TempHome()));
}

void MeasureProgress()
{
    Record("on", TimeWithWindow());
    Record("off", TimeLoop(kMiddle, TempHome()));
}

} // namespace

int main(int argc, char** argv)
{
    const FileServer server({kSmall, kBig, kMiddle});
    g_server = &server;
    StartTestDesktop(argc, argv);
    AfxSetResources(VantroyResources());
    CoInitialize(nullptr);
    const int status =
        RunLines(argc, argv, {{"small", MeasureSmall}, {"big", MeasureBig}, {"progress", MeasureProgress}});
    CoUninitialize();
    StopTestDesktop();
    return status;
}
