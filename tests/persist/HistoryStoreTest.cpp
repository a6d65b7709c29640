#include "tests/persist/InCodePage.h"
#include "tests/persist/Records.h"

#include "persist/HistoryStore.h"

#include "platform/files/File.h"
#include "platform/testing/Limits.h"
#include "platform/testing/TempHome.h"

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <gtest/gtest.h>
#include <thread>

namespace
{

// 2003-06-24 08:00 UTC, still the day before in the time zone of the tests.
constexpr std::int32_t kMorning = 1056441600;
constexpr const char* kDay = "History/2003-06-23";

CHistoryFile FileOf(const std::string& url)
{
    CHistoryFile file;
    file.SetUrl(url);
    return file;
}

CHistoryItem ItemOf(const std::string& page, std::initializer_list<const char*> urls, std::int32_t time = kMorning)
{
    CHistoryItem item;
    item.SetPageUrl(page);
    item.SetTime(time);
    for (const char* url : urls)
        item.AddFile(FileOf(url));
    return item;
}

// All records, "time page: address>path …;" each.
std::string Summary(const CHistoryStore& store)
{
    std::string text;
    for (const CHistoryItem& item : store.GetItems())
    {
        text += std::to_string(item.GetTime()) + ' ' + item.GetPageUrl() + ':';
        for (const CHistoryFile& file : item.m_files)
            text += std::string(" ") + file.m_szUrl.c_str() + '>' + file.m_szLocalPath.c_str();
        text += ';';
    }
    return text;
}

class HistoryFilesTest : public testing::Test
{
protected:
    HistoryFilesTest()
    {
        setenv("TZ", "XXX10", 1);
        tzset();
    }
    ~HistoryFilesTest() override
    {
        unsetenv("TZ");
        tzset();
    }

    static void Save(const std::string& page, const std::string& url, std::int32_t time = kMorning)
    {
        CHistoryStore store;
        store.AddItem(ItemOf(page, {url.c_str()}, time));
        store.MarkFileDone(url, "/s/" + url);
        store.SaveItems();
    }
    static std::string LoadedAll()
    {
        CHistoryStore store;
        store.LoadAll();
        return Summary(store);
    }
    std::string Loaded(const std::string& content) const
    {
        m_home.Write("file", content);
        CHistoryStore store;
        store.LoadFile(m_home.Path("file"));
        return Summary(store);
    }

    TempHome m_home;
};

} // namespace

TEST(HistoryStore, MergesRecordsOfOnePageAndMarksTheFirstEntryOfAnAddress)
{
    const std::string cut(300, 'u');
    CHistoryStore store;
    store.AddItem(ItemOf("p", {"a"}, 1000));
    store.AddItem(ItemOf("q", {"b"}, 5));
    store.MarkFileDone("b", "/1");
    store.AddItem(ItemOf("p", {"b", "a", cut.c_str()}, 2000));
    store.MarkFileDone("b", "/2");
    store.MarkFileDone("a", "/longer");
    store.MarkFileDone("a", "/4");
    store.MarkFileDone(cut, "/5");
    store.MarkFileDone("nowhere", "/6");
    EXPECT_EQ(Summary(store), "1000 p: a>/4 b>/2 a> " + cut.substr(0, 259) + ">;5 q: b>/1;");
    const auto& files = store.GetItems()[0].m_files;
    EXPECT_TRUE(files[0].m_bDone && files[1].m_bDone);
    EXPECT_FALSE(files[2].m_bDone || files[3].m_bDone);
}

