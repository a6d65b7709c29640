// Wide strings that are allocated by one side of an interface and freed by the other.
#pragma once

#include "platform/Types.h"

#include <string>
#include <string_view>
#include <utility>

using BSTR = wchar_t*;

// A copy of `text` (up to its zero, or `length` characters with embedded zeros kept) with a terminating zero, or null
// without memory. Freed with SysFreeString.
BSTR SysAllocString(const wchar_t* text);
BSTR SysAllocStringLen(const wchar_t* text, UINT length);
// Length in characters; 0 for null.
UINT SysStringLen(BSTR text);
void SysFreeString(BSTR text);

// Owns one such string.
class CComBSTR
{
public:
    CComBSTR() = default;
    CComBSTR(CComBSTR&& other) noexcept : m_text(std::exchange(other.m_text, nullptr))
    {}
    CComBSTR& operator=(CComBSTR&& other) noexcept
    {
        std::swap(m_text, other.m_text);
        return *this;
    }
    ~CComBSTR()
    {
        SysFreeString(m_text);
    }

    BSTR* Receive()
    {
        SysFreeString(std::exchange(m_text, nullptr));
        return &m_text;
    }
    // Null reads as empty.
    std::wstring_view View() const
    {
        return m_text ? std::wstring_view(m_text, SysStringLen(m_text)) : std::wstring_view();
    }

private:
    BSTR m_text = nullptr;
};
