#include "settings/BrowserButton.h"
#include "settings/PagePath.h"
#include "settings/ResolutionChoice.h"

#include "platform/system/LastError.h"
#include "platform/system/Registry.h"
#include "platform/testing/TempHome.h"

#include <gtest/gtest.h>

namespace
{

const std::string kButton =
    "Software\\Microsoft\\Internet Explorer\\Extensions\\{5B7D2C16-A94E-4F03-9C61-2E8F40D1B7A3}";

std::string KeyLine(const std::string& key)
{
    return '[' + key + "]\n";
}

std::string Machine(const TempHome& home)
{
    return home.Exists("registry-machine.ini") ? home.Read("registry-machine.ini") : "";
}

} // namespace

TEST(PagePath, IsCutAtSeparators)
{
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"Download Setting", {"Download Setting"}},
        {"a::b::c", {"a", "b", "c"}},
        {"a\\::b", {"a::b"}},
        {"a\\\\::b", {"a\\", "b"}},
        {"a:b:::c", {"a:b", ":c"}},
        {"a::", {"a"}},
        {"::a", {"", "a"}},
    };
    for (const auto& [title, names] : cases)
    {
        std::vector<std::string> found;
        for (std::string path = title; !path.empty();)
            found.push_back(NextPathComponent(path));
        EXPECT_EQ(found, names) << title;
    }
}

TEST(BrowserButton, IsOneKeyOfSixValues)
{
    const TempHome home;
    const std::string program = home.Path("vantroy");
    const std::string button = KeyLine(kButton) + "CLSID={1FBA04EE-3024-11D2-8F1F-0000F87ABD16}\n" +
                               "Default Visible=Yes\nButtonText=Vantroy\nIcon=" + program + ",128\nHotIcon=" + program +
                               ",128\nExec=" + program + "\n";
    EXPECT_FALSE(RemoveBrowserButton());
    EXPECT_EQ(Machine(home), "");
    EXPECT_TRUE(AddBrowserButton());
    EXPECT_EQ(Machine(home), button);
    home.Write("registry-machine.ini", KeyLine(kButton) + "Exec=/old/place\n");
    EXPECT_TRUE(AddBrowserButton());
    EXPECT_EQ(Machine(home).find("/old/place"), std::string::npos);
    EXPECT_TRUE(RemoveBrowserButton());
    EXPECT_EQ(Machine(home), KeyLine("Software\\Microsoft\\Internet Explorer\\Extensions"));
}

TEST(BrowserButton, GoesWithAllThatStandsBelowIt)
{
    const TempHome home;
    std::string deep = kButton;
    for (int level = 0; level < 100; ++level)
        deep += "\\x";
    home.Write("registry-machine.ini", "# mine\n" + KeyLine(kButton + "\\a\\b") + "v=1\n" + KeyLine(deep) +
                                           KeyLine(kButton + "beside") + KeyLine(kButton + "\\c"));
    EXPECT_TRUE(RemoveBrowserButton());
    EXPECT_EQ(Machine(home), "# mine\n" + KeyLine(kButton + "beside"));
}

TEST(BrowserButton, IsLeftWhereARightIsMissing)
{
    const TempHome home;
    home.Write("registry-machine.ini",
               KeyLine(kButton + "\\first") + KeyLine(kButton + "\\locked") + KeyLine(kButton + "\\third"));
    SetRegistryGuard([](HKEY, const char* path) { return !std::string_view(path).ends_with("locked"); });
    EXPECT_FALSE(RemoveBrowserButton());
    EXPECT_EQ(Machine(home),
              KeyLine(kButton + "\\locked") + KeyLine(kButton + "\\third")); // what went before the failure stays gone
    SetRegistryGuard(nullptr);
}

TEST(ResolutionChoice, RowsAreTheSizesWithoutABox)
{
    using Entry = CResolutionRows::Entry;
    CResolutionRows rows;
    rows.SetList({{100, 50}, {640, 480}, {7, 9}});
    const std::tuple<const char*, const char*, Entry> cases[] = {
        {"", "5", Entry::Missing},      {"5", "", Entry::Missing},
        {"0", "5", Entry::Refused},     {"5", "-3", Entry::Refused},
        {"x", "5", Entry::Refused},     {"640", "480", Entry::Refused},
        {"0100", "50", Entry::Refused}, {"012", "3k", Entry::Added},
        {"800", "600", Entry::Added},   {"99999999999999999999", "1", Entry::Added}};
    for (const auto& [width, height, entry] : cases)
        EXPECT_EQ(rows.Add(width, height), entry) << width << ' ' << height;
    EXPECT_EQ(rows.GetRows(),
              (std::vector<std::string>{"100 x 50", "7 x 9", "012 x 3k", "800 x 600", "99999999999999999999 x 1"}));
    rows.Remove({0, 2, 4});
    EXPECT_EQ(rows.GetRows(), (std::vector<std::string>{"7 x 9", "800 x 600"}));
    EXPECT_EQ(rows.GetList(), (CResolutionVector{{640, 480}, {7, 9}, {800, 600}}));
    rows.SetList(rows.GetList());
    EXPECT_EQ(rows.GetRows(), std::vector<std::string>{"7 x 9"});
}
