#include "TestRun.h"

#include "download/ProgressDlg.h"
#include "resources/ResourceIds.h"
#include "resources/Resources.h"

#include "platform/testing/Limits.h"
#include "platform/testing/MemoryCookies.h"
#include "platform/testing/Robot.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <new>
#include <optional>
#include <thread>

using Names = std::vector<std::string>;

TEST(FetchLoop, SendsTheCookiesUnlessTheRegistrySaysNo)
{
    TestRun run;
    const MemoryCookies cookies({{.name = "sid", .value = "1", .domain = "127.0.0.1"}});
    const std::pair<const char*, bool> rows[] = {
        {"", true},
        {"[SOFTWARE\\Orlenta\\Vantroy]\nSendCookies=\n", true},
        {"[SOFTWARE\\Orlenta\\Vantroy]\nSendCookies=0 or so\n", true},
        {"[SOFTWARE\\Orlenta\\Other]\nSendCookies=0\n", true},
        {"[Software\\Orlenta\\Vantroy]\nsendcookies=0\n", false},
    };
    for (const auto& [registry, sends] : rows)
    {
        run.m_home.Write("registry-user.ini", registry);
        run.m_bRunning = 1;
        run.Download({run.Served("/a.jpg", "a")});
        EXPECT_EQ(run.m_server.RequestHeads().back().find("Cookie: sid=1\r\n") != std::string::npos, sends) << registry;
    }
}

// A long body is on the disk before it is whole, but in no folder. Whatever becomes of disk and folder on the way, the
// file is there whole in the end, or not at all.
TEST(FetchLoop, ALongBodyIsWrittenOnTheWay)
{
    std::string body((9u << 20) + 1, '\0');
    for (std::size_t at = 0; at < body.size(); ++at)
        body[at] = static_cast<char>((at >> 12) % 251);
    std::string elsewhere = "/dev/shm/vantroy-test-XXXXXX"; // another file system
    ASSERT_TRUE(mkdtemp(elsewhere.data()));
    std::unique_ptr<FullDisk> disk;
    const auto fill = [&disk] { disk = std::make_unique<FullDisk>(1u << 20); };
    const auto moveTo = [&elsewhere](TestRun& run) {
        run.m_setting.m_szSaveFolder.Set(CDownloadSetting::SaveFolder(elsewhere));
    };
    struct Case
    {
        const char* name;
        std::function<void()> before;
        std::function<void(TestRun&)> halfWay;
        bool arrives;
    };
    const Case cases[] = {
        {"nothing", [] {}, [](TestRun&) {}, true},
        {"another save folder", [] {}, moveTo, true},
        {"a full disk that gets room", fill, [&disk](TestRun&) { disk.reset(); }, true},
        {"a full disk", fill, [](TestRun&) {}, false},
        {"cancelled", [] {}, [](TestRun& run) { run.m_bFetchCurrent = 0; }, false},
    };
    for (const Case& c : cases)
    {
        TestRun run;
        const std::string url = run.Served("/long.mp3", body);
        int shown = 0;
        run.m_whenShowing = [&] {
            if (++shown == 400) // of 4 KB each
                c.halfWay(run);
        };
        c.before();
        run.Download({url});
        disk.reset();
        const TempHome folder(run.m_setting.GetSaveFolder());
        EXPECT_EQ(run.m_stored, c.arrives ? Names{url + " -> long.mp3"} : Names{}) << c.name;
        EXPECT_EQ(run.Saved().size() + TempHome(elsewhere).Files("").size(), c.arrives ? 1u : 0u) << c.name;
        EXPECT_TRUE(!c.arrives || folder.Read("long.mp3") == body) << c.name;
        std::filesystem::remove(elsewhere + "/long.mp3");
    }
    std::filesystem::remove(elsewhere);
}

