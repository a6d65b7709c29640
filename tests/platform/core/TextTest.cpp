#include "platform/system/LastError.h"
#include "platform/text/CodePage.h"
#include "platform/text/CodePage_p.h"

#include <gtest/gtest.h>

namespace
{

TEST(CodePage, ComesFromTheOverrideOrTheLocale)
{
    const std::tuple<const char*, const char*, UINT> rows[] = {
        {nullptr, "UTF-8", 65001},
        {nullptr, "GB18030", 936},
        {nullptr, "EUC-JP", 932},
        {nullptr, "ISO-8859-1", 1252},
        {nullptr, "ANSI_X3.4-1968", 65001},
        {"950", "UTF-8", 950},
        {"437", "UTF-8", 65001},
        {"", "EUC-KR", 949},
    };
    for (const auto& [named, locale, page] : rows)
        EXPECT_EQ(ChooseCodePage(named, locale), page) << locale;
}

TEST(CodePage, ConvertsBothWays)
{
    const std::tuple<UINT, const char*, const char*> rows[] = {
        {65001, "caf\xC3\xA9 \xE4\xB8\xAD \xF0\x9F\x98\x80", "caf\xC3\xA9 \xE4\xB8\xAD \xF0\x9F\x98\x80"},
        {936, "\xD6\xD0\xB9\xFA.jpg", "\xE4\xB8\xAD\xE5\x9B\xBD.jpg"},
        {932, "\x93\xFA\x96\x7B \xB1 \x83\x5C", "\xE6\x97\xA5\xE6\x9C\xAC \xEF\xBD\xB1 \xE3\x82\xBD"},
        {949, "\xC7\xD1", "\xED\x95\x9C"},
        {950, "\xA4\xA4", "\xE4\xB8\xAD"},
        {1252, "na\xEFve \x80", "na\xC3\xAFve \xE2\x82\xAC"},
        {936, "", ""},
    };
    for (const auto& [page, bytes, utf8] : rows)
    {
        EXPECT_EQ(CodePageToUtf8(page, bytes), utf8);
        EXPECT_EQ(Utf8ToCodePage(page, utf8), bytes);
        EXPECT_EQ(WideToUtf8(Utf8ToWide(utf8)), utf8);
    }
}

TEST(CodePage, ReplacesWhatCannotBeConverted)
{
    // Stray trail, overlong form, surrogate, beyond the last character, cut end: each byte counts by itself.
    const std::tuple<UINT, const char*, const char*> rows[] = {
        {65001, "a\x80z", "a\uFFFDz"},
        {65001, "\xC0\xAF", "\uFFFD\uFFFD"},
        {65001, "\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
        {65001, "\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},
        {65001, "\xE4\xB8", "\uFFFD\uFFFD"},
        {936, "a\xD6", "a\uFFFD"},
        {932, "\xFFz", "\uFFFDz"},
    };
    for (const auto& [page, bytes, text] : rows)
        EXPECT_EQ(CodePageToUtf8(page, bytes), text);
    EXPECT_EQ(Utf8ToCodePage(1252, "\xE4\xB8\xAD!\xF0\x9F\x98\x80"), "?!?");
    EXPECT_EQ(Utf8ToCodePage(936, "x\xF0\x9F\x98\x80\xE4\xB8\xAD"), "x?\xD6\xD0");
}

TEST(CodePage, WideTextWithSurrogates)
{
    const std::pair<std::vector<unsigned>, const char*> rows[] = {{{0xD83D, 0xDE00}, "\xF0\x9F\x98\x80"},
                                                                  {{0xD83D, 'a', 0xDE00}, "?a?"},
                                                                  {{0xD83D}, "?"},
                                                                  {{0xFFFFFFFF, 0x110000}, "??"}};
    for (const auto& [units, text] : rows)
        EXPECT_EQ(WideToUtf8(std::wstring(units.begin(), units.end())), text);
    EXPECT_EQ(Utf8ToWide("\xFF"), L"\uFFFD");
}

TEST(CodePage, WideTextIntoARoom)
{
    wchar_t wide[8] = {};
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "abc", -1, nullptr, 0), 4);
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "abc", -1, wide, 4), 4);
    EXPECT_EQ(std::wstring(wide), L"abc");
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "xyz", 2, wide, 8), 2);
    EXPECT_EQ(std::wstring(wide), L"xyc");
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "abc", -1, wide, 3), 0);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "abc", -2, wide, 8), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST(Mbcs, StepsByCharacter)
{
    const std::tuple<UINT, const char*, int> rows[] = {
        {65001, "", 0},         {65001, "ab", 1},         {65001, "\xC3\xA9x", 2},
        {65001, "\xC3", 1},     {65001, "\xE4\xB8", 1},   {65001, "\xF0\x9F\x98\x80", 4},
        {65001, "\x80\x80", 1}, {936, "\xD6\xD0", 2},     {936, "\xD6", 1},
        {936, "\xD6\"", 1},     {932, "\x83\x5C", 2},     {932, "\xB1\x41", 1},
        {949, "\xC7\xD1", 2},   {950, "\xA4\x5C\x5C", 2}, {1252, "\xD6\xD0", 1},
    };
    for (const auto& [page, text, step] : rows)
        EXPECT_EQ(NextCharacter(page, text) - text, step) << page << ' ' << text;
}

TEST(Mbcs, ComparesByCharacter)
{
    EXPECT_EQ(CompareCharacters(65001, "http://a/\xC3\xA9", "http://a/\xC3\xA9"), 0);
    EXPECT_LT(CompareCharacters(65001, "A", "a"), 0);
    EXPECT_GT(CompareCharacters(65001, "ab", "a"), 0);
    EXPECT_GT(CompareCharacters(65001, "\xE4\xB8\xAD", "z"), 0);
    // A half-width sign stands before every pair, though its byte is the greater one.
    EXPECT_LT(CompareCharacters(932, "\xB1", "\x83\x5C"), 0);
    EXPECT_LT(CompareCharacters(936, "\xD6\xD0", "\xD6\xD1"), 0);
    EXPECT_GT(CompareCharacters(936, "\xD6\xD0", "\xD6"), 0);
    EXPECT_EQ(CompareCharacters(950, "", ""), 0);
}

} // namespace
