#include "persist/DownloadSetting.h"
#include "persist/HistoryStore.h"

#include "platform/system/Registry.h"
#include "platform/testing/TempHome.h"

#include <gtest/gtest.h>

#include <ctime>

namespace
{

void SetInstallPath(const std::string& path)
{
    HKEY key = HKEY::Null;
    ASSERT_EQ(RegCreateKeyA(HKEY_CURRENT_USER, "SOFTWARE\\Orlenta\\Vantroy", &key), 0);
    ASSERT_EQ(RegSetValueExA(key, "InstallPath", 0, REG_SZ, reinterpret_cast<const BYTE*>(path.c_str()),
                             static_cast<DWORD>(path.size() + 1)),
              0);
    RegCloseKey(key);
}

CHistoryFile FileOf(const std::string& url)
{
    CHistoryFile file;
    file.SetUrl(url);
    return file;
}

CHistoryItem ItemOf(const std::string& page, std::initializer_list<const char*> urls)
{
    CHistoryItem item;
    item.SetPageUrl(page);
    for (const char* url : urls)
        item.AddFile(FileOf(url));
    return item;
}

} // namespace

TEST(DownloadSetting, StartsWithTheDefaults)
{
    const TempHome home;
    SetInstallPath("/opt/somewhere");
    const CDownloadSetting setting;
    EXPECT_EQ(setting.GetSaveFolder(), "/opt/somewhere/Download");
    EXPECT_EQ(setting.m_bLimitFileSize, 0);
    EXPECT_EQ(setting.m_bBigThan, 1);
    EXPECT_EQ(setting.m_bSmallThan, 0);
    EXPECT_EQ(setting.m_nBigThanKb, 250);
    EXPECT_EQ(setting.m_nSmallThanKb, 0);
    EXPECT_EQ(setting.m_bLimitResolution, 0);
    EXPECT_TRUE(setting.m_resolutions.Get()->empty());
    EXPECT_EQ(setting.m_bImages, 1);
    EXPECT_EQ(setting.m_bMp3, 0);
    EXPECT_EQ(setting.m_bFlash, 0);
}

TEST(DownloadSetting, HasNoSaveFolderWithoutAReadableInstallPath)
{
    const TempHome home;
    EXPECT_EQ(CDownloadSetting().GetSaveFolder(), "");
    SetInstallPath(std::string(300, 'x'));
    EXPECT_EQ(CDownloadSetting().GetSaveFolder(), "");
    home.Write("registry-user.ini", std::string(5000, '\xFF'));
    EXPECT_EQ(CDownloadSetting().GetSaveFolder(), "");
}

TEST(HistoryStore, MergesRecordsOfOnePageAndKeepsTheFirstOnesTime)
{
    CHistoryStore store;
    CHistoryItem first = ItemOf("http://p/", {"1", "2"});
    first.SetTime(1000);
    CHistoryItem second = ItemOf("http://p/", {"1"});
    second.SetTime(2000);
    store.AddItem(first);
    store.AddItem(ItemOf("http://q/", {"9"}));
    store.AddItem(second);
    ASSERT_EQ(store.m_items.size(), 2u);
    EXPECT_EQ(store.m_items[0].GetTime(), 1000);
    EXPECT_EQ(store.m_items[0].m_files.size(), 3u);
    EXPECT_EQ(store.m_items[1].GetPageUrl(), "http://q/");
    store.Clear();
    EXPECT_TRUE(store.m_items.empty());
}

TEST(HistoryStore, MarksTheFirstEntryOfAnAddressAndNoCutOne)
{
    const std::string cut(300, 'u');
    CHistoryStore store;
    store.AddItem(ItemOf("p", {"a", "b", "a", cut.c_str()}));
    store.AddItem(ItemOf("q", {"b"}));
    store.MarkFileDone("b", "/save/b");
    store.MarkFileDone("a", "/save/a");
    store.MarkFileDone("a", "/save/a1");
    store.MarkFileDone(cut, "/save/u");
    store.MarkFileDone("nowhere", "/save/n");
    const auto& files = store.m_items[0].m_files;
    EXPECT_STREQ(files[0].m_szLocalPath.c_str(), "/save/a1");
    EXPECT_STREQ(files[1].m_szLocalPath.c_str(), "/save/b");
    EXPECT_TRUE(files[0].m_bDone && files[1].m_bDone);
    EXPECT_FALSE(files[2].m_bDone || files[3].m_bDone || store.m_items[1].m_files[0].m_bDone);
}

TEST(HistoryStore, CutsLongTextsAndDatesANewRecordNow)
{
    const std::time_t before = std::time(nullptr);
    CHistoryItem item = ItemOf(std::string(600, 'p'), {});
    EXPECT_EQ(item.GetPageUrl(), std::string(519, 'p'));
    EXPECT_GE(item.GetTime(), before);
    CHistoryFile file = FileOf(std::string(600, 'u'));
    file.SetLocalPath(std::string(600, 'l'));
    EXPECT_EQ(std::string_view(file.m_szUrl), std::string(259, 'u'));
    EXPECT_EQ(std::string_view(file.m_szLocalPath), std::string(259, 'l'));
}
