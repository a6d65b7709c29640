#include "AppTest.h"

#include "app/RunMode.h"
#include "resources/ResourceIds.h"

#include <climits>

namespace
{

class MainRun : public AppTest
{
protected:
    // One page with two items of which the first can be held up.
    void OpenPage(const std::string& first, const std::string& second)
    {
        m_browser.SetWindows({Page(L"http://page/", L"Page", {first, second})});
    }
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
    m_home.Write("copy", "cached");
    m_cache.Add("http://h/c.gif", m_home.Path("copy"));
    m_browser.SetWindows({Page(L"http://one/", L"One", {Served("/a.jpg", "one"), "http://h/c.gif"}),
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

TEST_F(MainRun, SaysWhenThereIsNothingToDownload)
{
    m_browser.SetWindows({Page(L"http://one/", L"One")});
    RunMain([](Robot& robot) {
        robot.Press("Download Now");
        EXPECT_EQ(robot.MessageBoxText(), "No files to download.");
        robot.Answer("OK");
        WaitUntilEnabled(robot);
        EXPECT_FALSE(robot.IsShown("Cancel All"));
    });
}

TEST_F(MainRun, ComesBackToIdleWhenTheBrowserFails)
{
    OpenPage(Served("/a", "a"), Served("/b", "b"));
    RunMain([this](Robot& robot) {
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

// The item in hand is held up in a copy from the cache, in an HTTP body, or in the cache look-up, while the user
// presses one of the two buttons.
TEST_F(MainRun, CancelsTheItemOrTheRun)
{
    enum class Item
    {
        Copy,
        Body,
        Lookup,
    };
    const std::string cached = "http://h/first";
    m_home.Write("copy", std::string(1 << 20, 'c'));
    m_server.Serve("/first", HttpAnswer{.body = std::string(1 << 20, 'b')});
    const std::string second = Served("/second", "second");
    for (const Item item : {Item::Copy, Item::Body, Item::Lookup})
    {
        for (const bool cancelAll : {false, true})
        {
            Gate gate;
            MemoryUrlCache cache;
            cache.Add(cached, m_home.Path("copy"));
            if (item == Item::Lookup)
                cache.SetHook([&gate, cached](const std::string& url) {
                    if (url == cached)
                        gate.Pass();
                });
            else
                HoldItem(gate);
            OpenPage(item == Item::Body ? m_server.Url("/first") : cached, second);
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
                    EXPECT_EQ(robot.MessageBoxText(), "Are you sure you want to cancel current download task?");
                    robot.Answer("Yes");
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
            // A look-up cannot be stopped, but the copy that follows it stops at its first poll.
            const Names expected = cancelAll              ? Names{}
                                   : item == Item::Lookup ? Names{"first", "second"}
                                                          : Names{"second"};
            EXPECT_EQ(Saved(), expected) << static_cast<int>(item) << cancelAll;
            for (const std::string& name : Saved())
                std::remove(m_home.Path("Download/" + name).c_str());
            m_whenShowing = nullptr;
        }
    }
    EXPECT_EQ(History(), "http://page/: second>second second>second first>first second>second; ");
}

TEST_F(MainRun, ASecondStartWaitsUntilTheOldWorkerHasLeft)
{
    Gate gate;
    HoldWalk(gate);
    OpenPage(Served("/a", "a"), Served("/b", "b"));
    RunMain([&gate](Robot& robot) {
        robot.Press("Download Now");
        gate.WaitUntilHeld(robot);
        EXPECT_FALSE(robot.IsEnabled("Download Now"));
        EXPECT_FALSE(robot.IsShown("Cancel All")) << "the progress window waits for the end of the walk";
        robot.Tick(0);
        robot.Tick(0);
        robot.Press("Download Now");
        EXPECT_EQ(robot.MessageBoxText(), "Terminating download thread now, please try again.");
        robot.Answer("OK");
        gate.Open();
        Finish(robot);
        robot.Press("Download Now");
        Finish(robot);
    });
}

TEST_F(MainRun, LeavesInTheMiddleOfARun)
{
    m_server.Serve("/stalls", HttpAnswer{.body = std::string(100000, 's'), .stallAfter = 50000});
    OpenPage(m_server.Url("/stalls"), Served("/b", "b"));
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
    OpenPage(Served("/a", std::string(20000, 'a')), Served("/b", "b"));
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
