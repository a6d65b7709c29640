// Whole runs of the main dialog, with its progress window open, beside the tools that people use for the same job, over
// the same server. Prints a Markdown table; each figure is the median of several rounds in turn.
//
// usage: bench_download [ROUNDS]

#include "app/MainDlg.h"
#include "app/SideWindows.h"
#include "bench/Rounds.h"
#include "resources/ResourceIds.h"
#include "resources/Resources.h"

#include "platform/com/Com.h"
#include "platform/testing/HttpTestServer.h"
#include "platform/testing/MemoryBrowser.h"
#include "platform/testing/Robot.h"
#include "platform/testing/TempHome.h"
#include "platform/window/WinApp.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

constexpr int kSmallFiles = 1000;
constexpr std::size_t kSmallSize = 30 * 1024;
constexpr std::size_t kBigSize = 300u << 20;

CWinApp theApp;

std::string BytesOf(std::size_t size)
{
    std::string bytes(size, '\0');
    unsigned state = 1;
    for (char& byte : bytes)
        byte = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
    return bytes;
}

std::string SmallPath(int number)
{
    return "/f" + std::to_string(number) + ".jpg";
}

// The server is a process of its own, so that it takes nothing from the program that is measured.
class ServerProcess
{
public:
    ServerProcess()
    {
        int ready[2];
        if (pipe(ready) != 0 || (m_process = fork()) < 0)
            throw std::runtime_error("no process for the server");
        if (m_process == 0)
            Serve(ready[1]);
        UINT port = 0;
        if (read(ready[0], &port, sizeof(port)) != sizeof(port))
            throw std::runtime_error("the server did not start");
        close(ready[0]);
        close(ready[1]);
        m_port = std::to_string(port);
        setenv("VANTROY_HTTP_PORT", m_port.c_str(), 1);
    }
    ~ServerProcess()
    {
        kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
    }

    std::string UrlWithPort(const std::string& path) const
    {
        return "http://127.0.0.1:" + m_port + path;
    }

private:
    [[noreturn]] static void Serve(int ready)
    {
        HttpTestServer server;
        const std::string small = BytesOf(kSmallSize);
        for (int number = 0; number < kSmallFiles; ++number)
            server.Serve(SmallPath(number), small);
        server.Serve("/big.bin", BytesOf(kBigSize));
        const UINT port = server.Port();
        if (write(ready, &port, sizeof(port)) != sizeof(port))
            _exit(1);
        for (;;)
            pause();
    }

    pid_t m_process = -1;
    std::string m_port;
};

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

// Seconds from the press of Download Now to the end of the run.
double TimeVantroy(const std::vector<std::string>& paths)
{
    const TempHome home;
    home.Write("Download/.keep", "");
    MemoryBrowser browser;
    MemoryWindow page{MemoryWindow::Kind::Page, L"http://page/", L"Page", {}, {}};
    for (const std::string& path : paths)
    {
        const std::string url = "http://127.0.0.1" + path;
        page.images.push_back({std::wstring(url.begin(), url.end())});
    }
    browser.SetWindows({page});
    CSideWindows sideWindows;
    BenchDlg dialog(sideWindows);
    dialog.m_setting.m_szSaveFolder.Set(CDownloadSetting::SaveFolder(home.Path("Download")));
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
    // The run has entered the save folder, which goes with the home.
    if (chdir("/") != 0 || home.Files("Download").size() != paths.size() + 1)
        throw std::runtime_error("the run did not bring every file");
    return Seconds(dialog.m_end - start).count();
}

double TimeCommand(const std::string& command)
{
    return TimeOf([&command] {
        if (std::system(command.c_str()) != 0)
            throw std::runtime_error("failed: " + command);
    });
}

// One address a line for wget; a pair of options for curl.
void WriteLists(const TempHome& home, const ServerProcess& server, const std::vector<std::string>& paths)
{
    std::ofstream wget(home.Path("wget.txt"));
    std::ofstream curl(home.Path("curl.txt"));
    for (const std::string& path : paths)
    {
        wget << server.UrlWithPort(path) << '\n';
        curl << "url = " << server.UrlWithPort(path) << "\noutput = " << home.Path("curl" + path) << '\n';
    }
}

double TimeWget(const ServerProcess& server, const std::vector<std::string>& paths)
{
    const TempHome home;
    WriteLists(home, server, paths);
    return TimeCommand("wget -q --no-proxy -i " + home.Path("wget.txt") + " -P " + home.Path("wget"));
}

double TimeCurl(const ServerProcess& server, const std::vector<std::string>& paths)
{
    const TempHome home;
    WriteLists(home, server, paths);
    home.Write("curl/.keep", "");
    return TimeCommand("curl -s --http1.0 --noproxy '*' -K " + home.Path("curl.txt"));
}

// Peak of the resident memory since the last call, in MB.
double TakePeakMemory()
{
    std::ifstream status("/proc/self/status");
    std::string word;
    double peak = 0;
    while (status >> word)
    {
        if (word == "VmHWM:")
            status >> peak;
    }
    std::ofstream("/proc/self/clear_refs") << 5;
    return peak / 1024;
}

void PrintRow(const char* job, double own, double wget, double curl)
{
    const double best = wget > 0 ? std::min(wget, curl) : curl;
    const std::string wgetText = wget > 0 ? std::to_string(wget).substr(0, 5) + " s" : "";
    std::printf("| %s | %.3f s | %s | %.3f s | %.2f |\n", job, own, wgetText.c_str(), curl, own / best);
}

void Run(const ServerProcess& server, int rounds)
{
    std::vector<std::string> small;
    for (int number = 0; number < kSmallFiles; ++number)
        small.push_back(SmallPath(number));
    const std::vector<std::string> big{"/big.bin"};
    std::vector<double> own, wget, curl, bigOwn, bigCurl;
    double base = 0;
    double peak = 0;
    for (int round = 0; round < rounds; ++round)
    {
        own.push_back(TimeVantroy(small));
        wget.push_back(TimeWget(server, small));
        curl.push_back(TimeCurl(server, small));
        base = std::max(base, TakePeakMemory());
        bigOwn.push_back(TimeVantroy(big));
        peak = std::max(peak, TakePeakMemory());
        bigCurl.push_back(TimeCurl(server, big));
    }
    std::printf("| Job | Vantroy | wget -i | curl --http1.0 | Vantroy to the faster peer |\n|---|---|---|---|---|\n");
    PrintRow("1,000 files of 30 KB", MedianOf(own), MedianOf(wget), MedianOf(curl));
    PrintRow("one file of 300 MB", MedianOf(bigOwn), 0, MedianOf(bigCurl));
    std::printf("\nPeak memory with the 300 MB file: %.0f MB; with the small files: %.0f MB\n", peak, base);
}

} // namespace

int main(int argc, char** argv)
{
    try
    {
        // Before any thread starts: the server is a fork of this process.
        const ServerProcess server;
        StartTestDesktop(argc, argv);
        AfxSetResources(VantroyResources());
        CoInitialize(nullptr);
        Run(server, RoundsAsked(argc, argv));
        std::fflush(stdout);
        CoUninitialize();
        StopTestDesktop();
        return 0;
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
