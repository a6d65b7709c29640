#include "platform/system/Library.h"
#include "platform/system/LastError.h"
#include "platform/testing/ThemeLibrary.h"

#include <gtest/gtest.h>

TEST(Libraries, AreFoundByNameAsLongAsTheyStandAndAreLoaded)
{
    {
        const ThemeLibrary themes;
        const HMODULE library = LoadLibraryA("UxTheme.DLL");
        EXPECT_FALSE(GetProcAddress(library, "CloseTheme"));
        EXPECT_EQ(GetLastError(), ERROR_PROC_NOT_FOUND);
        EXPECT_TRUE(GetProcAddress(library, "OpenThemeData"));
        EXPECT_TRUE(FreeLibrary(library));
        EXPECT_FALSE(FreeLibrary(library));
        EXPECT_FALSE(GetProcAddress(library, "OpenThemeData"));
    }
    EXPECT_FALSE(LoadLibraryA("uxtheme.dll"));
    EXPECT_EQ(GetLastError(), ERROR_MOD_NOT_FOUND);
}
