// Dialogs as a user meets them: keys, buttons, the order of things, and the data behind the controls.
#include "TestDialog.h"

using Texts = std::vector<std::string>;

TEST(Dialogs, ControlsExistAndNothingShowsBeforeOnInitDialogReturns)
{
    TestDialog dialog;
    HWND window;
    bool ready = false;
    dialog.m_onInit = [&] {
        window = dialog.m_hWnd;
        ready = GetDlgItem(window, IDC_BAR) && GetDlgItem(window, IDCANCEL) && !dialog.IsWindowVisible() &&
                GetWindowTextA(dialog.GetDlgItem(IDC_NAME)) == "as made";
    };
    dialog.Play([](Robot& robot) { robot.CloseWindow("Form"); });
    EXPECT_TRUE(ready);
    EXPECT_FALSE(IsWindow(window));
}

TEST(Dialogs, EachWayOutHasItsResultAndOnlyOkTakesTheData)
{
    const struct
    {
        Texts keys;
        const char* button;
        INT_PTR result;
    } ways[] = {
        {{"Esc"}, nullptr, IDCANCEL},
        {{"Return"}, nullptr, IDOK}, // from a field
        {{"Shift+Tab", "Return"}, nullptr, IDCANCEL},
        {{"Shift+Tab", "Shift+Tab", "Space"}, nullptr, IDOK},
        {{}, "OK", IDOK},
        {{}, "Cancel", IDCANCEL},
    };
    for (const auto& way : ways)
    {
        TestDialog dialog;
        const INT_PTR result = dialog.Play([&](Robot& robot) {
            EXPECT_EQ(robot.FocusName(), "Name:");
            robot.Key("End");
            robot.Key("X");
            for (const std::string& key : way.keys)
                robot.Key(key);
            if (way.button)
                robot.Press(way.button);
        });
        EXPECT_EQ(result, way.result) << testing::PrintToString(way.keys);
        EXPECT_EQ(dialog.m_name, way.result == IDOK ? "as madex" : "as made");
    }
}

TEST(Dialogs, EndDialogAndDestructionEndTheModalLoop)
{
    TestDialog dialog;
    dialog.m_onAct = [&] { dialog.EndDialog(42); };
    EXPECT_EQ(dialog.Play([](Robot& robot) { robot.Press("Act"); }), 42);
    dialog.m_onAct = [&] { dialog.DestroyWindow(); };
    EXPECT_EQ(dialog.Play([](Robot& robot) { robot.Press("Act"); }), -1);
}

TEST(Dialogs, TabAndMnemonicsReachWhatAUserCanUse)
{
    TestDialog dialog;
    Texts visited;
    dialog.Play([&](Robot& robot) {
        for (int step = 0; step < 7; ++step)
        {
            visited.push_back(robot.FocusName());
            robot.Key("Tab");
        }
        robot.Key("Alt+N");
        EXPECT_EQ(robot.FocusName(), "Name:");
        robot.Key("Shift+Tab");
        EXPECT_EQ(robot.FocusName(), "Cancel");
        robot.Key("Esc");
    });
    EXPECT_EQ(visited, (Texts{"Name:", "Number", "Tick me", "Act", "OK", "Cancel", "Name:"}));
}

TEST(Dialogs, AMnemonicPressesItsButtonUnlessThatIsDisabled)
{
    TestDialog dialog;
    std::atomic<int> commands = 0;
    dialog.m_onAct = [&] { ++commands; };
    dialog.Play([&](Robot& robot) {
        robot.Key("Alt+A");
        robot.WaitUntil([&] { return commands == 1; }, "Alt+A");
        EnableWindow(dialog.GetDlgItem(IDC_ACT), FALSE);
        robot.Key("Alt+A");
        EXPECT_THROW(kImpatient.Press("Act"), RobotError);
        EnableWindow(dialog.GetDlgItem(IDC_ACT), TRUE);
        SendMessageA(dialog.GetDlgItem(IDC_ACT), BM_CLICK, 0, 0);
        robot.Key("Esc");
    });
    EXPECT_EQ(commands, 2);
}

TEST(Dialogs, TemplateFlagsHold)
{
    TestDialog dialog;
    dialog.Open();
    SetWindowTextA(dialog.GetDlgItem(IDC_FIXED), "stays");
    const Robot robot;
    EXPECT_FALSE(robot.IsShown("Hidden"));
    EXPECT_TRUE(robot.IsShown("Greyed"));
    EXPECT_FALSE(robot.IsEnabled("Greyed"));
    robot.Press("Fixed");
    robot.Key("Q");
    EXPECT_EQ(robot.Text("Fixed"), "stays");
    robot.Press("Number");
    for (const char* key : {"1", "A", "2"})
        robot.Key(key);
    EXPECT_EQ(robot.Text("Number"), "12");
    EXPECT_FALSE(dialog.IsIconic());
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

TEST(Dialogs, AnUnknownTemplateMakesNoDialog)
{
    TestDialog dialog(77);
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_FALSE(dialog.Create(77));
    EXPECT_FALSE(IsWindow(dialog.m_hWnd));
}

TEST(Dialogs, ANestedDialogHoldsItsParent)
{
    TestDialog dialog;
    INT_PTR inner = 0;
    dialog.m_onAct = [&] { inner = TestDialog(IDD_SMALL, &dialog).DoModal(); };
    dialog.Play([](Robot& robot) {
        robot.Press("Act");
        robot.WaitForWindow("Small");
        EXPECT_THROW(kImpatient.Press("Cancel", "Form"), RobotError);
        EXPECT_THROW(kImpatient.CloseWindow("Form"), RobotError);
        robot.Key("Esc");
        robot.WaitForNoWindow("Small");
        robot.Press("Cancel", "Form");
    });
    EXPECT_EQ(inner, IDCANCEL);
}

TEST(Dialogs, AScriptThatFailsEndsWhatItLeavesOpen)
{
    TestDialog dialog;
    int answer = 0;
    dialog.m_onAct = [&] { answer = MessageBoxA(dialog.m_hWnd, "Sure?", "Ask", MB_YESNO); };
    const auto script = [](Robot& robot) {
        robot.Press("Act");
        robot.WaitForWindow("Ask");
        throw RobotError("the script's own");
    };
    EXPECT_THROW(dialog.Play(script), RobotError);
    EXPECT_EQ(answer, IDNO);
}

TEST(MessageBoxes, EachWayOutHasItsAnswer)
{
    const struct
    {
        UINT type;
        const char* way; // a key, the close box, or a button
        int answer;
    } rows[] = {
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
    for (const auto& row : rows)
    {
        TestDialog dialog;
        int answer = 0;
        // Without an owner: it still holds the window that is active.
        dialog.m_onAct = [&] { answer = MessageBoxA({}, "<b>A</b> & B\nC", "Title", row.type); };
        dialog.Play([way = std::string(row.way)](Robot& robot) {
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
        EXPECT_EQ(answer, row.answer) << row.type << ' ' << row.way;
    }
}
