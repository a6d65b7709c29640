// Byte text that may hold multi-byte characters of the system's code page (see CodePage.h). Any thread may call.
#pragma once

#include <string>

// Exact, case-sensitive comparison character by character: below 0, 0 or above 0, as strcmp answers.
int _mbscmp(const char* left, const char* right);

// The text in lower case, for comparing without regard to it; the published operation works in place, which texts whose
// length changes do not allow. Bytes that are no text of the code page stay as they are.
std::string CharLowerA(const std::string& text);

// The start of the character behind the one at `at`; `at` itself at the terminating zero. A lead byte with no
// trail byte behind it counts as a character of one byte, so the walk never passes the end.
const char* CharNextA(const char* at);
