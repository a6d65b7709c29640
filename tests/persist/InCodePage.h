// Checks in a process of their own: the code page is read once by a process.
#pragma once

#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>

inline void ExpectInCodePage(const char* page, const std::function<void()>& body)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    setenv("VANTROY_CODEPAGE", page, 1);
    EXPECT_EXIT(
        {
            body();
            std::_Exit(testing::Test::HasFailure());
        },
        testing::ExitedWithCode(0), "");
    unsetenv("VANTROY_CODEPAGE");
}