TEST(FetchLoop, OverwritesNothingAndStoresNothingTwice)
{
    TestRun run;
    run.m_home.Write("Download/old.jpg", "an old file");
    const Names urls = {run.Cached("http://one/a.jpg", "1"),   run.Cached("http://two/a.jpg", "22"),
                        run.Served("/three/a.jpg", "333"),     run.Served("/four/a.jpg", "4"),
                        run.Cached("http://one/old.jpg", "x"), run.Served("/old.jpg", "AN OLD FILE")};
    run.Download(urls);
    EXPECT_EQ(run.Saved(), (Names{"a.jpg", "a1.jpg", "a2.jpg", "old.jpg", "old1.jpg"}));
    EXPECT_EQ(run.Content("a.jpg") + run.Content("a1.jpg") + run.Content("a2.jpg"), "122333");
    EXPECT_EQ(run.Content("old.jpg"), "an old file");
    EXPECT_EQ(run.m_server.Requests().size(), 3u) << "what has a copy is not asked for";
    EXPECT_EQ(run.m_stored,
              (Names{urls[0] + " -> a.jpg", urls[1] + " -> a1.jpg", urls[2] + " -> a2.jpg", urls[4] + " -> old1.jpg"}));
    const Names before = run.Saved();
    run.m_stored.clear();
    run.m_bRunning = 1;
    run.Download(urls);
    EXPECT_EQ(run.Saved(), before);
    EXPECT_TRUE(run.m_stored.empty());
}

TEST(FetchLoop, NoNameLeadsOutOfTheSaveFolder)
{
    TestRun run;
    Names urls;
    for (const char* path : {"/..", "/.", "/", "/%2e%2e%2fx", "/..%5cy", "/a\\..\\b", "/~root", "/-rf"})
        urls.push_back(run.Cached("http://evil" + std::string(path), "e" + std::to_string(urls.size())));
    const std::string longest(255, 'n');
    urls.push_back(run.Cached("http://evil/" + longest + 'n', "too long"));
    urls.push_back(run.Cached("http://evil/" + longest, "long"));
    urls.push_back(run.Cached("http://evil/gone.jpg", "gone"));
    run.m_home.Write("Download/taken.jpg/inside", "a folder of that name");
    urls.push_back(run.Cached("http://evil/taken.jpg", "now free"));
    ASSERT_EQ(std::remove(run.m_home.Path("cache/10").c_str()), 0);
    run.Download(urls);
    EXPECT_EQ(run.Saved(), (Names{"%2e%2e%2fx", "-rf", "..%5cy", ".1", "1", "a\\..\\b", longest, "taken.jpg",
                                  "taken1.jpg", "~root"}));
    EXPECT_EQ(run.m_home.Files(""), (Names{"Download", "cache"}));
    EXPECT_EQ(run.m_ends, 1);
    // Beside a save folder with a "." stands one of the name that a number makes of it.
    run.m_home.Write("my.pictures/name", "taken");
    run.m_home.Write("my1.pictures/other", "of somebody else");
    run.m_setting.m_szSaveFolder.Set(CDownloadSetting::SaveFolder(run.m_home.Path("my.pictures")));
    run.m_stored.clear();
    run.m_bRunning = 1;
    run.Download({run.Cached("http://evil/name", "cached"), run.Served("/name", "served")});
    EXPECT_EQ(run.m_home.Files("my1.pictures"), Names{"other"});
    EXPECT_TRUE(run.m_stored.empty());
}

