// What these tests run: the executable once more, with the name of a scenario in the environment.
#include "Program.h"

#include "download/ProgressFields.h"
#include "resources/ResourceIds.h"
#include "resources/Resources.h"

#include "platform/system/Thread.h"
#include "platform/window/Calls.h"
#include "platform/window/Dialog.h"
#include "platform/window/WinApp.h"

#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <thread>

namespace
{

// A dialog with the fields of a run, which a worker fills; it closes as a user's press of its cancel button asks.
class RunDialog : public CDialog
{
public:
    explicit RunDialog(std::function<void(RunDialog&)> run) : CDialog(IDD_PROGRESS), m_run(std::move(run))
    {}

    CProgressFields m_fields;
    std::atomic<bool> m_bCancelled = false;
    std::atomic<bool> m_bItemCancelled = false;

    void Item(const std::string& from, const std::string& file, DWORD size, DWORD percent)
    {
        m_fields.SetTransferText(from, file);
        m_fields.SetSizeText(size);
        m_fields.SetRange(size);
        for (DWORD position = 0; position <= percent; position += percent / 4 + 1)
            m_fields.SetProgress(position, 100);
        m_fields.SetProgress(percent, 100);
    }
    void Filtered(const std::string& file)
    {
        m_fields.SetTransferText("host", file + "Filtered.");
        m_fields.SetSizeText(0);
        m_fields.SetProgress(0, 0);
    }
    // One that does not end by itself.
    void Endless(const std::function<bool()>& ended)
    {
        Item("host", "/endless.jpg", 1000, 12);
        while (!ended())
            std::this_thread::yield();
    }

protected:
    const MessageMap& GetMessageMap() const override
    {
        static const MessageMap map{&CDialog::StaticMessageMap(),
                                    {On(WM_REFRESH_FIELDS, &RunDialog::OnRefreshFields),
                                     OnCommand(IDC_CANCEL_CURRENT, &RunDialog::OnCancelCurrent),
                                     ::OnTimer(&RunDialog::OnTimer)}};
        return map;
    }
    void DoDataExchange(CDataExchange* exchange) override
    {
        m_fields.DoDataExchange(exchange);
    }
    BOOL OnInitDialog() override
    {
        CDialog::OnInitDialog();
        SetTimer(1, 10);
        m_worker = AfxBeginThread(&Run, this);
        return TRUE;
    }
    void OnCancel() override
    {
        m_bCancelled = m_bEnded || MessageBox("Cancel\nall?", "", MB_YESNO) == IDYES;
    }

private:
    static UINT Run(void* dialog)
    {
        auto* self = static_cast<RunDialog*>(dialog);
        self->m_fields.SetTitle(IDS_DOWNLOADING);
        self->m_run(*self);
        self->m_bEnded = true;
        self->m_fields.SetTitle(IDS_DOWNLOAD_COMPLETE);
        self->m_fields.SetCancelAllText(IDS_OK);
        self->m_fields.ShowCancelCurrent(false);
        return 0;
    }
    LRESULT OnRefreshFields(WPARAM, LPARAM)
    {
        UpdateData(FALSE);
        return 0;
    }
    void OnCancelCurrent()
    {
        m_bItemCancelled = true;
    }
    void OnTimer(UINT_PTR)
    {
        if (m_bEnded && m_bCancelled)
            EndDialog(IDOK);
    }

    const std::function<void(RunDialog&)> m_run;
    std::atomic<bool> m_bEnded = false;
    std::unique_ptr<CWinThread> m_worker;
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
    AfxMessageBox(dialog.m_bItemCancelled ? "I go on." : "A part is taken for the whole.");
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
    {"patient", [](RunDialog& dialog) { dialog.Endless([&] { return dialog.m_bCancelled.load(); }); }},
    {"stuck", [](RunDialog& dialog) { dialog.Endless(IsSynchronousIoCancelled); }},
    {"deaf", Deaf},
};

// A dialog without a progress bar, which tells if it opens all the same.
class UserDialog : public CDialog
{
public:
    UserDialog() : CDialog(IDD_MAIN)
    {}

protected:
    BOOL OnInitDialog() override
    {
        AfxMessageBox("opened");
        return TRUE;
    }
};

class ScenarioApp : public CWinApp
{
public:
    BOOL InitInstance() override
    {
        const std::string scenario = std::getenv(kScenarioVariable);
        if (const auto run = kRuns.find(scenario); run != kRuns.end())
        {
            RunDialog dialog(run->second);
            m_pMainWnd = &dialog;
            dialog.DoModal();
        }
        else if (scenario == "plain")
        {
            UserDialog dialog;
            if (dialog.DoModal() != -1)
                AfxMessageBox("not refused");
        }
        else if (scenario == "box")
        {
            AfxMessageBox("Cannot start.");
            UserDialog().DoModal();
        }
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
