// What reaches the user's programs of an address.
#include "controls/OpenUrl.h"

#include "platform/testing/RecordingPrograms.h"
#include "platform/window/Messages.h"

#include <gtest/gtest.h>

namespace
{

using Words = std::vector<std::string>;

constexpr const char* kPage = "http://h/a";

// The registry with a command for pages.
void SetCommand(const TempHome& home, const std::string& command)
{
    home.Write("registry-classes.ini", "[.htm]\n=page\n[page\\shell\\open\\command]\n=" + command + '\n');
}

} // namespace

TEST(OpenUrl, TheDesktopComesFirstAndGetsTheAddressAlone)
{
    const TempHome home;
    const RecordingPrograms programs(home, {"xdg-open", "browser"});
    SetCommand(home, "browser %1");
    for (const std::string url : {"http://h/a b", "https://h/?q=\"x\" --help", "mailto:-a@h; $(id)", "http://h/%1"})
    {
        EXPECT_GT(OpenUrl(url, SW_SHOW), 32u);
        EXPECT_EQ(programs.Arguments("xdg-open"), Words{url});
    }
    EXPECT_FALSE(programs.HasRun("browser"));
}

TEST(OpenUrl, TheRegisteredCommandGetsTheAddressInThePlaceOfTheFile)
{
    const TempHome home;
    const RecordingPrograms programs(home, {"browser"});
    const std::string nasty = "http://h/a b \"c\" -d %1 $(id);|`id`' \xFF";
    const struct
    {
        std::string command;
        std::string url;
        Words arguments;
    } cases[] = {
        {"browser", kPage, {kPage}},
        {"browser \"%1\" -lost", kPage, {kPage}},
        {"browser %1 -x \"%1\"", kPage, {"%1", "-x", kPage}},
        {"\"" + programs.Path("browser") + "\" -new \"a tab\" \"%1\"", nasty, {"-new", "a tab", nasty}},
        {"browser -url", "ftp://h/ --help", {"-url", "ftp://h/ --help"}},
        {"browser", "www.h.example", {"www.h.example"}},
    };
    for (const auto& [command, url, arguments] : cases)
    {
        SetCommand(home, command);
        EXPECT_GT(OpenUrl(url, SW_SHOW), 32u) << command;
        EXPECT_EQ(programs.Arguments("browser"), arguments) << command;
    }
}

TEST(OpenUrl, NothingOfAnAddressIsRunOrReadAsAnOption)
{
    const TempHome home;
    const RecordingPrograms programs(home, {"browser", "sh"});
    const struct
    {
        std::string command;
        std::string url;
    } cases[] = {
        {"browser", "-x"},
        {"browser", "a\t-x"},
        {"browser", "\"-x\""},
        {"browser", ""},
        {"", "browser"},
        {"%1", "browser"},
        {" \"\" %1", "browser"},
        {"sh -c \"browser %1\"", "http://h\" browser"},
        {"browser", "http://h/" + std::string(600, 'a')},
        {"browser " + std::string(300, 'a'), kPage},
    };
    for (const auto& [command, url] : cases)
    {
        SetCommand(home, command);
        EXPECT_LE(OpenUrl(url, SW_SHOW), 32u) << command << url;
    }
    EXPECT_FALSE(programs.HasRun("browser"));
    EXPECT_FALSE(programs.HasRun("sh"));
}
