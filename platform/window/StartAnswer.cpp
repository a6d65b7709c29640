#include "platform/window/StartAnswer_p.h"

#include "platform/system/CommandLine_p.h"
#include "platform/text/CodePage.h"
#include "platform/window/MessageBox_p.h"
#include "platform/window/Resource.h"
#include "platform/window/WinApp.h"
#include "platform/window/console/ConsoleOutput_p.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

namespace
{

int Print(const std::string& text)
{
    std::fputs(text.c_str(), stdout);
    return std::fflush(stdout) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

// The answer may ask browsers, whose connections need the toolkit's object.
std::optional<std::string> AskProgram(int argc, char** argv, std::string_view option)
{
    const QCoreApplication toolkit(argc, argv);
    return AfxGetApp() ? AfxGetApp()->AnswerOption(option) : std::nullopt;
}

} // namespace

std::optional<int> AnswerStartOption(int argc, char** argv)
{
    constexpr ResourceTable kNone{};
    const ResourceTable& resources = AfxGetResources() ? *AfxGetResources() : kNone;
    const StartRequest request = FindStartRequest(argc, argv);
    switch (request.option)
    {
    case StartOption::Help:
        return Print(Utf8ToAnsi(resources.usage));
    case StartOption::Version:
        return Print(ApplicationName() + " " + Utf8ToAnsi(resources.version) + "\n");
    case StartOption::Unknown:
        if (const auto answer = AskProgram(argc, argv, request.argument))
            return Print(*answer);
        PrintError("unknown option " + std::string(request.argument) + "; see --help");
        return kWrongUse;
    case StartOption::None:
        break;
    }
    return std::nullopt;
}
