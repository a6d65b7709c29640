// Operations on menus by handle. User-interface thread only. On a menu that has gone they answer FALSE, -1, empty or
// the null handle, so a handle may be kept and asked about for as long as anybody likes.
//
// An entry is named by its position, with MF_BYPOSITION, or by its command, which is looked for in the popups below,
// too. The head of a popup and a separator have no command.
#pragma once

#include "platform/window/Handle.h"

#include "platform/Types.h"

#include <string>

// Kinds and states of an entry, to be joined.
inline constexpr UINT MF_BYCOMMAND = 0x000;
inline constexpr UINT MF_BYPOSITION = 0x400;
inline constexpr UINT MF_STRING = 0x000;
inline constexpr UINT MF_POPUP = 0x010;
inline constexpr UINT MF_OWNERDRAW = 0x100;
inline constexpr UINT MF_SEPARATOR = 0x800;
inline constexpr UINT MF_ENABLED = 0x000;
inline constexpr UINT MF_GRAYED = 0x001;
inline constexpr UINT MF_DISABLED = 0x002;
inline constexpr UINT MF_UNCHECKED = 0x000;
inline constexpr UINT MF_CHECKED = 0x008;

inline constexpr UINT kNoMenuEntry = 0xFFFFFFFF; // what GetMenuState and GetMenuItemID answer where there is none

HMENU CreatePopupMenu();
// With all popups below it.
BOOL DestroyMenu(HMENU menu);
bool IsMenu(HMENU menu);

// `item` is the text, or with MF_OWNERDRAW the item data that WM_MEASUREITEM and WM_DRAWITEM carry; an owner-drawn
// entry has no text. With MF_POPUP `id` is the handle of a popup, which from then on goes with this menu; a popup that
// holds this menu is refused. By a position behind the last one, or kNoMenuEntry, an entry is inserted at the end.
BOOL InsertMenuA(HMENU menu, UINT position, UINT flags, UINT_PTR id, const char* item);
// The same for an entry that is there. A popup that does not stay in its place is destroyed.
BOOL ModifyMenuA(HMENU menu, UINT position, UINT flags, UINT_PTR id, const char* item);
// Takes the entry away. RemoveMenu leaves its popup alive, to nobody's care; DeleteMenu destroys it.
BOOL RemoveMenu(HMENU menu, UINT position, UINT flags);
BOOL DeleteMenu(HMENU menu, UINT position, UINT flags);

// Both give the state before, in its MF_ bits, or -1.
int EnableMenuItem(HMENU menu, UINT position, UINT flags);
int CheckMenuItem(HMENU menu, UINT position, UINT flags);

int GetMenuItemCount(HMENU menu);
// 0 for a separator.
UINT GetMenuItemID(HMENU menu, int position);
// The MF_ bits; of the head of a popup the low byte has them, and the next one the number of its entries.
UINT GetMenuState(HMENU menu, UINT position, UINT flags);
std::string GetMenuStringA(HMENU menu, UINT position, UINT flags);
// The handle of the popup, even if that has gone.
HMENU GetSubMenu(HMENU menu, int position);
