// Disks that are full, cannot be written or lose a folder, and links in the save folder that lead elsewhere.
#include "Faults.h"
#include "Stores.h"
#include "tests/download/TestRun.h"

#include "platform/testing/Limits.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <map>

namespace fs = std::filesystem;

namespace
{

constexpr std::size_t kPage = 4096;
const std::string kBallast = "ballast";

// Path to content.
using Files = std::map<std::string, std::string>;

Files FilesOf(const TempHome& home)
{
    Files files;
    for (const auto& entry : fs::recursive_directory_iterator(home.Folder()))
    {
        const std::string name = entry.path().lexically_relative(home.Folder()).string();
        if (entry.is_regular_file() && name != kBallast)
            files[name] = home.Read(name);
    }
    return files;
}

void PutBack(const TempHome& home, const Files& files)
{
    for (const auto& [name, content] : FilesOf(home))
        fs::remove(home.Path(name));
    for (const auto& [name, content] : files)
        home.Write(name, content);
}

// A run, and every way of the program to write: what stands there before, and what does when all went well.
class Writers
{
public:
    explicit Writers(const TempHome& home) : m_home(home), m_run(home)
    {
        m_copies.Write("copied", std::string(19'000, 'c'));
        m_run.m_cache.Add("http://127.0.0.1/copied", m_copies.Path("copied"));
        m_run.Served("/fetched", std::string(21'000, 'f'));
        for (unsigned i = 0; i < std::size(m_states); ++i)
        {
            PutBack(home, {});
            Write(i, 1);
            m_states[i].before = FilesOf(home);
            Write(i, 2);
            m_states[i].after = FilesOf(home);
            EXPECT_FALSE(m_states[i].before == m_states[i].after) << i;
        }
    }

    // Lets each of them write under the scarcity that `begin` brings and `end` takes away.
    void Try(const std::function<void()>& begin, const std::function<void()>& end)
    {
        for (unsigned i = 0; i < std::size(m_states); ++i)
        {
            PutBack(m_home, m_states[i].before);
            begin();
            Write(i, 2);
            end();
            const Files now = FilesOf(m_home);
            m_done += now == m_states[i].after;
            m_refused += now == m_states[i].before;
            ++m_writes;
        }
    }
    // What stands there is the old state or the new one, and both happened as often as said.
    void Expect(const char* what, bool mayBeDone)
    {
        EXPECT_EQ(m_done + m_refused, m_writes);
        EXPECT_GT(m_refused, 0u);
        EXPECT_EQ(m_done > 0, mayBeDone);
        std::printf("%s: %u writes, %u refused with the old state whole, %u done, %u torn\n", what, m_writes, m_refused,
                    m_done, m_writes - m_refused - m_done);
    }

private:
    struct State
    {
        Files before;
        Files after;
    };

    void Write(unsigned writer, unsigned version)
    {
        std::vector<std::pair<std::string, std::string>> record;
        for (unsigned i = 0; i < 40; ++i)
            record.emplace_back(std::to_string(i), std::string(250, 'p'));
        switch (writer)
        {
        case 0:
            SaveSettings(version);
            break;
        case 1:
            SaveHistory(std::to_string(version), record);
            break;
        case 2:
            SetValue(std::string(9'000 * version, 'v'));
            break;
        default:
            if (version == 1)
                return;
            m_run.m_bRunning = 1;
            m_run.Download({writer == 3 ? "http://127.0.0.1/fetched" : "http://127.0.0.1/copied"});
        }
    }

    const TempHome& m_home;
    const TempHome m_copies;
    TestRun m_run;
    State m_states[5];
    unsigned m_writes = 0;
    unsigned m_refused = 0;
    unsigned m_done = 0;
};

// All but so many pages of the file system are taken.
void LeaveFree(const TempHome& home, std::size_t pages)
{
    std::ofstream ballast(home.Path(kBallast), std::ios::binary);
    const std::string page(kPage, 'b');
    while (ballast.write(page.data(), kPage) && ballast.flush())
    {}
    ballast.close();
    const std::size_t taken = fs::file_size(home.Path(kBallast)) / kPage;
    fs::resize_file(home.Path(kBallast), (taken - std::min(taken, pages)) * kPage);
}

} // namespace

TEST(Disk, EndsAtAnyByteOfAFile)
{
    const TempHome home;
    Writers writers(home);
    const unsigned rounds = Rounds(40);
    for (unsigned i = 0; i < rounds; ++i)
    {
        std::unique_ptr<FullDisk> disk;
        writers.Try([&] { disk = std::make_unique<FullDisk>(25'000 * i / rounds); }, [&] { disk.reset(); });
    }
    writers.Expect("a file cannot grow", true);
}

TEST(Disk, IsFullOrCannotBeWritten)
{
    if (!MayMount())
        GTEST_SKIP() << "this system lets the test mount nothing";
    ExpectGoodEnd(StartChild([] {
        const TempHome home;
        ASSERT_TRUE(TakeOwnMounts() && MountMemory(home.Folder(), "size=1m"));
        Writers full(home);
        for (std::size_t pages = 0; pages < 16; ++pages)
            full.Try([&] { LeaveFree(home, pages); }, [&] { fs::remove(home.Path(kBallast)); });
        full.Expect("a full disk", true);
        Writers readOnly(home);
        const auto remount = [&home](unsigned long flags) {
            ASSERT_EQ(mount(nullptr, home.Folder().c_str(), nullptr, MS_REMOUNT | flags, nullptr), 0);
        };
        readOnly.Try([&] { remount(MS_RDONLY); }, [&] { remount(0); });
        readOnly.Expect("a read-only disk", false);
        ASSERT_EQ(umount2(home.Folder().c_str(), MNT_DETACH), 0);
    }));
}

TEST(Disk, LosesTheSaveFolderInTheMiddleOfARun)
{
    TestRun run;
    std::vector<std::string> urls;
    for (const char* name : {"1", "2", "3", "4", "5", "6"})
        urls.push_back(*name % 2 == 0 ? run.Served(std::string("/") + name, name)
                                      : run.Cached(std::string("http://h/") + name, name));
    run.m_whenStored = [&run] {
        if (run.m_stored.size() == 2)
            fs::remove_all(run.m_home.Path("Download"));
    };
    run.Download(urls);
    EXPECT_EQ(run.m_stored.size(), 2u);
    EXPECT_EQ(run.m_ends, 1);
    EXPECT_EQ(run.m_home.Files(""), std::vector<std::string>{"cache"});
}

TEST(Disk, NothingIsMadeThroughALink)
{
    TestRun run;
    const TempHome outside;
    outside.Write("file", "stays");
    std::vector<std::string> urls;
    for (const char* target : {"nowhere", "file", "."})
    {
        for (const std::string kind : {"c", "f"})
        {
            const std::string name = kind + std::to_string(urls.size());
            fs::create_symlink(outside.Path(target), run.m_home.Path("Download/" + name));
            urls.push_back(kind == "c" ? run.Cached("http://h/" + name, "content of " + name)
                                       : run.Served('/' + name, "content of " + name));
        }
    }
    run.Download(urls);
    EXPECT_EQ(run.m_stored.size(), urls.size());
    for (const std::string& url : urls)
    {
        const std::string name = url.substr(url.rfind('/') + 1);
        EXPECT_TRUE(fs::is_symlink(run.m_home.Path("Download/" + name)));
        EXPECT_EQ(run.Content(name + '1'), "content of " + name);
    }
    EXPECT_EQ(FilesOf(outside), (Files{{"file", "stays"}}));
}
