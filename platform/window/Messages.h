// Messages, commands and styles under their published numbers. Only those that are sent or handled somewhere.
#pragma once

#include "platform/window/Handle.h"

#include "platform/Types.h"

inline constexpr UINT WM_CREATE = 0x0001; // to frames and views: -1 ends the creation
inline constexpr UINT WM_DESTROY = 0x0002;
inline constexpr UINT WM_ACTIVATE = 0x0006;  // to owner-drawn buttons: WPARAM says whether their window is active
inline constexpr UINT WM_KILLFOCUS = 0x0008; // to owner-drawn buttons, as the next one
inline constexpr UINT WM_ENABLE = 0x000A;    // WPARAM: TRUE or FALSE
inline constexpr UINT WM_SIZE = 0x0005;      // to frames, views and splitters; LPARAM: SizeFromLParam
inline constexpr UINT WM_PAINT = 0x000F;     // sent inside the toolkit's painting: draw through CPaintDC only
inline constexpr UINT WM_CLOSE = 0x0010;
inline constexpr UINT WM_ERASEBKGND = 0x0014; // to labels that notify; WPARAM: the CDC to draw on
// To owner-drawn buttons: the desktop's colours have changed, a modal window blocks this one.
inline constexpr UINT WM_SYSCOLORCHANGE = 0x0015;
inline constexpr UINT WM_CANCELMODE = 0x001F;
inline constexpr UINT WM_SETCURSOR = 0x0020; // see Cursor.h; an answer other than 0: the shape is set
inline constexpr UINT WM_DRAWITEM = 0x002B;  // this and the next one: see OwnerDraw.h
inline constexpr UINT WM_MEASUREITEM = 0x002C;
inline constexpr UINT WM_QUERYDRAGICON = 0x0037;
inline constexpr UINT WM_NOTIFY = 0x004E;
inline constexpr UINT WM_SETICON = 0x0080;
inline constexpr UINT WM_GETDLGCODE = 0x0087; // what a control does in its dialog: DLGC_ bits
inline constexpr UINT WM_KEYDOWN = 0x0100;    // to CPropertySheet::PreTranslateMessage alone
inline constexpr UINT WM_INITDIALOG = 0x0110;
inline constexpr UINT WM_COMMAND = 0x0111;
inline constexpr UINT WM_SYSCOMMAND = 0x0112;
inline constexpr UINT WM_TIMER = 0x0113;
// A key in a menu with owner-drawn entries. WPARAM: the character and, in the high word, MF_POPUP; LPARAM: the menu.
inline constexpr UINT WM_MENUCHAR = 0x0120;
// This and the next two to views, splitters and labels that notify, this one to owner-drawn buttons, too; LPARAM:
// PointFromLParam.
inline constexpr UINT WM_MOUSEMOVE = 0x0200;
inline constexpr UINT WM_LBUTTONDOWN = 0x0201;
inline constexpr UINT WM_LBUTTONUP = 0x0202;
inline constexpr UINT WM_MOUSELEAVE = 0x02A3; // once after _TrackMouseEvent
inline constexpr WPARAM MK_LBUTTON = 1;       // of a mouse message: the button is held
inline constexpr UINT WM_USER = 0x0400;

// What a control is told itself, before its parent is: its notifications, of which those that it answers with TRUE stay
// with it. A label that notifies is asked for its colours, too, and sets them, and its font, on the CDC of WPARAM; the
// answer is not read.
inline constexpr UINT OCM_COMMAND = WM_USER + 0x1C00 + WM_COMMAND;
inline constexpr UINT OCM_CTLCOLORSTATIC = WM_USER + 0x1C00 + 0x0138;

inline constexpr UINT EM_SETSEL = 0x00B1;    // WPARAM, LPARAM: from and to; 0 and -1 are all
inline constexpr UINT EM_LIMITTEXT = 0x00C5; // WPARAM: characters that the user may type; 0: any number
inline constexpr UINT BM_GETCHECK = 0x00F0;  // of boxes: BST_CHECKED or 0
inline constexpr UINT BM_SETCHECK = 0x00F1;  // the parent is not told
inline constexpr UINT BM_SETSTYLE = 0x00F4;  // to push buttons; WPARAM: BS_ type in the low four bits
inline constexpr UINT BM_CLICK = 0x00F5;
inline constexpr int BST_UNCHECKED = 0;
inline constexpr int BST_CHECKED = 1;
inline constexpr UINT BS_PUSHBUTTON = 0x0;
inline constexpr UINT BS_DEFPUSHBUTTON = 0x1;
inline constexpr UINT BS_OWNERDRAW = 0xB;
inline constexpr LRESULT DLGC_DEFPUSHBUTTON = 0x0010;
inline constexpr LRESULT DLGC_UNDEFPUSHBUTTON = 0x0020;
inline constexpr LRESULT DLGC_BUTTON = 0x2000;
inline constexpr WPARAM WA_INACTIVE = 0;
inline constexpr WPARAM WA_ACTIVE = 1;
inline constexpr UINT PBM_SETPOS = 0x0402;
inline constexpr UINT PBM_SETRANGE32 = 0x0406;
inline constexpr UINT PBM_GETPOS = 0x0408;

inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;

inline constexpr UINT MB_OK = 0x00;
inline constexpr UINT MB_OKCANCEL = 0x01;
inline constexpr UINT MB_YESNO = 0x04;
inline constexpr UINT MB_ICONERROR = 0x10;
inline constexpr UINT MB_ICONQUESTION = 0x20;
inline constexpr UINT MB_ICONEXCLAMATION = 0x30;
inline constexpr UINT MB_ICONINFORMATION = 0x40;

inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOWMAXIMIZED = 3;
inline constexpr int SW_SHOW = 5;
inline constexpr int SW_MINIMIZE = 6;
inline constexpr int SW_RESTORE = 9;

inline constexpr UINT GW_HWNDNEXT = 2;
inline constexpr UINT GW_CHILD = 5;
inline constexpr int GWL_STYLE = -16;
inline constexpr DWORD WS_VISIBLE = 0x10000000;

// Keys under their published numbers; letters and digits are their capital characters.
inline constexpr int VK_TAB = 0x09;
inline constexpr int VK_RETURN = 0x0D;
inline constexpr int VK_SHIFT = 0x10;
inline constexpr int VK_CONTROL = 0x11;
inline constexpr int VK_ESCAPE = 0x1B;

inline constexpr UINT BN_CLICKED = 0;
inline constexpr UINT STN_CLICKED = 0;    // of labels that notify
inline constexpr UINT EN_CHANGE = 0x0300; // the user changed the text of an edit; what the program sets is not told

inline constexpr UINT NM_DBLCLK = static_cast<UINT>(-3);
inline constexpr UINT NM_RCLICK = static_cast<UINT>(-5);
inline constexpr UINT LVN_ITEMCHANGED = static_cast<UINT>(-101);

inline constexpr WPARAM ICON_SMALL = 0;
inline constexpr WPARAM ICON_BIG = 1;

// The head of every WM_NOTIFY; LPARAM points to it.
struct NMHDR
{
    HWND hwndFrom;
    UINT_PTR idFrom = 0;
    UINT code = 0;
};

// A message before it is handled.
struct MSG
{
    HWND hwnd; // the window that has the focus; null if that is none of the program's
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

// LPARAM of a list control's LVN_ITEMCHANGED.
struct NMLISTVIEW
{
    NMHDR hdr;
    int iItem = -1;
    int iSubItem = 0;
};

// A handle as the LPARAM of a message (WM_COMMAND names its control so), and back.
constexpr LPARAM ToLParam(HWND window)
{
    return static_cast<LPARAM>(window.value);
}

constexpr LPARAM ToLParam(HMENU menu)
{
    return static_cast<LPARAM>(menu.value);
}

// Width and height of the client area that WM_SIZE carries, in device-independent pixels.
constexpr POINT SizeFromLParam(LPARAM value)
{
    return {static_cast<LONG>(value & 0xFFFF), static_cast<LONG>(value >> 16 & 0xFFFF)};
}

// A place in the client area that a mouse message carries, in device-independent pixels; also outside while dragging.
constexpr POINT PointFromLParam(LPARAM value)
{
    return {static_cast<std::int16_t>(value & 0xFFFF), static_cast<std::int16_t>(value >> 16 & 0xFFFF)};
}

// Two numbers of 16 bits as SizeFromLParam and PointFromLParam take them.
constexpr LPARAM PairToLParam(LONG low, LONG high)
{
    return static_cast<LPARAM>(static_cast<std::uint32_t>(low & 0xFFFF) | static_cast<std::uint32_t>(high & 0xFFFF)
                                                                              << 16);
}

constexpr HWND HwndFromLParam(LPARAM value)
{
    return {static_cast<std::uint64_t>(value)};
}

constexpr HMENU HmenuFromLParam(LPARAM value)
{
    return {static_cast<std::uint64_t>(value)};
}
