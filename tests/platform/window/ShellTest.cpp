#include "platform/shell/Shell.h"

#include "platform/system/LastError.h"
#include "platform/testing/RecordingPrograms.h"
#include "platform/window/Messages.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace fs = std::filesystem;

using Words = std::vector<std::string>;

namespace
{

long Open(const std::string& file, const char* verb = "open", const char* parameters = nullptr)
{
    return ShellExecuteA({}, verb, file.c_str(), parameters, nullptr, SW_SHOW);
}

} // namespace

TEST(Shell, TheDesktopsProgramGetsExactlyTheName)
{
    const TempHome home;
    const RecordingPrograms programs(home, {"xdg-open"});
    for (const char* name :
         {"plain", "two words", "-dash", "--help", "quote'\"s", "$(touch injected)", "a;b|c&d", "%41"})
    {
        const std::string file = home.Path(name);
        home.Write(name, "");
        EXPECT_GT(Open(file, "explore"), 32) << name;
        EXPECT_EQ(programs.Arguments("xdg-open"), Words{file});
    }
    EXPECT_FALSE(fs::exists("injected"));
    const std::string address = "http://127.0.0.1/a?b=1&c=$(touch injected)";
    EXPECT_GT(Open(address), 32);
    EXPECT_EQ(programs.Arguments("xdg-open"), Words{address});
}

TEST(Shell, WhatCannotBeOpenedFails)
{
    const TempHome home;
    const RecordingPrograms programs(home, {"xdg-open"});
    for (const std::string& file : {home.Path("missing"), std::string("--version"), std::string()})
        EXPECT_LE(Open(file), 32) << file;
    EXPECT_LE(Open(home.Folder(), "print"), 32);
    EXPECT_LE(Open(home.Folder(), "open", "parameters"), 32);
    EXPECT_LE(ShellExecuteA({}, "open", nullptr, nullptr, nullptr, SW_SHOW), 32);
    EXPECT_FALSE(programs.HasRun("xdg-open"));
    fs::remove(programs.Path("xdg-open"));
    EXPECT_LE(Open(home.Folder()), 32);
}

TEST(Shell, ACommandLineIsPartedIntoWordsAndNothingElse)
{
    const TempHome home;
    const RecordingPrograms programs(home, {"show", "two words"});
    const std::pair<std::string, Words> cases[] = {
        {"show a\tb  c ", {"a", "b", "c"}},
        {"  show \"a b\" c\"d e\"f \"\"", {"a b", "cd ef", ""}},
        {'"' + programs.Path("show") + "\" 'a b'", {"'a", "b'"}},
        {"show $(id) `id` ; | > f & * ~ \\ %1 $HOME",
         {"$(id)", "`id`", ";", "|", ">", "f", "&", "*", "~", "\\", "%1", "$HOME"}},
        {"show -x http://h/a b \"c\" --d ", {"-x", "http://h/a b \"c\" --d "}},
        {"show javascript:a \"b", {"javascript:a \"b"}},
        {"show \"http://h/a b\" -c", {"http://h/a b", "-c"}},
        {"show C: -:x :y", {"C:", "-:x", ":y"}},
    };
    for (const auto& [line, words] : cases)
    {
        EXPECT_GT(WinExec(line.c_str(), SW_SHOW), 31u) << line;
        EXPECT_EQ(programs.Arguments("show"), words) << line;
    }
    EXPECT_GT(WinExec("\"two words\" \xFF", SW_SHOW), 31u);
    EXPECT_EQ(programs.Arguments("two words"), Words{"\xFF"});
}
