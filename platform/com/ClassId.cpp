#include "platform/com/ClassId.h"

#include "platform/com/Unknown.h"
#include "platform/system/LastError.h"
#include "platform/system/Registry.h"
#include "platform/text/CodePage.h"

#include <string_view>

namespace
{

constexpr std::wstring_view kShape = L"{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}";
constexpr std::size_t kDigits = 32;

// -1 for what is no digit.
int HexValue(wchar_t c)
{
    const std::wstring_view digits = L"0123456789abcdef0123456789ABCDEF";
    const std::size_t at = digits.find(c);
    return at == digits.npos ? -1 : static_cast<int>(at % 16);
}

// The digits of the text in their order; false if it has another shape.
bool ReadDigits(std::wstring_view text, BYTE (&values)[kDigits])
{
    if (text.size() != kShape.size())
        return false;
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++at)
    {
        const int value = HexValue(text[at]);
        if (kShape[at] == L'x' ? value < 0 : text[at] != kShape[at])
            return false;
        if (kShape[at] == L'x')
            values[count++] = static_cast<BYTE>(value);
    }
    return true;
}

DWORD Join(const BYTE* digits, int count)
{
    DWORD number = 0;
    for (int i = 0; i < count; ++i)
        number = number << 4 | digits[i];
    return number;
}

} // namespace

HRESULT CLSIDFromString(const wchar_t* text, CLSID* clsid)
{
    if (!text || !clsid)
        return E_INVALIDARG;
    *clsid = {};
    BYTE digits[kDigits];
    if (!ReadDigits(text, digits))
        return CO_E_CLASSSTRING;
    clsid->Data1 = Join(digits, 8);
    clsid->Data2 = static_cast<WORD>(Join(digits + 8, 4));
    clsid->Data3 = static_cast<WORD>(Join(digits + 12, 4));
    for (int i = 0; i < 8; ++i)
        clsid->Data4[i] = static_cast<BYTE>(Join(digits + 16 + 2 * i, 2));
    return S_OK;
}

HRESULT CLSIDFromProgID(const wchar_t* name, CLSID* clsid)
{
    if (!name || !clsid)
        return E_INVALIDARG;
    *clsid = {};
    char text[kShape.size() + 1];
    LONG size = sizeof(text);
    const std::string key = WideToAnsi(name) + "\\CLSID";
    if (RegQueryValueA(HKEY_CLASSES_ROOT, key.c_str(), text, &size) != ERROR_SUCCESS)
        return CO_E_CLASSSTRING;
    return CLSIDFromString(AnsiToWide(text).c_str(), clsid);
}