TEST_F(HistoryFilesTest, ARunIsAppendedToItsDayAndReadBack)
{
    m_home.Write(kDay, Record("5", "http://old/", {"o>/s/o"}));
    CHistoryStore run;
    run.AddItem(ItemOf("http://p/?a&b<c>", {"http://p/1&2.jpg", "http://p/failed"}));
    run.AddItem(ItemOf("http://nothing/", {"f"}));
    run.AddItem(ItemOf("http://q/", {"g"}, kMorning + 7200));
    run.MarkFileDone("http://p/1&2.jpg", "/s/1&2.jpg");
    run.MarkFileDone("g", "/s/g");
    run.SaveItems();
    EXPECT_EQ(m_home.Read(kDay),
              Record("5", "http://old/", {"o>/s/o"}) +
                  Record("1056441600", "http://p/?a&amp;b&lt;c&gt;", {"http://p/1&amp;2.jpg>/s/1&amp;2.jpg"}) +
                  Record("1056441600", "http://nothing/", {}));
    EXPECT_EQ(m_home.Read("History/2003-06-24"), Record("1056448800", "http://q/", {"g>/s/g"}));

    CHistoryStore all;
    all.AddItem(ItemOf("gone", {"gone"}));
    all.LoadAll();
    EXPECT_EQ(Summary(all), "5 http://old/: o>/s/o;1056441600 http://p/?a&b<c>: http://p/1&2.jpg>/s/1&2.jpg;"
                            "1056448800 http://q/: g>/s/g;");
    EXPECT_EQ(all.GetDayNames(), (std::vector<std::string>{"2003-06-23", "2003-06-24"}));
    EXPECT_FALSE(all.GetItems()[0].m_files[0].m_bDone);
}

TEST_F(HistoryFilesTest, AllFilesOfTheFolderAreTheHistory)
{
    const std::string hostile =
        Record("x", std::string(600, 'p'), {std::string(300, 'u') + '>' + std::string(300, 'l')});
    m_home.Write("History/2003-06-01", Record("1", "page", {"a>/a"}) + Record("2", "", {"b>/b"}));
    m_home.Write("History/2003-06-02", Record("3", "", {"c>/c"}) + Record("4", "page", {"d>/d"}));
    m_home.Write("History/blank", " \r\n");
    m_home.Write("History/damaged", Record("5", "good", {"e>/e"}) + "<DOWNLOAD>");
    m_home.Write("History/foreign.xml", "<DOWNLOAD><DOWNLOAD_ITEM/></DOWNLOAD><OTHER/>" + hostile);
    m_home.Write("History/folder/2003-06-03", Record("6", "deep", {"f>/f"}));
    CHistoryStore store;
    const std::time_t before = std::time(nullptr);
    store.LoadAll();
    ASSERT_EQ(store.GetItems().size(), 3u);
    EXPECT_EQ(store.GetDayNames(),
              (std::vector<std::string>{"2003-06-01", "2003-06-02", "blank", "damaged", "foreign"}));
    EXPECT_GE(store.GetItems()[1].GetTime(), 2);
    EXPECT_EQ(Summary(store).substr(0, 40), "1 page: a>/a d>/d;2 : b>/b c>/c >;0 pppp");
    const CHistoryItem& cut = store.GetItems()[2];
    EXPECT_EQ(cut.GetPageUrl().size(), 519u);
    EXPECT_EQ(std::string_view(cut.m_files[0].m_szUrl).size(), 259u);
    EXPECT_EQ(std::string_view(cut.m_files[0].m_szLocalPath).size(), 259u);
    CHistoryStore undated;
    m_home.Write("undated", "<DOWNLOAD><DOWNLOAD_ITEM/></DOWNLOAD>");
    undated.LoadFile(m_home.Path("undated"));
    EXPECT_GE(undated.GetItems().at(0).GetTime(), before);
}

TEST_F(HistoryFilesTest, AFileThatIsDamagedAnywhereCountsForNothing)
{
    const std::string good = Record("1", "p", {"a>/a"}) + Record("2", "q", {"b>/b"});
    EXPECT_EQ(Loaded(good), "1 p: a>/a;2 q: b>/b;");
    for (std::size_t length = 0; length < good.size() - 2; ++length)
    {
        // What is cut between two records is whole.
        const bool whole = length == good.size() / 2 || length == good.size() / 2 - 1 || length == good.size() / 2 - 2;
        ASSERT_EQ(Loaded(good.substr(0, length)), whole ? "1 p: a>/a;" : "") << length;
    }
    EXPECT_EQ(Loaded(good + '\0' + "<DOWNLOAD>"), "1 p: a>/a;2 q: b>/b;");
    EXPECT_EQ(Loaded("<DOWNLOAD><DOWNLOAD_ITEM></DOWNLOAD></DOWNLOAD_ITEM>" + good), "");
    {
        const MemoryLimit memory(16);
        EXPECT_EQ(Loaded(good), "");
    }
    CHistoryStore store;
    store.LoadFile(m_home.Folder());
    store.LoadFile(m_home.Path("none"));
    EXPECT_TRUE(store.GetItems().empty());
}

