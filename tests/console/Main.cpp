#include "Scenarios.h"

#include <cstdlib>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (std::getenv(kScenarioVariable))
        return RunScenario(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
