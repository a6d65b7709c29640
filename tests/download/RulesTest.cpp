#include "download/LocalName.h"
#include "download/ProgressFields.h"
#include "download/SizeFilter.h"

#include "platform/testing/TempHome.h"

#include <gtest/gtest.h>

namespace
{

constexpr DWORD kKb = 1024;

} // namespace

TEST(SizeFilter, FollowsTheTable)
{
    const struct
    {
        const char* name;
        CSizeLimit limit;
        std::vector<DWORD> passes;
        std::vector<DWORD> leftOut;
    } cases[] = {
        {"limit off", {false, true, true, 300, 300}, {0, 1, 300 * kKb, 0xFFFFFFFF}, {}},
        {"lower 250, the default", {true, true, false, 250, 0}, {256001, 0xFFFFFFFF}, {0, 1, 255999, 256000}},
        {"lower 10, upper 100 unticked",
         {true, true, false, 10, 100},
         {10 * kKb + 1, 100 * kKb - 1},
         {0, 10 * kKb - 1, 10 * kKb, 100 * kKb, 100 * kKb + 1}},
        {"upper 100, lower 250 unticked",
         {true, false, true, 250, 100},
         {0, 100 * kKb - 1},
         {100 * kKb, 100 * kKb + 1, 250 * kKb, 250 * kKb + 1}},
        {"upper 1000, lower 250 unticked",
         {true, false, true, 250, 1000},
         {250 * kKb + 1, 1000 * kKb - 1},
         {0, 250 * kKb, 1000 * kKb, 1000 * kKb + 1}},
        {"both, 100 to 500",
         {true, true, true, 100, 500},
         {100 * kKb + 1, 500 * kKb - 1},
         {0, 100 * kKb, 500 * kKb, 500 * kKb + 1}},
        {"both, not between 100 and 500",
         {true, true, true, 500, 100},
         {0, 100 * kKb - 1, 500 * kKb + 1},
         {100 * kKb, 300 * kKb, 500 * kKb}},
        {"neither ticked, 500 above 100", {true, false, false, 500, 100}, {0, 501 * kKb}, {100 * kKb, 500 * kKb}},
        {"neither ticked, 100 below 500", {true, false, false, 100, 500}, {101 * kKb}, {0, 100 * kKb, 500 * kKb}},
    };
    for (const auto& c : cases)
    {
        for (const DWORD size : c.passes)
            EXPECT_FALSE(c.limit.IsFiltered(size)) << c.name << ", " << size;
        for (const DWORD size : c.leftOut)
            EXPECT_TRUE(c.limit.IsFiltered(size)) << c.name << ", " << size;
    }
}

TEST(LocalName, NumbersATakenNameBeforeItsLastDot)
{
    struct Case
    {
        std::vector<std::string> taken; // "name content", 4 bytes where none is named
        std::string name;
        DWORD size;
        bool free;
        std::string expected;
    };
    const Case cases[] = {
        {{}, "photo.jpg", 4, true, "photo.jpg"},
        {{"photo.jpg"}, "photo.jpg", 4, false, "photo.jpg"},
        {{"photo.jpg", "photo1.jpg 12345"}, "photo.jpg", 5, false, "photo1.jpg"},
        {{"a.b.jpg", "a.b1.jpg"}, "a.b.jpg", 5, true, "a.b2.jpg"},
        {{"name"}, "name", 5, true, "name1"},
        {{"name."}, "name.", 5, true, "name1"},
        {{"my.folder/name"}, "my.folder/name", 5, true, "my1.folder/name"},
    };
    for (const Case& c : cases)
    {
        const TempHome home;
        for (const std::string& name : c.taken)
            home.Write("in/" + name.substr(0, name.find(' ')),
                       name.find(' ') == name.npos ? "1234" : name.substr(name.find(' ') + 1));
        // No folder on the way may hold a ".", which the search would find.
        ASSERT_EQ(home.Folder().find('.'), std::string::npos);
        std::string path = home.Path("in/" + c.name);
        EXPECT_EQ(FindLocalName(path, c.size), c.free) << c.name;
        EXPECT_EQ(path, home.Path("in/" + c.expected));
    }
}

TEST(ProgressFields, CutsThePercentAndCountsNothingAsComplete)
{
    EXPECT_EQ(PercentOf(5, 0), 100u);
    EXPECT_EQ(PercentOf(1, 3), 33u);
    EXPECT_EQ(PercentOf(0xFFFFFFFE, 0xFFFFFFFF), 99u);
    EXPECT_EQ(PercentOf(0xFFFFFFFF, 0xFFFFFFFF), 100u);
}
