#include "base/ErrorMessage.h"
#include "base/FormatText.h"
#include "base/Guarded.h"

#include "platform/window/Resource.h"

#include <gtest/gtest.h>

#include <thread>

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

TEST(ErrorMessage, IsNotShownForACodeWithoutAText)
{
    // Would never return if it showed a box.
    ShowErrorMessage(0x3FFFFFFF);
}
