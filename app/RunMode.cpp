#include "app/RunMode.h"

RunMode RunModeOf(std::string_view commandLine)
{
    if (commandLine.find("/all") != std::string_view::npos)
        return RunMode::All;
    if (commandLine.find("/current") != std::string_view::npos)
        return RunMode::Current;
    return RunMode::Plain;
}
