// The main dialog over a browser, a cache and a server of the test's own, in a home of its own, used as a user uses it.
#pragma once

#include "app/MainDlg.h"
#include "app/SideWindows.h"
#include "base/Paths.h"
#include "harvest/BatchDlg.h"
#include "persist/HistoryStore.h"
#include "tests/Application.h"
#include "tests/MessageBox.h"
#include "tests/download/Stage.h"

#include "platform/com/Com.h"
#include "platform/testing/MemoryBrowser.h"
#include "platform/testing/Robot.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>

// A dialog whose run can be held up: the hook is called on the worker wherever the run shows something.
template <class Dialog>
class TestDlg : public Dialog
{
public:
    template <class... Arguments>
    TestDlg(std::function<void()> whenShowing, std::atomic<HWND>& window, Arguments&... arguments)
        : Dialog(arguments...), m_whenShowing(std::move(whenShowing)), m_window(window)
    {}

private:
    BOOL OnInitDialog() override
    {
        m_window = this->GetSafeHwnd();
        return Dialog::OnInitDialog();
    }
    CProgressFields& ProgressFields() override
    {
        if (m_whenShowing)
            m_whenShowing();
        return Dialog::ProgressFields();
    }

    std::function<void()> m_whenShowing;
    std::atomic<HWND>& m_window;
};

// Holds a thread up until the test lets it go.
class Gate
{
public:
    // Holds up who comes as the nth, and all behind.
    void Pass(int nth = 1)
    {
        if (++m_calls < nth)
            return;
        m_held = true;
        m_open.wait(false);
        m_held = false;
    }
    void WaitUntilHeld(const Robot& robot) const
    {
        robot.WaitUntil([this] { return m_held.load(); }, "the run to be held up");
    }
    void Open()
    {
        m_open = true;
        m_open.notify_all();
    }

private:
    std::atomic<int> m_calls = 0;
    std::atomic<bool> m_held = false;
    std::atomic<bool> m_open = false;
};

using Names = std::vector<std::string>;

inline constexpr const char* kMainWindow = "Vantroy";
inline constexpr const char* kDownloading = "Download files now...";
inline constexpr const char* kComplete = "Download complete!";

class AppTest : public testing::Test, protected Stage
{
protected:
    AppTest()
    {
        StartApplication();
    }

    // Runs the dialog; the script ends it, or it is closed when the script is over.
    template <class Dialog>
    void Run(const std::function<void(Robot&)>& script)
    {
        const auto run = [this](auto&... arguments) {
            TestDlg<Dialog> dialog(m_whenShowing, m_window, arguments...);
            dialog.m_setting.m_szSaveFolder.Set(
                CDownloadSetting::SaveFolder(m_saveFolder.empty() ? "" : m_home.Path(m_saveFolder)));
            if constexpr (std::is_same_v<Dialog, CBatchDlg>)
                dialog.m_bScanAllWindows = 1;
            AfxGetApp()->m_pMainWnd = &dialog;
            dialog.DoModal();
            AfxGetApp()->m_pMainWnd = nullptr;
        };
        RunScript(
            [&run, this] {
                CoInitialize(nullptr);
                if constexpr (std::is_same_v<Dialog, CMainDlg>)
                    run(m_sideWindows);
                else
                    run();
                m_sideWindows.CloseAll();
                CoUninitialize();
            },
            [&script, this](Robot& robot) {
                script(robot);
                PostMessageA(m_window, WM_CLOSE, 0, 0);
            });
        EXPECT_EQ(m_browser.LiveObjects(), 0);
    }

    // The main dialog, with the script from the moment on when it is on show.
    void RunMain(const std::function<void(Robot&)>& script)
    {
        Run<CMainDlg>([&script](Robot& robot) {
            robot.WaitForWindow(kMainWindow);
            script(robot);
        });
    }
    // Presses the button at the end of a run, which closes its window.
    static void Finish(Robot& robot, const char* title = kComplete)
    {
        robot.WaitForWindow(title);
        robot.Press("OK", title);
        robot.WaitForNoWindow(title);
    }
    // Holds the worker up where it asks a page for its images.
    void HoldWalk(Gate& gate)
    {
        m_browser.SetHook([&gate](const std::string& call) {
            if (call == "IHTMLDocument2::get_images")
                gate.Pass();
        });
    }
    // Holds it up within the bytes of its first item, whose own texts come first.
    void HoldItem(Gate& gate)
    {
        m_whenShowing = [&gate] { gate.Pass(10); };
    }

    // The run of an item that fails, held up where it shows something for the nth time: behind the "OK" of its end,
    // whose press asks nothing.
    template <class Dialog>
    void PressOkAtOnce(int nth)
    {
        Gate gate;
        m_whenShowing = [&gate, nth] { gate.Pass(nth); };
        OpenPage({"a.jpg"}); // is no address
        Run<Dialog>([&gate](Robot& robot) {
            if constexpr (std::is_same_v<Dialog, CMainDlg>)
                robot.Press("Download Now");
            gate.WaitUntilHeld(robot);
            Finish(robot);
            gate.Open();
        });
    }
    // A page of the browser with these images.
    static MemoryWindow Page(const std::wstring& url, const std::wstring& title,
                             const std::vector<std::string>& images = {})
    {
        MemoryWindow page{MemoryWindow::Kind::Page, url, title, {}, {}};
        for (const std::string& image : images)
            page.images.push_back({std::wstring(image.begin(), image.end())});
        return page;
    }
    void OpenPage(const std::vector<std::string>& images)
    {
        m_browser.SetWindows({Page(L"http://page/", L"Page", images)});
    }
    // A page with two items, of which HoldItem can hold up the first.
    void OpenTwoItems()
    {
        OpenPage({Served("/first", std::string(1 << 20, 'f')), Served("/second", "second")});
    }
    // What the history files hold: "page: item>saved as …; " for each page.
    static std::string History()
    {
        CHistoryStore store;
        store.LoadAll();
        std::string text;
        for (const CHistoryItem& item : store.GetItems())
        {
            text += item.GetPageUrl() + ':';
            for (const CHistoryFile& file : item.m_files)
                text += ' ' + ItemNameOf(file.m_szUrl) + '>' + ItemNameOf(file.m_szLocalPath);
            text += "; ";
        }
        return text;
    }

    MemoryBrowser m_browser;
    CSideWindows m_sideWindows;
    std::string m_saveFolder = "Download";
    std::function<void()> m_whenShowing;
    std::atomic<HWND> m_window{HWND{}}; // of the dialog, from its start on
};
