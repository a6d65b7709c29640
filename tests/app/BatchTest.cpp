#include "AppTest.h"

#include "app/PageList.h"

#include "platform/testing/Limits.h"

#include <filesystem>

namespace
{

constexpr const char* kGettingList = "Now getting download files list...";
constexpr const char* kNoPage = "No page to download.";

class BatchRun : public AppTest
{
protected:
    using Script = std::function<void(Robot&)>;

    void RunAll(const Script& script)
    {
        Run<CBatchDlg>(script);
    }
    static void CancelAll(Robot& robot, const char* title, const char* answer)
    {
        robot.Press("Cancel All", title);
        ExpectBox(robot, "Are you sure you want to cancel current download task?", answer);
    }
    // The pages of a page list file of that content, one blank behind each; or what the user is told.
    std::string PageList(const std::string& content) const
    {
        m_home.Write("cacheurl.xml", content);
        return PageList();
    }
    static std::string PageList()
    {
        CUrlList pages;
        std::string text = ReadPageList(pages);
        for (const std::string& url : pages)
            text += url + ' ';
        return text;
    }
};

} // namespace

TEST_F(BatchRun, TakesEveryOpenPageAndStaysUntilItIsDismissed)
{
    const std::string a = Served("/a.jpg", "one");
    m_browser.SetWindows({Page(L"http://one/", L"One", {a, Cached("http://h/c.gif", "cached")}),
                          MemoryWindow{MemoryWindow::Kind::Folder, {}, {}, {}, {}},
                          Page(L"about:blank", L"", {Served("/b.jpg", "two")}), Page(L"http://one/", L"One", {a})});
    RunAll([this](Robot& robot) {
        robot.WaitForWindow(kComplete);
        EXPECT_FALSE(robot.IsShown("Cancel Current", kComplete));
        EXPECT_EQ(robot.Text("Download File:", kComplete), "/a.jpg");
        EXPECT_TRUE(robot.StaysFalse([this] { return !IsWindow(m_window); }, Robot::Milliseconds(300)));
        EXPECT_EQ(robot.LayoutFaults(kComplete), "");
        Finish(robot);
    });
    EXPECT_EQ(Saved(), (Names{"a.jpg", "b.jpg", "c.gif"}));
    EXPECT_FALSE(m_home.Exists("History"));
}

TEST_F(BatchRun, TheOkOfItsEndAsksNothing)
{
    PressOkAtOnce<CBatchDlg>(4);
}

TEST_F(BatchRun, SaysWhenThereIsNothingToDownload)
{
    OpenPage({});
    RunAll([](Robot& robot) {
        EXPECT_EQ(robot.MessageBoxText(), "No files to download.");
        EXPECT_FALSE(robot.IsShown("Cancel Current"));
        robot.Answer("OK");
        Finish(robot, kNoPage);
    });
}

TEST_F(BatchRun, EndsInOrderWhenTheBrowserFails)
{
    OpenPage({Served("/a", "a")});
    m_browser.Fail("CoCreateInstance", RPC_E_DISCONNECTED);
    RunAll([this](Robot& robot) {
        ExpectBox(robot, "Error creating ie doc window!");
        robot.WaitUntil([this] { return !IsWindow(m_window); }, "the end of the dialog");
    });
    for (const char* call : {"IShellWindows::get_Count", "IShellWindows::Item"})
    {
        m_browser.Fail(call, RPC_E_DISCONNECTED);
        RunAll([](Robot& robot) { Finish(robot, kNoPage); });
    }
    EXPECT_TRUE(Saved().empty());
}

