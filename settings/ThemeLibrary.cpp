#include "settings/ThemeLibrary.h"

CThemeLibrary::CThemeLibrary()
    : m_hLibrary(LoadLibraryA("uxtheme.dll")), m_pIsThemeActive(Find<IsThemeActiveFunction>("IsThemeActive")),
      m_pOpenThemeData(Find<OpenThemeDataFunction>("OpenThemeData")),
      m_pCloseThemeData(Find<CloseThemeDataFunction>("CloseThemeData")),
      m_pGetContentRect(Find<GetThemeBackgroundContentRectFunction>("GetThemeBackgroundContentRect")),
      m_pDrawBackground(Find<DrawThemeBackgroundFunction>("DrawThemeBackground"))
{}

CThemeLibrary::~CThemeLibrary()
{
    if (m_hLibrary)
        FreeLibrary(m_hLibrary);
}

const CThemeLibrary& CThemeLibrary::Get()
{
    static const CThemeLibrary library;
    return library;
}

template <class Function>
Function CThemeLibrary::Find(const char* name) const
{
    return m_hLibrary ? reinterpret_cast<Function>(GetProcAddress(m_hLibrary, name)) : nullptr;
}

bool CThemeLibrary::IsThemeActive() const
{
    return m_pIsThemeActive && m_pIsThemeActive();
}

HTHEME CThemeLibrary::OpenThemeData(HWND window, const wchar_t* classes) const
{
    return m_pOpenThemeData ? m_pOpenThemeData(window, classes) : nullptr;
}

void CThemeLibrary::CloseThemeData(HTHEME theme) const
{
    if (m_pCloseThemeData)
        m_pCloseThemeData(theme);
}

RECT CThemeLibrary::GetThemeBackgroundContentRect(HTHEME theme, CDC* dc, int part, int state, const RECT& bounds) const
{
    RECT content = bounds;
    if (m_pGetContentRect && m_pGetContentRect(theme, dc, part, state, &bounds, &content) < 0)
        content = bounds;
    return content;
}

void CThemeLibrary::DrawThemeBackground(HTHEME theme, CDC* dc, int part, int state, const RECT& bounds) const
{
    if (m_pDrawBackground)
        m_pDrawBackground(theme, dc, part, state, &bounds, nullptr);
}
