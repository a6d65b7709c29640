// Conversion between the byte text of the program and wide text, in the system's code page.
//
// The code page comes from the locale's character set (UTF-8 is 65001); VANTROY_CODEPAGE overrides it with
// one of 65001, 936, 932, 949, 950, 1252. It is read once. Any thread may call.
#pragma once

#include "platform/Types.h"

#include <string>
#include <string_view>

// The number of the system's code page, for instance 65001.
UINT GetACP();

// Wide text to byte text in the code page. A character that the code page lacks becomes "?"; never fails.
std::string WideToAnsi(std::wstring_view wide);
// Byte text in the code page to wide text. A byte that starts no character becomes U+FFFD; never fails.
std::wstring AnsiToWide(std::string_view bytes);

inline constexpr UINT CP_ACP = 0; // the system's code page

// AnsiToWide into the caller's `room` characters; only CP_ACP is offered, `flags` is not read. A `length` of -1 stands
// for a text up to its zero, which is converted too. The number of characters written, or needed for a room of 0; 0,
// with the last error set, for too little room or nothing to convert.
int MultiByteToWideChar(UINT codePage, DWORD flags, const char* bytes, int length, wchar_t* wide, int room);

// The same between UTF-8 and the code page: what the toolkit, the browser and files in UTF-8 speak.
std::string Utf8ToAnsi(std::string_view utf8);
std::string AnsiToUtf8(std::string_view bytes);
