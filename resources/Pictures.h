// The program's pictures as SVG documents, made from resources/pictures by cmake/Pictures.cmake. They are drawn with
// what SVG Tiny 1.2 offers: no filters, masks or clip paths.
#pragma once

#include <string_view>

namespace pictures
{
extern const std::string_view kIcon;   // 64 x 64, on a grid of 4 so that it stays crisp at 16
extern const std::string_view kBanner; // 640 x 64; a dialog may cut 30 from its sides, or 6 from above and below
// 16 x 16, readable on light and dark grounds.
extern const std::string_view kClearHistory;
extern const std::string_view kHistory;
extern const std::string_view kDay;
extern const std::string_view kPage;
extern const std::string_view kFile;
extern const std::string_view kSettings;
extern const std::string_view kSettingsPage;
extern const std::string_view kAlbum;
} // namespace pictures