// A walk and an item in hand are not stopped: the walk goes to its end, the item is stored, then the window goes by
// itself.
TEST_F(BatchRun, ClosesBehindWhatItHasInHandWhenItIsCancelled)
{
    const std::pair<bool, Names> cases[] = {{true, {}}, {false, {"first"}}};
    for (const auto& [inTheWalk, saved] : cases)
    {
        Gate gate;
        inTheWalk ? HoldWalk(gate) : HoldItem(gate);
        OpenTwoItems();
        RunAll([&](Robot& robot) {
            const char* title = inTheWalk ? kGettingList : kDownloading;
            gate.WaitUntilHeld(robot);
            CancelAll(robot, title, "No");
            CancelAll(robot, title, "Yes");
            EXPECT_TRUE(robot.StaysFalse([this] { return !IsWindow(m_window); }, Robot::Milliseconds(300)));
            gate.Open();
            robot.WaitUntil([this] { return !IsWindow(m_window); }, "the window to close by itself");
        });
        EXPECT_EQ(Saved(), saved);
        m_browser.SetHook(nullptr);
        m_whenShowing = nullptr;
    }
}

TEST_F(BatchRun, CancelsTheItemInHandAndGoesOn)
{
    Gate gate;
    HoldItem(gate);
    OpenTwoItems();
    RunAll([&gate](Robot& robot) {
        gate.WaitUntilHeld(robot);
        CancelAll(robot, kDownloading, "No"); // changes nothing
        robot.Press("Cancel Current", kDownloading);
        gate.Open();
        Finish(robot);
    });
    EXPECT_EQ(Saved(), Names{"second"});
}

// Asked to close at every moment of a run; what counts is that each dialog ends, and that the sanitizers stay quiet.
TEST_F(BatchRun, IsCancelledManyTimes)
{
    OpenPage({Served("/a", std::string(20000, 'a')), Served("/b", "b")});
    for (int round = 0; round < 60; ++round)
    {
        std::atomic<int> calls = 0;
        const auto closeAt = [&calls, round, this] {
            if (++calls == round % 30 + 1)
                PostMessageA(m_window, WM_CLOSE, 0, 0);
        };
        m_browser.SetHook([&](const std::string&) { closeAt(); });
        m_whenShowing = closeAt;
        RunAll([this](Robot& robot) {
            const auto answered = [&robot, this] {
                if (robot.IsShown("Yes"))
                    robot.Answer("Yes");
                return !IsWindow(m_window);
            };
            robot.WaitUntil(answered, "the end of the dialog");
        });
    }
}

TEST_F(BatchRun, ReadsThePageListOrSaysWhyNot)
{
    const std::string good = "<URLCACHE>\r\n<URL>http://a/?x&amp;y</URL><URL>about:blank</URL>\r\n<OTHER/>"
                             "<URL>http://b/</URL><URL>http://a/?x&amp;y</URL><URL/></URLCACHE>\r\n";
    const std::string damaged = "Error occured while parsing url cache file, please try again.";
    const std::pair<std::string, std::string> cases[] = {
        {good, "http://a/?x&y http://b/  "},
        {good + '\0' + "rest", "http://a/?x&y http://b/  "},
        {"<URLCACHE/>", ""},
        {"<other><URL>http://a/</URL></other>", ""},
        {"", damaged},
        {"<URLCACHE><URL>http://a/</URLCACHE></URL>", damaged},
    };
    for (const auto& [content, result] : cases)
    {
        EXPECT_EQ(PageList(content), result) << content.substr(0, 200);
    }
    for (std::size_t length = 0; length < good.rfind('>'); ++length)
    {
        ASSERT_EQ(PageList(good.substr(0, length)), damaged) << length;
    }
    {
        const MemoryLimit memory(16);
        EXPECT_EQ(PageList(), "Memory not enouth.Please close some other application and try again.");
    }
    EXPECT_TRUE(m_home.Exists("cacheurl.xml"));
    std::filesystem::remove(m_home.Path("cacheurl.xml"));
    EXPECT_EQ(PageList(), "Unable to read url cache file: cacheurl.xml");
    std::filesystem::create_directory(m_home.Path("cacheurl.xml"));
    EXPECT_EQ(PageList(), "Unable to read url cache file: cacheurl.xml");
}
