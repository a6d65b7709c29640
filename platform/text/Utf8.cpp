#include "platform/text/Utf8_p.h"

namespace
{

bool IsTrail(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

std::size_t LengthByLead(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

bool IsCharacter(char32_t value)
{
    return value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF);
}

} // namespace

std::size_t Utf8Length(std::string_view text)
{
    static constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const std::size_t length = LengthByLead(static_cast<unsigned char>(text[0]));
    if (length <= 1)
        return length;
    if (text.size() < length)
        return 0;
    for (std::size_t i = 1; i < length; ++i)
        if (!IsTrail(text[i]))
            return 0;
    const char32_t value = DecodeUtf8(text, length);
    return value >= kSmallest[length] && IsCharacter(value) ? length : 0;
}

char32_t DecodeUtf8(std::string_view text, std::size_t length)
{
    static constexpr unsigned char kLeadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    char32_t value = static_cast<unsigned char>(text[0]) & kLeadBits[length];
    for (std::size_t i = 1; i < length; ++i)
        value = value << 6 | (static_cast<unsigned char>(text[i]) & 0x3F);
    return value;
}

void AppendUtf8(std::string& text, char32_t character)
{
    const auto trail = [&](int shift) { text += static_cast<char>(0x80 | (character >> shift & 0x3F)); };
    if (!IsCharacter(character))
    {
        text += '?';
    }
    else if (character < 0x80)
    {
        text += static_cast<char>(character);
    }
    else if (character < 0x800)
    {
        text += static_cast<char>(0xC0 | character >> 6);
        trail(0);
    }
    else if (character < 0x10000)
    {
        text += static_cast<char>(0xE0 | character >> 12);
        trail(6);
        trail(0);
    }
    else
    {
        text += static_cast<char>(0xF0 | character >> 18);
        trail(12);
        trail(6);
        trail(0);
    }
}

bool IsUtf8(std::string_view text)
{
    while (!text.empty())
    {
        const std::size_t length = Utf8Length(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string RepairedUtf8(std::string_view text)
{
    std::string repaired;
    while (!text.empty())
    {
        const std::size_t length = Utf8Length(text);
        if (length == 0)
            AppendUtf8(repaired, kReplacementCharacter);
        else
            repaired.append(text, 0, length);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return repaired;
}
