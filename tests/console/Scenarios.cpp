// What these tests run: the executable once more, with the name of a scenario in the environment.
#include "Program.h"

#include "harvest/BatchDlg.h"
#include "resources/ResourceIds.h"
#include "resources/Resources.h"

#include "platform/com/Com.h"
#include "platform/system/Thread.h"
#include "platform/testing/MemoryBrowser.h"
#include "platform/window/WinApp.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <thread>

namespace
{

// The run of a page whose items are not fetched but played.
class RunDialog : public CBatchDlg
{
public:
    explicit RunDialog(std::function<void(RunDialog&)> run) : m_run(std::move(run))
    {
        m_bScanAllWindows = 1;
        m_setting.m_szSaveFolder.Set(CDownloadSetting::SaveFolder(std::string("/")));
        m_browser.SetWindows({{MemoryWindow::Kind::Page, L"http://page/", L"Page", {{L"http://host/image"}}, {}}});
    }

    void Item(const std::string& from, const std::string& file, DWORD size, DWORD percent)
    {
        CProgressFields& fields = ProgressFields();
        fields.SetTransferText(from, file);
        fields.SetSizeText(size);
        fields.SetRange(size);
        for (DWORD position = 0; position <= percent; position += percent / 4 + 1)
            fields.SetProgress(position, 100);
        fields.SetProgress(percent, 100);
    }
    void Filtered(const std::string& file)
    {
        ProgressFields().SetTransferText("host", file + "Filtered.");
        ProgressFields().SetSizeText(0);
        ProgressFields().SetProgress(0, 0);
    }
    // One that does not end by itself.
    void Endless(const std::function<bool()>& ended)
    {
        Item("host", "/endless.jpg", 1000, 12);
        while (!ended())
            std::this_thread::yield();
    }
    bool IsCancelled() const
    {
        return CBatchDlg::IsStopRequested();
    }

protected:
    void OnFetchBegins() override
    {
        m_run(*this);
    }
    bool IsStopRequested() const override
    {
        return true;
    }

private:
    const std::function<void(RunDialog&)> m_run;
    MemoryBrowser m_browser;
};

void InQuickSuccession(RunDialog& dialog)
{
    for (DWORD i = 0; i < 1000; ++i)
    {
        if (i % 10 == 5)
            dialog.Filtered("/small");
        dialog.Item("host", i % 3 == 0 ? "/f" + std::to_string(i) : "/same", i % 7, i % 101);
        for (int twice = 0; i % 10 == 7 && twice < 2; ++twice)
            dialog.Filtered("/twice");
    }
}

void Boxes(RunDialog& dialog)
{
    const int answer = AfxMessageBox("Go on?", MB_YESNO);
    AfxMessageBox(answer == IDNO ? "Answered\r\nNo.\x1b[31m" : "Wrong answer");
    dialog.Item("host", "/a", 1, 100);
}

void Deaf(RunDialog& dialog)
{
    dialog.Endless(IsSynchronousIoCancelled);
    AfxMessageBox(dialog.m_bFetchCurrent == 0 ? "I go on." : "A part is taken for the whole.");
    dialog.Endless([] { return false; });
}

const std::map<std::string, std::function<void(RunDialog&)>> kRuns = {
    {"quick", InQuickSuccession},
    {"one", [](RunDialog& dialog) { dialog.Item("host\x1b]0;x\x07", "/a\xff.jpg", 10, 100); }},
    {"long",
     [](RunDialog& dialog) {
         dialog.Item(std::string(300, 'h'), "/无" + std::string(300, 'x') + ".jpg", 4294967295, 45);
     }},
    {"boxes", Boxes},
    {"nothing", [](RunDialog&) {}},
    {"patient", [](RunDialog& dialog) { dialog.Endless([&] { return dialog.IsCancelled(); }); }},
    {"stuck", [](RunDialog& dialog) { dialog.Endless(IsSynchronousIoCancelled); }},
    {"deaf", Deaf},
};

class ScenarioApp : public CWinApp
{
public:
    BOOL InitInstance() override
    {
        CoInitialize(nullptr);
        const std::string scenario = std::getenv(kScenarioVariable);
        if (const auto run = kRuns.find(scenario); run != kRuns.end())
        {
            RunDialog dialog(run->second);
            m_pMainWnd = &dialog;
            dialog.DoModal();
            return FALSE;
        }
        if (scenario == "box")
            AfxMessageBox("Cannot start.");
        if (CDialog(IDD_MAIN).DoModal() != -1) // it has no progress bar
            AfxMessageBox("not refused");
        return FALSE;
    }
    std::optional<std::string> AnswerOption(std::string_view option) override
    {
        return option == "--mine" ? std::optional<std::string>("mine\n") : std::nullopt;
    }
    std::string HelpWithNothing() override
    {
        return "Nothing came.";
    }
    int ExitInstance() override
    {
        const char* status = std::getenv("CONSOLE_STATUS");
        return status ? std::atoi(status) : CWinApp::ExitInstance();
    }
};

} // namespace

int main(int argc, char** argv)
{
    if (std::getenv(kScenarioVariable))
    {
        ScenarioApp application;
        AfxSetResources(VantroyResources());
        return AfxWinMain(argc, argv);
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
