// The message with which a worker has a window move its texts into their controls.
#pragma once

#include "platform/window/Messages.h"

// wParam and lParam are 0, and so is the answer.
inline constexpr UINT WM_REFRESH_FIELDS = WM_USER + 0x1000;
