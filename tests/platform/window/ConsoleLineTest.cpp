// What of a window's texts reaches a console, and how much of it.
#include "platform/window/console/ConsoleLine_p.h"

#include <gtest/gtest.h>

TEST(ConsoleLine, HoldsBackWhatWouldSteerATerminal)
{
    const std::tuple<UINT, std::string, const char*> rows[] = {
        {65001, "a\x1b]0;x\x07z", "a\uFFFD]0;x\uFFFDz"},
        {65001, "a\rb\nc\x7f", "a\uFFFDb\uFFFDc\uFFFD"},
        {65001, "\u009b2J", "\uFFFD2J"},                 // a control of two bytes
        {65001, "\x9bJ\xe4\xb8", "\uFFFDJ\uFFFD\uFFFD"}, // the same as a broken byte, and a cut character
        {65001, "\u202egpj.exe\u2028", "\uFFFDgpj.exe\uFFFD"},
        {65001, "无标题 é 😀", "无标题 é 😀"},
        {936, "\xce\xde\x1b\xff\xce", "\xce\xde???"},
        {932, "\x83\x5c\x07", "\x83\x5c?"}, // a trail byte that looks like a backslash
        {1252, "caf\xe9\x9d\x0b", "caf\xe9??"},
    };
    for (const auto& [page, bytes, clean] : rows)
        EXPECT_EQ(CleanText(page, bytes), clean) << page << " " << bytes;
    EXPECT_EQ(CleanText(65001, std::string("a\0b", 3)), "a\uFFFDb");
    EXPECT_EQ(CleanParagraph(65001, "Folder x.\r\nTry again.\n\n\tNow\n"), "Folder x. Try again. \uFFFDNow ");
}

TEST(ConsoleLine, FitsTheTerminal)
{
    using Fields = std::vector<std::string>;
    const Fields figures{"123 Bytes", "45% Complete"}; // 23 columns with their gap
    const std::tuple<UINT, int, Fields, Fields, const char*> rows[] = {
        {65001, 0, {"host", "/a"}, figures, "host  /a  123 Bytes  45% Complete"},
        {65001, 0, {"", "/a"}, {"", ""}, "/a"},
        {65001, 33, {"host", "/a"}, figures, "host  /a  123 Bytes  45% Complete"},
        // The longest gives way, and the room of short ones is not lost.
        {65001, 40, {"host", "/a/b/c/d/e/f/g.jpg"}, figures, "host  /a/b….jpg  123 Bytes  45% Complete"},
        {65001, 40, {"0123456789", "abcdefghijkl"}, figures, "012…89  abc…kl  123 Bytes  45% Complete"},
        // Where nothing is left to cut, fields go from the front; the percent is the last.
        {65001, 30, {"host", "0123456789"}, figures, "01…89  123 Bytes  45% Complete"},
        {65001, 25, {"host", "0123456789"}, figures, "123 Bytes  45% Complete"},
        {65001, 20, {"host", "0123456789"}, figures, "45% Complete"},
        {65001, 6, {"host"}, figures, "45%…te"},
        {65001, 1, {"host"}, figures, "…"},
        // Wide characters take two columns, half of one is never shown.
        {65001, 7, {"无标题无标题"}, {}, "无…标题"},
        {65001, 8, {"无标题无标题"}, {}, "无标…题"},
        {936, 8, {"\xce\xde\xce\xde\xce\xde\xce\xde\xce\xde"}, {}, "\xce\xde\xa1\xad\xce\xde\xce\xde"},
        {1252, 5, {"ca\xe9 ca\xe9"}, {}, "ca\x85\x61\xe9"},
    };
    for (const auto& [page, columns, item, ends, line] : rows)
        EXPECT_EQ(ConsoleLine(page, {item, ends}, columns), line) << columns;
    const std::string huge(1 << 20, 'x');
    EXPECT_EQ(ConsoleLine(65001, {{huge}, figures}, 80).size(), 80 + std::string("…").size() - 1);
    EXPECT_EQ(ConsoleLine(65001, {{huge}, {}}, 0).size(), huge.size());
}
