#include "persist/XmlScanner.h"

#include "platform/text/Mbcs.h"

#include <algorithm>
#include <array>

namespace
{

enum CharClass : unsigned char
{
    InWord = 0,
    Blank,
    Delimiter,
};

constexpr std::array<CharClass, 256> kCharClasses = [] {
    std::array<CharClass, 256> classes{};
    for (const char blank : std::string_view(" \t\n\r"))
        classes[static_cast<unsigned char>(blank)] = Blank;
    for (const char delimiter : std::string_view("<>=\\/?!"))
        classes[static_cast<unsigned char>(delimiter)] = Delimiter;
    return classes;
}();

CharClass ClassOf(char byte)
{
    return kCharClasses[static_cast<unsigned char>(byte)];
}

} // namespace

bool CXmlScanner::NextToken(XmlToken& token) const
{
    token.quoted = false;
    token.next = SkipBlanks(token.next);
    if (!HasCharAt(token.next))
        return false;
    token.start = token.next;
    if (m_text[token.start] == '"')
    {
        token.next = ++token.start;
        const bool bClosed = ScanToChar(token.next, '"');
        token.end = token.next - 1;
        token.next += bClosed;
        token.quoted = true;
    }
    else
    {
        token.next = SkipWord(token.start);
        token.end = token.next - 1;
    }
    return HasCharAt(token.next);
}

std::string_view CXmlScanner::TokenText(const XmlToken& token) const
{
    return token.start > token.end ? std::string_view()
                                   : std::string_view(m_text).substr(token.start, token.end - token.start + 1);
}

bool CXmlScanner::ScanToChar(std::int32_t& at, char wanted) const
{
    at = static_cast<std::int32_t>(std::min(m_text.find(wanted, at), m_text.size()));
    return HasCharAt(at);
}

bool CXmlScanner::FindPattern(std::int32_t& at, std::string_view pattern) const
{
    const std::size_t found = m_text.find(pattern, at);
    if (found == std::string::npos)
        return false;
    at = static_cast<std::int32_t>(found);
    return true;
}

bool CXmlScanner::FindAttribute(std::string_view name, XmlToken& token) const
{
    std::int32_t matched = 0; // the number of the token that is the attribute's name; token 0 is the tag's
    for (std::int32_t count = 0; NextToken(token); ++count)
    {
        const char first = m_text[token.start];
        if (token.quoted)
        {
            if (matched != 0 && count == matched + 2)
                return true;
            continue;
        }
        if (first == '>' || first == '/')
            return false;
        if (first == '=' || matched != 0 || count == 0)
            continue;
        if (name.empty())
            return true;
        if (TokenText(token) == name)
            matched = count;
    }
    return false;
}

std::int32_t CXmlScanner::SkipBlanks(std::int32_t at) const
{
    while (ClassOf(m_text[at]) == Blank)
        ++at;
    return at;
}

// A delimiter is a word of its own. Only here can the second byte of a character be taken for a delimiter, the
// backslash; all others, and the quote, are smaller than any second byte.
std::int32_t CXmlScanner::SkipWord(std::int32_t at) const
{
    if (ClassOf(m_text[at]) == Delimiter)
        return at + 1;
    while (HasCharAt(at) && ClassOf(m_text[at]) == InWord)
    {
        const char* here = m_text.c_str() + at;
        at += static_cast<unsigned char>(*here) < 0x80 ? 1 : static_cast<std::int32_t>(CharNextA(here) - here);
    }
    return at;
}

bool CXmlScanner::HasCharAt(std::int32_t at) const
{
    return static_cast<std::size_t>(at) < m_text.size();
}
