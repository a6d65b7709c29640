// The settings sheet over the windows that can own a run.
#include "AppTest.h"

#include <algorithm>
#include <unistd.h>

namespace
{

const std::string kSheet = "Configuration...";

class Setup : public AppTest
{
protected:
    // A run of this page misses its folder.
    void PrepareARun()
    {
        m_saveFolder = "gone";
        OpenPage({Served("/a.jpg", "one"), Cached("http://h/c.gif", "cached")});
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
    PrepareARun();
    Run<CBatchDlg>([this](Robot& robot) {
        TakeMessage(robot);
        robot.WaitForWindow(kSheet);
        robot.Type("Save Folder", m_home.Path("new"), kSheet);
        robot.Press("OK", kSheet);
        Finish(robot);
    });
    EXPECT_EQ(m_home.Files("new"), (Names{"a.jpg", "c.gif"}));
}

// Not in the folder where the program was started either.
TEST_F(Setup, ARunThatGetsNoFolderStoresNothing)
{
    PrepareARun();
    m_saveFolder.clear();
    ASSERT_EQ(chdir(m_home.Folder().c_str()), 0);
    const Names before = m_home.Files("");
    Run<CBatchDlg>([](Robot& robot) {
        ExpectBox(robot, "Folder  does not exist.\nPlease specify a valid folder and try again.");
        robot.WaitForWindow(kSheet);
        robot.Key("Esc");
        Finish(robot);
    });
    EXPECT_EQ(m_home.Files(""), before);
}

TEST_F(Setup, AChangeTakesHoldAtTheNextItemOfTheRun)
{
    Gate gate;
    HoldItem(gate);
    OpenTwoItems();
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
    PrepareARun();
    for (const bool leaves : {false, true})
    {
        Gate gate;
        HoldWalk(gate);
        RunMain([&](Robot& robot) {
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
        });
    }
}
