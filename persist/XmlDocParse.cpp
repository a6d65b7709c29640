// The parse: from the text to the slots.

#include "persist/XmlDoc.h"
#include "persist/XmlScanner.h"

#include <new>

namespace
{

constexpr std::size_t kBytesPerSlot = 64; // that a document is expected to have

// What ends the tag whose first token starts at `at`.
std::string_view TagEndPattern(const std::string& text, std::int32_t at)
{
    if (text[at] == '?')
        return "?>";
    if (text[at] != '!')
        return ">";
    const char kind = text[at + 1];
    return kind == '[' ? "]]>" : kind == '-' ? "-->" : ">";
}

} // namespace

bool CXmlDoc::SetText(const char* text)
{
    const std::string_view given = ViewOf(text);
    m_freeSlot = 1;
    m_slots[0] = {};
    m_text.clear();
    ResetPosition();
    if (given.size() > kMaxLength)
    {
        m_error = "Text too long";
        return false;
    }
    bool bParsed = false;
    try
    {
        m_text = given;
        GrowSlots(m_text.size() / kBytesPerSlot + kSpareSlots);
        bParsed = !m_text.empty() && Parse();
    }
    catch (const std::bad_alloc&)
    {
        m_error = "Out of memory";
    }
    if (!bParsed)
    {
        m_slots[0] = {};
        m_freeSlot = 1;
    }
    return bParsed;
}

// Elements nest as deep as the text says, so the open ones are not kept on the stack: they are found by `parent`. While
// an element is open its closeStart tells how far it is read, and its nextStart holds its last child.
bool CXmlDoc::Parse()
{
    std::int32_t open = 0;
    do
    {
        std::int32_t started = 0;
        if (!ParseStartTag(open, started) || (!started && !ParseEndTag(open)))
            return false;
        open = started && !IsSelfClosed(started) ? started : FinishElement(started ? started : open);
    } while (open);
    return true;
}

// The next element of that parent, as far as its start tag; slot 0 if there is an end tag instead.
bool CXmlDoc::ParseStartTag(std::int32_t parent, std::int32_t& slot)
{
    slot = AllocateSlot();
    const CXmlScanner scanner(m_text);
    XmlToken token(m_slots[parent].closeStart);
    std::int32_t tagStart = 0;
    for (bool bElement = false; !bElement;)
    {
        tagStart = token.next;
        if (!scanner.ScanToChar(tagStart, '<'))
            return Fail("Element tag not found");
        m_slots[parent].closeStart = tagStart;
        token.next = tagStart + 1;
        if (!scanner.NextToken(token))
            return Fail("Abrupt end within tag");
        if (token.quoted)
            return Fail("Tag starts with quote");
        const char first = m_text[token.start];
        if (first == '/')
        {
            ReleaseSlot();
            slot = 0;
            return true;
        }
        bElement = first != '?' && first != '!';
        if (!scanner.FindPattern(token.next, TagEndPattern(m_text, token.start)))
            return Fail("End of tag not found");
    }
    ElementSlot& element = m_slots[slot];
    element.parent = parent;
    element.tagStart = tagStart;
    element.tagEnd = token.next;
    element.closeStart = m_text[token.next - 1] == '/' ? token.next - 1 : token.next + 1;
    element.closeEnd = token.next;
    return true;
}

// False if the end tag at the element's closeStart is not its own, without an error text if there is no element.
bool CXmlDoc::ParseEndTag(std::int32_t slot)
{
    if (!slot)
        return false;
    const CXmlScanner scanner(m_text);
    const std::string_view name = ElementName(slot);
    ElementSlot& element = m_slots[slot];
    if (!scanner.ScanToChar(element.closeStart, '<'))
        return Fail("End tag of %s element not found", name);
    XmlToken token(element.closeStart + 1);
    int count = 0;
    while (scanner.NextToken(token))
    {
        ++count;
        if (token.quoted)
            continue;
        if (count == 1 && m_text[token.start] != '/')
            return Fail("Expecting end tag of element %s", name);
        if (count == 2 && scanner.TokenText(token) != name)
            return Fail("End tag does not correspond to %s", name);
        if (m_text[token.start] == '>')
            break;
    }
    if (token.start > token.end || count < 2)
        return Fail("End tag not completed for element %s", name);
    element.closeEnd = token.start;
    return true;
}

// Links an element that is read to its end; the parse goes on in its parent, which is the answer.
std::int32_t CXmlDoc::FinishElement(std::int32_t slot)
{
    ElementSlot& element = m_slots[slot];
    element.nextStart = element.closeEnd;
    CXmlScanner(m_text).ScanToChar(element.nextStart, '<');
    ElementSlot& parent = m_slots[element.parent];
    (parent.firstChild ? m_slots[parent.nextStart].nextSibling : parent.firstChild) = slot;
    if (element.parent)
    {
        parent.nextStart = slot;
        parent.closeStart = element.closeEnd + 1;
    }
    return element.parent;
}

// Always false. The name stands where the text has "%s".
bool CXmlDoc::Fail(std::string_view error, std::string_view name)
{
    const std::size_t place = error.find("%s");
    m_error = error;
    if (place != error.npos)
        m_error.replace(place, 2, name);
    return false;
}
