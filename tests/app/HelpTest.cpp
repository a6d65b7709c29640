// The popup of the Help button, and About in the system menu.
#include "AppTest.h"

#include "platform/shell/HelpViewer.h"
#include "platform/testing/RecordingPrograms.h"

namespace
{

using Help = AppTest;

void Choose(Robot& robot, const std::string& entry)
{
    robot.Press("Help", kMainWindow);
    robot.ChooseMenu(entry);
}

constexpr const char* kAbout = "About Vantroy";
constexpr const char* kVersion = "Check for new version of Vantroy";

} // namespace

TEST_F(Help, LeadsToTheDesktopsPrograms)
{
    const RecordingPrograms programs(m_home, {"xdg-open"});
    RegisterHelpViewer(m_home.Path("none"));
    m_home.Write("manual/index.html", "");
    const std::pair<const char*, std::string> cases[] = {
        {"User Manual", m_home.Path("manual/index.html")},
        {"Visit Vantroy Home Page", "http://www.vantroy.example/vantroy"},
        {"E-Mail Support", "mailto:support@vantroy.example"},
    };
    RunMain([&](Robot& robot) {
        for (const auto& [entry, target] : cases)
        {
            Choose(robot, entry);
            EXPECT_EQ(programs.Arguments("xdg-open"), Names{target});
        }
        EXPECT_EQ(robot.Windows(), Names{kMainWindow});
    });
}

TEST_F(Help, IsSilentWhereThereIsNothing)
{
    const RecordingPrograms none(m_home, {});
    RunMain([](Robot& robot) {
        for (const char* entry : {"User Manual", "User Manual", "Visit Vantroy Home Page", "E-Mail Support"})
            Choose(robot, entry);
        EXPECT_EQ(robot.Windows(), Names{kMainWindow});
        EXPECT_TRUE(robot.IsEnabled("Help", kMainWindow));
    });
}

TEST_F(Help, OpensItsDialogsOverTheWindow)
{
    RunMain([this](Robot& robot) {
        for (const auto& [entry, title] : {std::pair("About", kAbout), {"Check for New Version...", kVersion}})
        {
            Choose(robot, entry);
            robot.WaitForWindow(title);
            EXPECT_FALSE(IsWindowEnabled(m_window));
            robot.Key("Esc");
            robot.WaitForNoWindow(title);
        }
        robot.RightClickWindow();
        robot.ChooseMenu("About Vantroy(A)...");
        robot.WaitForWindow(kAbout);
        robot.Key("Return");
        robot.WaitForNoWindow(kAbout);
    });
}
