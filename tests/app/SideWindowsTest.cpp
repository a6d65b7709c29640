#include "AppTest.h"

#include "resources/ResourceIds.h"

namespace
{

constexpr const char* kHistory = "Download History";
constexpr const char* kAdvanced = "Advanced";

class SideWindows : public AppTest
{
protected:
    // Leaves the window open.
    void StandsBesideTheDialogOnce(const Robot& robot, const std::string& title, int command) const
    {
        const auto open = [&] {
            PostMessageA(m_window, WM_COMMAND, static_cast<WPARAM>(command), 0);
            robot.WaitForWindow(title);
        };
        open();
        EXPECT_TRUE(robot.IsEnabled("Refresh List", kMainWindow)) << "the dialog stays usable";
        SendMessageA(m_window, WM_COMMAND, static_cast<WPARAM>(command), 0);
        const Names windows = robot.Windows();
        EXPECT_EQ(std::count(windows.begin(), windows.end(), title), 1);
        robot.CloseWindow(title);
        robot.WaitForNoWindow(title);
        open();
    }
};

} // namespace

TEST_F(SideWindows, TheHistoryIsReadAsItsWindowOpens)
{
    RunMain([this](Robot& robot) {
        StandsBesideTheDialogOnce(robot, kHistory, IDC_HISTORY);
        m_home.Write("History/2003-06-24", "");
        robot.Press("View History", kMainWindow);
        EXPECT_EQ(robot.TreeNodes(kHistory), Names{kHistory}) << "an open window reads nothing anew";
        robot.CloseWindow(kHistory);
        robot.WaitForNoWindow(kHistory);
        robot.Press("View History", kMainWindow);
        EXPECT_EQ(robot.TreeNodes(kHistory), (Names{kHistory, "  2003-06-24"}));
        robot.Press("Exit", kMainWindow);
        robot.WaitForNoWindow(kHistory);
    });
}

TEST_F(SideWindows, TheAdvancedCommandsComeFromAHiddenButton)
{
    m_home.Write("registry-classes.ini", "");
    RunMain([this](Robot& robot) {
        StandsBesideTheDialogOnce(robot, kAdvanced, IDC_ADVANCED);
        robot.ChooseMainMenu("File", "Exit", kAdvanced);
        robot.WaitForNoWindow(kAdvanced);
        PostMessageA(m_window, WM_COMMAND, IDC_ALBUM, 0);
        ExpectBox(robot, "Unable to create Quenby Instance!\n");
        SendMessageA(m_window, WM_COMMAND, IDC_ADVANCED, 0);
        robot.Press("Exit", kMainWindow);
        robot.WaitForNoWindow(kAdvanced);
    });
}
