// The functions of the theme library "uxtheme.dll", which are found with GetProcAddress under these names. No library
// of that name stands here, so controls are drawn in the desktop's own look.
#pragma once

#include "platform/window/Handle.h"

#include "platform/Types.h"

class CDC;

// The theme of one class of windows; null is none.
using HTHEME = void*;

using IsThemeActiveFunction = BOOL (*)();
using OpenThemeDataFunction = HTHEME (*)(HWND window, const wchar_t* classes);
using CloseThemeDataFunction = HRESULT (*)(HTHEME theme);
// What is left of `bounds` inside the part's border.
using GetThemeBackgroundContentRectFunction = HRESULT (*)(HTHEME theme, CDC* dc, int part, int state,
                                                          const RECT* bounds, RECT* content);
// `clip` may be null.
using DrawThemeBackgroundFunction = HRESULT (*)(HTHEME theme, CDC* dc, int part, int state, const RECT* bounds,
                                                const RECT* clip);
