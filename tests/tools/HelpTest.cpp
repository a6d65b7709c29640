// The about box, and the way to the help viewer.
#include "tests/Application.h"
#include "tools/AboutDlg.h"
#include "tools/HtmlHelp.h"

#include "platform/testing/Robot.h"
#include "platform/testing/TempHome.h"

#include <gtest/gtest.h>

namespace
{

constexpr const char* kKey = "[CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32]\n=";

std::string g_shown; // by the viewer last

DWORD Show(HWND owner, const char* file, UINT command, DWORD_PTR data)
{
    g_shown = std::to_string(owner.value) + ' ' + file + ' ' + std::to_string(command) + ' ' + std::to_string(data);
    return 7;
}

// A library with the viewer's function under this name, or none.
void Enter(const std::string& library, const std::string& function = "#14")
{
    RegisterLibrary(library, {{function, reinterpret_cast<FARPROC>(static_cast<HtmlHelpFunction>(&Show))}});
}

class HelpViewerOf : public testing::Test
{
protected:
    ~HelpViewerOf() override
    {
        for (const char* name : {kHelpViewerLibrary, "other.ocx"})
            RegisterLibrary(name, {});
    }
    DWORD Call()
    {
        return m_help.HtmlHelp(HWND{5}, "/a/b.chm", HH_DISPLAY_TOPIC, 3);
    }

    TempHome m_home;
    CHtmlHelp m_help;
};

} // namespace

TEST_F(HelpViewerOf, TheRegistryComesBeforeTheBareName)
{
    const std::pair<const char*, std::string> cases[] = {
        {kHelpViewerLibrary, ""},
        {kHelpViewerLibrary, kKey + std::string("missing.ocx\n")},
        {kHelpViewerLibrary, kKey + std::string(260, 'x') + '\n'},
        {"other.ocx", kKey + std::string("other.ocx\n")},
    };
    for (const auto& [library, registry] : cases)
    {
        m_home.Write("registry-classes.ini", registry);
        m_help = {};
        g_shown.clear();
        Enter(library);
        EXPECT_EQ(Call(), 7u) << registry;
        EXPECT_EQ(g_shown, "5 /a/b.chm 0 3");
        RegisterLibrary(library, {});
        EXPECT_EQ(Call(), 7u) << "loaded once";
    }
}

TEST_F(HelpViewerOf, AFailureIsForGood)
{
    g_shown.clear();
    EXPECT_EQ(Call(), 0u);
    Enter(kHelpViewerLibrary);
    EXPECT_EQ(Call(), 0u) << "no library is looked for again";
    m_help = {};
    Enter(kHelpViewerLibrary, "#15");
    EXPECT_EQ(Call(), 0u);
    Enter("other.ocx");
    m_home.Write("registry-classes.ini", kKey + std::string("other.ocx\n"));
    EXPECT_EQ(Call(), 0u) << "nor one in the place of one without the function";
    EXPECT_EQ(g_shown, "");
}

TEST(About, TellsWhichProgramThisIs)
{
    StartApplication();
    CAboutDlg dialog;
    RunScript([&dialog] { dialog.DoModal(); },
              [](Robot& robot) {
                  robot.WaitForWindow("About Vantroy");
                  EXPECT_EQ(robot.Text("Version"), "Vantroy 1.2.0 Build 0325");
                  EXPECT_TRUE(robot.IsShown("http://www.vantroy.example/vantroy"));
                  EXPECT_EQ(robot.LayoutFaults(), "");
                  EXPECT_EQ(robot.FocusName(), "OK");
                  robot.Key("Esc");
              });
}
