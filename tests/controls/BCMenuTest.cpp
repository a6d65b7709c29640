#include "ControlsTest.h"

#include "controls/BCMenu.h"
#include "tests/persist/InCodePage.h"

using Texts = std::vector<std::string>;

namespace
{

using BCMenuTest = ControlsTest;

// The texts of the records in the order of the positions, those of a popup behind its head and two blanks further in.
Texts TextsOf(BCMenu& menu, const std::string& indent = {})
{
    Texts texts;
    std::string text;
    for (UINT position = 0; menu.GetMenuText(position, text, MF_BYPOSITION); ++position)
    {
        texts.push_back(indent + text);
        if (auto* const below = BCMenu::FromMenu(GetSubMenu(menu.m_hMenu, static_cast<int>(position))))
        {
            for (const std::string& deeper : TextsOf(*below, indent + "  "))
                texts.push_back(deeper);
        }
    }
    return texts;
}

} // namespace

TEST_F(BCMenuTest, TheRecordsFollowEveryChange)
{
    BCMenu menu;
    ASSERT_TRUE(menu.LoadMenu(IDR_RICH));
    BCMenu& popup = *BCMenu::FromMenu(GetSubMenu(menu.m_hMenu, 0));
    const HMENU handle = popup.m_hMenu;
    const HMENU more = GetSubMenu(handle, 3);
    const struct
    {
        const char* name;
        std::function<void()> change;
        Texts texts;
    } cases[] = {
        {"as loaded", [] {}, {"&Open\tCtrl+O", "&Save", "", "&More", "  &Inner"}},
        {"inserted",
         [&] { popup.InsertMenu(0, MF_BYPOSITION, 50, "&New"); },
         {"&New", "&Open\tCtrl+O", "&Save", "", "&More", "  &Inner"}},
        {"deleted", [&] { popup.DeleteMenu(ID_OPEN, MF_BYCOMMAND); }, {"&New", "&Save", "", "&More", "  &Inner"}},
        {"renamed",
         [&] { popup.ModifyMenu(ID_SAVE, MF_BYCOMMAND, ID_SAVE, "&Keep"); },
         {"&New", "&Keep", "", "&More", "  &Inner"}},
        {"the head renamed",
         [&] { popup.ModifyMenu(3, MF_BYPOSITION | MF_POPUP, more.value, "&Further"); },
         {"&New", "&Keep", "", "&Further", "  &Inner"}},
        {"the same command twice",
         [&] { popup.AppendMenu(MF_STRING, ID_SAVE, "Kee&p too"); },
         {"&New", "&Keep", "", "&Further", "  &Inner", "Kee&p too"}},
        {"ticked and greyed: no text",
         [&] {
             popup.CheckMenuItem(ID_SAVE, MF_CHECKED);
             popup.EnableMenuItem(50, MF_GRAYED);
         },
         {"&New", "&Keep", "", "&Further", "  &Inner", "Kee&p too"}},
        {"reordered",
         [&] {
             popup.RemoveMenu(0, MF_BYPOSITION);
             popup.RemoveMenu(1, MF_BYPOSITION);
             popup.RemoveMenu(1, MF_BYPOSITION);
             popup.AppendMenu(MF_SEPARATOR);
             popup.InsertMenu(0, MF_BYPOSITION | MF_POPUP, more.value);
             popup.AppendMenu(MF_STRING, 50);
         },
         {"&Further", "  &Inner", "&Keep", "Kee&p too", "", "&New"}},
        {"in the popup below",
         [&] { CMenu::FromHandle(more)->AppendMenu(MF_STRING, 51, "&Deep"); },
         {"&Further", "  &Inner", "  &Deep", "&Keep", "Kee&p too", "", "&New"}},
        {"a new popup",
         [&] {
             const HMENU late = CreatePopupMenu();
             InsertMenuA(late, 0, MF_BYPOSITION, 52, "&Latest");
             popup.AppendMenu(MF_POPUP, late.value, "La&te");
         },
         {"&Further", "  &Inner", "  &Deep", "&Keep", "Kee&p too", "", "&New", "La&te", "  &Latest"}},
        {"a popup destroyed by others",
         [&] { DestroyMenu(more); },
         {"&Further", "&Keep", "Kee&p too", "", "&New", "La&te", "  &Latest"}},
        {"emptied",
         [&] {
             while (popup.DeleteMenu(0, MF_BYPOSITION))
                 continue;
         },
         {}},
    };
    for (const auto& [name, change, texts] : cases)
    {
        change();
        popup.TakeCare();
        EXPECT_EQ(TextsOf(popup), texts) << name;
        // The platform has no text but that of a head that was renamed.
        for (UINT position = 0; position < static_cast<UINT>(popup.GetMenuItemCount()); ++position)
        {
            const bool head = GetMenuState(handle, position, MF_BYPOSITION) & MF_POPUP;
            EXPECT_TRUE(head || GetMenuStringA(handle, position, MF_BYPOSITION).empty()) << name << ' ' << position;
        }
    }
}

