// The shape of the pointer, which a label that notifies, or an owner-drawn button, asks for with WM_SETCURSOR whenever
// the pointer moves on it; and where the pointer is.
#pragma once

#include "platform/window/Handle.h"

#include "platform/Types.h"

// A standard shape, under its published number; it need not be loaded.
enum class HCURSOR : UINT
{
    Null = 0
};

inline constexpr HCURSOR IDC_ARROW = static_cast<HCURSOR>(32512);
inline constexpr HCURSOR IDC_HAND = static_cast<HCURSOR>(32649);

// While WM_SETCURSOR is being handled: the shape over the window that asks; null hides the pointer. User-interface
// thread.
void SetCursor(HCURSOR cursor);

// Where the pointer is on the screen, in device-independent pixels; see PointFromLParam. On a desktop that does not
// tell programs of a pointer outside their windows (Wayland): where it was last seen. Any thread.
DWORD GetMessagePos();

inline constexpr DWORD TME_LEAVE = 2;

struct TRACKMOUSEEVENT
{
    DWORD cbSize = sizeof(TRACKMOUSEEVENT);
    DWORD dwFlags = 0;
    HWND hwndTrack;
    DWORD dwHoverTime = 0;
};

// Asks for one WM_MOUSELEAVE, which comes soon if the pointer is not on the window. FALSE for a window other than an
// owner-drawn button, or another flag than TME_LEAVE. User-interface thread.
BOOL _TrackMouseEvent(TRACKMOUSEEVENT* event);
