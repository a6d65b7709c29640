// The tokens of an XML text: what stands between blanks and delimiters, a quoted string as one token.
//
// Offsets are bytes from the start of the text and lie in 0 to its length.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The scan so far: its last token and where it goes on.
struct XmlToken
{
    explicit XmlToken(std::int32_t from) : next(from)
    {}

    std::int32_t start = 0;
    std::int32_t end = -1; // inclusive; below the start for an empty quoted string
    std::int32_t next;
    bool quoted = false; // start and end are those of the text between the quotes
};

// Looks at a text that outlives it and has no embedded zeros. Cheap to make.
class CXmlScanner
{
public:
    explicit CXmlScanner(const std::string& text) : m_text(text)
    {}

    // The next token from token.next on. False if there is none, which leaves start and end as they were, and also if
    // the token reaches up to the end of the text.
    bool NextToken(XmlToken& token) const;
    std::string_view TokenText(const XmlToken& token) const;

    // Moves `at` to the first such character from there on, or to the end of the text: false. Not for characters from
    // "@" on, which may be the second byte of another one.
    bool ScanToChar(std::int32_t& at, char wanted) const;
    // Moves `at` to the first occurrence from there on, without a look at quotes or characters; false if there is none.
    bool FindPattern(std::int32_t& at, std::string_view pattern) const;

    // Moves the token, which starts behind the "<" of a start tag, to the value of the attribute: its name, "=" and a
    // string in double quotes. An empty name finds the name of the first attribute.
    bool FindAttribute(std::string_view name, XmlToken& token) const;

private:
    std::int32_t SkipBlanks(std::int32_t at) const;
    std::int32_t SkipWord(std::int32_t at) const;
    bool HasCharAt(std::int32_t at) const;

    const std::string& m_text;
};
