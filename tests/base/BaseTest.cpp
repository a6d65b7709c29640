#include "base/ErrorMessage.h"
#include "base/FixedText.h"
#include "base/FormatText.h"
#include "base/Guarded.h"
#include "base/Paths.h"
#include "base/UrlList.h"

#include "platform/system/LastError.h"
#include "platform/testing/Robot.h"
#include "platform/testing/TempHome.h"
#include "platform/window/Resource.h"

#include <gtest/gtest.h>

#include <thread>

TEST(UrlList, KeepsOrderAndDuplicatesAndComparesExactly)
{
    CUrlList list;
    for (const char* url : {"http://a/1", "http://a/2", "http://a/1"})
        list.AddTail(url);
    list.AddTailOnce("http://a/2");
    list.AddTailOnce("http://a/3");
    EXPECT_EQ(std::vector<std::string>(list.begin(), list.end()),
              (std::vector<std::string>{"http://a/1", "http://a/2", "http://a/1", "http://a/3"}));
    for (const char* other : {"http://A/1", "http://a/1/", "http://a/", "http://a/%31", ""})
        EXPECT_FALSE(list.Contains(other)) << other;
}

TEST(FixedText, CutsToFitAndNeverKeepsWhatStoodThereBefore)
{
    FixedText<8> text("1234567");
    EXPECT_STREQ(text.c_str(), "1234567");
    text = "12345678";
    EXPECT_STREQ(text.c_str(), "1234567");
    text = "ab";
    EXPECT_STREQ(text.c_str(), "ab");
    EXPECT_EQ(std::string_view(text), "ab");
}

TEST(Guarded, AReaderSeesTheOldValueOrTheNewOneWhole)
{
    CGuarded<std::vector<int>> guarded;
    guarded.Set(std::vector<int>(100, 0));
    std::thread writer([&guarded] {
        for (int value = 1; value <= 2000; ++value)
            guarded.Set(std::vector<int>(100, value));
    });
    int last = 0;
    while (last < 2000)
    {
        const auto values = guarded.Get();
        ASSERT_EQ(values->size(), 100u);
        ASSERT_EQ(values->front(), values->back());
        ASSERT_GE(values->front(), last);
        last = values->front();
    }
    writer.join();
}

TEST(Paths, PutsFolderAndNameTogetherWithOneSeparator)
{
    EXPECT_EQ(PathInFolder("/save", "a.jpg"), "/save/a.jpg");
    EXPECT_EQ(PathInFolder("/save/", "a.jpg"), "/save/a.jpg");
    EXPECT_EQ(PathInFolder("/", "a.jpg"), "/a.jpg");
    EXPECT_EQ(PathInFolder("", "a.jpg"), "a.jpg");
    EXPECT_EQ(PathInFolder("/save", ""), "/save/");
}

TEST(Paths, TakesTheItemNameBehindTheLastSlash)
{
    EXPECT_EQ(ItemNameOf("http://h/x/a.jpg"), "a.jpg");
    EXPECT_EQ(ItemNameOf("http://h/pic.php?id=3"), "pic.php?id=3");
    EXPECT_EQ(ItemNameOf("http://h/get?from=/x/y.jpg"), "y.jpg");
    EXPECT_EQ(ItemNameOf("http://h/a%2Fb.jpg"), "a%2Fb.jpg");
    EXPECT_EQ(ItemNameOf("http://h/"), "");
    EXPECT_EQ(ItemNameOf("none"), "none");
}

TEST(Paths, TheInstallFolderEndsInItsSeparator)
{
    const TempHome home;
    EXPECT_EQ(GetInstallFolder(), home.Folder() + "/");
}

TEST(FormatText, FillsOnePlaceAndReadsDoublePercent)
{
    static constexpr TextEntry texts[] = {{1, "%d%% Complete"}, {2, "Folder %s does not exist.\n%s"}, {3, "plain"}};
    ResourceTable table{};
    table.texts = texts;
    AfxSetResources(table);
    EXPECT_EQ(FormatText(1, "%d", "33"), "33% Complete");
    EXPECT_EQ(FormatText(2, "%s", "/a %s%d%%"), "Folder /a %s%d%% does not exist.\n%s");
    EXPECT_EQ(FormatText(3, "%s", "x"), "plain");
    EXPECT_EQ(FormatText(4, "%s", "x"), "");
}

TEST(ErrorMessage, ShowsTheSystemsTextAndNothingForAnUnknownCode)
{
    RunScript([] { ShowErrorMessage(ERROR_ACCESS_DENIED); },
              [](Robot& robot) {
                  robot.WaitForWindow("Error");
                  EXPECT_FALSE(robot.MessageBoxText().empty());
                  robot.Answer("OK");
              });
    // Would never return if it showed a box.
    ShowErrorMessage(0x3FFFFFFF);
}
