#include "ControlsTest.h"

#include "controls/BCMenu.h"
#include "tests/persist/InCodePage.h"

using Texts = std::vector<std::string>;

namespace
{

class BCMenuTest : public ControlsTest
{
protected:
    void SetUp() override
    {
        ControlsTest::SetUp();
        ASSERT_TRUE(m_menu.LoadMenu(IDR_RICH));
        m_popup = BCMenu::FromMenu(GetSubMenu(m_menu.m_hMenu, 0));
        m_more = GetSubMenu(m_popup->m_hMenu, 3);
    }

    BCMenu m_menu;
    BCMenu* m_popup = nullptr;
    HMENU m_more; // the popup below
};

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
    BCMenu& popup = *m_popup;
    const struct
    {
        const char* name;
        std::function<void()> change;
        Texts texts;
    } cases[] = {
        {"inserted",
         [&] { popup.InsertMenu(0, MF_BYPOSITION, 50, "&New"); },
         {"&New", "&Open\tCtrl+O", "&Save", "", "&More", "  &Inner"}},
        {"deleted", [&] { popup.DeleteMenu(ID_OPEN, MF_BYCOMMAND); }, {"&New", "&Save", "", "&More", "  &Inner"}},
        {"renamed",
         [&] { popup.ModifyMenu(ID_SAVE, MF_BYCOMMAND, ID_SAVE, "&Keep"); },
         {"&New", "&Keep", "", "&More", "  &Inner"}},
        {"the head renamed",
         [&] { popup.ModifyMenu(3, MF_BYPOSITION | MF_POPUP, m_more.value, "&Further"); },
         {"&New", "&Keep", "", "&Further", "  &Inner"}},
        {"the same command twice",
         [&] { popup.AppendMenu(MF_STRING, ID_SAVE, "Kee&p too"); },
         {"&New", "&Keep", "", "&Further", "  &Inner", "Kee&p too"}},
        {"reordered",
         [&] {
             popup.RemoveMenu(0, MF_BYPOSITION);
             popup.RemoveMenu(1, MF_BYPOSITION);
             popup.RemoveMenu(1, MF_BYPOSITION);
             popup.AppendMenu(MF_SEPARATOR);
             popup.InsertMenu(0, MF_BYPOSITION | MF_POPUP, m_more.value);
             popup.AppendMenu(MF_STRING, 50);
         },
         {"&Further", "  &Inner", "&Keep", "Kee&p too", "", "&New"}},
        {"in the popup below",
         [&] { CMenu::FromHandle(m_more)->AppendMenu(MF_STRING, 51, "&Deep"); },
         {"&Further", "  &Inner", "  &Deep", "&Keep", "Kee&p too", "", "&New"}},
        {"a new popup",
         [&] {
             const HMENU late = CreatePopupMenu();
             InsertMenuA(late, 0, MF_BYPOSITION, 52, "&Latest");
             popup.AppendMenu(MF_POPUP, late.value, "La&te");
         },
         {"&Further", "  &Inner", "  &Deep", "&Keep", "Kee&p too", "", "&New", "La&te", "  &Latest"}},
        {"a popup destroyed by others",
         [&] { DestroyMenu(m_more); },
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
            const bool head = GetMenuState(popup.m_hMenu, position, MF_BYPOSITION) & MF_POPUP;
            EXPECT_TRUE(head || GetMenuStringA(popup.m_hMenu, position, MF_BYPOSITION).empty())
                << name << ' ' << position;
        }
    }
}

TEST_F(BCMenuTest, CommandsAreFoundInTheDepths)
{
    int position = 7;
    EXPECT_EQ(m_menu.FindItem(ID_INNER, position), CMenu::FromHandle(m_more));
    EXPECT_EQ(position, 0);
    EXPECT_EQ(m_menu.FindItem(777, position), nullptr);
    EXPECT_EQ(position, -1);
    std::string text = "left alone";
    EXPECT_FALSE(m_menu.GetMenuText(777, text, MF_BYCOMMAND));
    EXPECT_EQ(text, "left alone");
    EXPECT_TRUE(m_menu.GetMenuText(ID_INNER, text, MF_BYCOMMAND));
    EXPECT_EQ(text, "&Inner");
    m_menu.DestroyMenu();
    EXPECT_FALSE(BCMenu::IsMenu(m_more));
    m_menu.Synchronize();
    EXPECT_EQ(m_menu.FindItem(ID_INNER, position), nullptr);
}

TEST_F(BCMenuTest, AKeyExecutesTheFirstEntryWithItsMnemonic)
{
    const auto execute = [](LRESULT position) { return position | LRESULT{2} << 16; };
    EXPECT_EQ(BCMenu::FindKey(u's', MF_POPUP, m_popup), execute(1));
    EXPECT_EQ(BCMenu::FindKey(u'x', MF_POPUP, m_popup), 0);
    EXPECT_EQ(BCMenu::FindKey(u's', 0, m_popup), 0);
    EXPECT_EQ(BCMenu::FindKey(u's', MF_POPUP, nullptr), 0);
    m_popup->InsertMenu(0, MF_BYPOSITION, 50, "Re&search"); // found without a synchronisation by hand, and first
    m_popup->AppendMenu(MF_STRING, 51, "stray &");
    m_popup->AppendMenu(MF_STRING, 52, "\xC3\x84rger &\xC3\x84ndern");
    EXPECT_EQ(BCMenu::FindKey(u's', MF_POPUP, m_popup), execute(0));
    EXPECT_EQ(BCMenu::FindKey(u'\x00E4', MF_POPUP, m_popup), execute(6));
    EXPECT_EQ(BCMenu::FindKey(u'&', MF_POPUP, m_popup), 0);
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
