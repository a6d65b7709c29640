#include "ControlsTest.h"

#include "controls/RichButton.h"
#include "platform/testing/RecordingPrograms.h"
#include "platform/window/OwnerDraw.h"

namespace
{

using RichButtonTest = ControlsTest;

constexpr UINT WM_MENU_OPENS = WM_USER + 1;

class RichDialog : public CDialog
{
public:
    explicit RichDialog(int templateId = IDD_RICH) : CDialog(static_cast<UINT>(templateId))
    {}

    CRichButton m_rich;
    std::function<void()> m_onInit = [] {};
    std::function<void(HMENU, LPARAM)> m_onMenuOpens;
    std::vector<WPARAM> m_commands;

    void Play(const std::function<void(Robot&)>& script)
    {
        RunScript([this] { DoModal(); },
                  [&script](Robot& robot) {
                      robot.WaitForWindow("Rich");
                      script(robot);
                      robot.Key("Esc");
                  });
    }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_MENU_OPENS)
            m_onMenuOpens({wParam}, lParam);
        if (message == WM_COMMAND && wParam != IDCANCEL)
            m_commands.push_back(wParam);
        return CDialog::WindowProc(message, wParam, lParam);
    }

protected:
    BOOL OnInitDialog() override
    {
        EXPECT_TRUE(m_rich.SubclassDlgItem(IDC_RICH, this));
        m_onInit();
        return TRUE;
    }
};

} // namespace

TEST_F(RichButtonTest, ReactsToTheMouseAsLongAsItIsThere)
{
    const TempHome home;
    const RecordingPrograms programs(home, {"pw-play"});
    home.Write("over.wav", "");
    home.Write("click.wav", "");
    RichDialog dialog;
    dialog.m_rich.SetHoverSound({home.Path("over.wav"), nullptr, 1});
    dialog.m_rich.SetClickSound({home.Path("click.wav"), nullptr, 1});
    dialog.m_rich.SetColors(CRichButton::Over, {0x00FF00, 0});
    dialog.m_rich.SetButtonCursor(IDC_HAND);
    dialog.Play([&](Robot& robot) {
        const auto over = [&dialog] { return dialog.m_rich.IsOver(); };
        const auto left = [&dialog] { return !dialog.m_rich.IsOver(); };
        robot.PointAt("Other");
        EXPECT_FALSE(over());
        for (int round = 0; round < 2; ++round)
        {
            robot.PointAt("Rich");
            robot.WaitUntil(over, "the button to react");
            EXPECT_EQ(programs.Arguments("pw-play"), std::vector<std::string>{home.Path("over.wav")});
            robot.PointAt("Other");
            robot.WaitUntil(left, "the button to be at rest");
        }
        robot.PointAt("Rich");
        const auto isGreen = [&robot] {
            const COLORREF face = robot.Pixels("Rich")[10][3];
            return (face & 0xFF00) > (face & 0xFF) << 8;
        };
        robot.WaitUntil(isGreen, "the green face");
        EXPECT_TRUE(robot.HasHand("Rich"));
        programs.Arguments("pw-play");
        robot.Press("Rich");
        EXPECT_EQ(programs.Arguments("pw-play"), std::vector<std::string>{home.Path("click.wav")});
        EXPECT_TRUE(over());
        dialog.m_rich.EnableWindow(FALSE);
        EXPECT_TRUE(left());
        EXPECT_EQ(robot.FocusName(), "Other");
        dialog.m_rich.EnableWindow(TRUE);
        dialog.m_rich.SetHover(FALSE);
        robot.PointAt("Other");
        robot.PointAt("Rich");
        EXPECT_TRUE(left());
        EXPECT_FALSE(programs.HasRun("pw-play"));
    });
    EXPECT_EQ(dialog.m_commands, std::vector<WPARAM>{IDC_RICH});
}

