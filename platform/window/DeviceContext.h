// Drawing, in the colours and the font of the desktop. User-interface thread only, while a window is being painted.
// Coordinates are device-independent pixels of the window's client area; RECT is half open, right and bottom outside.
#pragma once

#include "platform/window/Handle.h"

#include "platform/Types.h"
#include "platform/window/Font.h"

#include <memory>
#include <string>

// 0x00BBGGRR
using COLORREF = DWORD;

// Colours that follow the desktop's palette, dark mode too.
inline constexpr int COLOR_INACTIVECAPTION = 3; // behind COLOR_CAPTIONTEXT, which reads well on COLOR_3DFACE too
inline constexpr int COLOR_MENU = 4;            // this and the next one: of popup menus
inline constexpr int COLOR_MENUTEXT = 7;
inline constexpr int COLOR_WINDOW = 5; // behind text that is read
inline constexpr int COLOR_CAPTIONTEXT = 9;
inline constexpr int COLOR_HIGHLIGHT = 13; // behind what is selected, in COLOR_HIGHLIGHTTEXT
inline constexpr int COLOR_HIGHLIGHTTEXT = 14;
inline constexpr int COLOR_3DFACE = 15; // of bars and buttons
inline constexpr int COLOR_3DSHADOW = 16;
inline constexpr int COLOR_GRAYTEXT = 17; // of what is disabled
inline constexpr int COLOR_BTNTEXT = 18;
inline constexpr int COLOR_3DHIGHLIGHT = 20;
// Of links that were not followed yet, and of the others, which have no published number. Both are readable on
// COLOR_3DFACE, whatever the palette has.
inline constexpr int COLOR_HOTLIGHT = 26;
inline constexpr int COLOR_VISITEDLINK = 0x100;
COLORREF GetSysColor(int index);

inline constexpr UINT DT_CENTER = 0x01;
inline constexpr UINT DT_RIGHT = 0x02;
inline constexpr UINT DT_VCENTER = 0x04;
inline constexpr UINT DT_SINGLELINE = 0x20;
inline constexpr UINT DT_NOPREFIX = 0x800;        // else "&" underlines what follows, and "&&" is one "&"
inline constexpr UINT DT_END_ELLIPSIS = 0x8000;   // always so
inline constexpr UINT DT_HIDEPREFIX = 0x00100000; // takes "&" for what it is, and underlines nothing

// Of DrawFrameControl, with the shapes of each.
inline constexpr UINT DFC_MENU = 2;
inline constexpr UINT DFCS_MENUARROW = 0x00;
inline constexpr UINT DFCS_MENUCHECK = 0x01;
inline constexpr UINT DFC_SCROLL = 3;
inline constexpr UINT DFCS_SCROLLDOWN = 0x01; // the arrow alone
inline constexpr UINT DFC_BUTTON = 4;
inline constexpr UINT DFCS_BUTTONCHECK = 0x0000; // the box of a check box
inline constexpr UINT DFCS_BUTTONPUSH = 0x0010;  // the face of a push button
inline constexpr UINT DFCS_INACTIVE = 0x0100;    // disabled; the states of buttons, to be joined
inline constexpr UINT DFCS_PUSHED = 0x0200;
inline constexpr UINT DFCS_CHECKED = 0x0400;
inline constexpr UINT DFCS_HOT = 0x1000;
inline constexpr UINT DFCS_DEFAULT = 0x10000; // this layer's own

inline constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;
inline constexpr COLORREF CLR_DEFAULT = 0xFF000000; // for what takes a colour or the desktop's own

// Text is drawn without a background, in the desktop's font and text colour: what the published operations would have
// to be told by SetBkMode and SelectStockObject holds from the start.
class CDC
{
public:
    virtual ~CDC();
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;

    void FillSolidRect(const RECT& rect, COLORREF color);
    // A frame of one pixel inside the rectangle.
    void Draw3dRect(const RECT& rect, COLORREF topLeft, COLORREF bottomRight);
    // A single line; what does not fit is cut with an ellipsis.
    void DrawText(const std::string& text, const RECT& rect, UINT format);
    // What DrawText needs for the whole text, its prefixes taken as such.
    SIZE GetTextExtent(const std::string& text) const;
    // A part of a control in the desktop's look: faces fill the rectangle, boxes and marks stand in the middle of it,
    // marks in the text colour.
    void DrawFrameControl(const RECT& rect, UINT type, UINT state);
    // What tells a control that has the focus.
    void DrawFocusRect(const RECT& rect);
    // Of faces from now on, instead of the desktop's; gives the colour so far, CLR_INVALID for the desktop's.
    COLORREF SetBkColor(COLORREF color);
    // Of texts from now on; gives the colour so far.
    COLORREF SetTextColor(COLORREF color);
    // Of texts from now on.
    void SelectObject(const CFont* font);
    // At its big size, or at `size`; faint for what is disabled. False if there is no such icon.
    bool DrawIcon(int x, int y, HICON icon, int size = 32, bool faint = false);
    // What has been drawn there, the window's own background included; CLR_INVALID outside of what is being painted.
    COLORREF GetPixel(int x, int y) const;

protected:
    struct Surface;

    // Draws nothing without a surface.
    explicit CDC(std::unique_ptr<Surface> surface);

private:
    bool Draws() const;

    const std::unique_ptr<Surface> m_surface;
};
