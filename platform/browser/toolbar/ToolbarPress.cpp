// The browser starts a native messaging host as
//
//   /usr/bin/vantroy chrome-extension://ihaf…/
//
// with a message on its standard input, and waits for one on its standard output: the length in 32 bits of the
// machine's order, then JSON.
#include "platform/browser/BrowserToolbar.h"
#include "platform/browser/toolbar/ExtensionFiles_p.h"
#include "platform/files/InstallHome.h"
#include "platform/files/InstallHome_p.h"
#include "platform/files/NativePath_p.h"
#include "platform/shell/Process_p.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <unistd.h>

using namespace toolbar;

namespace
{

// Where the home is not the executable's folder, the path that the program knows itself by names no file.
std::string ProgramOf(const Button& button)
{
    const std::string path = NativePath(button.program);
    const bool isOwn = button.program == InstallHomeFolder() + "/vantroy";
    return isOwn && access(path.c_str(), X_OK) != 0 ? ExecutablePath().string() : path;
}

void Reply(std::string_view message)
{
    const auto length = static_cast<std::uint32_t>(message.size());
    std::fwrite(&length, sizeof length, 1, stdout);
    std::fwrite(message.data(), 1, message.size(), stdout);
    std::fflush(stdout);
}

} // namespace

std::optional<int> AnswerToolbarPress(int argc, char** argv)
{
    if (argc < 2 || argv[1] != "chrome-extension://" + std::string(kExtensionId) + '/')
        return std::nullopt;
    const auto button = ReadButton();
    const bool started = button && StartedProgram::Start({ProgramOf(*button)});
    Reply(started ? R"({"started":true})" : R"({"started":false})");
    return started ? EXIT_SUCCESS : EXIT_FAILURE;
}
