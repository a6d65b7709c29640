// The program's pictures as SVG documents, made from resources/pictures by cmake/Pictures.cmake. They are drawn with
// what SVG Tiny 1.2 offers: no filters, masks or clip paths.
#pragma once

#include <string_view>

namespace pictures
{
extern const std::string_view kIcon;   // 64 x 64, on a grid of 4 so that it stays crisp at 16
extern const std::string_view kBanner; // 800 x 64, with a ground of its own
} // namespace pictures
