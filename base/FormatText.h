// Texts of the resources that hold a place for a value.
#pragma once

#include "platform/Types.h"

#include <string>
#include <string_view>

// The text with that number, with `value` in place of the first `place` ("%s", "%d") and every "%%" read as "%".
std::string FormatText(UINT textId, std::string_view place, std::string_view value);
