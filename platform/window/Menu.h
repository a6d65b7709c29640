// A menu: entries with commands, shown as a popup. User-interface thread only.
#pragma once

#include "platform/window/MenuCalls.h"
#include "platform/window/Messages.h"

#include <memory>
#include <string>

inline constexpr UINT TPM_LEFTALIGN = 0x000;
inline constexpr UINT TPM_RIGHTBUTTON = 0x002;
inline constexpr UINT TPM_NONOTIFY = 0x080;
inline constexpr UINT TPM_RETURNCMD = 0x100;

class CWnd;

// The operations without a comment are those of MenuCalls.h, on this object's menu.
class CMenu
{
public:
    CMenu() = default;
    // Destroys its menu if that still stands.
    virtual ~CMenu();
    CMenu(const CMenu&) = delete;
    CMenu& operator=(const CMenu&) = delete;

    HMENU m_hMenu; // null once the menu has gone, whoever destroyed it

    // The object that is attached to the menu, or else one that the layer keeps for it until it goes; null for a menu
    // that has gone.
    static CMenu* FromHandle(HMENU menu);
    // FALSE if the menu has gone, or has an object already, or this object a menu.
    BOOL Attach(HMENU menu);
    // The same for an object that goes with the menu.
    static BOOL AttachKept(HMENU menu, std::unique_ptr<CMenu> object);
    // Lets go of the menu without destroying it.
    HMENU Detach();

    BOOL CreatePopupMenu();
    BOOL DestroyMenu();
    // In the place of its menu so far comes one of the resource table. FALSE, and nothing else, without such a one.
    BOOL LoadMenu(UINT id);

    // Null if there is no popup at the position.
    CMenu* GetSubMenu(int position) const;
    BOOL AppendMenu(UINT flags, UINT_PTR id = 0, const std::string& text = {});
    BOOL InsertMenu(UINT position, UINT flags, UINT_PTR id = 0, const std::string& text = {});
    BOOL ModifyMenu(UINT position, UINT flags, UINT_PTR id = 0, const std::string& text = {});
    BOOL RemoveMenu(UINT position, UINT flags);
    BOOL DeleteMenu(UINT position, UINT flags);
    int EnableMenuItem(UINT position, UINT flags);
    int CheckMenuItem(UINT position, UINT flags);
    int GetMenuItemCount() const;
    UINT GetMenuItemID(int position) const;
    UINT GetMenuState(UINT position, UINT flags) const;

    // What the entry at the position is called where the layer has to name it: for assistive technology an owner-drawn
    // one needs a name, too.
    virtual std::string EntryName(int position) const;

    // Shows the menu at a screen position and waits until it closes. A chosen entry is sent to `owner` as WM_COMMAND
    // before this returns, or with TPM_RETURNCMD is the answer. FALSE if nothing was chosen. The menu may be changed or
    // destroyed meanwhile; what is on show stays as it was.
    int TrackPopupMenu(UINT flags, int x, int y, CWnd* owner);
};
