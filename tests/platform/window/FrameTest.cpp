#include "TestFrame.h"

using Names = std::vector<std::string>;

TEST(Frames, StandBesideAModalDialogAndBothAreUsable)
{
    TestDialog dialog;
    TestFrame* frame = nullptr;
    int commands = 0;
    dialog.m_onAct = [&] {
        frame = TestFrame::Open();
        frame->m_onCommand = [&](UINT command) {
            ++commands;
            if (command == ID_FIRST)
                frame->MessageBox("Done");
            else
                frame->SendMessage(WM_CLOSE);
        };
    };
    dialog.Play([&](Robot& robot) {
        robot.Press("Act");
        robot.WaitForWindow("Frame");
        EXPECT_EQ(robot.LayoutFaults("Frame"), "");
        robot.Press("The first && best", "Frame");
        robot.Answer("OK");
        robot.ChooseMainMenu("File", "First", "Frame");
        EXPECT_FALSE(frame->IsWindowEnabled());
        robot.Press("Tick me", "Form");
        robot.Answer("OK");
        for (const char* key : {"F10", "Alt+F"})
        {
            robot.Key(key);
            EXPECT_EQ(robot.MenuEntries(), (Names{"First", "-", "Exit"})) << key;
            if (robot.StatusText("Frame").empty())
                robot.Key("Down");
            EXPECT_EQ(robot.StatusText("Frame"), "Does the first thing") << key;
            robot.CloseMenu();
            robot.Key("Esc");
        }
        robot.ChooseMainMenu("File", "Exit", "Frame");
        robot.WaitForNoWindow("Frame");
        robot.Press("Cancel", "Form");
    });
    EXPECT_EQ(commands, 3);
    EXPECT_EQ(g_living.use_count(), 1);
}

TEST(Frames, LeaveNothingBehindWhenTheyCannotBeMade)
{
    using enum TestFrame::Fault;
    for (const auto fault : {kMenu, kClient, kPane, kToolBar})
    {
        EXPECT_FALSE((new TestFrame(fault))->Load()) << fault;
        EXPECT_EQ(g_living.use_count(), 1) << fault;
    }
    EXPECT_EQ(Robot().Windows(), Names{});
}

TEST(Frames, GoWithTheirOwnerOrByTheirCloseBox)
{
    std::unique_ptr<TestFrame> frame(TestFrame::Open());
    const HWND tree = frame->Pane(0).m_tree.m_hWnd;
    EXPECT_TRUE(IsWindow(tree));
    frame.reset();
    EXPECT_FALSE(IsWindow(tree));
    TestFrame::Open();
    Robot().CloseWindow("Frame");
    EXPECT_TRUE(ServeMessagesUntil([] { return g_living.use_count() == 1; }));
}