TEST_F(BCMenuTest, CommandsAreFoundInTheDepths)
{
    BCMenu menu;
    ASSERT_TRUE(menu.LoadMenu(IDR_RICH));
    const HMENU more = GetSubMenu(GetSubMenu(menu.m_hMenu, 0), 3);
    int position = 7;
    EXPECT_EQ(menu.FindItem(ID_INNER, position), CMenu::FromHandle(more));
    EXPECT_EQ(position, 0);
    EXPECT_EQ(menu.FindItem(777, position), nullptr);
    EXPECT_EQ(position, -1);
    std::string text = "left alone";
    EXPECT_FALSE(menu.GetMenuText(777, text, MF_BYCOMMAND));
    EXPECT_FALSE(menu.GetMenuText(1, text, MF_BYPOSITION));
    EXPECT_EQ(text, "left alone");
    EXPECT_TRUE(menu.GetMenuText(ID_INNER, text, MF_BYCOMMAND));
    EXPECT_EQ(text, "&Inner");

    CMenu plain;
    plain.LoadMenu(IDR_RICH);
    EXPECT_FALSE(BCMenu::IsMenu(&plain));
    EXPECT_FALSE(BCMenu::IsMenu(static_cast<const CMenu*>(nullptr)));
    EXPECT_TRUE(BCMenu::IsMenu(more));
    menu.DestroyMenu();
    EXPECT_FALSE(BCMenu::IsMenu(more));
    menu.Synchronize();
    EXPECT_EQ(menu.FindItem(ID_INNER, position), nullptr);
}

TEST_F(BCMenuTest, AModifiedEntryHasItsNewRecord)
{
    BCMenu menu;
    ASSERT_TRUE(menu.LoadMenu(IDR_RICH));
    BCMenu& popup = *BCMenu::FromMenu(GetSubMenu(menu.m_hMenu, 0));
    const BCMenuItem* const item = popup.ModifyItem(1, MF_BYPOSITION | MF_OWNERDRAW | MF_CHECKED, 60, "&Changed");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(popup.ModifyItem(9, MF_BYPOSITION, 61, "Beyond"), nullptr);
    popup.Synchronize();
    std::string text;
    EXPECT_TRUE(menu.GetMenuText(60, text, MF_BYCOMMAND));
    EXPECT_EQ(text, "&Changed");
    EXPECT_EQ(item->m_nFlags, MF_BYPOSITION | MF_OWNERDRAW | MF_CHECKED);
}

TEST_F(BCMenuTest, AKeyExecutesTheFirstEntryWithItsMnemonic)
{
    BCMenu menu;
    ASSERT_TRUE(menu.LoadMenu(IDR_RICH));
    BCMenu* const popup = BCMenu::FromMenu(GetSubMenu(menu.m_hMenu, 0));
    const auto execute = [](LRESULT position) { return position | LRESULT{2} << 16; };
    EXPECT_EQ(BCMenu::FindKey(u'S', MF_POPUP, popup), execute(1));
    EXPECT_EQ(BCMenu::FindKey(u's', MF_POPUP, popup), execute(1));
    EXPECT_EQ(BCMenu::FindKey(u'x', MF_POPUP, popup), 0);
    EXPECT_EQ(BCMenu::FindKey(u's', 0, popup), 0);
    EXPECT_EQ(BCMenu::FindKey(u's', MF_POPUP, nullptr), 0);
    popup->InsertMenu(0, MF_BYPOSITION, 50, "Re&search"); // found without a synchronisation by hand, and first
    popup->AppendMenu(MF_STRING, 51, "stray &");
    popup->AppendMenu(MF_STRING, 52, "\xC3\x84rger &\xC3\x84ndern");
    EXPECT_EQ(BCMenu::FindKey(u's', MF_POPUP, popup), execute(0));
    EXPECT_EQ(BCMenu::FindKey(u'\x00E4', MF_POPUP, popup), execute(6));
    EXPECT_EQ(BCMenu::FindKey(u'&', MF_POPUP, popup), 0);
}

TEST_F(BCMenuTest, TextsOfADoubleByteCodePageAreKept)
{
    ExpectInCodePage("932", [] {
        BCMenu menu;
        menu.CreatePopupMenu();
        menu.AppendMenu(MF_STRING, 50, "\x83\x5C&A\t\x95\x5C"); // both end in a byte that reads as "\"
        menu.Synchronize();
        std::string text;
        EXPECT_TRUE(menu.GetMenuText(50, text, MF_BYCOMMAND));
        EXPECT_EQ(text, "\x83\x5C&A\t\x95\x5C");
        EXPECT_EQ(BCMenu::FindKey(u'a', MF_POPUP, &menu), LRESULT{2} << 16);
        EXPECT_EQ(BCMenu::FindKey(u'\\', MF_POPUP, &menu), 0);
    });
}
