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

enum class Written
{
    Nothing,
    Element,
    Text,
    Attribute,
};

// Moves or writes; `key` is that of a new attribute.
Written Edit(CXmlDoc& doc, Chooser& choice, const std::string& key, std::string& value)
{
    const std::string name = choice.Name();
    const auto written = [](bool done, Written what) { return done ? what : Written::Nothing; };
    switch (choice.Choose(9))
    {
    case 0:
        return written(doc.AppendElement(name.c_str(), choice.Value().c_str()), Written::Element);
    case 1:
    case 2:
        value = choice.Value();
        return written(doc.AppendChild(name.c_str(), value.c_str()), Written::Text);
    case 3:
        value = choice.Value();
        return written(doc.AddChildAttribute(key.c_str(), value.c_str()), Written::Attribute);
    case 4:
        doc.EnterChild();
        break;
    case 5:
        doc.LeaveElement();
        break;
    case 6:
        doc.FindNext();
        break;
    case 7:
        doc.FindNextChild(name.c_str());
        break;
    default:
        doc.ResetPosition();
    }
    return Written::Nothing;
}

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
    const bool bBuilt = !doc.HasRoot();
    Chooser choice(bytes);
    EditReport report{0, FaultOfPlaces(doc)};
    while (!choice.IsOver() && report.fault.empty())
    {
        const std::string key = "k" + std::to_string(report.edits);
        std::string value;
        const Written written = Edit(doc, choice, key, value);
        if (written == Written::Nothing)
            continue;
        ++report.edits;
        report.fault = FaultOfPlaces(doc);
        if (written == Written::Text && doc.GetChildText() != value)
            report.fault = "text read back as " + doc.GetChildText();
        else if (written == Written::Attribute && bBuilt && doc.GetChildAttribute(key.c_str()) != value)
            report.fault = "attribute read back as " + doc.GetChildAttribute(key.c_str());
        else if (report.fault.empty() && (bPlain || bBuilt))
            report.fault = FaultOfReparse(doc);
    }
    return report;
}
