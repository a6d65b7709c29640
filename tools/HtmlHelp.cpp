#include "tools/HtmlHelp.h"

#include "platform/system/LastError.h"
#include "platform/system/Registry.h"

namespace
{

constexpr const char* kViewerKey = "CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32";
constexpr DWORD kNameRoom = 260;

// The library that is registered for the viewer's class. Null if there is none.
HMODULE LoadRegisteredViewer()
{
    HKEY key = HKEY::Null;
    if (RegOpenKeyExA(HKEY_CLASSES_ROOT, kViewerKey, 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS)
        return nullptr;
    char name[kNameRoom];
    DWORD size = kNameRoom;
    const LONG error = RegQueryValueExA(key, nullptr, nullptr, nullptr, reinterpret_cast<BYTE*>(name), &size);
    RegCloseKey(key);
    return error == ERROR_SUCCESS ? LoadLibraryA(name) : nullptr;
}

HMODULE LoadViewer()
{
    const HMODULE registered = LoadRegisteredViewer();
    return registered ? registered : LoadLibraryA(kHelpViewerLibrary);
}

} // namespace

DWORD CHtmlHelp::HtmlHelp(HWND owner, const char* file, UINT command, DWORD_PTR data)
{
    if (!m_module && !m_bFailed)
        m_module = LoadViewer();
    if (m_module && !m_function)
        m_function = reinterpret_cast<HtmlHelpFunction>(GetProcAddress(m_module, MAKEINTRESOURCEA(kHtmlHelpOrdinal)));
    m_bFailed = m_bFailed || !m_function;
    return m_function ? m_function(owner, file, command, data) : 0;
}
