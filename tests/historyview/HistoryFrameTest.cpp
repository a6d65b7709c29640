#include "historyview/HistoryFrame.h"
#include "resources/ResourceIds.h"
#include "tests/Application.h"
#include "tests/MessageBox.h"
#include "tests/persist/Records.h"

#include "platform/testing/Robot.h"
#include "platform/testing/TempHome.h"

#include <filesystem>
#include <gtest/gtest.h>

using Names = std::vector<std::string>;

namespace
{

constexpr const char* kWindow = "Download History";

class HistoryWindow : public testing::Test
{
protected:
    // 1970-01-02 and the day after, in every time zone that is near UTC.
    const std::string kFirstDay = "129600";
    const std::string kSecondDay = "216000";

    HistoryWindow()
    {
        StartApplication();
        setenv("TZ", "UTC", 1);
        tzset();
    }

    // Shows the window until the script is over or has closed it.
    void Run(const std::function<void(Robot&)>& script)
    {
        bool open = true;
        HWND window;
        RunScript(
            [&] {
                auto* frame = new CHistoryFrame([&open] { open = false; });
                ASSERT_TRUE(frame->LoadFrame(IDR_HISTORY));
                window = frame->GetSafeHwnd();
                frame->ShowWindow(SW_SHOW);
                EXPECT_TRUE(ServeMessagesUntil([&open] { return !open; }, std::chrono::seconds(60)));
            },
            [&](Robot& robot) {
                robot.WaitForWindow(kWindow);
                script(robot);
                PostMessageA(window, WM_CLOSE, 0, 0);
            });
        EXPECT_FALSE(IsWindow(window));
    }
    void WriteTwoDays() const
    {
        m_home.Write("History/1970-01-02",
                     Record(kFirstDay, "http://a/", {"u>/s/x.jpg"}) + Record(kSecondDay, "http://c/", {"v>/s/y.jpg"}));
        m_home.Write("History/1970-01-03.txt", Record("129605", "http://b/", {"w>/s/z.jpg"}));
    }
    static Names Rows(const Robot& robot)
    {
        Names rows;
        for (int row = 0; row < robot.RowCount(kWindow); ++row)
            rows.push_back(robot.Cell(row, 0, kWindow));
        return rows;
    }

    TempHome m_home;
};

} // namespace

TEST_F(HistoryWindow, ShowsDaysPagesAndFiles)
{
    WriteTwoDays();
    Run([](Robot& robot) {
        EXPECT_EQ(robot.TreeNodes(kWindow),
                  (Names{kWindow, "  1970-01-02", "    http://a/", "    http://b/", "  1970-01-03", "    http://c/"}));
        EXPECT_EQ(robot.Columns(kWindow), Names{kWindow});
        EXPECT_EQ(Rows(robot), (Names{"1970-01-02", "1970-01-03"}));
        robot.SelectNode({kWindow, "1970-01-02"}, kWindow);
        EXPECT_EQ(robot.Columns(kWindow), Names{kWindow});
        EXPECT_EQ(Rows(robot), (Names{"http://a/", "http://b/"}));
        robot.SelectNode({kWindow, "1970-01-03", "http://c/"}, kWindow);
        EXPECT_EQ(robot.Columns(kWindow), (Names{"Filename", "Size", "Path", "Download URl"}));
        ASSERT_EQ(Rows(robot), Names{"y.jpg"});
        EXPECT_EQ(robot.Cell(0, 1, kWindow) + '|' + robot.Cell(0, 2, kWindow) + '|' + robot.Cell(0, 3, kWindow),
                  "|/s/y.jpg|v");
        robot.Key("Up");
        EXPECT_EQ(Rows(robot), Names{"http://c/"});
        robot.SelectNode({kWindow}, kWindow);
        EXPECT_EQ(Rows(robot), (Names{"1970-01-02", "1970-01-03"}));
        EXPECT_EQ(robot.LayoutFaults(kWindow), "");
        robot.DragBar(0, 60, 0, kWindow);
        const RECT tree = robot.Panes(kWindow)[0];
        EXPECT_NEAR(tree.right - tree.left, 260, 5);
    });
}

