// The machine's path rules.
#pragma once

// What stands between the folders of a path.
inline constexpr char kPathSeparator = '/';

// The longest path of GetModuleFileNameA with its terminating zero.
inline constexpr int MAX_PATH = 260;
