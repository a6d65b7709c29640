#include "AppTest.h"

#include "app/RunMode.h"
#include "resources/ResourceIds.h"

#include <climits>

namespace
{

class MainRun : public AppTest
{
protected:
    static void WaitUntilEnabled(Robot& robot)
    {
        robot.WaitUntil([&robot] { return robot.IsEnabled("Download Now", kMainWindow); }, "Download Now");
    }
};

} // namespace

TEST(RunModes, AreFoundAnywhereInTheLine)
{
    const std::pair<const char*, RunMode> cases[] = {
        {"\"\\opt\\vantroy\"", RunMode::Plain},
        {"\"\\opt\\vantroy\" /current", RunMode::Current},
        {"\"\\opt\\vantroy\" /current /all", RunMode::All},
        {"\"\\opt\\vantroy\" /ALL", RunMode::Plain},
        {"\"\\opt\\vantroy\" x/allergy", RunMode::All},
        {"\"\\home\\allan\\vantroy\"", RunMode::Plain},
        {"\"/home/allan/vantroy\"", RunMode::All},
        {"", RunMode::Plain},
    };
    for (const auto& [line, mode] : cases)
        EXPECT_EQ(RunModeOf(line), mode) << line;
}

TEST_F(MainRun, BringsTheFilesOfTheTickedPages)
{
    m_browser.SetWindows({Page(L"http://one/", L"One", {Served("/a.jpg", "one"), Cached("http://h/c.gif", "cached")}),
                          Page(L"http://two/", L"Two", {Served("/b.jpg", "two")})});
    RunMain([this](Robot& robot) {
        robot.Tick(1);
        robot.Key("Alt+D");
        robot.WaitForWindow(kComplete);
        EXPECT_EQ(robot.LayoutFaults(kComplete), "");
        EXPECT_EQ(Saved(), (Names{"a.jpg", "c.gif"}));
        Finish(robot);
        robot.Tick(1);
        robot.Press("Download Now");
        Finish(robot);
        EXPECT_EQ(Saved(), (Names{"a.jpg", "b.jpg", "c.gif"}));
        WaitUntilEnabled(robot);
    });
    EXPECT_EQ(m_home.Read("Download/c.gif"), "cached");
    EXPECT_EQ(History(), "http://one/: a.jpg>a.jpg c.gif>c.gif; http://two/: b.jpg>b.jpg; ");
}

TEST_F(MainRun, TheOkOfItsEndAsksNothing)
{
    PressOkAtOnce<CMainDlg>(5);
}

TEST_F(MainRun, ComesBackToIdleWithNothingToDownload)
{
    OpenPage({});
    RunMain([this](Robot& robot) {
        robot.Press("Download Now");
        ExpectBox(robot, "No files to download.");
        WaitUntilEnabled(robot);
        EXPECT_FALSE(robot.IsShown("Cancel All"));
        OpenPage({Served("/a", "a"), Served("/b", "b")});
        for (const char* call : {"CoCreateInstance", "IShellWindows::get_Count", "IShellWindows::Item"})
        {
            m_browser.Fail(call, RPC_E_DISCONNECTED);
            robot.Press("Download Now");
            WaitUntilEnabled(robot);
            EXPECT_EQ(robot.Windows(), Names{kMainWindow}) << call;
        }
        m_browser.ClearFailure();
        robot.Press("Download Now");
        Finish(robot);
    });
    EXPECT_EQ(Saved(), (Names{"a", "b"}));
}

// The item in hand is held up in a copy from the cache or in an HTTP body while the user presses one of the two
// buttons.
TEST_F(MainRun, CancelsTheItemOrTheRun)
{
    const std::string cached = Cached("http://h/first", std::string(1 << 20, 'c'));
    const std::string served = Served("/first", std::string(1 << 20, 'b'));
    const std::string second = Served("/second", "second");
    for (const std::string& first : {cached, served})
    {
        for (const bool cancelAll : {false, true})
        {
            Gate gate;
            HoldItem(gate);
            OpenPage({first, second});
            RunMain([&](Robot& robot) {
                robot.Press("Download Now");
                gate.WaitUntilHeld(robot);
                if (cancelAll)
                {
                    robot.CloseWindow(kDownloading);
                    robot.Answer("No"); // changes nothing
                    robot.Key("Esc");
                    robot.Answer("No");
                    robot.Press("Cancel All", kDownloading);
                    ExpectBox(robot, "Are you sure you want to cancel current download task?", "Yes");
                    robot.WaitForNoWindow(kDownloading);
                    EXPECT_TRUE(robot.IsEnabled("Download Now"));
                    gate.Open();
                    WaitUntilEnabled(robot);
                }
                else
                {
                    robot.Press("Cancel Current", kDownloading);
                    gate.Open();
                    Finish(robot);
                }
            });
            EXPECT_EQ(Saved(), cancelAll ? Names{} : Names{"second"}) << first << cancelAll;
            std::remove(m_home.Path("Download/second").c_str());
        }
    }
    EXPECT_EQ(History(), "http://page/: second>second second>second; ");
}

TEST_F(MainRun, ASecondStartWaitsUntilTheOldWorkerHasLeft)
{
    Gate gate;
    HoldWalk(gate);
    OpenPage({Served("/a", "a")});
    RunMain([&gate](Robot& robot) {
        robot.Press("Download Now");
        gate.WaitUntilHeld(robot);
        EXPECT_FALSE(robot.IsEnabled("Download Now"));
        EXPECT_FALSE(robot.IsShown("Cancel All")) << "the progress window waits for the end of the walk";
        robot.Tick(0);
        robot.Tick(0);
        robot.Press("Download Now");
        ExpectBox(robot, "Terminating download thread now, please try again.");
        gate.Open();
        Finish(robot);
        robot.Press("Download Now");
        Finish(robot);
    });
}

TEST_F(MainRun, LeavesInTheMiddleOfARun)
{
    m_server.Serve("/stalls", HttpAnswer{.body = std::string(100000, 's'), .stallAfter = 50000});
    OpenPage({m_server.Url("/stalls"), Served("/b", "b")});
    RunMain([](Robot& robot) {
        robot.Press("Download Now");
        robot.WaitForWindow(kDownloading);
        robot.WaitUntil([&robot] { return robot.ProgressPercent(kDownloading) >= 40; }, "the stall");
        robot.CloseWindow(kMainWindow);
        robot.WaitForNoWindow(kMainWindow);
    });
    EXPECT_TRUE(Saved().empty());
}

// Leaves at every moment of a run; what counts is that each dialog ends, and that the sanitizers stay quiet.
TEST_F(MainRun, StartsAndLeavesManyTimes)
{
    OpenPage({Served("/a", std::string(20000, 'a')), Served("/b", "b")});
    for (int round = 0; round < 200; ++round)
    {
        m_whenShowing = nullptr;
        std::atomic<int> calls = INT_MIN; // until the run begins
        const auto leaveAt = [&calls, round, this] {
            if (++calls == round % 40 + 1)
                PostMessageA(m_window, WM_CLOSE, 0, 0);
        };
        m_browser.SetHook([&](const std::string&) { leaveAt(); });
        m_whenShowing = leaveAt;
        RunMain([&](Robot& robot) {
            calls = 0;
            PostMessageA(m_window, WM_COMMAND, IDC_DOWNLOAD, 0);
            robot.WaitUntil([&robot, this] { return !IsWindow(m_window) || robot.IsShown("OK", kComplete); },
                            "the end of the dialog or of the run");
        });
    }
}
