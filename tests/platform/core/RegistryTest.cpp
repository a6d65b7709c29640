#include "platform/system/Registry.h"
#include "platform/system/LastError.h"
#include "platform/testing/TempHome.h"

#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace
{

LONG Set(const std::string& key, const std::string& name, const std::string& text)
{
    HKEY handle = HKEY::Null;
    if (const LONG error = RegCreateKeyA(HKEY_CURRENT_USER, key.c_str(), &handle))
        return error;
    const LONG error = RegSetValueExA(handle, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                                      static_cast<DWORD>(text.size() + 1));
    RegCloseKey(handle);
    return error;
}

std::string Get(const std::string& key, const std::string& name)
{
    HKEY handle = HKEY::Null;
    if (RegOpenKeyA(HKEY_CURRENT_USER, key.c_str(), &handle) != ERROR_SUCCESS)
        return "(no key)";
    char text[1000] = {};
    DWORD size = sizeof text;
    const LONG error = RegQueryValueExA(handle, name.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size);
    RegCloseKey(handle);
    return error == ERROR_SUCCESS ? std::string(text, size - 1) : "(no value)";
}

TEST(Registry, AnyTextComesBack)
{
    const TempHome home;
    const std::vector<std::string> texts = {
        "",           "plain",  " blanks ", "a=b=c",        "[key]",        "#note",   "100%",       "%41",
        "two\nlines", "\r\n\t", "]",        "\x7F\x01\x1F", "\xD6\xD0\xFF", "[a]=#%0", "C:\\path\\", "\\lead"};
    for (const std::string& text : texts)
    {
        ASSERT_EQ(Set("Root\\Key" + text + "x", text, text), ERROR_SUCCESS);
        ASSERT_EQ(Set("Root\\Names", text, "value " + text), ERROR_SUCCESS);
    }
    for (const std::string& text : texts)
    {
        SCOPED_TRACE(text);
        EXPECT_EQ(Get("Root\\Key" + text + "x", text), text);
        EXPECT_EQ(Get("ROOT\\NAMES", text), "value " + text);
    }
    EXPECT_EQ(Set("Root\\Names", "PLAIN", "new"), ERROR_SUCCESS);
    EXPECT_EQ(Get("Root\\Names", "plain"), "new");
    EXPECT_EQ(Get("root", "x"), "(no value)");
    EXPECT_EQ(Get("Roo", "x"), "(no key)");
}

TEST(Registry, AnswersSizesAndErrors)
{
    const TempHome home;
    ASSERT_EQ(Set("Key", "name", "12345"), ERROR_SUCCESS);
    EXPECT_EQ(Get("Key\\none", "name"), "(no key)");
    HKEY key = HKEY::Null;
    EXPECT_EQ(RegOpenKeyA(HKEY_LOCAL_MACHINE, "Key", &key), static_cast<LONG>(ERROR_FILE_NOT_FOUND));
    ASSERT_EQ(RegOpenKeyA(HKEY_CURRENT_USER, "Key", &key), ERROR_SUCCESS);
    BYTE text[6] = {'x'};
    DWORD size = 5;
    DWORD type = 0;
    EXPECT_EQ(RegQueryValueExA(key, "name", nullptr, &type, text, &size), static_cast<LONG>(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_EQ(size, 6u);
    EXPECT_EQ(text[0], 'x');
    EXPECT_EQ(RegQueryValueExA(key, "name", nullptr, &type, text, &size), ERROR_SUCCESS);
    EXPECT_STREQ(reinterpret_cast<char*>(text), "12345");
    EXPECT_EQ(RegSetValueExA(key, "n", 0, 4, text, 4), static_cast<LONG>(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), static_cast<LONG>(ERROR_INVALID_HANDLE));
    EXPECT_EQ(RegQueryValueExA(key, "name", nullptr, nullptr, nullptr, &size), static_cast<LONG>(ERROR_INVALID_HANDLE));
}

TEST(Registry, DamagedLinesArePassedOverAndKept)
{
    const TempHome home;
    const std::string damaged = "no key above=1\n# note\n\n[open\nx=y\n]\n[Key]\r\nnonsense\nname=%4\n=\xFF\n";
    home.Write("registry-user.ini", damaged);
    EXPECT_EQ(Get("Key", "name"), "%4");
    EXPECT_EQ(Get("Key", ""), "\xFF");
    EXPECT_EQ(Get("open", "x"), "(no key)");
    ASSERT_EQ(Set("Key", "other", "1"), ERROR_SUCCESS);
    EXPECT_NE(home.Read("registry-user.ini").find("# note\n\n[open\nx=y\n]\n[Key]\n"), std::string::npos);
    EXPECT_NE(home.Read("registry-user.ini").find("nonsense\nname=%4\n"), std::string::npos);
}

TEST(Registry, WhatCannotBeReadIsNotReplaced)
{
    const TempHome home;
    home.Write("registry-user.ini/file", "");
    EXPECT_EQ(Set("Key", "name", "1"), static_cast<LONG>(ERROR_ACCESS_DENIED));
    const TempHome other;
    const std::string large(2 << 20, '#');
    other.Write("registry-user.ini", large);
    EXPECT_NE(Set("Key", "name", "1"), ERROR_SUCCESS);
    EXPECT_EQ(other.Read("registry-user.ini"), large);
}

TEST(Registry, WritersDoNotLoseEachOthersValues)
{
    constexpr int kValues = 15;
    const TempHome home;
    const auto write = [](const std::string& key) {
        for (int i = 0; i < kValues; ++i)
            Set(key, std::to_string(i), key);
    };
    const pid_t child = fork();
    if (child == 0)
    {
        write("child");
        _exit(0);
    }
    std::thread other(write, "other");
    write("own");
    other.join();
    waitpid(child, nullptr, 0);
    for (const std::string key : {"child", "other", "own"})
        for (int i = 0; i < kValues; ++i)
            EXPECT_EQ(Get(key, std::to_string(i)), key) << i;
}

} // namespace
