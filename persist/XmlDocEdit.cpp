// Writing: new text is spliced in, and every place behind it is shifted.

#include "persist/XmlDoc.h"
#include "persist/XmlEntities.h"

#include <algorithm>

bool CXmlDoc::AppendElement(const char* name, const char* value)
{
    m_currentChild = 0;
    const std::int32_t parent = m_slots[m_current].parent;
    if (!parent)
    {
        if (HasRoot())
            return false;
        m_text.clear();
    }
    const std::int32_t slot = InsertElement(parent, m_current, ViewOf(name), ViewOf(value));
    if (!slot)
        return false;
    m_current = slot;
    return true;
}

bool CXmlDoc::AppendChild(const char* name, const char* value)
{
    if (!m_current)
        return false;
    std::int32_t sibling = m_currentChild ? m_currentChild : m_slots[m_current].firstChild;
    while (!m_currentChild && m_slots[sibling].nextSibling)
        sibling = m_slots[sibling].nextSibling;
    const std::int32_t slot = InsertElement(m_current, sibling, ViewOf(name), ViewOf(value));
    if (!slot)
        return false;
    m_currentChild = slot;
    return true;
}

bool CXmlDoc::AddChildAttribute(const char* name, const char* value)
{
    return m_currentChild && InsertAttribute(m_currentChild, ViewOf(name), ViewOf(value));
}

// The new slot, 0 if the text would become too long. The sibling is the one to follow; without one, the parent has no
// children yet.
std::int32_t CXmlDoc::InsertElement(std::int32_t parent, std::int32_t sibling, std::string_view name,
                                    std::string_view value)
{
    const std::string written = EncodeText(value, false);
    std::string inserted = "<" + std::string(name);
    inserted += written.empty() ? "/>\r\n" : ">" + written + "</" + std::string(name) + ">\r\n";
    // A self-closed parent gets an end tag, whose ">" is the one that it has.
    const bool bOpenUp = !sibling && IsSelfClosed(parent);
    const std::string parentName = bOpenUp ? std::string(ElementName(parent)) : std::string();
    if (bOpenUp)
        inserted = ">\r\n" + inserted + "</" + parentName;
    if (!HasRoomFor(inserted.size()))
        return 0;

    const std::int32_t slot = AllocateSlot();
    ElementSlot& above = m_slots[parent];
    std::int32_t& link = sibling ? m_slots[sibling].nextSibling : above.firstChild;
    const std::int32_t start = sibling ? m_slots[sibling].nextStart : bOpenUp ? above.tagEnd + 2 : above.closeStart;
    PlaceElement(slot, start, name.size(), written.size());
    m_slots[slot].parent = parent;
    m_slots[slot].nextSibling = link;
    link = slot;
    if (bOpenUp)
    {
        // The shift brings these right.
        above.tagEnd -= 1;
        above.closeStart -= static_cast<std::int32_t>(parentName.size() + 1);
    }
    SpliceText(bOpenUp ? start - 3 : start, bOpenUp, inserted);
    ShiftPositions(slot, static_cast<std::int32_t>(inserted.size()) - bOpenUp);
    return slot;
}

// Where the parts of an element stand that is written at `tagStart`, with the line end behind it.
void CXmlDoc::PlaceElement(std::int32_t slot, std::int32_t tagStart, std::size_t nameLength, std::size_t valueLength)
{
    const auto name = static_cast<std::int32_t>(nameLength);
    const auto value = static_cast<std::int32_t>(valueLength);
    ElementSlot& element = m_slots[slot];
    element.tagStart = tagStart;
    element.tagEnd = tagStart + name + (value ? 1 : 2);
    element.closeStart = value ? element.tagEnd + value + 1 : element.tagEnd - 1;
    element.closeEnd = element.closeStart + (value ? name + 2 : 1);
    element.nextStart = element.closeEnd + 3;
}

bool CXmlDoc::InsertAttribute(std::int32_t slot, std::string_view name, std::string_view value)
{
    const std::string inserted = " " + std::string(name) + "=\"" + EncodeText(value, true) + "\"";
    if (!HasRoomFor(inserted.size()))
        return false;
    const auto shift = static_cast<std::int32_t>(inserted.size());
    ElementSlot& element = m_slots[slot];
    SpliceText(element.tagEnd - IsSelfClosed(slot), 0, inserted);
    element.tagEnd += shift;
    element.closeStart += shift;
    element.closeEnd += shift;
    element.nextStart += shift;
    ShiftPositions(slot, shift);
    return true;
}

bool CXmlDoc::HasRoomFor(std::size_t length) const
{
    return length <= kMaxLength - m_text.size();
}

void CXmlDoc::SpliceText(std::int32_t position, std::int32_t count, std::string_view inserted)
{
    const auto length = static_cast<std::int32_t>(m_text.size());
    position = std::clamp(position, 0, length);
    count = std::clamp(count, 0, length - position);
    m_text.replace(position, count, inserted);
}

// Shifts all that stands behind an edited element: the elements that follow it and its own children whole, its
// ancestors at their end.
void CXmlDoc::ShiftPositions(std::int32_t slot, std::int32_t shift)
{
    std::int32_t top = m_slots[slot].parent;
    while (slot)
    {
        const bool bAncestor = slot == top;
        if (bAncestor)
            top = m_slots[top].parent;
        slot = NextInDocument(slot, top, bAncestor);
        ElementSlot& element = m_slots[slot];
        if (slot != top)
        {
            element.tagStart += shift;
            element.tagEnd += shift;
        }
        element.closeStart += shift;
        element.closeEnd += shift;
        element.nextStart += shift;
    }
}

// The element behind that one in document order; `top` when all below it are done. The children of an ancestor have
// been passed already.
std::int32_t CXmlDoc::NextInDocument(std::int32_t slot, std::int32_t top, bool bAncestor) const
{
    if (!bAncestor && m_slots[slot].firstChild)
        return m_slots[slot].firstChild;
    while (slot && slot != top && !m_slots[slot].nextSibling)
        slot = m_slots[slot].parent;
    return slot && slot != top ? m_slots[slot].nextSibling : slot;
}

// New slots are zero. Exactly that many, where a vector would take twice its size.
void CXmlDoc::GrowSlots(std::size_t size)
{
    if (size <= m_slots.size())
        return;
    m_slots.reserve(size);
    m_slots.resize(size);
}

std::int32_t CXmlDoc::AllocateSlot()
{
    const auto size = static_cast<std::size_t>(m_freeSlot);
    if (size == m_slots.size())
        GrowSlots(size + size / 2);
    m_slots[m_freeSlot] = {};
    return m_freeSlot++;
}

// Of the slot that was handed out last.
void CXmlDoc::ReleaseSlot()
{
    --m_freeSlot;
}
