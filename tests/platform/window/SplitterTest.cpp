#include "TestFrame.h"

TEST(Splitters, FillTheFrameAndTheirBarsAreDragged)
{
    const std::unique_ptr<TestFrame> frame(TestFrame::Open());
    ASSERT_TRUE(ServeMessagesUntil([&] { return frame->Pane(1).m_size.x > 300; }));
    RECT client;
    frame->m_splitter.GetClientRect(&client);
    const int inner = client.right - 2;
    const Robot robot;
    // How far, and the width of the left pane afterwards.
    for (const auto& [by, width] : {std::pair(60, 260), {-900, 0}, {75, 75}, {2000, inner - 5}, {305 - inner, 300}})
    {
        robot.DragBar(0, by, 0);
        EXPECT_EQ(frame->Pane(0).m_size.x, width) << by;
        EXPECT_EQ(frame->Pane(1).m_size.x, inner - 5 - width) << by;
        EXPECT_EQ(robot.Panes()[1].left, 1 + width + 5) << by;
    }
    frame->MoveWindow({0, 0, 500, 300});
    EXPECT_TRUE(ServeMessagesUntil([&] { return robot.Panes()[1].right == 499; }));
    EXPECT_EQ(robot.LayoutFaults(), "");
}

TEST(Splitters, TheKeyboardLeadsFromPaneToPane)
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
