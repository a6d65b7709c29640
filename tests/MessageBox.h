// The message box on show, read and answered.
#pragma once

#include "platform/testing/Robot.h"

#include <gtest/gtest.h>

inline void ExpectBox(const Robot& robot, const std::string& text, const std::string& answer = "OK")
{
    EXPECT_EQ(robot.MessageBoxText(), text);
    robot.Answer(answer);
}
