// The main of every test program that links the robot.
#include "platform/testing/Robot.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    StartTestDesktop(argc, argv);
    const int status = RUN_ALL_TESTS();
    StopTestDesktop();
    return status;
}
