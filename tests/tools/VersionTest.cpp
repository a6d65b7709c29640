#include "tests/Application.h"
#include "tools/VersionDlg.h"
#include "tools/VersionFile.h"

#include "platform/testing/HttpTestServer.h"
#include "platform/testing/MemoryCookies.h"
#include "platform/testing/RecordingPrograms.h"
#include "platform/testing/Robot.h"

#include <gtest/gtest.h>

namespace
{

constexpr const char* kPath = "/vantroy/download/curver.ini";
constexpr const char* kConnecting = "Connecting download server, please wait...";
constexpr const char* kLatest = "You already have the latest version of Vantroy.";
constexpr const char* kNoServer = "Unable to connect to download server";
constexpr const char* kNoAnswer = "Unable to query version information.";

std::string Offer(const std::string& version)
{
    return "Version " + version + " is available now, click the button below to download.";
}

class VersionDlg : public testing::Test
{
protected:
    VersionDlg()
    {
        StartApplication();
    }
    void Run(const std::function<void(Robot&)>& script, const std::string& host = "127.0.0.1")
    {
        CVersionDlg dialog(nullptr, host);
        RunScript([&dialog] { dialog.DoModal(); }, script);
    }
    static std::string Result(Robot& robot)
    {
        std::string text;
        const auto isThere = [&] {
            text = robot.Text("Result");
            return !text.empty() && text != kConnecting;
        };
        robot.WaitUntil(isThere, "the result");
        return text;
    }
    // What is told, and the buttons then.
    std::string Told(const std::string& host = "127.0.0.1")
    {
        std::string told;
        const auto script = [&told](Robot& robot) {
            told = Result(robot);
            EXPECT_EQ(robot.Text("Current Version"), "1.2.0");
            EXPECT_EQ(robot.LayoutFaults(), "");
            for (const char* button : {"Cancel", "OK", "Download Now"})
                told += robot.IsShown(button) ? std::string("|") + button : "";
            robot.Key("Esc");
        };
        Run(script, host);
        return told;
    }

    HttpTestServer m_server;
};

} // namespace

TEST(VersionFile, IsComparedFromLeftToRight)
{
    EXPECT_EQ(ProductVersion(), (CVersion{1, 2, 0}));
    const struct
    {
        std::string_view file;
        CVersion version;
        bool newer;
    } cases[] = {
        {"1.1.9", {1, 1, 9}, false},  {"0.9.9", {0, 9, 9}, false}, {"1.3.0", {1, 3, 0}, true},
        {"2", {2, 0, 0}, true},       {"1.3", {1, 3, 0}, true},    {"1.2.0\r\n", {1, 2, 0}, false},
        {"1.10.0", {1, 1, 0}, false}, {"", {0, 0, 0}, false},      {"\xB2./.:", {0, 0, 0}, false},
    };
    for (const auto& [file, version, newer] : cases)
    {
        EXPECT_EQ(ParseVersionFile(file), version) << file;
        EXPECT_EQ(ParseVersionFile(file) > ProductVersion(), newer) << file;
    }
}