TEST_F(HistoryFilesTest, FilesOfAnotherCodePageKeepTheirText)
{
    ExpectInCodePage("936", [this] {
        const std::string record = Record("1", "http://\x81\x5C/", {"\xD5\xBE.jpg>/\xCF\xC2\xD4\xD8/\x81\x5C.jpg"});
        EXPECT_EQ(Loaded(record), "1 http://\x81\x5C/: \xD5\xBE.jpg>/\xCF\xC2\xD4\xD8/\x81\x5C.jpg;");
        Save("\x81\x5C", "\x81\x5C");
        EXPECT_EQ(LoadedAll(), "1056441600 \x81\x5C: \x81\x5C>/s/\x81\x5C;");
    });
}

TEST_F(HistoryFilesTest, ADayThatCannotBeWrittenIsLeftOutAlone)
{
    std::filesystem::create_directories(m_home.Path(kDay));
    Save("first", "a");
    Save("second", "b", kMorning + 7200);
    EXPECT_EQ(LoadedAll(), "1056448800 second: b>/s/b;");
}

TEST_F(HistoryFilesTest, TheRemainsOfAKilledAppendAreCutOff)
{
    Save("first", "a");
    const std::string whole = m_home.Read(kDay);
    const std::string next = Record("2", "killed", {"b>/b"});
    for (std::size_t length = 1; length <= next.size(); ++length)
    {
        m_home.Write(kDay, whole + '\0' + next.substr(1, length - 1));
        ASSERT_EQ(LoadedAll(), "1056441600 first: a>/s/a;") << length;
        Save("second", "c");
        ASSERT_EQ(LoadedAll(), "1056441600 first: a>/s/a;1056441600 second: c>/s/c;") << length;
    }
}

TEST_F(HistoryFilesTest, ZerosAtTheEndHideNoRecordThatIsAppended)
{
    Save("first", "a");
    const std::string whole = m_home.Read(kDay);
    for (const std::string& zeros : {std::string(1, '\0'), std::string(4096, '\0'), std::string(200000, '\0'),
                                     std::string(3, '\0') + '\n' + std::string(3, '\0') + "\r\n"})
    {
        m_home.Write(kDay, whole + zeros);
        Save("second", "c");
        EXPECT_EQ(LoadedAll(), "1056441600 first: a>/s/a;1056441600 second: c>/s/c;") << zeros.size();
    }
    // Text behind a zero is somebody's.
    for (const std::string& foreign : {std::string("text\0more", 9), '\0' + std::string(70000, '\0') + "more"})
    {
        m_home.Write(kDay, foreign);
        Save("third", "d");
        EXPECT_EQ(m_home.Read(kDay).substr(0, foreign.size()), foreign);
    }
}

// The other run has looked where the file ends, and writes there when this one has had its time.
TEST_F(HistoryFilesTest, RunsAtTheSameTimeLoseNothing)
{
    Save("first", "a");
    const std::string before = m_home.Read(kDay);
    CFile other;
    ASSERT_TRUE(other.Open(m_home.Path(kDay), CFile::modeReadWrite) && other.LockRange(0, 1));
    const std::uint64_t end = other.SeekToEnd();
    std::thread run([] { Save("third", "c"); });
    for (int look = 0; look < 200 && m_home.Read(kDay) == before; ++look)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    const std::string record = Record("2", "second", {"b>/b"});
    EXPECT_TRUE(other.SeekTo(end) && other.Write(record.data(), record.size()) && other.Close());
    run.join();
    EXPECT_EQ(LoadedAll(), "1056441600 first: a>/s/a;2 second: b>/b;1056441600 third: c>/s/c;");
}
