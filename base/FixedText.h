// Zero-terminated text in a buffer of a fixed size, the terminating zero included. A longer text is cut to fit.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

template <std::size_t Size>
class FixedText
{
public:
    FixedText() = default;
    FixedText(std::string_view text)
    {
        *this = text;
    }
    FixedText& operator=(std::string_view text)
    {
        m_text.fill('\0');
        std::copy_n(text.data(), std::min(text.size(), Size - 1), m_text.data());
        return *this;
    }

    const char* c_str() const
    {
        return m_text.data();
    }
    operator std::string_view() const
    {
        return m_text.data();
    }

private:
    std::array<char, Size> m_text{};
};
