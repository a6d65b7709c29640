// A menu that draws its entries itself: pictures, ticks, shortcuts at the right edge. Texts and mnemonics go on
// working, because the menu keeps a record of each entry. User-interface thread only.
//
// Entries may be changed through any operation of the platform, at any time; Synchronize brings the records into line
// with them, and makes owner-drawn what is not so yet. The window that the menu is shown for hands WM_MEASUREITEM,
// WM_DRAWITEM and WM_MENUCHAR on to it.
#pragma once

#include "controls/BCMenuItem.h"
#include "platform/window/Menu.h"
#include "platform/window/OwnerDraw.h"

#include <vector>

class BCMenu : public CMenu
{
public:
    ~BCMenu() override;

    // Whether the menu is under the care of this class.
    static bool IsMenu(const CMenu* menu);
    static bool IsMenu(HMENU menu);
    // The object of a menu under this class's care; null for any other.
    static BCMenu* FromMenu(HMENU menu);

    // A menu of the resource table, with all its popups under this class's care.
    BOOL LoadMenu(UINT id);
    // Synchronizes this menu and the popups below, which get an object of this class if they have none.
    void TakeCare();
    void Synchronize();

    // Gives the entry at the position a new record, which the platform gets as item data if the flags have
    // MF_OWNERDRAW. The record is the menu's, and stays as long as the entry does; null without such a position.
    BCMenuItem* ModifyItem(UINT position, UINT flags, UINT_PTR id, std::string_view text);
    // The menu, this one or one below, that holds the command, and its position there; null and -1 if none does.
    CMenu* FindItem(UINT id, int& position);
    // Of the entry at a position, with MF_BYPOSITION, or with a command. FALSE without a record of it.
    BOOL GetMenuText(UINT id, std::string& text, UINT flags);
    // The picture of a command, at the left of its text; and another one while it is ticked. FALSE if there is none.
    BOOL SetImage(UINT id, std::unique_ptr<CImageList> images, int picture, int tickedPicture = -1);

    // The answer to WM_MENUCHAR: executes the first entry with that mnemonic; 0 if there is none.
    static LRESULT FindKey(char16_t character, UINT flags, BCMenu* menu);
    // FALSE if it is no entry of a menu under this class's care, or no longer one.
    static BOOL MeasureItem(MEASUREITEMSTRUCT& item);
    static BOOL DrawItem(const DRAWITEMSTRUCT& item);

    std::string EntryName(int position) const override;

private:
    // Null for data that is not, or no longer, a record.
    static const BCMenuItem* RecordOf(DWORD_PTR data);

    BCMenuItem* RecordAt(std::size_t position) const;
    BCMenuItem* Place(UINT_PTR id);
    BCMenuItem* PlaceEntry(UINT position);
    BCMenuItem* PlacePopup(UINT position, UINT state);
    BCMenuItem* PlaceSeparator(UINT position, UINT state);
    BCMenuItem* PlaceCommand(UINT position, UINT state);
    std::unique_ptr<BCMenuItem> MakeItem(UINT position, UINT flags, UINT_PTR id, std::string_view text) const;
    BCMenuItem* PlaceNew(UINT position, UINT flags, UINT_PTR id, std::string_view text);
    void Apply(UINT position, const BCMenuItem& item) const;

    std::vector<std::unique_ptr<BCMenuItem>> m_items; // in the order of the positions
};
