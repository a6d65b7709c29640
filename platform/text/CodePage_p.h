// The code page rules with the page as an argument: what CodePage.h and Mbcs.h do with the system's page.
#pragma once

#include "platform/Types.h"

#include <string>
#include <string_view>

inline constexpr UINT kCodePageUtf8 = 65001;

// The page for VANTROY_CODEPAGE (may be null) and the locale's character set. An override that is not offered is
// ignored; a character set without a page of its own counts as UTF-8.
UINT ChooseCodePage(const char* override, std::string_view charset);

std::string Utf8ToCodePage(UINT page, std::string_view utf8);
std::string CodePageToUtf8(UINT page, std::string_view bytes);
std::string WideToUtf8(std::wstring_view wide);
std::wstring Utf8ToWide(std::string_view utf8);

const char* NextCharacter(UINT page, const char* at);
int CompareCharacters(UINT page, const char* left, const char* right);
