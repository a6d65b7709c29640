#include "platform/window/console/ConsoleLine_p.h"

#include "platform/text/CodePage_p.h"
#include "platform/text/Utf8_p.h"

#include <algorithm>
#include <numeric>

namespace
{

using Characters = std::u32string;
using CharactersView = std::u32string_view;

constexpr std::string_view kGap = "  ";
constexpr char32_t kEllipsis = U'…';
constexpr int kLeastCut = 5; // columns of a field that has lost its middle

struct Range
{
    char32_t first;
    char32_t last;
};

// Controls, line and paragraph separators, and what changes the writing direction.
constexpr Range kSteering[] = {{0, 0x1F},        {0x7F, 0x9F},     {0x061C, 0x061C}, {0x200E, 0x200F},
                               {0x2028, 0x202E}, {0x2066, 0x2069}, {0xFEFF, 0xFEFF}};

// What terminals show two columns wide, by the blocks of Unicode.
constexpr Range kWide[] = {
    {0x1100, 0x115F}, {0x231A, 0x231B}, {0x23E9, 0x23F3},   {0x2600, 0x27BF},   {0x2B1B, 0x2B55},   {0x2E80, 0x303E},
    {0x3041, 0xA4CF}, {0xA960, 0xA97F}, {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},   {0xFE10, 0xFE19},   {0xFE30, 0xFE6F},
    {0xFF00, 0xFF60}, {0xFFE0, 0xFFE6}, {0x16FE0, 0x18DFF}, {0x1AFF0, 0x1B2FF}, {0x1F000, 0x1FAFF}, {0x20000, 0x3FFFD}};

template <std::size_t N>
bool IsIn(const Range (&ranges)[N], char32_t character)
{
    return std::ranges::any_of(
        ranges, [character](const Range& range) { return range.first <= character && character <= range.last; });
}

Characters Clean(UINT page, std::string_view bytes)
{
    const std::string utf8 = CodePageToUtf8(page, bytes);
    Characters clean;
    for (std::string_view rest = utf8; !rest.empty();)
    {
        const std::size_t length = Utf8Length(rest);
        const char32_t character = DecodeUtf8(rest, length);
        clean += IsIn(kSteering, character) ? kReplacementCharacter : character;
        rest.remove_prefix(length);
    }
    return clean;
}

std::string Encode(UINT page, CharactersView characters)
{
    std::string utf8;
    for (const char32_t character : characters)
        AppendUtf8(utf8, character);
    return Utf8ToCodePage(page, utf8);
}

// At most what a terminal needs: a combining mark counts too, and in the double-byte pages all that is not ASCII is
// taken for a pair.
int ColumnsOf(UINT page, char32_t character)
{
    if (page == kCodePageUtf8)
        return IsIn(kWide, character) ? 2 : 1;
    return page == 1252 || character < 0x80 ? 1 : 2;
}

int ColumnsOf(UINT page, CharactersView characters)
{
    return std::accumulate(characters.begin(), characters.end(), 0,
                           [page](int sum, char32_t c) { return sum + ColumnsOf(page, c); });
}

// How many of the characters, from the iterator on, fit into the room, which becomes what is left of it.
template <class Iterator>
std::size_t CountFitting(UINT page, Iterator first, Iterator last, int& room)
{
    std::size_t count = 0;
    for (; first != last && ColumnsOf(page, *first) <= room; ++first, ++count)
        room -= ColumnsOf(page, *first);
    return count;
}

Characters WithoutMiddle(UINT page, CharactersView text, int room)
{
    if (ColumnsOf(page, text) <= room)
        return Characters(text);
    room -= ColumnsOf(page, kEllipsis);
    if (room < 0)
        return {};
    int headRoom = room - room / 2;
    room /= 2;
    const std::size_t head = CountFitting(page, text.begin(), text.end(), headRoom);
    room += headRoom;
    const std::size_t tail = CountFitting(page, text.rbegin(), text.rend(), room);
    return Characters(text.substr(0, head)) + kEllipsis + Characters(text.substr(text.size() - tail));
}

class Line
{
public:
    Line(UINT page, const ConsoleFields& fields) : m_page(page)
    {
        for (const std::string& text : fields.item)
            Add(text, true);
        for (const std::string& text : fields.figures)
            Add(text, false);
    }

    void Fit(int columns);
    std::string Text() const;

private:
    struct Field
    {
        Characters text;
        int width;
        bool mayBeCut;

        int Least() const
        {
            return mayBeCut ? std::min(width, kLeastCut) : width;
        }
    };

    void Add(const std::string& bytes, bool mayBeCut)
    {
        if (bytes.empty())
            return;
        Characters text = Clean(m_page, bytes);
        const int width = ColumnsOf(m_page, text);
        m_fields.push_back({std::move(text), width, mayBeCut});
    }
    int GapColumns() const
    {
        return static_cast<int>(kGap.size()) * (static_cast<int>(m_fields.size()) - 1);
    }
    int LeastColumns() const
    {
        return std::accumulate(m_fields.begin(), m_fields.end(), GapColumns(),
                               [](int sum, const Field& field) { return sum + field.Least(); });
    }
    // The width that no field that may be cut is to pass, so that they share the room evenly.
    int WidestAllowed(int columns) const;

    const UINT m_page;
    std::vector<Field> m_fields;
};

void Line::Fit(int columns)
{
    while (m_fields.size() > 1 && LeastColumns() > columns)
        m_fields.erase(m_fields.begin());
    if (m_fields.size() == 1)
        m_fields.front().mayBeCut = true;
    const int widest = WidestAllowed(columns);
    for (Field& field : m_fields)
    {
        if (field.mayBeCut)
            field.text = WithoutMiddle(m_page, field.text, widest);
    }
}

int Line::WidestAllowed(int columns) const
{
    int room = columns - GapColumns();
    std::vector<int> widths;
    for (const Field& field : m_fields)
    {
        if (field.mayBeCut)
            widths.push_back(field.width);
        else
            room -= field.width;
    }
    std::ranges::sort(widths);
    int sharing = static_cast<int>(widths.size());
    for (const int width : widths)
    {
        if (width > room / sharing)
            return room / sharing;
        room -= width;
        --sharing;
    }
    return columns;
}

std::string Line::Text() const
{
    std::string line;
    for (const Field& field : m_fields)
        line.append(line.empty() ? "" : kGap).append(Encode(m_page, field.text));
    return line;
}

} // namespace

std::string CleanText(UINT page, std::string_view bytes)
{
    return Encode(page, Clean(page, bytes));
}

std::string CleanParagraph(UINT page, std::string_view bytes)
{
    // No trail byte of any page is as small as a line end.
    std::string paragraph;
    for (const char byte : bytes)
    {
        if (byte != '\r' && byte != '\n')
            paragraph += byte;
        else if (!paragraph.empty() && paragraph.back() != ' ')
            paragraph += ' ';
    }
    return CleanText(page, paragraph);
}

std::string ConsoleLine(UINT page, const ConsoleFields& fields, int columns)
{
    Line line(page, fields);
    if (columns > 0)
        line.Fit(columns);
    return line.Text();
}
