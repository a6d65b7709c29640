// What the registry asks for.
#pragma once

#include <optional>
#include <string>

namespace toolbar
{

struct Button
{
    std::string text;    // byte text, as all of the registry
    std::string program; // path of what it runs, never empty
    int icon = 0;        // number of the program's picture

    bool operator==(const Button&) const = default;
};

// Where the keys of buttons stand, below the machine's root.
inline constexpr const char* kButtonKeys = "Software\\Microsoft\\Internet Explorer\\Extensions";

// The first key of a button that runs a program. Any thread, any process.
std::optional<Button> ReadButton();

} // namespace toolbar
