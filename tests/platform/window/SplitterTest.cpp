#include "TestFrame.h"

TEST(Splitters, FillTheFrameAndTheirBarsAreDragged)
{
    const std::unique_ptr<TestFrame> frame(TestFrame::Open());
    const TestView& left = frame->Pane(0);
    const TestView& right = frame->Pane(1);
    ASSERT_TRUE(ServeMessagesUntil([&right] { return right.m_size.x > 300; }));
    RECT client;
    frame->m_splitter.GetClientRect(&client);
    const int inner = client.right - 2;
    const struct
    {
        int by;
        int width; // of the left pane afterwards
    } rows[] = {{60, 260}, {-100, 160}, {-900, 0}, {75, 75}, {2000, inner - 5}, {305 - inner, 300}};
    const Robot robot;
    EXPECT_EQ(left.m_size.x, 200);
    for (const auto& [by, width] : rows)
    {
        robot.DragBar(0, by, 0);
        EXPECT_EQ(left.m_size.x, width) << by;
        EXPECT_EQ(right.m_size.x, inner - 5 - width) << by;
        EXPECT_EQ(robot.Panes()[1].left, 1 + width + 5) << by;
        EXPECT_EQ(robot.Panes()[1].bottom, client.bottom - 1) << by;
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
