#include "platform/system/CommandLine.h"

#include "platform/system/CommandLine_p.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace
{

std::string& Line()
{
    static std::string line;
    return line;
}

struct Switch
{
    std::string_view typed;
    std::string_view published;
};

constexpr Switch kSwitches[] = {{"--all", "/all"}, {"--current", "/current"}};

std::string_view AsPublished(std::string_view argument)
{
    const auto* found = std::ranges::find(kSwitches, argument, &Switch::typed);
    return found == std::end(kSwitches) ? argument : found->published;
}

StartOption OptionOf(std::string_view argument)
{
    if (argument == "--help" || argument == "-h")
        return StartOption::Help;
    if (argument == "--version")
        return StartOption::Version;
    const bool known = !argument.starts_with("--") || AsPublished(argument) != argument;
    return known ? StartOption::None : StartOption::Unknown;
}

} // namespace

void SetCommandLine(int argc, char** argv)
{
    std::string program = argc > 0 ? argv[0] : "";
    std::ranges::replace(program, '/', '\\');
    std::string& line = Line();
    line = '"' + program + '"';
    for (int i = 1; i < argc; ++i)
        line.append(" ").append(AsPublished(argv[i]));
}

const char* GetCommandLineA()
{
    return Line().c_str();
}

StartRequest FindStartRequest(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i)
    {
        if (const StartOption option = OptionOf(argv[i]); option != StartOption::None)
            return {option, argv[i]};
    }
    return {};
}
