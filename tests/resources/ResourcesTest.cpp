#include "resources/Resources.h"
#include "resources/ResourceIds.h"

#include <gtest/gtest.h>

TEST(Resources, AreWithoutFault)
{
    EXPECT_EQ(CheckResources(VantroyResources()), "");
}

TEST(Resources, HaveATextForEachNumber)
{
    AfxSetResources(VantroyResources());
    for (UINT id = IDS_ABOUT_SYSTEM; id <= IDS_BAD_URL_CACHE; ++id)
        EXPECT_FALSE(AfxLoadString(id).empty()) << id;
}
