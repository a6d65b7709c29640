#include "platform/system/CommandLine.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace
{

std::string& Line()
{
    static std::string line;
    return line;
}

std::string_view AsTyped(std::string_view argument)
{
    if (argument == "--all")
        return "/all";
    return argument == "--current" ? "/current" : argument;
}

} // namespace

void SetCommandLine(int argc, char** argv)
{
    std::string program = argc > 0 ? argv[0] : "";
    std::ranges::replace(program, '/', '\\');
    std::string& line = Line();
    line = '"' + program + '"';
    for (int i = 1; i < argc; ++i)
        line.append(" ").append(AsTyped(argv[i]));
}

const char* GetCommandLineA()
{
    return Line().c_str();
}