TEST(FetchLoop, StoresWhatALyingServerPromised)
{
    using std::string;
    struct Case
    {
        const char* name;
        HttpAnswer answer;
        std::optional<string> stored;
    };
    const Case cases[] = {
        {"no length", {.body = "body", .contentLength = "none"}, {}},
        {"length 0 and a body", {.body = "body", .contentLength = "0"}, {}},
        {"no digits", {.body = "body", .contentLength = "four"}, {}},
        {"negative", {.body = "body", .contentLength = "-4"}, {}},
        {"more than 32 bits", {.body = "body", .contentLength = "4294967296"}, {}},
        {"far more", {.body = "body", .contentLength = "99999999999999999999999"}, {}},
        {"a longer body", {.body = "body and more", .contentLength = "4"}, "body"},
        {"an error page", {.status = 404, .body = "not here"}, "not here"},
        {"a move", {.status = 302, .location = "/x/place"}, "moved body"},
        {"half a body",
         {.body = "half", .contentLength = "8", .stallAfter = 4, .closeEarly = true},
         string("half\0\0\0\0", 8)},
        {"garbage", {.raw = "\x01\x02 no http at all\r\n\r\n"}, {}},
    };
    for (const Case& c : cases)
    {
        TestRun run;
        run.m_server.Serve("/item", c.answer);
        run.Served("/x/place", "moved body");
        run.Download({run.m_server.Url("/item"), run.Served("/next", "next")});
        EXPECT_EQ(run.Saved(), c.stored ? (Names{"item", "next"}) : Names{"next"}) << c.name;
        EXPECT_EQ(c.stored ? run.Content("item") : "", c.stored.value_or("")) << c.name;
    }
    // The promised size, but no room on the disk for what never came.
    TestRun run;
    run.m_server.Serve("/vast",
                       HttpAnswer{.body = "vast", .contentLength = "4294967295", .stallAfter = 4, .closeEarly = true});
    run.Download({run.m_server.Url("/vast")});
    struct stat vast = {};
    ASSERT_EQ(stat(run.m_home.Path("Download/vast").c_str(), &vast), 0);
    EXPECT_EQ(vast.st_size, 4294967295);
    EXPECT_LT(vast.st_blocks, 1000);
}

TEST(FetchLoop, RefusesShortAddressesAndIgnoresPortAndScheme)
{
    TestRun run;
    HINTERNET internet = InternetOpenA("Vantroy", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0);
    EXPECT_FALSE(run.FetchByHttp("http://", internet)); // 7 characters
    EXPECT_FALSE(run.FetchByHttp("data:image/png;base64,AAAA/BBB.mp3", internet));
    EXPECT_FALSE(run.FetchByHttp(run.Served("/a", "a"), nullptr));
    const std::string query = "/q?" + std::string(3000, 'q') + "/x/y.jpg"; // carried whole
    EXPECT_TRUE(run.FetchByHttp(run.Served(query, "query"), internet));
    run.Served("/p", "port");
    EXPECT_TRUE(run.FetchByHttp("https://127.0.0.1:9/p", internet));
    InternetCloseHandle(internet);
    EXPECT_EQ(run.Saved(), (Names{"p", "y.jpg"}));
    EXPECT_EQ(run.m_server.Requests(), (Names{"GET " + query + " HTTP/1.0", "GET /p HTTP/1.0"}));
}

TEST(FetchLoop, TellsTheCacheWhatComesAndStopsBeforeTheNextItem)
{
    TestRun run;
    const Names urls = {run.Cached("http://h/1", "1"), run.Cached("http://h/2", "2"), run.Cached("http://h/3", "3")};
    run.m_cache.SetHook([&](const std::string& url) {
        EXPECT_EQ(run.m_cache.Expected(), urls);
        if (url == urls[1])
            run.m_bRunning = 0;
    });
    run.Download(urls);
    EXPECT_EQ(run.m_cache.Lookups(), (Names{urls[0], urls[1]}));
    EXPECT_EQ(run.m_cache.Expected(), Names());
    EXPECT_EQ(run.m_ends, 1);
}

TEST(FetchLoop, AsksAgainWithTheRoomThatTheCacheNeedsAndKeepsIt)
{
    TestRun run;
    const std::string base = "http://h/" + std::string(6000, 'd');
    const std::string big = run.Cached(base + "/big", "big");
    const std::string small = run.Cached("http://h/small", "small");
    const std::string again = run.Cached(base + "/again", "again");
    run.Download({small, big, again});
    EXPECT_EQ(run.m_cache.Lookups(), (Names{small, big, big, again, again}));
    EXPECT_EQ(run.Saved(), (Names{"again", "big", "small"}));
}

TEST(FetchLoop, ALookupWithoutMemoryEndsTheRunInGoodOrder)
{
    TestRun run;
    const MemoryLimit limit(4095);
    run.Download({run.Cached("http://h/a", "a"), run.Served("/b", "b")});
    EXPECT_TRUE(run.Saved().empty());
    EXPECT_TRUE(run.m_server.Requests().empty());
    EXPECT_EQ(run.m_ends, 1);
}

