// Drawing, in the colours and the font of the desktop. User-interface thread only, while a window is being painted.
// Coordinates are device-independent pixels of the window's client area; RECT is half open, right and bottom outside.
#pragma once

#include "platform/Types.h"

#include <string>

// 0x00BBGGRR
using COLORREF = DWORD;

// Colours that follow the desktop's palette, dark mode too.
inline constexpr int COLOR_WINDOW = 5;  // behind text that is read
inline constexpr int COLOR_3DFACE = 15; // of bars and buttons
inline constexpr int COLOR_3DSHADOW = 16;
inline constexpr int COLOR_3DHIGHLIGHT = 20;
COLORREF GetSysColor(int index);

inline constexpr UINT DT_CENTER = 0x01;
inline constexpr UINT DT_VCENTER = 0x04;
inline constexpr UINT DT_SINGLELINE = 0x20;

// Text is drawn without a background, in the desktop's font and text colour: what the published operations would have
// to be told by SetBkMode and SelectStockObject holds from the start.
class CDC
{
public:
    virtual ~CDC() = default;

    virtual void FillSolidRect(const RECT& rect, COLORREF color) = 0;
    // A frame of one pixel inside the rectangle.
    virtual void Draw3dRect(const RECT& rect, COLORREF topLeft, COLORREF bottomRight) = 0;
    // A single line; what does not fit is cut with an ellipsis.
    virtual void DrawText(const std::string& text, const RECT& rect, UINT format) = 0;
};
