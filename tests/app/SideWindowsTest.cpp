#include "AppTest.h"

namespace
{

constexpr const char* kHistory = "Download History";

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
    Run([this](Robot& robot) {
        robot.WaitForWindow(kMainWindow);
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
