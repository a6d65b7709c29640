#include "TestDialog.h"

#include "platform/shell/Shell.h"
#include "platform/testing/TempHome.h"

#include <filesystem>

namespace fs = std::filesystem;

namespace
{

// A folder in front of PATH with an xdg-open that writes down what it was given.
class FakeDesktop
{
public:
    FakeDesktop() : m_path(getenv("PATH"))
    {
        m_home.Write("bin/xdg-open",
                     "#!/bin/sh\nprintf '%s\\n' \"$#\" \"$1\" > \"$0.tmp\" && mv \"$0.tmp\" \"$0.args\"\n");
        fs::permissions(m_home.Path("bin/xdg-open"), fs::perms::owner_all);
        setenv("PATH", (m_home.Path("bin") + ':' + m_path).c_str(), 1);
    }
    ~FakeDesktop()
    {
        setenv("PATH", m_path.c_str(), 1);
    }

    const TempHome& Home() const
    {
        return m_home;
    }
    // What the program got, once it has run.
    std::string Arguments() const
    {
        if (!ServeMessagesUntil([this] { return m_home.Exists("bin/xdg-open.args"); }))
            return "never started";
        const std::string arguments = m_home.Read("bin/xdg-open.args");
        fs::remove(m_home.Path("bin/xdg-open.args"));
        return arguments;
    }

private:
    std::string m_path;
    TempHome m_home;
};

long Open(const std::string& file, const char* verb = "open", const char* parameters = nullptr)
{
    return ShellExecuteA({}, verb, file.c_str(), parameters, nullptr, SW_SHOW);
}

} // namespace

TEST(Shell, TheDesktopsProgramGetsExactlyTheName)
{
    const FakeDesktop desktop;
    for (const char* name :
         {"plain", "two words", "-dash", "--help", "quote'\"s", "$(touch injected)", "a;b|c&d", "%41"})
    {
        const std::string file = desktop.Home().Path(name);
        desktop.Home().Write(name, "");
        EXPECT_GT(Open(file, "explore"), 32) << name;
        EXPECT_EQ(desktop.Arguments(), "1\n" + file + "\n");
    }
    EXPECT_FALSE(fs::exists("injected"));
    const std::string address = "http://127.0.0.1/a?b=1&c=$(touch injected)";
    EXPECT_GT(Open(address), 32);
    EXPECT_EQ(desktop.Arguments(), "1\n" + address + "\n");
}

TEST(Shell, WhatCannotBeOpenedFails)
{
    const FakeDesktop desktop;
    EXPECT_LE(Open(desktop.Home().Path("missing")), 32);
    EXPECT_LE(Open("--version"), 32);
    EXPECT_LE(Open(""), 32);
    EXPECT_LE(Open(desktop.Home().Folder(), "print"), 32);
    EXPECT_LE(Open(desktop.Home().Folder(), "open", "parameters"), 32);
    EXPECT_LE(ShellExecuteA({}, "open", nullptr, nullptr, nullptr, SW_SHOW), 32);
    fs::remove(desktop.Home().Path("bin/xdg-open"));
    setenv("PATH", desktop.Home().Path("bin").c_str(), 1);
    EXPECT_LE(Open(desktop.Home().Folder()), 32);
}