TEST(FetchLoop, ABodyWithoutMemoryOrDiskIsLeftOutAlone)
{
    TestRun run;
    const std::string big = run.Served("/big", std::string(200000, 'b'));
    const std::string copy = run.Cached("http://h/copy", std::string(200000, 'c'));
    const std::string small = run.Served("/small", "small");
    {
        const MemoryLimit limit(100000);
        run.Download({big, small});
        EXPECT_EQ(run.Saved(), (Names{"small"}));
    }
    {
        const FullDisk disk(100000);
        run.m_bRunning = 1;
        run.Download({big, copy, run.Served("/after", "after")});
        EXPECT_EQ(run.Saved(), (Names{"after", "small"}));
    }
    EXPECT_EQ(run.m_stored.size(), 2u);
}

// The owner hears of the end, and so keeps the history of what was stored.
TEST(FetchLoop, AnItemThatTakesTheLastMemoryIsLeftOutAlone)
{
    TestRun run;
    int shown = 0;
    run.m_whenShowing = [&shown] {
        if (++shown == 3) // in the first item
            throw std::bad_alloc();
    };
    run.Download({run.Served("/a", "a"), run.Served("/b", "b")});
    EXPECT_EQ(run.Saved(), Names{"b"});
    EXPECT_EQ(run.m_ends, 1);
}

TEST(FetchLoop, LeavesFilteredItemsOutAndReadsNoBodyOfThem)
{
    TestRun run;
    run.m_setting.m_bLimitFileSize = 1;
    run.m_setting.m_bBigThan = 0;
    run.m_setting.m_nBigThanKb = 2;
    run.m_setting.m_bSmallThan = 1;
    run.m_setting.m_nSmallThanKb = 1;
    run.m_server.Serve("/between", HttpAnswer{.body = std::string(1500, 'b'), .stallAfter = 0});
    run.Download({run.m_server.Url("/between"), run.Cached("http://h/big", std::string(3000, 'b')),
                  run.Served("/small", "small")});
    EXPECT_EQ(run.Saved(), (Names{"small"}));
}

// The second item is filtered: where its copy lies, its name with the word joined to it, no size, all done.
TEST(FetchLoop, ShowsEachItemInTheProgressWindow)
{
    AfxSetResources(VantroyResources());
    TestRun run;
    run.m_setting.m_bLimitFileSize = 1;
    run.m_setting.m_nBigThanKb = 1;
    const std::string cached = run.Cached("http://h/copy.jpg", "too small");
    run.m_server.Serve("/x/big.jpg?size=2", HttpAnswer{.body = std::string(4000000, 'b'), .stallAfter = 1000000});
    auto* window = new CProgressDlg(nullptr);
    ASSERT_TRUE(window->Create(IDD_PROGRESS));
    window->ShowWindow(SW_SHOW);
    run.m_fields = &window->m_fields;
    std::atomic<bool> done = false;
    RunScript(
        [&] {
            std::thread worker([&] { run.Download({run.m_server.Url("/x/big.jpg?size=2"), cached}); });
            ServeMessagesUntil([&done] { return done.load(); }, std::chrono::seconds(30));
            worker.join();
        },
        [&](Robot& robot) {
            const auto shows = [&robot](const std::string& from, const std::string& file, const std::string& size,
                                        const std::string& percent) {
                robot.WaitUntil([&] { return robot.Text("Download From:") == from; }, from);
                robot.WaitUntil([&] { return robot.Text("Download File:") == file; }, file);
                robot.WaitUntil([&] { return robot.IsShown(size + " Bytes"); }, size);
                robot.WaitUntil([&] { return robot.IsShown(percent + "% Complete"); }, percent);
            };
            robot.WaitForWindow("Download files now...");
            shows("127.0.0.1", "/x/big.jpg?size=2", "4000000", "25");
            robot.WaitUntil([&robot] { return robot.ProgressPercent() == 25; }, "a quarter");
            run.m_server.Release();
            robot.WaitForWindow("Download complete!");
            robot.WaitUntil([&robot] { return robot.IsShown("OK") && !robot.IsShown("Cancel Current"); }, "the end");
            shows(run.m_home.Path("cache/0"), "copy.jpgFiltered.", "0", "100");
            done = true;
        });
    window->DestroyWindow();
}
