#include "AppTest.h"

#include "resources/ResourceIds.h"

namespace
{

constexpr const char* kHistory = "Download History";
constexpr const char* kAdvanced = "Advanced";

class SideWindows : public AppTest
{
protected:
    static long CountOf(const Robot& robot, const char* title)
    {
        const Names windows = robot.Windows();
        return std::count(windows.begin(), windows.end(), title);
    }
};

} // namespace

TEST_F(SideWindows, TheHistoryStandsBesideTheDialogOnce)
{
    RunMain([this](Robot& robot) {
        robot.Press("View History", kMainWindow);
        robot.WaitForWindow(kHistory);
        EXPECT_EQ(robot.TreeNodes(kHistory), Names{kHistory});
        EXPECT_TRUE(robot.IsEnabled("Refresh List", kMainWindow)) << "the dialog stays usable";
        robot.Press("View History", kMainWindow);
        robot.Press("View History", kMainWindow);
        EXPECT_EQ(CountOf(robot, kHistory), 1);

        m_home.Write("History/2003-06-24", "");
        robot.Press("View History", kMainWindow);
        EXPECT_EQ(robot.TreeNodes(kHistory), Names{kHistory}) << "an open window reads nothing anew";
        robot.CloseWindow(kHistory);
        robot.WaitForNoWindow(kHistory);
        robot.Press("View History", kMainWindow);
        robot.WaitForWindow(kHistory);
        EXPECT_EQ(robot.TreeNodes(kHistory), (Names{kHistory, "  2003-06-24"}));
        robot.Press("Exit", kMainWindow);
        robot.WaitForNoWindow(kHistory);
    });
}

TEST_F(SideWindows, TheAdvancedCommandsStandBesideTheDialogOnce)
{
    m_home.Write("registry-classes.ini", "");
    RunMain([this](Robot& robot) {
        const auto open = [&] {
            SendMessageA(m_window, WM_COMMAND, IDC_ADVANCED, 0);
            robot.WaitForWindow(kAdvanced);
        };
        open();
        EXPECT_TRUE(robot.IsEnabled("Refresh List", kMainWindow)) << "the dialog stays usable";
        open();
        EXPECT_EQ(CountOf(robot, kAdvanced), 1);
        robot.CloseWindow(kAdvanced);
        robot.WaitForNoWindow(kAdvanced);
        open();
        robot.ChooseMainMenu("File", "Exit", kAdvanced);
        robot.WaitForNoWindow(kAdvanced);
        PostMessageA(m_window, WM_COMMAND, IDC_ALBUM, 0);
        EXPECT_EQ(robot.MessageBoxText(), "Unable to create Quenby Instance!\n");
        robot.Answer("OK");
        open();
        robot.Press("Exit", kMainWindow);
        robot.WaitForNoWindow(kAdvanced);
    });
}