TEST_F(VersionDlg, TellsWhatTheServerSays)
{
    const std::string latest = std::string(kLatest) + "|OK";
    const std::string noAnswer = std::string(kNoAnswer) + "|Cancel";
    const auto newer = [](const std::string& version) { return Offer(version) + "|Download Now"; };
    const std::string moved = "HTTP/1.0 302 Moved\r\nLocation: ftp://127.0.0.1/\r\nContent-Length: 0\r\n\r\n";
    m_server.Serve("/new", "1.2.7");
    const std::pair<HttpAnswer, std::string> cases[] = {
        {{.body = "1.2.0\n"}, latest},
        {{.body = "1.2.1\n"}, newer("1.2.1")},
        {{.body = "none"}, latest},
        {{.status = 500, .body = "9.9.9 is out of order"}, newer("9.9.9")},
        {{.body = std::string(10 << 20, '3')}, newer("3.3.3")},
        {{.status = 301, .location = "/new"}, newer("1.2.7")},
        {{.raw = moved}, noAnswer},
        {{.body = "1.3.0", .contentLength = "none"}, noAnswer},
        {{.body = "1.3.0", .contentLength = std::string(40, '1')}, noAnswer},
        {{.body = "3.3.0", .contentLength = "0 bytes"}, newer("3.0.0")},
        {{.body = "1.3.0", .contentLength = "-5"}, latest},
        {{.body = "1.3.0", .contentLength = "4294967296", .stallAfter = 5, .closeEarly = true}, newer("1.3.0")},
        {{.body = "1.3.0", .contentLength = "9223372036854775807", .stallAfter = 5}, newer("1.3.0")},
        {{.body = "1.3.0", .stallAfter = 1, .closeEarly = true}, latest},
        {{.raw = "HTTP/1.0 200 OK\r\nContent-", .stallAfter = 25, .closeEarly = true}, noAnswer},
        {{.raw = "nonsense"}, noAnswer},
    };
    const MemoryCookies cookies({{.name = "sid", .value = "1", .domain = "127.0.0.1"}});
    for (const auto& [answer, told] : cases)
    {
        m_server.Serve(kPath, answer);
        EXPECT_EQ(Told(), told) << answer.body.substr(0, 40) << answer.raw << answer.contentLength;
    }
    EXPECT_EQ(m_server.Requests().front(), std::string("GET ") + kPath + " HTTP/1.0");
    EXPECT_NE(m_server.RequestHeads().front().find("User-Agent: Orlenta Vantroy\r\n"), std::string::npos);
    EXPECT_EQ(m_server.RequestHeads().front().find("Cookie"), std::string::npos);
}

TEST_F(VersionDlg, TellsThatThereIsNoServer)
{
    EXPECT_EQ(Told("no host name"), std::string(kNoServer) + "|Cancel");
    setenv("VANTROY_HTTP_PORT", "1", 1);
    EXPECT_EQ(Told(), std::string(kNoAnswer) + "|Cancel");
}

TEST_F(VersionDlg, WaitsForAFileThatComesInPieces)
{
    m_server.Serve(kPath, HttpAnswer{.body = "1.2.4", .stallAfter = 3});
    Run([this](Robot& robot) {
        EXPECT_EQ(robot.Windows().back(), "Check for new version of Vantroy");
        robot.WaitUntil([&] { return robot.Text("Result") == kConnecting; }, "the connection");
        EXPECT_FALSE(robot.IsShown("Download Now"));
        robot.WaitUntil([this] { return !m_server.Requests().empty(); }, "the request");
        m_server.Release();
        EXPECT_EQ(Result(robot), Offer("1.2.4"));
        robot.Key("Esc");
    });
}

TEST_F(VersionDlg, OpensThePageOfTheNewVersion)
{
    const TempHome home;
    const RecordingPrograms programs(home, {"xdg-open"});
    m_server.Serve(kPath, "1.2.1");
    for (const bool byKey : {false, true})
    {
        Run([&](Robot& robot) {
            Result(robot);
            if (byKey)
                robot.Key("Return");
            else
                robot.Press("Download Now");
        });
        EXPECT_EQ(programs.Arguments("xdg-open"),
                  std::vector<std::string>{"http://" + WebHost() + "/vantroy/download.htm"});
    }
}

// The server never goes on, so a worker that were waited for would hold the test up.
TEST_F(VersionDlg, CanBeClosedWhileTheWorkerIsAtWork)
{
    for (const std::size_t stall : {std::size_t{0}, std::size_t{3}})
    {
        m_server.Serve(kPath, HttpAnswer{.body = "1.2.4", .stallAfter = stall});
        for (int round = 0; round < 5; ++round)
        {
            const std::size_t before = m_server.Requests().size();
            Run([&](Robot& robot) {
                if (round > 0)
                    robot.WaitUntil([&] { return m_server.Requests().size() > before; }, "the request");
                robot.Press("Cancel");
            });
        }
    }
    CVersionDlg dialog(nullptr, "127.0.0.1");
    RunScript([&dialog] { dialog.DoModal(); },
              [&](Robot& robot) {
                  robot.WaitUntil([&] { return robot.Text("Result") == kConnecting; }, "the connection");
                  dialog.DestroyWindow();
              });
}
