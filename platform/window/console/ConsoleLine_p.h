// What the console shows of a window, as text: pure, the code page is an argument.
#pragma once

#include "platform/Types.h"

#include <string>
#include <string_view>
#include <vector>

// What a window tells of the item in hand, as byte text.
struct ConsoleFields
{
    std::vector<std::string> item;    // what may be cut
    std::vector<std::string> figures; // what stays whole
};

// Byte text of pages and servers as text that steers no terminal: a control character, a mark that turns the writing
// direction and a byte that starts no character become U+FFFD, or "?" where the page lacks it.
std::string CleanText(UINT page, std::string_view bytes);

// The same with its line ends as blanks.
std::string CleanParagraph(UINT page, std::string_view bytes);

// The fields that are not empty, cleaned, with two blanks between them, in at most `columns` of a terminal; 0 sets no
// limit. What is too long loses its middle, the longest first. Where even that is too wide the fields go from the
// front, and the last one is the percent.
std::string ConsoleLine(UINT page, const ConsoleFields& fields, int columns);
