// The version file of the update server: the digits of the newest version at the bytes 0, 2 and 4. What stands between
// and behind them does not count.
#pragma once

#include "base/Product.h"

#include <cstddef>
#include <string_view>

inline constexpr std::size_t kVersionFileSize = 5; // that counts

// A byte that is no digit, or that is not there, is 0.
CVersion ParseVersionFile(std::string_view body);
