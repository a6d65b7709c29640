#include "platform/text/Mbcs.h"

#include "platform/text/CodePage.h"
#include "platform/text/CodePage_p.h"
#include "platform/text/Utf8_p.h"

#include <clocale>
#include <cstring>
#include <cwctype>

namespace
{

bool IsLeadByte(UINT page, unsigned char byte)
{
    switch (page)
    {
    case 932:
        return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
    case 936:
    case 949:
    case 950:
        return byte >= 0x81 && byte <= 0xFE;
    default:
        return false;
    }
}

// In all four double-byte pages; what is smaller (blanks, quotes, brackets, digits) always stands for itself.
bool IsTrailByte(unsigned char byte)
{
    return byte >= 0x40 && byte != 0x7F && byte != 0xFF;
}

int CharacterLength(UINT page, const char* at)
{
    if (page == kCodePageUtf8)
    {
        const std::size_t length = Utf8Length({at, strnlen(at, 4)});
        return length == 0 ? 1 : static_cast<int>(length);
    }
    const bool pair =
        IsLeadByte(page, static_cast<unsigned char>(at[0])) && IsTrailByte(static_cast<unsigned char>(at[1]));
    return pair ? 2 : 1;
}

int CharacterValue(const char* at, int length)
{
    const auto first = static_cast<unsigned char>(at[0]);
    return length == 1 ? first : first << 8 | static_cast<unsigned char>(at[1]);
}

} // namespace

const char* NextCharacter(UINT page, const char* at)
{
    return *at ? at + CharacterLength(page, at) : at;
}

int CompareCharacters(UINT page, const char* left, const char* right)
{
    // The order of characters is that of their bytes, but in the double-byte pages, where a single byte above the
    // lead bytes is still a smaller number than any pair.
    if (!IsLeadByte(page, 0x81))
        return std::strcmp(left, right);
    for (;;)
    {
        const int leftLength = CharacterLength(page, left);
        const int rightLength = CharacterLength(page, right);
        const int difference = CharacterValue(left, leftLength) - CharacterValue(right, rightLength);
        if (difference != 0 || *left == 0)
            return difference;
        left += leftLength;
        right += rightLength;
    }
}

int _mbscmp(const char* left, const char* right)
{
    return CompareCharacters(GetACP(), left, right);
}

std::string CharLowerA(const std::string& text)
{
    static const locale_t anywhere = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    std::wstring wide = AnsiToWide(text);
    if (!anywhere || WideToAnsi(wide) != text)
        return text;
    for (wchar_t& c : wide)
        c = static_cast<wchar_t>(towlower_l(static_cast<wint_t>(c), anywhere));
    return WideToAnsi(wide);
}

const char* CharNextA(const char* at)
{
    return NextCharacter(GetACP(), at);
}
