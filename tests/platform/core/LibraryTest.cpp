#include "platform/system/Library.h"
#include "platform/system/LastError.h"
#include "platform/testing/ThemeLibrary.h"
#include "platform/window/Theme.h"

#include <gtest/gtest.h>

TEST(Libraries, AreFoundByNameAsLongAsTheyStandAndAreLoaded)
{
    EXPECT_FALSE(LoadLibraryA("uxtheme.dll"));
    EXPECT_EQ(GetLastError(), ERROR_MOD_NOT_FOUND);
    HMODULE library = nullptr;
    {
        ThemeLibrary themes;
        library = LoadLibraryA("UxTheme.DLL");
        ASSERT_TRUE(library);
        EXPECT_FALSE(GetProcAddress(library, "CloseTheme"));
        EXPECT_EQ(GetLastError(), ERROR_PROC_NOT_FOUND);
        const auto find = [library](const char* name) { return GetProcAddress(library, name); };
        const auto open = reinterpret_cast<OpenThemeDataFunction>(find("OpenThemeData"));
        const auto draw = reinterpret_cast<DrawThemeBackgroundFunction>(find("DrawThemeBackground"));
        const HTHEME theme = open({}, L"Tab");
        const RECT area{1, 2, 3, 4};
        EXPECT_EQ(draw(theme, nullptr, 9, 0, &area, nullptr), 0);
        EXPECT_LT(draw(nullptr, nullptr, 9, 0, &area, nullptr), 0);
        ASSERT_EQ(themes.m_drawings.size(), 1u);
        EXPECT_EQ(themes.m_drawings[0].bounds.bottom, 4);
        EXPECT_EQ(themes.m_nOpen, 1);
        EXPECT_TRUE(FreeLibrary(library));
        EXPECT_FALSE(FreeLibrary(library));
        EXPECT_FALSE(find("OpenThemeData"));
    }
    EXPECT_FALSE(LoadLibraryA("uxtheme.dll"));
}
