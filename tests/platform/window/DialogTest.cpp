// Dialogs as a user meets them: keys, buttons, the order of things, and the data behind the controls.
#include "TestDialog.h"

using Texts = std::vector<std::string>;

TEST(Dialogs, ControlsExistAndNothingShowsBeforeOnInitDialogReturns)
{
    TestDialog dialog;
    bool ready = false;
    dialog.m_onInit = [&] {
        ready = dialog.GetDlgItem(IDCANCEL) && !dialog.IsWindowVisible() &&
                GetWindowTextA(dialog.GetDlgItem(IDC_NAME)) == "as made";
    };
    dialog.Play([](Robot& robot) { robot.CloseWindow("Form"); });
    EXPECT_TRUE(ready);
    EXPECT_EQ(TestDialog(77).DoModal(), -1) << "there is no such template";
}

TEST(Dialogs, EachWayOutHasItsResultAndOnlyOkTakesTheData)
{
    const std::pair<Texts, INT_PTR> ways[] = {
        {{"Esc"}, IDCANCEL},
        {{"Return"}, IDOK}, // from a field
        {{"Shift+Tab", "Return"}, IDCANCEL},
        {{"Shift+Tab", "Shift+Tab", "Space"}, IDOK},
    };
    for (const auto& [keys, expected] : ways)
    {
        TestDialog dialog;
        const INT_PTR result = dialog.Play([&](Robot& robot) {
            robot.Key("End");
            robot.Key("X");
            for (const std::string& key : keys)
                robot.Key(key);
        });
        EXPECT_EQ(result, expected) << testing::PrintToString(keys);
        EXPECT_EQ(dialog.m_name, expected == IDOK ? "as madex" : "as made");
    }
}

TEST(Dialogs, EndDialogAndDestructionEndTheModalLoop)
{
    TestDialog dialog;
    dialog.m_onAct = [&] { dialog.EndDialog(42); };
    EXPECT_EQ(dialog.Play([](Robot& robot) { robot.Press("Act"); }), 42);
    dialog.m_onAct = [&] { dialog.DestroyWindow(); };
    EXPECT_EQ(dialog.Play([](Robot& robot) { robot.Press("Act"); }), -1);
    // Also before it has shown.
    dialog.m_onInit = [&] { dialog.DestroyWindow(); };
    EXPECT_EQ(dialog.DoModal(), -1);
    dialog.m_onInit = [&] {
        dialog.EndDialog(3);
        dialog.DestroyWindow();
    };
    Worker([&] { EXPECT_EQ(dialog.DoModal(), 3); })->Wait();
}

TEST(Dialogs, TabAndMnemonicsReachWhatAUserCanUse)
{
    TestDialog dialog;
    Texts visited;
    std::atomic<int> commands = 0;
    dialog.m_onAct = [&] { ++commands; };
    dialog.Play([&](Robot& robot) {
        for (int step = 0; step < 7; ++step)
        {
            visited.push_back(robot.FocusName());
            robot.Key("Tab");
        }
        robot.Key("Alt+N");
        EXPECT_EQ(robot.FocusName(), "Name:");
        robot.Key("Alt+A");
        robot.WaitUntil([&] { return commands == 1; }, "Alt+A");
        EnableWindow(dialog.GetDlgItem(IDC_ACT), FALSE);
        robot.Key("Alt+A");
        EXPECT_THROW(kImpatient.Press("Act"), RobotError);
        robot.Key("Esc");
    });
    EXPECT_EQ(visited, (Texts{"Name:", "Number", "Tick me", "Act", "OK", "Cancel", "Name:"}));
    EXPECT_EQ(commands, 1);
}

TEST(Dialogs, TemplateFlagsHold)
{
    TestDialog dialog;
    dialog.Open();
    const Robot robot;
    EXPECT_FALSE(robot.IsShown("Hidden"));
    EXPECT_FALSE(robot.IsEnabled("Greyed"));
    for (const auto& [edit, text] : {std::pair("Fixed", ""), {"Number", "12"}})
    {
        robot.Press(edit);
        for (const char* key : {"1", "A", "2"})
            robot.Key(key);
        EXPECT_EQ(robot.Text(edit), text);
    }
    dialog.ShowWindow(SW_MINIMIZE);
    EXPECT_TRUE(dialog.IsIconic());
    dialog.ShowWindow(SW_RESTORE);
    EXPECT_FALSE(dialog.IsIconic());
}

// Setting a text anew would move the caret and drop what is selected.
TEST(Dialogs, AnUnchangedTextIsNotSetAgain)
{
    TestDialog dialog;
    dialog.Open();
    const Robot robot;
    robot.Press("Number");
    for (const char* key : {"1", "2", "Home"})
        robot.Key(key);
    SetWindowTextA(dialog.GetDlgItem(IDC_NUMBER), "12");
    robot.Key("3");
    EXPECT_EQ(robot.Text("Number"), "312");
}

TEST(MessageBoxes, EachWayOutHasItsAnswer)
{
    const std::tuple<UINT, std::string, int> rows[] = {
        {MB_OK, "Esc", IDOK},
        {MB_OK | MB_ICONERROR, "Return", IDOK},
        {MB_OKCANCEL, "Esc", IDCANCEL},
        {MB_OKCANCEL, "Return", IDOK},
        {MB_OKCANCEL, "Cancel", IDCANCEL},
        {MB_YESNO, "Esc", IDNO},
        {MB_YESNO, "close", IDNO},
        {MB_YESNO, "Yes", IDYES},
        {MB_YESNO, "No", IDNO},
    };
    for (const auto& [type, way, expected] : rows)
    {
        TestDialog dialog;
        int answer = 0;
        // Without an owner: it still holds the window that is active.
        dialog.m_onAct = [&] { answer = MessageBoxA({}, "<b>A</b> & B\nC", "Title", type); };
        dialog.Play([&way](Robot& robot) {
            robot.Press("Act");
            EXPECT_EQ(robot.MessageBoxText(), "<b>A</b> & B\nC");
            EXPECT_THROW(Robot(Robot::Milliseconds(0)).Press("Cancel", "Form"), RobotError);
            if (way == "close")
                robot.CloseWindow("Title");
            else
                way == "Esc" || way == "Return" ? robot.Key(way) : robot.Answer(way);
            robot.WaitForNoWindow("Title");
            robot.Press("Cancel");
        });
        EXPECT_EQ(answer, expected) << type << ' ' << way;
    }
}
