#include "base/ErrorMessage.h"

#include "platform/system/LastError.h"
#include "platform/window/Calls.h"

void ShowErrorMessage(DWORD code)
{
    constexpr DWORD kUserDefaultLanguage = 1024;
    char* text = nullptr;
    FormatMessageA(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                   code, kUserDefaultLanguage, &text, 0, nullptr);
    if (!text)
        return;
    MessageBoxA({}, text, "Error", MB_ICONINFORMATION);
    LocalFree(text);
}
