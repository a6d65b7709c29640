// What the owner of something is asked that it measures and draws itself. User-interface thread only.
//
// A button that is owner-drawn by BM_SETSTYLE: WM_DRAWITEM at each painting, to the button itself.
// The entries of a menu: WM_MEASUREITEM before the menu shows, WM_DRAWITEM at each painting, to the window that the
// menu was shown for. An entry whose owner answers FALSE is drawn in the desktop's own look, with its name as the text.
#pragma once

#include "platform/window/DeviceContext.h"
#include "platform/window/Handle.h"

#include "platform/Types.h"

inline constexpr UINT ODT_MENU = 1;
inline constexpr UINT ODT_BUTTON = 4;
inline constexpr UINT ODA_DRAWENTIRE = 1;

// itemState
inline constexpr UINT ODS_SELECTED = 0x001; // of a menu: the highlighted entry; of a button: pressed
inline constexpr UINT ODS_GRAYED = 0x002;
inline constexpr UINT ODS_DISABLED = 0x004;
inline constexpr UINT ODS_CHECKED = 0x008;
inline constexpr UINT ODS_FOCUS = 0x010;
inline constexpr UINT ODS_NOACCEL = 0x100; // the desktop underlines no mnemonics

// LPARAM of WM_MEASUREITEM, in device-independent pixels.
struct MEASUREITEMSTRUCT
{
    UINT CtlType = 0;
    UINT CtlID = 0;
    UINT itemID = 0; // the command; of a popup the low half of its handle
    UINT itemWidth = 0;
    UINT itemHeight = 0;
    DWORD_PTR itemData = 0;
    CDC* hDC = nullptr; // to measure in the font of what is drawn: this layer's own
};

// LPARAM of WM_DRAWITEM. The device context serves as long as the message is handled.
struct DRAWITEMSTRUCT
{
    UINT CtlType = 0;
    UINT CtlID = 0;
    UINT itemID = 0;
    UINT itemAction = 0;
    UINT itemState = 0;
    HWND hwndItem; // of a menu its handle, by value
    CDC* hDC = nullptr;
    RECT rcItem;
    DWORD_PTR itemData = 0;
};

// High word of the answer to WM_MENUCHAR, with the position of an entry in the low one.
inline constexpr UINT MNC_IGNORE = 0;
inline constexpr UINT MNC_CLOSE = 1;
inline constexpr UINT MNC_EXECUTE = 2;
inline constexpr UINT MNC_SELECT = 3;
