// The resources and windows that the tests of the controls share.
#pragma once

#include "platform/testing/Robot.h"
#include "platform/window/Controls.h"
#include "platform/window/Dialog.h"
#include "platform/window/Resource.h"

#include <functional>
#include <gtest/gtest.h>

inline constexpr int IDD_RICH = 100;
inline constexpr int IDD_DEFAULT = 101; // the rich button is its default button
inline constexpr int IDD_LINK = 102;
inline constexpr int IDR_RICH = 200;
inline constexpr int IDC_RICH = 1000;
inline constexpr int IDC_OTHER = 1001;
inline constexpr int IDC_LINK = 1002;
inline constexpr UINT ID_OPEN = 300;
inline constexpr UINT ID_SAVE = 301;
inline constexpr UINT ID_INNER = 302;

class ControlsTest : public testing::Test
{
protected:
    void SetUp() override;
};
