#include "TestDialog.h"

using Entries = std::vector<std::string>;

TEST(Menus, EntriesCanBeChanged)
{
    CMenu menu;
    EXPECT_FALSE(menu.LoadMenu(77));
    ASSERT_TRUE(menu.LoadMenu(IDR_MENU));
    EXPECT_EQ(menu.GetSubMenu(1), nullptr);
    CMenu* const popup = menu.GetSubMenu(0);
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(popup->GetMenuItemCount(), 3);
    EXPECT_EQ(popup->EnableMenuItem(ID_GREYED, MF_GRAYED), int{MF_ENABLED});
    EXPECT_EQ(popup->EnableMenuItem(ID_GREYED, MF_ENABLED), int{MF_GRAYED});
    EXPECT_EQ(popup->EnableMenuItem(77, MF_GRAYED), -1);
    EXPECT_TRUE(popup->RemoveMenu(1, MF_BYPOSITION));
    EXPECT_TRUE(popup->RemoveMenu(ID_FIRST, MF_BYCOMMAND));
    EXPECT_FALSE(popup->RemoveMenu(ID_FIRST, MF_BYCOMMAND));
    EXPECT_FALSE(popup->RemoveMenu(9, MF_BYPOSITION));
    EXPECT_TRUE(popup->AppendMenu(MF_SEPARATOR));
    EXPECT_TRUE(popup->AppendMenu(MF_STRING | MF_GRAYED, 400, "&Last"));
    ASSERT_EQ(popup->GetMenuItemCount(), 3);
    EXPECT_EQ(popup->Items()[0].id, ID_GREYED);
    EXPECT_EQ(popup->Items()[2].text, "&Last");
    EXPECT_FALSE(popup->Items()[2].enabled);
}

TEST(Menus, TheChosenEntryArrivesBeforeTheMenuReturns)
{
    TestDialog dialog;
    std::vector<WPARAM> commands;
    std::vector<BOOL> tracked;
    std::vector<std::size_t> commandsThen;
    dialog.m_onAct = [&] {
        CMenu menu;
        menu.LoadMenu(IDR_MENU);
        menu.GetSubMenu(0)->EnableMenuItem(ID_GREYED, MF_GRAYED);
        POINT cursor;
        EXPECT_TRUE(GetCursorPos(&cursor));
        tracked.push_back(
            menu.GetSubMenu(0)->TrackPopupMenu(TPM_LEFTALIGN | TPM_RIGHTBUTTON, cursor.x, cursor.y, &dialog));
        commandsThen.push_back(commands.size());
    };
    dialog.m_answers[WM_COMMAND] = [&](WPARAM wParam, LPARAM lParam) {
        if (wParam != ID_FIRST)
            return dialog.CDialog::WindowProc(WM_COMMAND, wParam, lParam);
        commands.push_back(wParam);
        return LRESULT{0};
    };
    dialog.Play([](Robot& robot) {
        robot.Press("Act");
        EXPECT_EQ(robot.MenuEntries(), (Entries{"First", "-", "Second"}));
        EXPECT_TRUE(robot.IsMenuEntryEnabled("First"));
        EXPECT_FALSE(robot.IsMenuEntryEnabled("Second"));
        EXPECT_THROW(kImpatient.ChooseMenu("Second"), RobotError);
        robot.ChooseMenu("First");
        robot.Press("Act");
        robot.CloseMenu();
        robot.Press("Act");
        robot.Key("F"); // its mnemonic
        robot.Press("Cancel");
    });
    EXPECT_EQ(tracked, (std::vector<BOOL>{TRUE, FALSE, TRUE}));
    EXPECT_EQ(commandsThen, (std::vector<std::size_t>{1, 1, 2}));
}

TEST(Menus, EntriesOfTheSystemMenuArriveAsSystemCommands)
{
    TestDialog dialog;
    std::vector<WPARAM> commands;
    dialog.m_answers[WM_SYSCOMMAND] = [&](WPARAM wParam, LPARAM) {
        commands.push_back(wParam);
        return LRESULT{0};
    };
    dialog.m_onInit = [&] {
        CMenu* const menu = dialog.GetSystemMenu(FALSE);
        ASSERT_NE(menu, nullptr);
        menu->AppendMenu(MF_SEPARATOR);
        menu->AppendMenu(MF_STRING, ID_SYSTEM, "&About...");
    };
    dialog.Play([](Robot& robot) {
        robot.RightClickWindow("Form");
        EXPECT_EQ(robot.MenuEntries().back(), "About...");
        robot.ChooseMenu("About...");
        robot.Key("Alt+Space");
        robot.ChooseMenu("About...");
        robot.Key("Esc");
    });
    EXPECT_EQ(commands, (std::vector<WPARAM>{ID_SYSTEM, ID_SYSTEM}));
}
