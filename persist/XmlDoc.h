// The program's only XML reader and writer: one text, and one array with the places of its elements in it.
//
// Reading moves two cursors over the array and cuts substrings out of the text; writing splices text in and shifts
// every place behind it. Names, attributes and values are always taken from the text. The places after any sequence of
// writing equal those of a fresh parse of the same text.
//
// The text is byte text in the system's code page, stepped through character by character, so the second byte of a
// double-byte character is never taken for a quote or a bracket. Declarations, comments, document types and CDATA
// sections are passed over wherever an element could start. Elements may nest as deep as memory allows.
//
// An object is used by one thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

// Where an element stands: offsets in bytes from the start of the text, and slots of its relatives, 0 for none.
struct ElementSlot
{
    std::int32_t tagStart = 0;   // the "<" of the start tag
    std::int32_t tagEnd = 0;     // the ">" of the start tag
    std::int32_t closeStart = 0; // the "<" of the end tag; the "/" of a self-closed element, tagEnd - 1
    std::int32_t closeEnd = 0;   // the ">" of the end tag; tagEnd of a self-closed element
    std::int32_t nextStart = 0;  // the first "<" behind the element, or the text's length
    std::int32_t parent = 0;     // 0 for the root element
    std::int32_t firstChild = 0;
    std::int32_t nextSibling = 0;

    bool operator==(const ElementSlot&) const = default;
};

// A false result leaves the positions as they were, except where stated. A search goes forward from the present
// position alone, so elements are found in the order in which they stand in the text. Names are compared exactly; null
// or an empty name asks for the next element, whatever its name.
class CXmlDoc
{
public:
    CXmlDoc();
    virtual ~CXmlDoc() = default;

    // Replaces the document and parses it, up to the end of its root element. Null is an empty text; a text beyond 2 GB
    // cannot be held and counts as damaged. False if there is no root element or the text is damaged: the text stays,
    // and the document has no elements.
    bool SetText(const char* text);
    std::string GetText() const;
    // What the last failed parse found wrong; a later success does not clear it.
    const std::string& GetError() const;

    bool HasRoot() const;
    // Puts both positions before the root.
    void ResetPosition();
    // Moves the main position to the next sibling of that name, from before the root to the root.
    bool FindNext(const char* name = nullptr);
    // Moves the child position to the next child of that name; the main position first to the root if it is before it.
    bool FindNextChild(const char* name = nullptr);
    // The child, or the first child if there is no child position, becomes the main position.
    bool EnterChild();
    // Undoes EnterChild: the element that was left becomes the child position.
    bool LeaveElement();

    // Adds an element behind the main position and makes it the main position; the root of an empty document. False if
    // there is a root already and the main position is the root or before it. There is no child position afterwards,
    // whatever the result. A null or empty value makes a self-closed element.
    bool AppendElement(const char* name, const char* value = nullptr);
    // Adds a child behind the child position, or behind the last child, and makes it the child position.
    bool AppendChild(const char* name, const char* value = nullptr);
    // Adds an attribute behind those that the child has, without a look at their names.
    bool AddChildAttribute(const char* name, const char* value);

    // Of the child position, which must be set. Empty for an element with children, and for an attribute that is absent
    // or not in double quotes.
    std::string GetChildText() const;
    std::string GetChildAttribute(const char* name) const;

    // The slots in use; the first one is no element but the place of the root, as its firstChild.
    std::vector<ElementSlot> GetSlots() const;

private:
    bool IsSelfClosed(std::int32_t slot) const;
    std::string_view ElementName(std::int32_t slot) const;
    std::int32_t FindNamed(std::int32_t slot, std::string_view wanted) const;
    std::string ReadText(std::int32_t slot) const;
    std::string ReadAttribute(std::int32_t slot, std::string_view name) const;

    bool Parse();
    bool ParseStartTag(std::int32_t parent, std::int32_t& slot);
    bool ParseEndTag(std::int32_t slot);
    std::int32_t FinishElement(std::int32_t slot);
    bool Fail(std::string_view error, std::string_view name = {});

    std::int32_t InsertElement(std::int32_t parent, std::int32_t sibling, std::string_view name,
                               std::string_view value);
    void PlaceElement(std::int32_t slot, std::int32_t tagStart, std::size_t nameLength, std::size_t valueLength);
    bool InsertAttribute(std::int32_t slot, std::string_view name, std::string_view value);
    bool HasRoomFor(std::size_t length) const;
    void SpliceText(std::int32_t position, std::int32_t count, std::string_view inserted);
    void ShiftPositions(std::int32_t slot, std::int32_t shift);
    std::int32_t NextInDocument(std::int32_t slot, std::int32_t top, bool bAncestor) const;

    static std::string_view ViewOf(const char* text);
    void GrowSlots(std::size_t size);
    std::int32_t AllocateSlot();
    void ReleaseSlot();

    static constexpr std::size_t kMaxLength = std::numeric_limits<std::int32_t>::max();
    static constexpr std::size_t kSpareSlots = 8;

    std::string m_text;
    std::int32_t m_depth = 0; // calls of EnterChild that are open
    std::string m_error;
    std::vector<ElementSlot> m_slots;
    std::int32_t m_current = 0;
    std::int32_t m_currentChild = 0;
    std::int32_t m_freeSlot = 1; // the next one to hand out; those below are in use
};
