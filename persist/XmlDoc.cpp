#include "persist/XmlDoc.h"

#include "persist/XmlEntities.h"
#include "persist/XmlScanner.h"

namespace
{

constexpr std::string_view kCdata = "<![CDATA[";

} // namespace

CXmlDoc::CXmlDoc() : m_slots(kSpareSlots)
{}

std::string CXmlDoc::GetText() const
{
    return m_text;
}

const std::string& CXmlDoc::GetError() const
{
    return m_error;
}

bool CXmlDoc::HasRoot() const
{
    return m_slots[0].firstChild != 0;
}

void CXmlDoc::ResetPosition()
{
    m_current = 0;
    m_currentChild = 0;
    m_depth = 0;
}

bool CXmlDoc::FindNext(const char* name)
{
    const ElementSlot& current = m_slots[m_current];
    const std::int32_t found = FindNamed(m_current ? current.nextSibling : current.firstChild, ViewOf(name));
    if (!found)
        return false;
    m_current = found;
    m_currentChild = 0;
    return true;
}

bool CXmlDoc::FindNextChild(const char* name)
{
    if (!m_current && !FindNext())
        return false;
    if (IsSelfClosed(m_current))
        return false;
    const std::int32_t next = m_currentChild ? m_slots[m_currentChild].nextSibling : m_slots[m_current].firstChild;
    const std::int32_t found = FindNamed(next, ViewOf(name));
    if (!found)
        return false;
    m_currentChild = found;
    return true;
}

bool CXmlDoc::EnterChild()
{
    if (!m_currentChild && !FindNextChild())
        return false;
    m_current = m_currentChild;
    m_currentChild = 0;
    ++m_depth;
    return true;
}

bool CXmlDoc::LeaveElement()
{
    if (!m_current || m_depth < 1)
        return false;
    m_currentChild = m_current;
    m_current = m_slots[m_current].parent;
    --m_depth;
    return true;
}

std::string CXmlDoc::GetChildText() const
{
    return m_currentChild ? ReadText(m_currentChild) : std::string();
}

std::string CXmlDoc::GetChildAttribute(const char* name) const
{
    return m_currentChild ? ReadAttribute(m_currentChild, ViewOf(name)) : std::string();
}

std::vector<ElementSlot> CXmlDoc::GetSlots() const
{
    return {m_slots.begin(), m_slots.begin() + m_freeSlot};
}

bool CXmlDoc::IsSelfClosed(std::int32_t slot) const
{
    return m_slots[slot].tagEnd == m_slots[slot].closeStart + 1;
}

std::string_view CXmlDoc::ElementName(std::int32_t slot) const
{
    const CXmlScanner scanner(m_text);
    XmlToken token(m_slots[slot].tagStart + 1);
    return scanner.NextToken(token) ? scanner.TokenText(token) : std::string_view();
}

// The first element of that name from `slot` on along the siblings, 0 for none.
std::int32_t CXmlDoc::FindNamed(std::int32_t slot, std::string_view wanted) const
{
    while (slot && !wanted.empty() && ElementName(slot) != wanted)
        slot = m_slots[slot].nextSibling;
    return slot;
}

std::string CXmlDoc::ReadText(std::int32_t slot) const
{
    const ElementSlot& element = m_slots[slot];
    if (element.firstChild || IsSelfClosed(slot))
        return {};
    const auto content = std::string_view(m_text).substr(element.tagEnd + 1, element.closeStart - element.tagEnd - 1);
    const std::size_t first = content.find_first_not_of(" \t\n\r");
    if (first != content.npos && first + 11 < content.size() && content.substr(first).starts_with(kCdata))
    {
        const std::size_t start = first + kCdata.size();
        const std::size_t end = content.find("]]>", start);
        if (end != content.npos)
            return std::string(content.substr(start, end - start));
    }
    return DecodeText(content);
}

std::string CXmlDoc::ReadAttribute(std::int32_t slot, std::string_view name) const
{
    const CXmlScanner scanner(m_text);
    XmlToken token(m_slots[slot].tagStart + 1);
    return scanner.FindAttribute(name, token) ? DecodeText(scanner.TokenText(token)) : std::string();
}

// Null is an empty text.
std::string_view CXmlDoc::ViewOf(const char* text)
{
    return text ? text : "";
}