TEST_F(RichButtonTest, IsAtRestWhenTheInputGoesElsewhere)
{
    const struct
    {
        UINT message;
        WPARAM wParam;
        bool over; // afterwards
    } cases[] = {
        {WM_MOUSELEAVE, 0, false},      {WM_KILLFOCUS, 0, false},          {WM_CANCELMODE, 0, false},
        {WM_ACTIVATE, WA_ACTIVE, true}, {WM_ACTIVATE, WA_INACTIVE, false}, {WM_ENABLE, TRUE, true},
    };
    RichDialog dialog;
    dialog.Play([&](Robot& robot) {
        robot.PointAt("Rich");
        for (const auto& [message, wParam, over] : cases)
        {
            dialog.m_rich.SendMessage(WM_MOUSEMOVE);
            EXPECT_TRUE(dialog.m_rich.IsOver());
            dialog.m_rich.SendMessage(message, wParam);
            EXPECT_EQ(dialog.m_rich.IsOver(), over) << message << ' ' << wParam;
        }
        // With the button held, a mouse that comes from elsewhere is none of its business.
        dialog.m_rich.SendMessage(WM_MOUSELEAVE);
        dialog.m_rich.SendMessage(WM_MOUSEMOVE, MK_LBUTTON);
        EXPECT_FALSE(dialog.m_rich.IsOver());
        dialog.m_rich.SendMessage(WM_MOUSEMOVE);
        EXPECT_TRUE(dialog.m_rich.IsOver());
    });
}

TEST_F(RichButtonTest, TicksAsACheckBox)
{
    RichDialog dialog;
    dialog.m_rich.SetCheckBox(TRUE);
    dialog.m_rich.SetURL("http://127.0.0.1/never");
    dialog.Play([&](Robot& robot) {
        EXPECT_FALSE(robot.IsChecked("Rich"));
        robot.Press("Rich");
        EXPECT_TRUE(robot.IsChecked("Rich"));
        EXPECT_EQ(dialog.m_rich.GetCheck(), 1);
        robot.Key("Space");
        EXPECT_FALSE(robot.IsChecked("Rich"));
        robot.Key("Alt+R");
        robot.WaitUntil([&dialog] { return dialog.m_rich.GetCheck() == 1; }, "the tick");
        dialog.m_rich.SendMessage(BM_SETCHECK, 0);
        EXPECT_FALSE(robot.IsChecked("Rich"));
        dialog.m_rich.SetCheckBox(FALSE);
        dialog.m_rich.SetURL({});
        EXPECT_THROW(Robot(Robot::Milliseconds(50)).IsChecked("Rich"), RobotError);
    });
}

TEST_F(RichButtonTest, DropsAMenuDownThatItsOwnerAdapts)
{
    RichDialog dialog;
    dialog.m_onInit = [&dialog] {
        EXPECT_TRUE(dialog.m_rich.SetMenu(IDR_RICH, dialog.m_hWnd));
        dialog.m_rich.SetMenuCallback(dialog.m_hWnd, WM_MENU_OPENS, 7);
    };
    dialog.m_onMenuOpens = [](HMENU popup, LPARAM value) {
        EXPECT_EQ(value, 7);
        if (GetMenuItemCount(popup) == 4)
            InsertMenuA(popup, 0, MF_BYPOSITION, 400, "&New && shiny &"); // the last one marks nothing
        else
            EnableMenuItem(popup, ID_SAVE, MF_GRAYED);
    };
    dialog.Play([&](Robot& robot) {
        robot.Press("Rich");
        EXPECT_EQ(robot.MenuEntries(), (std::vector<std::string>{"New & shiny ", "Open", "Save", "-", "More"}));
        robot.ChooseMenu("Save");
        robot.Key("Space");
        robot.MenuEntries();
        robot.Key("N");
        robot.Key("Space");
        EXPECT_FALSE(robot.IsMenuEntryEnabled("Save"));
        robot.Key("S"); // greyed
        robot.Key("M");
        robot.Key("I"); // in the popup below
        robot.Key("Space");
        robot.CloseMenu();
    });
    EXPECT_EQ(dialog.m_commands, (std::vector<WPARAM>{IDC_RICH, ID_SAVE, IDC_RICH, 400, IDC_RICH, ID_INNER, IDC_RICH}));
}

