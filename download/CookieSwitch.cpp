#include "download/CookieSwitch.h"

#include "base/Product.h"

#include "platform/system/LastError.h"
#include "platform/system/Registry.h"

#include <cstring>

bool MaySendCookies()
{
    HKEY key = HKEY::Null;
    if (RegOpenKeyA(HKEY_CURRENT_USER, kProductKey, &key) != static_cast<LONG>(ERROR_SUCCESS))
        return true;
    char text[2] = {};
    DWORD size = sizeof text;
    const LONG result = RegQueryValueExA(key, "SendCookies", nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size);
    RegCloseKey(key);
    return result != static_cast<LONG>(ERROR_SUCCESS) || std::strcmp(text, "0") != 0;
}