TEST_F(HistoryWindow, ListsTheFilesOfAPageWithTheirSizes)
{
    const std::pair<const char*, int> sizes[] = {{"none", 0},   {"below", 1023}, {"one", 2047},
                                                 {"two", 2048}, {"Same", 5000},  {"same", 1}};
    Names files{"u>no-folder", "u>" + m_home.Path("folder/"), "u>" + m_home.Path("gone")};
    for (const auto& [name, size] : sizes)
    {
        m_home.Write(name, std::string(static_cast<std::size_t>(size), 'x'));
        files.push_back("http://h/>" + m_home.Path(name));
    }
    m_home.Write("History/1970-01-02", Record(kFirstDay, "page", files));
    Run([](Robot& robot) {
        robot.SelectNode({kWindow, "1970-01-02", "page"}, kWindow);
        std::string rows;
        for (int row = 0; row < robot.RowCount(kWindow); ++row)
            rows += robot.Cell(row, 0, kWindow) + ' ' + robot.Cell(row, 1, kWindow) + ';';
        EXPECT_EQ(rows, "gone ;none 1 KB;below 1 KB;one 1 KB;two 2 KB;Same 4 KB;");
    });
}

TEST_F(HistoryWindow, ADoubleClickGoesOneLevelDown)
{
    WriteTwoDays();
    Run([](Robot& robot) {
        robot.SelectNode({kWindow}, kWindow);
        robot.DoubleClickRow(1, kWindow);
        EXPECT_EQ(Rows(robot), Names{"http://c/"});
        robot.DoubleClickRow(0, kWindow);
        EXPECT_EQ(Rows(robot), Names{"y.jpg"});
        robot.DoubleClickRow(0, kWindow);
        EXPECT_EQ(Rows(robot), Names{"y.jpg"});
        EXPECT_EQ(robot.SelectedNode(kWindow), kWindow);
        robot.SelectNode({kWindow}, kWindow);
        EXPECT_EQ(Rows(robot), Names{"y.jpg"}) << "nothing new was selected";
        robot.SelectNode({kWindow, "1970-01-03"}, kWindow);
        EXPECT_EQ(Rows(robot), Names{"http://c/"});
    });
}

TEST_F(HistoryWindow, ClearsTheHistoryAndSaysSo)
{
    WriteTwoDays();
    m_home.Write("History/folder/kept", "");
    Run([this](Robot& robot) {
        robot.SelectNode({kWindow, "1970-01-02", "http://a/"}, kWindow);
        robot.ChooseMainMenu("File", "Clear Download History", kWindow);
        EXPECT_EQ(robot.MessageBoxText(), "Download history has been removed.");
        EXPECT_EQ(m_home.Files("History"), Names{"folder"});
        robot.Answer("OK");
        robot.WaitUntil([&robot] { return robot.TreeNodes(kWindow) == Names{kWindow}; }, "an empty tree");
        EXPECT_EQ(robot.Columns(kWindow), Names{kWindow});
        EXPECT_EQ(robot.RowCount(kWindow), 0);
    });
    EXPECT_TRUE(m_home.Exists("History/folder/kept"));
    std::filesystem::remove_all(m_home.Path("History"));
    Run([](Robot& robot) {
        robot.Press("Clear all download history", kWindow);
        ExpectBox(robot, "Download history has been removed.");
        robot.ChooseMainMenu("File", "Exit", kWindow);
        robot.WaitForNoWindow(kWindow);
    });
}

TEST_F(HistoryWindow, ShowsWhatCanBeShown)
{
    const std::string longText(100'000, 'l');
    m_home.Write("History/1970-01-02", Record(kFirstDay, "line\nend\t&lt;b&gt; 下载 \x1b[31m\xff", {"u\nv>/s/a\nb"}) +
                                           Record(kFirstDay, longText, {longText + ">/s/" + longText}));
    m_home.Write("History/damaged", Record(kFirstDay, "lost", {"u>/s/x"}) + "<DOWNLOAD>");
    m_home.Write("History/foreign\nname", "<html></html>");
    Run([](Robot& robot) {
        const Names nodes = robot.TreeNodes(kWindow);
        ASSERT_EQ(nodes.size(), 6u);
        EXPECT_EQ(nodes[4], "  damaged");
        robot.Key("Home");
        for (std::size_t node = 1; node < nodes.size(); ++node)
            robot.Key("Down");
        EXPECT_EQ(robot.RowCount(kWindow), 0);
        robot.Key("Home");
        robot.Key("Down");
        robot.Key("Down");
        EXPECT_EQ(robot.RowCount(kWindow), 1) << "the text of the node is the page's own";
        robot.Key("Down");
        EXPECT_EQ(robot.RowCount(kWindow), 1);
        EXPECT_EQ(robot.LayoutFaults(kWindow), "");
    });
}