TEST_F(RichButtonTest, SurvivesAMenuThatGoes)
{
    RichDialog dialog;
    dialog.m_onInit = [&dialog] {
        dialog.m_rich.SetMenu(IDR_RICH, dialog.m_hWnd);
        dialog.m_rich.SetMenuCallback(dialog.m_hWnd, WM_MENU_OPENS, 0);
    };
    HMENU shown;
    bool destroy = false;
    dialog.m_onMenuOpens = [&](HMENU popup, LPARAM) {
        shown = popup;
        if (destroy)
            DestroyMenu(popup);
    };
    dialog.Play([&](Robot& robot) {
        robot.Press("Rich");
        robot.MenuEntries();
        DeleteMenu(shown, 0, MF_BYPOSITION);
        robot.Key("S"); // stands one place further down than on show
        robot.Press("Rich");
        robot.MenuEntries();
        DestroyMenu(shown);
        robot.Key("X");
        robot.Key("Down");
        robot.Key("Return");
        destroy = true;
        dialog.m_rich.SetMenu(IDR_RICH, dialog.m_hWnd);
        robot.Press("Rich");
        EXPECT_FALSE(dialog.m_rich.SetMenu(77, dialog.m_hWnd));
        robot.Press("Rich");
    });
}

TEST_F(RichButtonTest, OpensAnAddressAndTellsItsParent)
{
    const TempHome home;
    const RecordingPrograms programs(home, {"xdg-open"});
    RichDialog dialog;
    dialog.m_rich.SetURL("http://127.0.0.1/a b?c=$(d)");
    dialog.Play([&](Robot& robot) {
        robot.Key("Alt+R");
        EXPECT_EQ(programs.Arguments("xdg-open"), std::vector<std::string>{"http://127.0.0.1/a b?c=$(d)"});
    });
    EXPECT_EQ(dialog.m_commands, std::vector<WPARAM>{IDC_RICH});
    RichDialog missing;
    missing.m_rich.SetURL("missing file");
    missing.Play([](Robot& robot) { robot.Press("Rich"); });
    EXPECT_FALSE(programs.HasRun("xdg-open"));
    EXPECT_EQ(missing.m_commands, std::vector<WPARAM>{IDC_RICH});
}

TEST_F(RichButtonTest, IsTheDefaultButtonThatItIsToldToBe)
{
    RichDialog dialog;
    dialog.Play([&](Robot& robot) {
        const auto code = [&dialog] { return dialog.m_rich.SendMessage(WM_GETDLGCODE); };
        EXPECT_EQ(code(), DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON);
        robot.Press("Other");
        robot.Key("Return");
        EXPECT_TRUE(dialog.m_commands.empty());
        dialog.m_rich.SendMessage(BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
        EXPECT_EQ(code(), DLGC_BUTTON | DLGC_DEFPUSHBUTTON);
        dialog.m_rich.SendMessage(BM_SETSTYLE, 5, TRUE); // no push button's
        EXPECT_TRUE(dialog.m_rich.IsDefault());
        robot.Key("Return");
        dialog.m_rich.SendMessage(BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
        robot.Press("Other");
        robot.Key("Return");
    });
    EXPECT_EQ(dialog.m_commands, std::vector<WPARAM>{IDC_RICH});

    RichDialog born(IDD_DEFAULT);
    born.Play([&](Robot& robot) {
        EXPECT_TRUE(born.m_rich.IsDefault());
        EXPECT_EQ(robot.FocusName(), "Rich");
        born.m_rich.EnableWindow(FALSE);
        EXPECT_EQ(GetFocus(), born.m_hWnd) << "nothing else takes the focus";
    });
}
