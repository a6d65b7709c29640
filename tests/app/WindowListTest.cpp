#include "AppTest.h"

#include "platform/com/Unknown.h"

using Kind = MemoryWindow::Kind;

using WindowList = AppTest;

TEST_F(WindowList, ShowsEachPageWithTitleAddressAndTick)
{
    m_browser.SetWindows({Page(L"http://one/", L"One"),
                          {Kind::Folder, L"file:///", L"Folder", {}, {}},
                          {Kind::Sleeping, L"http://asleep/", L"Asleep", {}, {}},
                          Page(L"http://two/", L""),
                          {Kind::NoPage, L"", L"", {}, {}},
                          {Kind::NotHtml, L"http://xml/", L"Xml", {}, {}},
                          Page(L"about:blank", L"图片"),
                          Page(L"http://one/", L"One")});
    RunMain([](Robot& robot) {
        EXPECT_EQ(robot.Columns(), (Names{"Browser Window Title", "Current URL"}));
        const Names expected = {"One|http://one/", "无标题|http://two/", "图片|about:blank", "One|http://one/"};
        ASSERT_EQ(robot.RowCount(), 4);
        for (int row = 0; row < 4; ++row)
        {
            EXPECT_EQ(robot.Cell(row, 0) + "|" + robot.Cell(row, 1), expected[row]);
            EXPECT_TRUE(robot.IsTicked(row));
        }
        EXPECT_TRUE(robot.IsEnabled("Download Now"));
        EXPECT_EQ(robot.LayoutFaults(), "");
    });
}

TEST_F(WindowList, TheDownloadButtonFollowsTheTicks)
{
    m_browser.SetWindows({Page(L"http://one/", L"One"), Page(L"http://two/", L"Two")});
    RunMain([](Robot& robot) {
        const auto enabled = [&robot](bool on) {
            robot.WaitUntil([&robot, on] { return robot.IsEnabled("Download Now") == on; }, "the button to follow");
        };
        robot.Tick(0);
        enabled(true);
        robot.Tick(1);
        enabled(false);
        robot.Tick(1);
        enabled(true);
        robot.RightClickList(0);
        EXPECT_EQ(robot.MenuEntries(), (Names{"Select All", "Reverse Select", "-", "Refresh Window List"}));
        robot.ChooseMenu("Select All");
        robot.WaitUntil([&robot] { return robot.IsTicked(0) && robot.IsTicked(1); }, "both ticks");
        robot.RightClickList();
        robot.ChooseMenu("Reverse Select");
        enabled(false);
        EXPECT_FALSE(robot.IsTicked(0) || robot.IsTicked(1));
        robot.RightClickList();
        robot.ChooseMenu("Refresh Window List");
        enabled(true);
        EXPECT_TRUE(robot.IsTicked(0) && robot.IsTicked(1));
    });
}

TEST_F(WindowList, IsEmptyWithoutABrowserAndFilledByARefresh)
{
    setenv("VANTROY_BROWSER", "/nowhere", 1);
    RunMain([this](Robot& robot) {
        EXPECT_TRUE(robot.ListHint().starts_with("No browser can be reached. Start one with vantroy-browser"));
        EXPECT_EQ(robot.RowCount(), 0);
        EXPECT_FALSE(robot.IsEnabled("Download Now"));
        robot.RightClickList();
        EXPECT_FALSE(robot.IsMenuEntryEnabled("Select All"));
        EXPECT_FALSE(robot.IsMenuEntryEnabled("Reverse Select"));
        EXPECT_TRUE(robot.IsMenuEntryEnabled("Refresh Window List"));
        robot.CloseMenu();
        m_browser.SetWindows({Page(L"http://one/", L"One")});
        EXPECT_TRUE(robot.StaysFalse([&robot] { return robot.RowCount() > 0; }, Robot::Milliseconds(100)));
        robot.Key("Alt+R");
        robot.WaitUntil([&robot] { return robot.RowCount() == 1; }, "the new page");
        EXPECT_TRUE(robot.IsEnabled("Download Now"));
        EXPECT_EQ(robot.ListHint(), "");
    });
    unsetenv("VANTROY_BROWSER");
}

TEST_F(WindowList, KeepsWhatItReadBeforeTheBrowserFailed)
{
    m_browser.SetWindows(
        {Page(L"http://one/", L"One"), Page(L"http://two/", L"Two"), Page(L"http://three/", L"Three")});
    RunMain([this](Robot& robot) {
        m_browser.Fail("IShellWindows::Item", RPC_E_DISCONNECTED, 2);
        robot.Press("Refresh List");
        robot.WaitUntil([&robot] { return robot.RowCount() == 1; }, "the one row");
        EXPECT_TRUE(robot.IsEnabled("Download Now"));
        m_browser.Fail("IShellWindows::get_Count", E_FAIL);
        robot.Press("Refresh List");
        robot.WaitUntil([&robot] { return robot.RowCount() == 0; }, "the empty list");
        m_browser.Fail("IHTMLDocument2::get_title", E_FAIL, 1);
        robot.Press("Refresh List");
        robot.WaitUntil([&robot] { return robot.RowCount() == 3; }, "all rows");
        EXPECT_EQ(robot.Cell(0, 0), "无标题");
        EXPECT_EQ(robot.Cell(1, 0), "Two");
    });
}

TEST_F(WindowList, StaysWithoutColumnsWhenTheStartFails)
{
    m_browser.SetWindows({Page(L"http://one/", L"One")});
    m_browser.Fail("CoCreateInstance", E_FAIL);
    Run<CMainDlg>([](Robot& robot) {
        ExpectBox(robot, "Error creating ie doc window!");
        robot.WaitUntil([&robot] { return robot.FocusName() != "OK"; }, "the box to go");
        EXPECT_TRUE(robot.Columns().empty());
        robot.Press("Download Now");
        robot.Press("Refresh List");
        EXPECT_TRUE(robot.StaysFalse([&robot] { return robot.RowCount() > 0 || robot.Windows().size() > 1; },
                                     Robot::Milliseconds(100)));
    });
}

TEST_F(WindowList, EverythingIsWithinReachOfTheKeyboard)
{
    m_browser.SetWindows({Page(L"http://one/", L"One")});
    RunMain([](Robot& robot) {
        Names walk = {robot.FocusName()};
        for (int i = 0; i < 8; ++i)
        {
            robot.Key("Tab");
            walk.push_back(robot.FocusName());
        }
        EXPECT_EQ(walk, (Names{"Current Browser Windows List:", "Refresh List", "Download Now", "Open Folder",
                               "View History", "Setup...", "Help", "Exit", "Current Browser Windows List:"}));
        EXPECT_FALSE(robot.IsShown("Album..."));
        EXPECT_FALSE(robot.IsShown("Advanced..."));
        robot.Key("Alt+E");
        robot.WaitForNoWindow(kMainWindow);
    });
    RunMain([](Robot& robot) {
        robot.Key("Esc");
        robot.WaitForNoWindow(kMainWindow);
    });
}
