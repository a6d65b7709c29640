#include "TestDialog.h"

#include "platform/window/OwnerDraw.h"

#include <atomic>

TEST(Menus, TheChosenEntryArrivesBeforeTheMenuReturns)
{
    TestDialog dialog;
    std::string log;
    dialog.m_onAct = [&] {
        CMenu menu;
        EXPECT_FALSE(menu.LoadMenu(77));
        menu.LoadMenu(IDR_MENU);
        log += menu.GetSubMenu(0)->TrackPopupMenu(TPM_LEFTALIGN, 10, 10, &dialog) ? "chosen " : "closed ";
    };
    dialog.m_answers[WM_COMMAND] = [&](WPARAM wParam, LPARAM lParam) {
        if (wParam != ID_FIRST)
            return dialog.CDialog::WindowProc(WM_COMMAND, wParam, lParam);
        log += "first ";
        return LRESULT{0};
    };
    dialog.Play([](Robot& robot) {
        robot.Press("Act");
        robot.ChooseMenu("First");
        robot.Press("Act");
        robot.CloseMenu();
        robot.Press("Cancel");
    });
    EXPECT_EQ(log, "first chosen closed ");
}

TEST(Menus, HandlesOutliveTheirMenus)
{
    const HMENU menu = CreatePopupMenu();
    const HMENU popup = CreatePopupMenu();
    const HMENU other = CreatePopupMenu();
    ASSERT_TRUE(InsertMenuA(popup, 0, MF_BYPOSITION | MF_CHECKED, 7, "&Seven"));
    ASSERT_TRUE(InsertMenuA(menu, 0, MF_BYPOSITION | MF_POPUP, popup.value, "&Below"));
    ASSERT_TRUE(InsertMenuA(menu, 0, MF_BYPOSITION | MF_SEPARATOR, 9, "none"));
    ASSERT_TRUE(InsertMenuA(menu, 7, MF_BYCOMMAND, 8, "Eight")); // before another one, in the popup
    EXPECT_FALSE(InsertMenuA(popup, 0, MF_BYPOSITION | MF_POPUP, menu.value, "in a ring"));
    EXPECT_FALSE(ModifyMenuA(popup, 0, MF_BYPOSITION | MF_POPUP, popup.value, "in itself"));
    EXPECT_EQ(GetMenuState(menu, 1, MF_BYPOSITION), MF_POPUP | 2u << 8);
    EXPECT_EQ(CheckMenuItem(menu, 7, MF_UNCHECKED), int{MF_CHECKED});
    EXPECT_EQ(GetMenuState(menu, 2, MF_BYPOSITION), kNoMenuEntry);

    // A popup stays where it is named again, and goes where it is not.
    ASSERT_TRUE(ModifyMenuA(menu, 1, MF_BYPOSITION | MF_POPUP | MF_OWNERDRAW, popup.value, nullptr));
    EXPECT_TRUE(IsMenu(popup));
    ASSERT_TRUE(ModifyMenuA(menu, 1, MF_BYPOSITION, 5, "Five"));
    EXPECT_FALSE(IsMenu(popup));
    EXPECT_EQ(GetMenuItemCount(popup), -1);
    EXPECT_EQ(CMenu::FromHandle(popup), nullptr);

    ASSERT_TRUE(InsertMenuA(menu, 0, MF_BYPOSITION | MF_POPUP, other.value, "Other"));
    ASSERT_TRUE(RemoveMenu(menu, 0, MF_BYPOSITION));
    EXPECT_TRUE(IsMenu(other));
    ASSERT_TRUE(InsertMenuA(menu, 0, MF_BYPOSITION | MF_POPUP, other.value, "Other"));
    {
        CMenu object;
        ASSERT_TRUE(object.Attach(menu));
        EXPECT_FALSE(CMenu().Attach(menu));
        EXPECT_EQ(CMenu::FromHandle(menu), &object);
    }
    EXPECT_FALSE(IsMenu(menu));
    EXPECT_FALSE(IsMenu(other));
    EXPECT_FALSE(DestroyMenu(other));
}

TEST(Menus, TheOwnerDrawsItsEntriesAndFindsTheirKeys)
{
    TestDialog dialog;
    CMenu menu;
    ASSERT_TRUE(menu.CreatePopupMenu());
    const HMENU handle = menu.m_hMenu;
    const int kData[] = {1, 2};
    for (const int& data : kData)
        InsertMenuA(handle, kNoMenuEntry, MF_BYPOSITION | MF_OWNERDRAW | (data == 2 ? MF_CHECKED : 0), 40u + data,
                    reinterpret_cast<const char*>(&data));
    constexpr UINT kNotDrawn = ~0u;
    std::atomic<UINT> second = kNotDrawn; // the state of the second entry
    RECT place{};
    std::vector<WPARAM> characters;
    int chosen = 0;
    std::atomic<LRESULT> found = 0;
    dialog.m_answers[WM_MEASUREITEM] = [&](WPARAM, LPARAM lParam) {
        auto& item = *reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
        EXPECT_EQ(item.itemData, reinterpret_cast<DWORD_PTR>(&kData[item.itemID - 41]));
        EXPECT_GT(item.hDC->GetTextExtent("MM").cx, item.hDC->GetTextExtent("&M").cx);
        item.itemWidth = 123;
        item.itemHeight = 31;
        return LRESULT{TRUE};
    };
    dialog.m_answers[WM_DRAWITEM] = [&](WPARAM, LPARAM lParam) {
        const auto& item = *reinterpret_cast<DRAWITEMSTRUCT*>(lParam);
        if (item.itemID == 42)
            second = item.itemState;
        place = item.rcItem;
        return LRESULT{TRUE};
    };
    dialog.m_answers[WM_MENUCHAR] = [&](WPARAM wParam, LPARAM lParam) {
        characters.push_back(wParam);
        EXPECT_EQ(HmenuFromLParam(lParam), handle);
        return found.load();
    };
    dialog.m_onAct = [&] { chosen = menu.TrackPopupMenu(TPM_RETURNCMD, 10, 10, &dialog); };
    dialog.Play([&](Robot& robot) {
        robot.Press("Act");
        robot.WaitUntil([&] { return second != kNotDrawn; }, "the entries");
        robot.Key("X"); // means nothing
        found = LRESULT{1} | LRESULT{MNC_SELECT} << 16;
        robot.Key("Y");
        robot.WaitUntil([&] { return (second & ODS_SELECTED) != 0; }, "the second entry to be highlighted");
        found = LRESULT{0} | LRESULT{MNC_EXECUTE} << 16;
        robot.Key("Z");
        robot.Press("Cancel");
    });
    EXPECT_EQ(place.bottom - place.top, 31);
    EXPECT_GE(place.right - place.left, 123);
    EXPECT_EQ(second & ODS_CHECKED, ODS_CHECKED);
    EXPECT_EQ(characters, (std::vector<WPARAM>{u'x' | 0x100000, u'y' | 0x100000, u'z' | 0x100000}));
    EXPECT_EQ(chosen, 41);
}
