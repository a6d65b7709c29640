// The theme functions of the desktop, found while the program runs; where there are none, nothing is themed.
#pragma once

#include "platform/system/Library.h"
#include "platform/window/Theme.h"

// Loads the library as it is made and frees it with itself. User-interface thread.
class CThemeLibrary
{
public:
    CThemeLibrary();
    ~CThemeLibrary();
    CThemeLibrary(const CThemeLibrary&) = delete;
    CThemeLibrary& operator=(const CThemeLibrary&) = delete;

    // The program's own.
    static const CThemeLibrary& Get();

    // As the functions of these names; without them no theme is active, and none opens.
    bool IsThemeActive() const;
    HTHEME OpenThemeData(HWND window, const wchar_t* classes) const;
    void CloseThemeData(HTHEME theme) const;
    // `bounds` itself if the theme has no answer.
    RECT GetThemeBackgroundContentRect(HTHEME theme, CDC* dc, int part, int state, const RECT& bounds) const;
    void DrawThemeBackground(HTHEME theme, CDC* dc, int part, int state, const RECT& bounds) const;

private:
    template <class Function>
    Function Find(const char* name) const;

    const HMODULE m_hLibrary;
    const IsThemeActiveFunction m_pIsThemeActive;
    const OpenThemeDataFunction m_pOpenThemeData;
    const CloseThemeDataFunction m_pCloseThemeData;
    const GetThemeBackgroundContentRectFunction m_pGetContentRect;
    const DrawThemeBackgroundFunction m_pDrawBackground;
};
