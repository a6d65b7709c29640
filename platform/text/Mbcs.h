// Byte text that may hold multi-byte characters of the system's code page (see CodePage.h). Any thread may call.
#pragma once

// Exact, case-sensitive comparison character by character: below 0, 0 or above 0, as strcmp answers.
int _mbscmp(const char* left, const char* right);

// The start of the character behind the one at `at`; `at` itself at the terminating zero. A lead byte with no
// trail byte behind it counts as a character of one byte, so the walk never passes the end.
const char* CharNextA(const char* at);
