#include "platform/com/Bstr.h"

#include <cstdlib>
#include <cstring>
#include <cwchar>

namespace
{

// A string is a block of memory: its length in characters in the place of one character, the characters, a zero.
static_assert(sizeof(UINT) == sizeof(wchar_t) && alignof(UINT) == alignof(wchar_t));

wchar_t* BlockOf(BSTR text)
{
    return text - 1;
}

} // namespace

BSTR SysAllocStringLen(const wchar_t* text, UINT length)
{
    auto* const block = static_cast<wchar_t*>(std::calloc(std::size_t{length} + 2, sizeof(wchar_t)));
    if (block == nullptr)
        return nullptr;
    std::memcpy(block, &length, sizeof(length));
    if (text != nullptr)
        std::wmemcpy(block + 1, text, length);
    return block + 1;
}

BSTR SysAllocString(const wchar_t* text)
{
    return text != nullptr ? SysAllocStringLen(text, static_cast<UINT>(std::wcslen(text))) : nullptr;
}

UINT SysStringLen(BSTR text)
{
    UINT length = 0;
    if (text != nullptr)
        std::memcpy(&length, BlockOf(text), sizeof(length));
    return length;
}

void SysFreeString(BSTR text)
{
    if (text != nullptr)
        std::free(BlockOf(text));
}
