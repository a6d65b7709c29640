// Processes that are killed, and processes side by side.
#include "Faults.h"
#include "Stores.h"
#include "tests/download/TestRun.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <random>
#include <set>
#include <thread>

namespace
{

constexpr unsigned kItems = 20;

// How far a process says it has come.
struct Told
{
    std::atomic<unsigned> files = 0;
    std::atomic<unsigned> records = 0;
    std::atomic<unsigned> settings = 0;
    std::atomic<unsigned> values = 0;
};

struct Tally
{
    unsigned files = 0;
    unsigned records = 0;
    unsigned torn = 0;
    unsigned lost = 0;
    unsigned strange = 0;
    unsigned remains = 0;
};

std::string BodyOf(unsigned number)
{
    std::string body(number % kItems * 17'000 + 1, '\0');
    for (std::size_t i = 0; i < body.size(); ++i)
        body[i] = static_cast<char>(number % kItems + i * 7 + i / 256);
    return body;
}

// Downloads, half from the cache and half over HTTP, and saves everything that the program saves, until it is killed.
void WorkForEver(const TempHome& home, Told& told)
{
    TestRun run(home);
    run.m_whenStored = [&told] { ++told.files; };
    std::vector<std::pair<std::string, std::string>> record;
    for (unsigned i = 0; i < kItems; ++i)
        record.emplace_back(std::to_string(i), std::string(200, 'p'));
    for (unsigned number = 0;;)
    {
        std::vector<std::string> urls;
        for (unsigned i = 0; i < kItems; ++i, ++number)
        {
            const std::string path = '/' + std::to_string(number);
            if (i % 2 == 0)
                run.m_cache.Add(run.m_server.Url(path), home.Path("cache/" + std::to_string(i)));
            else
                run.m_server.Serve(path, BodyOf(number));
            urls.push_back(run.m_server.Url(path));
        }
        run.m_bRunning = 1;
        run.Download(urls);
        SaveHistory("page", record);
        ++told.records;
        SaveSettings(told.settings + 1);
        ++told.settings;
        SetValue(std::to_string(told.values + 1));
        ++told.values;
    }
}

unsigned TakeRemains(const TempHome& home, const std::string& folder)
{
    unsigned count = 0;
    for (const std::string& name : home.Files(folder))
        if (name.starts_with(".new-") && std::filesystem::remove(home.Path(folder + '/' + name)))
            ++count;
    return count;
}

// What a process told to be stored is there, at most one file more, and each is whole.
void TakeFiles(const TempHome& home, unsigned told, Tally& tally)
{
    std::set<unsigned> found;
    tally.remains += TakeRemains(home, "Download") + TakeRemains(home, "");
    for (const std::string& name : home.Files("Download"))
    {
        if (name == ".keep")
            continue;
        const auto number = static_cast<unsigned>(std::atoi(name.c_str()));
        tally.torn += home.Read("Download/" + name) != BodyOf(number);
        tally.strange += name != std::to_string(number) || number > told;
        found.insert(number);
        std::filesystem::remove(home.Path("Download/" + name));
    }
    for (unsigned number = 0; number < told; ++number)
        tally.lost += !found.contains(number);
    tally.files += told;
}

// A step that a process had told of is done; the one it was at may be.
void ExpectStep(long found, unsigned told, std::atomic<unsigned>& base)
{
    EXPECT_GE(found, static_cast<long>(told));
    EXPECT_LE(found, static_cast<long>(told) + 1);
    base = static_cast<unsigned>(found);
}

unsigned RecordsFound()
{
    CHistoryStore store;
    store.LoadAll();
    const std::size_t files = store.GetItems().empty() ? 0 : store.GetItems()[0].m_files.size();
    EXPECT_EQ(files % kItems, 0u);
    return static_cast<unsigned>(files / kItems);
}

void Check(const TempHome& home, Told& told, Tally& tally)
{
    TakeFiles(home, told.files.exchange(0), tally);
    const unsigned records = RecordsFound();
    ExpectStep(records, told.records, told.records);
    ExpectStep(SettingsVersion(), told.settings, told.settings);
    ExpectStep(std::atol(GetValue().c_str()), told.values, told.values);
    if (records < 60)
        return;
    tally.records += records;
    told.records = 0;
    std::filesystem::remove_all(home.Path("History"));
}

// How long a process takes from its start to the end of its second round.
std::chrono::microseconds TimeOfTwoRounds(const std::function<pid_t()>& start, const Told& told)
{
    const auto begin = std::chrono::steady_clock::now();
    const unsigned wanted = told.values + 2;
    const pid_t child = start();
    while (told.values < wanted && std::chrono::steady_clock::now() - begin < std::chrono::minutes(1))
        std::this_thread::yield();
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    EXPECT_GE(told.values, wanted);
    return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - begin);
}

class Kills : public testing::TestWithParam<bool>
{
};

} // namespace

