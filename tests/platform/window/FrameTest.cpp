#include "TestFrame.h"

TEST(Frames, KeysLeadToTheMenusAndTheStatusBarTellsOfTheirEntries)
{
    TestDialog dialog;
    std::unique_ptr<TestFrame> frame;
    dialog.m_onAct = [&frame] { frame.reset(TestFrame::Open()); };
    dialog.Play([](Robot& robot) {
        robot.Press("Act");
        robot.WaitForWindow("Frame");
        EXPECT_EQ(robot.LayoutFaults("Frame"), "");
        for (const char* key : {"F10", "Alt+F"})
        {
            robot.Key(key);
            EXPECT_EQ(robot.MenuEntries(), (std::vector<std::string>{"First", "-", "Exit"})) << key;
            if (robot.StatusText("Frame").empty())
                robot.Key("Down");
            EXPECT_EQ(robot.StatusText("Frame"), "Does the first thing") << key;
            robot.CloseMenu();
            robot.Key("Esc");
        }
        robot.Press("Cancel", "Form");
    });
}

TEST(Frames, TheKeyboardLeadsFromPaneToPane)
{
    const std::unique_ptr<TestFrame> frame(TestFrame::Open());
    frame->Pane(0).m_tree.SetWindowText("left");
    frame->Pane(1).m_tree.SetWindowText("right");
    const Robot robot;
    robot.WaitUntil([&robot] { return robot.FocusName() == "left"; }, "the focus");
    for (const auto& [key, name] : {std::pair("F6", "right"), {"F6", "left"}, {"Shift+F6", "right"}})
    {
        robot.Key(key);
        EXPECT_EQ(robot.FocusName(), name);
    }
    robot.Key("Tab");
    robot.Key("Tab");
    EXPECT_EQ(robot.FocusName(), "The first & best");
}
