// UTF-8, one character at a time.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

inline constexpr char32_t kReplacementCharacter = 0xFFFD;

// The length of the character that starts at text[0]: 1 to 4, or 0 if no well-formed character starts there (a stray
// byte, an overlong form, a surrogate, a cut end). `text` is not empty.
std::size_t Utf8Length(std::string_view text);
// The character of that length at text[0].
char32_t DecodeUtf8(std::string_view text, std::size_t length);
// A value that is no character (a surrogate, beyond U+10FFFF) appends "?".
void AppendUtf8(std::string& text, char32_t character);

bool IsUtf8(std::string_view text);
// Every byte that starts no character becomes U+FFFD.
std::string RepairedUtf8(std::string_view text);