// Where the file system knows no files without a name, and where it does.
TEST_P(Kills, LeaveEverythingWholeAndLoseNothing)
{
    const bool nameless = GetParam();
    if (!nameless && !MayMount())
        GTEST_SKIP() << "this system lets the test mount nothing";
    const TempHome home;
    for (unsigned i = 0; i < kItems; ++i)
        home.Write("cache/" + std::to_string(i), BodyOf(i));
    SaveSettings(0);
    SetValue("0");
    Shared<Told> told;
    const auto start = [&] {
        return StartChild([&] {
            // Without /proc a file that has no name cannot get one.
            ASSERT_TRUE(nameless || (TakeOwnMounts() && MountMemory("/proc", "size=4k")));
            WorkForEver(home, *told);
        });
    };
    Tally tally;
    std::mt19937 random(20261123);
    std::uniform_int_distribution<long> moment(0, TimeOfTwoRounds(start, *told).count());
    Check(home, *told, tally);
    const unsigned kills = Rounds(50);
    for (unsigned i = 0; i < kills && !HasFailure(); ++i)
    {
        const pid_t child = start();
        usleep(static_cast<useconds_t>(moment(random)));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        Check(home, *told, tally);
    }
    EXPECT_EQ(tally.torn + tally.lost + tally.strange, 0u);
    EXPECT_LE(tally.remains, kills + 1);
    std::printf(
        "%u kills: %u files stored, of these %u torn, %u lost, %u out of place; %u history records, %u settings "
        "and %u registry values saved, none torn or lost; %u temporary files left over\n",
        kills, tally.files, tally.torn, tally.lost, tally.strange, tally.records + told->records, told->settings.load(),
        told->values.load(), tally.remains);
}
INSTANTIATE_TEST_SUITE_P(Faults, Kills, testing::Values(true, false));

// Two runs bring files of the same names, but other content, into one folder.
TEST(SideBySide, TwoProcessesLoseNothingOfEachOther)
{
    constexpr unsigned kFiles = 200;
    const TempHome home;
    const auto content = [](unsigned process, unsigned file) {
        return std::string(100'000 + 2 * file + process, static_cast<char>('a' + process));
    };
    Shared<std::atomic<int>> arrived;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(2);
    const auto work = [&](unsigned process) {
        TestRun run(home);
        std::vector<std::string> urls;
        for (unsigned i = 0; i < kFiles; ++i)
        {
            const std::string url = "http://127.0.0.1/" + std::to_string(process) + '/' + std::to_string(i) + ".jpg";
            const std::string copy = "cache/" + std::to_string(process) + '-' + std::to_string(i);
            home.Write(copy, content(process, i));
            if (i % 2 == 0)
                run.m_cache.Add(url, home.Path(copy));
            else
                run.m_server.Serve(url.substr(16), content(process, i));
            urls.push_back(url);
        }
        // Both look for the place of an item, and append to the history, at the same time.
        int turn = 0;
        const auto meet = [&] {
            ++*arrived;
            for (turn += 2; *arrived < turn && std::chrono::steady_clock::now() < deadline;)
                std::this_thread::yield();
        };
        run.m_cache.SetHook([&meet](const std::string&) { meet(); });
        run.Download(urls);
        EXPECT_EQ(run.m_stored.size(), kFiles);
        for (const std::string& stored : run.m_stored)
        {
            const std::string url = stored.substr(0, stored.find(' '));
            meet();
            SaveHistory(url, {{url, home.Path("Download/" + stored.substr(stored.rfind(' ') + 1))}});
        }
    };
    const pid_t first = StartChild([&] { work(0); });
    const pid_t second = StartChild([&] { work(1); });
    ExpectGoodEnd(first);
    ExpectGoodEnd(second);
    CHistoryStore store;
    store.LoadAll();
    unsigned right = 0;
    for (const CHistoryItem& item : store.GetItems())
    {
        const std::string url = item.GetPageUrl();
        const auto process = static_cast<unsigned>(url[17] - '0');
        const auto file = static_cast<unsigned>(std::atoi(url.c_str() + 19));
        std::ifstream stored(item.m_files[0].m_szLocalPath.c_str(), std::ios::binary);
        right += std::string(std::istreambuf_iterator<char>(stored), {}) == content(process, file);
    }
    EXPECT_EQ(store.GetItems().size(), 2 * kFiles);
    EXPECT_EQ(right, 2 * kFiles);
    EXPECT_EQ(home.Files("Download").size(), 2 * kFiles + 1);
    std::printf("2 processes, %u files of the same names: %u right, %zu history records\n", 2 * kFiles, right,
                store.GetItems().size());
}

// Where no file is without a name, the body has been written and its file closed when the place turns out to be taken.
TEST(SideBySide, APlaceThatIsTakenAtTheLastMomentCostsNoFile)
{
    if (!MayMount())
        GTEST_SKIP() << "this system lets the test mount nothing";
    ExpectGoodEnd(StartChild([] {
        ASSERT_TRUE(TakeOwnMounts() && MountMemory("/proc", "size=4k"));
        TestRun run;
        const std::string body(16u << 20, 's');
        run.m_server.Serve("/short", HttpAnswer{.body = body,
                                                .contentLength = std::to_string(body.size() + 4),
                                                .stallAfter = body.size(),
                                                .closeEarly = true});
        std::atomic<bool> over = false;
        std::thread other([&] {
            while (!over && run.Saved().empty())
                std::this_thread::yield();
            run.m_home.Write("Download/short", "of another program");
        });
        run.Download({run.m_server.Url("/short")});
        over = true;
        other.join();
        EXPECT_EQ(run.m_stored.size(), 1u);
    }));
}
