// The settings sheet over the windows that can own a run.
#include "AppTest.h"

#include "harvest/BatchDlg.h"

#include <algorithm>

namespace
{

const std::string kSheet = "Configuration...";

class Setup : public AppTest
{
protected:
    // A page with an item for HTTP and one that the browser holds.
    void OpenPages()
    {
        m_browser.SetWindows(
            {Page(L"http://one/", L"One", {Served("/a.jpg", "one"), Cached("http://h/c.gif", "cached")})});
    }
    template <class Dialog>
    void LoseFolder(Dialog& dialog) const
    {
        dialog.m_setting.m_szSaveFolder.Set(CDownloadSetting::SaveFolder(m_home.Path("gone")));
        if constexpr (std::is_same_v<Dialog, CBatchDlg>)
            dialog.m_bScanAllWindows = 1;
    }
    // From the message about the folder to the sheet of the worker.
    void TakeMessage(Robot& robot) const
    {
        ExpectBox(robot,
                  "Folder " + m_home.Path("gone") + " does not exist.\nPlease specify a valid folder and try again.");
    }
    static std::size_t Sheets(const Robot& robot)
    {
        const auto windows = robot.Windows();
        return static_cast<std::size_t>(std::ranges::count(windows, kSheet));
    }
};

} // namespace

TEST_F(Setup, ARunWithoutItsFolderTakesTheOneFromTheSheet)
{
    OpenPages();
    const auto repair = [this](Robot& robot) {
        TakeMessage(robot);
        robot.WaitForWindow(kSheet);
        robot.Type("Save Folder", m_home.Path("new"), kSheet);
        robot.Press("OK", kSheet);
        Finish(robot);
        EXPECT_EQ(m_home.Files("new"), (Names{"a.jpg", "c.gif"}));
        for (const std::string& name : m_home.Files("new"))
            std::remove(m_home.Path("new/" + name).c_str());
    };
    RunMain(
        [&](Robot& robot) {
            robot.Press("Download Now");
            repair(robot);
        },
        [this](CMainDlg& dialog) { LoseFolder(dialog); });
    Run<CBatchDlg>(repair, [this](CBatchDlg& dialog) { LoseFolder(dialog); });
}

TEST_F(Setup, AChangeTakesHoldAtTheNextItemOfTheRun)
{
    Gate gate;
    HoldItem(gate);
    m_browser.SetWindows(
        {Page(L"http://page/", L"Page", {Served("/first", std::string(1 << 20, 'a')), Served("/second", "b")})});
    RunMain([&](Robot& robot) {
        robot.Press("Download Now");
        gate.WaitUntilHeld(robot);
        robot.Press("Setup...", kMainWindow);
        robot.Press("Limit Download File Size", kSheet);
        robot.Press("OK", kSheet);
        robot.WaitForNoWindow(kSheet);
        gate.Open();
        Finish(robot);
    });
    EXPECT_EQ(Saved(), Names{"first"});
}

TEST_F(Setup, TheWorkersSheetStandsBesideTheUsers)
{
    OpenPages();
    for (const bool leaves : {false, true})
    {
        Gate gate;
        HoldWalk(gate);
        RunMain(
            [&](Robot& robot) {
                robot.Press("Download Now");
                gate.WaitUntilHeld(robot);
                robot.Press("Setup...", kMainWindow);
                robot.WaitForWindow(kSheet);
                robot.Press("MP3 Music", kSheet);
                gate.Open();
                TakeMessage(robot);
                robot.WaitUntil([&] { return Sheets(robot) == 2; }, "a second sheet");
                if (leaves)
                    PostMessageA(m_window, WM_CLOSE, 0, 0);
                robot.Type("Save Folder", m_home.Path("Download"));
                robot.Key("Return");
                robot.WaitUntil([&] { return Sheets(robot) == 1; }, "one to close");
                robot.Key("Esc");
                robot.WaitForNoWindow(kSheet);
                if (leaves)
                    return;
                Finish(robot);
                EXPECT_EQ(Saved(), (Names{"a.jpg", "c.gif"}));
            },
            [this](CMainDlg& dialog) { LoseFolder(dialog); });
    }
}
