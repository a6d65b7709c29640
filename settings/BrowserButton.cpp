#include "settings/BrowserButton.h"

#include "platform/files/InstallHome.h"
#include "platform/files/Path.h"
#include "platform/system/LastError.h"
#include "platform/system/Registry.h"

#include <string>

namespace
{

// The program's own identity among the browser's extensions.
constexpr const char* kButtonKey =
    "Software\\Microsoft\\Internet Explorer\\Extensions\\{5B7D2C16-A94E-4F03-9C61-2E8F40D1B7A3}";
// The browser's published class of a button that runs a program.
constexpr const char* kRunsProgram = "{1FBA04EE-3024-11D2-8F1F-0000F87ABD16}";

bool Succeeded(LONG result)
{
    return result == static_cast<LONG>(ERROR_SUCCESS);
}

void WriteText(HKEY key, const char* name, const std::string& text)
{
    RegSetValueExA(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                   static_cast<DWORD>(text.size() + 1));
}

// Children first. A failure below ends the walk.
bool DeleteTree(HKEY above, const char* name)
{
    HKEY key = HKEY::Null;
    if (!Succeeded(RegOpenKeyExA(above, name, 0, KEY_READ_WRITE, &key)))
        return false;
    char child[256];
    DWORD size = sizeof child;
    bool deleted = true;
    // Each deletion makes the next one the first.
    while (deleted && Succeeded(RegEnumKeyExA(key, 0, child, &size, nullptr, nullptr, nullptr, nullptr)))
    {
        deleted = DeleteTree(key, child);
        size = sizeof child;
    }
    RegCloseKey(key);
    return deleted && Succeeded(RegDeleteKeyA(above, name));
}

} // namespace

bool AddBrowserButton()
{
    char program[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, program, MAX_PATH);
    program[MAX_PATH - 1] = '\0';
    const std::string icon = std::string(program) + ",128";
    HKEY key = HKEY::Null;
    if (!Succeeded(RegCreateKeyExA(HKEY_LOCAL_MACHINE, kButtonKey, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS,
                                   nullptr, &key, nullptr)))
        return false;
    WriteText(key, "CLSID", kRunsProgram);
    WriteText(key, "Default Visible", "Yes");
    WriteText(key, "ButtonText", "Vantroy");
    WriteText(key, "Icon", icon);
    WriteText(key, "HotIcon", icon);
    WriteText(key, "Exec", program);
    RegCloseKey(key);
    return true;
}

bool RemoveBrowserButton()
{
    return DeleteTree(HKEY_LOCAL_MACHINE, kButtonKey);
}
