#include "platform/testing/ThemeLibrary.h"

#include "platform/system/Library.h"
#include "platform/window/Theme.h"

#include <utility>

namespace
{

constexpr const char* kName = "uxtheme.dll";
constexpr HRESULT kBadHandle = static_cast<HRESULT>(0x80070006); // published: E_HANDLE

ThemeLibrary* g_library = nullptr; // the one that lives

BOOL IsThemeActive()
{
    return g_library->m_bActive;
}

HTHEME OpenThemeData(HWND, const wchar_t* classes)
{
    if (!g_library->m_bActive || classes != g_library->m_classes)
        return nullptr;
    ++g_library->m_nOpen;
    return g_library;
}

HRESULT CloseThemeData(HTHEME theme)
{
    if (theme != g_library)
        return kBadHandle;
    --g_library->m_nOpen;
    return 0;
}

HRESULT GetThemeBackgroundContentRect(HTHEME theme, CDC*, int, int, const RECT* bounds, RECT* content)
{
    if (theme != g_library)
        return kBadHandle;
    const LONG border = g_library->m_nBorder;
    *content = {bounds->left + border, bounds->top + border, bounds->right - border, bounds->bottom - border};
    return 0;
}

HRESULT DrawThemeBackground(HTHEME theme, CDC*, int part, int state, const RECT* bounds, const RECT*)
{
    if (theme != g_library)
        return kBadHandle;
    g_library->m_drawings.push_back({part, state, *bounds});
    return 0;
}

template <class Function>
std::pair<const std::string, FARPROC> Entry(const char* name, Function function)
{
    return {name, reinterpret_cast<FARPROC>(function)};
}

} // namespace

ThemeLibrary::ThemeLibrary()
{
    g_library = this;
    RegisterLibrary(kName, {
                               Entry<IsThemeActiveFunction>("IsThemeActive", &IsThemeActive),
                               Entry<OpenThemeDataFunction>("OpenThemeData", &OpenThemeData),
                               Entry<CloseThemeDataFunction>("CloseThemeData", &CloseThemeData),
                               Entry<GetThemeBackgroundContentRectFunction>("GetThemeBackgroundContentRect",
                                                                            &GetThemeBackgroundContentRect),
                               Entry<DrawThemeBackgroundFunction>("DrawThemeBackground", &DrawThemeBackground),
                           });
}

ThemeLibrary::~ThemeLibrary()
{
    RegisterLibrary(kName, {});
    g_library = nullptr;
}
