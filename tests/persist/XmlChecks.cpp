#include "tests/persist/XmlChecks.h"

#include "platform/text/Mbcs.h"

#include <algorithm>

namespace
{

constexpr const char* kPairName = "\x83\x5C"; // one character in 936 and 932, its second byte a backslash
constexpr const char* kNames[] = {"a", "Item", "n-2", kPairName};
constexpr const char* kValues[] = {"",
                                   "text",
                                   "<&>'\"",
                                   "&lt;&amp;amp;&#65;&",
                                   " two\r\nlines ",
                                   "<![CDATA[x]]>",
                                   "\x83\x5C\"\xD6\xD0\\",
                                   "cut \x81",
                                   "caf\xC3\xA9\x80",
                                   "'</a>/>"};

bool IsOnePair(const char* text)
{
    return CharNextA(text) == text + 2;
}

std::string FaultOfPlaces(const CXmlDoc& doc)
{
    const auto length = static_cast<std::int32_t>(doc.GetText().size());
    const std::vector<ElementSlot> elements = InDocumentOrder(doc);
    if (elements.size() + 1 != doc.GetSlots().size())
        return "a slot in use is no element of the document";
    for (const ElementSlot& e : elements)
    {
        if (e.tagStart < 0 || e.tagEnd <= e.tagStart || e.closeStart < e.tagEnd - 1 || e.closeEnd < e.closeStart ||
            e.nextStart < e.closeEnd || e.nextStart > length)
            return "an element lies outside of the text";
    }
    return {};
}

std::string FaultOfReparse(const CXmlDoc& doc)
{
    CXmlDoc fresh;
    if (!fresh.SetText(doc.GetText().c_str()))
        return "the text does not parse: " + fresh.GetError();
    return InDocumentOrder(fresh) == InDocumentOrder(doc) ? "" : "the places are not those of a fresh parse";
}

// Takes bytes from the front; 0 when there are no more.
class Chooser
{
public:
    explicit Chooser(std::string_view bytes) : m_bytes(bytes)
    {}
    bool IsOver() const
    {
        return m_bytes.empty();
    }
    std::size_t Choose(std::size_t count)
    {
        const std::size_t chosen = m_bytes.empty() ? 0 : static_cast<unsigned char>(m_bytes[0]) % count;
        m_bytes.remove_prefix(!m_bytes.empty());
        return chosen;
    }
    std::string Name()
    {
        const char* name = kNames[Choose(std::size(kNames))];
        return name == kPairName && !IsOnePair(name) ? "z" : name;
    }
    std::string Value()
    {
        return kValues[Choose(std::size(kValues))];
    }

private:
    std::string_view m_bytes;
};

class Editor
{
public:
    Editor(CXmlDoc& doc, std::string_view bytes, bool bPlain)
        : m_doc(doc), m_choice(bytes), m_bBuilt(!doc.HasRoot()), m_bPlain(bPlain || m_bBuilt)
    {}

    EditReport Run()
    {
        m_report.fault = FaultOfPlaces(m_doc);
        while (!m_choice.IsOver() && m_report.fault.empty())
        {
            if (!Step() || !m_report.fault.empty())
                continue;
            ++m_report.edits;
            m_report.fault = FaultOfPlaces(m_doc);
            if (m_report.fault.empty() && m_bPlain)
                m_report.fault = FaultOfReparse(m_doc);
        }
        return m_report;
    }

private:
    // True if it has changed the text.
    bool Step()
    {
        const std::string name = m_choice.Name();
        switch (m_choice.Choose(9))
        {
        case 0:
            return m_doc.AppendElement(name.c_str(), m_choice.Value().c_str());
        case 1:
        case 2:
            return AppendChild(name);
        case 3:
            return AddAttribute();
        case 4:
            m_doc.EnterChild();
            return false;
        case 5:
            m_doc.LeaveElement();
            return false;
        case 6:
            m_doc.FindNext();
            return false;
        case 7:
            m_doc.FindNextChild(name.c_str());
            return false;
        default:
            m_doc.ResetPosition();
            return false;
        }
    }

    bool AppendChild(const std::string& name)
    {
        const std::string value = m_choice.Value();
        if (!m_doc.AppendChild(name.c_str(), value.c_str()))
            return false;
        if (m_doc.GetChildText() != value)
            m_report.fault = "text read back as " + m_doc.GetChildText();
        return true;
    }

    bool AddAttribute()
    {
        const std::string name = "k" + std::to_string(m_attributes++);
        const std::string value = m_choice.Value();
        if (!m_doc.AddChildAttribute(name.c_str(), value.c_str()))
            return false;
        if (m_bBuilt && m_doc.GetChildAttribute(name.c_str()) != value)
            m_report.fault = "attribute read back as " + m_doc.GetChildAttribute(name.c_str());
        return true;
    }

    CXmlDoc& m_doc;
    Chooser m_choice;
    const bool m_bBuilt;
    const bool m_bPlain;
    int m_attributes = 0;
    EditReport m_report;
};

} // namespace

std::vector<ElementSlot> InDocumentOrder(const CXmlDoc& doc)
{
    const std::vector<ElementSlot> slots = doc.GetSlots();
    std::vector<ElementSlot> ordered;
    std::vector<std::int32_t> numbers(slots.size());
    for (std::int32_t slot = slots[0].firstChild; slot && ordered.size() < slots.size();)
    {
        ordered.push_back(slots[slot]);
        numbers[slot] = static_cast<std::int32_t>(ordered.size());
        const std::int32_t child = slots[slot].firstChild;
        while (!child && slot && !slots[slot].nextSibling)
            slot = slots[slot].parent;
        slot = child ? child : slots[slot].nextSibling;
    }
    for (ElementSlot& element : ordered)
    {
        for (std::int32_t* link : {&element.parent, &element.firstChild, &element.nextSibling})
            *link = numbers[*link];
    }
    return ordered;
}

std::size_t ReadAll(CXmlDoc& doc)
{
    const std::size_t tooMany = doc.GetSlots().size();
    doc.ResetPosition();
    std::size_t count = doc.FindNext();
    while (count && count < tooMany)
    {
        if (doc.FindNextChild())
        {
            ++count;
            doc.GetChildText();
            doc.GetChildAttribute("");
            doc.GetChildAttribute("k");
            doc.EnterChild();
        }
        else if (!doc.LeaveElement())
        {
            break;
        }
    }
    return count;
}

EditReport EditAsChosen(CXmlDoc& doc, std::string_view bytes, bool bPlain)
{
    return Editor(doc, bytes, bPlain).Run();
}
