// A menu: entries with commands, shown as a popup. User-interface thread only.
#pragma once

#include "platform/window/Messages.h"

#include <memory>
#include <string>
#include <vector>

inline constexpr UINT MF_BYCOMMAND = 0x000;
inline constexpr UINT MF_BYPOSITION = 0x400;
inline constexpr UINT MF_STRING = 0x000;
inline constexpr UINT MF_SEPARATOR = 0x800;
inline constexpr UINT MF_ENABLED = 0x000;
inline constexpr UINT MF_GRAYED = 0x001;

inline constexpr UINT TPM_LEFTALIGN = 0x000;
inline constexpr UINT TPM_RIGHTBUTTON = 0x002;

class CWnd;

class CMenu
{
public:
    struct Item
    {
        UINT id = 0;
        std::string text; // empty for a separator
        bool enabled = true;
        std::unique_ptr<CMenu> subMenu;
    };

    CMenu() = default;
    CMenu(CMenu&&) = default;
    CMenu& operator=(CMenu&&) = default;

    // Replaces the entries by those of a menu of the resource table.
    BOOL LoadMenu(UINT id);
    // The sub-menu at a position; null if there is none. It belongs to this menu.
    CMenu* GetSubMenu(int position) const;
    BOOL AppendMenu(UINT flags, UINT_PTR id = 0, const std::string& text = {});
    // Returns the state before (MF_ENABLED or MF_GRAYED), or -1 for an entry that does not exist.
    int EnableMenuItem(UINT id, UINT flags);
    BOOL RemoveMenu(UINT position, UINT flags);
    int GetMenuItemCount() const;

    // Shows the menu at a screen position and waits until it closes. A chosen entry is sent to `owner` as WM_COMMAND
    // before this returns. FALSE if nothing was chosen.
    BOOL TrackPopupMenu(UINT flags, int x, int y, CWnd* owner);

    const std::vector<Item>& Items() const
    {
        return m_items;
    }

private:
    std::vector<Item> m_items;
};
