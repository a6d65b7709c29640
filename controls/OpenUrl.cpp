#include "controls/OpenUrl.h"

#include "platform/shell/Shell.h"
#include "platform/system/LastError.h"
#include "platform/system/Registry.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace
{

constexpr DWORD kMostError = 32;
constexpr LONG kValueRoom = 260;
constexpr std::size_t kCommandRoom = 520; // with the terminating zero

constexpr const char* kPageKey = ".htm";
constexpr const char* kCommandKey = "\\shell\\open\\command";

// The default value of a key of the classes.
std::optional<std::string> ReadDefault(const std::string& name)
{
    HKEY key = HKEY::Null;
    if (RegOpenKeyExA(HKEY_CLASSES_ROOT, name.c_str(), 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS)
        return std::nullopt;
    char value[kValueRoom];
    LONG size = kValueRoom;
    const LONG error = RegQueryValueA(key, nullptr, value, &size);
    RegCloseKey(key);
    return error == ERROR_SUCCESS ? std::optional<std::string>(value) : std::nullopt;
}

// The command up to the place of the file.
std::string WithoutPlace(const std::string& command)
{
    const std::size_t quoted = command.find("\"%1\"");
    return command.substr(0, quoted != command.npos ? quoted : command.find("%1"));
}

// Whether what is appended to the command is one argument of its program: a command that is blank would leave the
// address as the program, one with an open quote would take it into an argument of its own.
bool TakesArgument(std::string_view command)
{
    return command.find_first_not_of(" \t\"") != command.npos && std::ranges::count(command, '"') % 2 == 0;
}

bool IsOneArgument(const std::string& url)
{
    return PathIsURLA(url.c_str()) ||
           (!url.empty() && url.front() != '-' && url.find_first_of(" \t\"") == std::string::npos);
}

std::optional<std::string> BrowserCommand()
{
    const auto fileClass = ReadDefault(kPageKey);
    return fileClass ? ReadDefault(*fileClass + kCommandKey) : std::nullopt;
}

} // namespace

DWORD OpenUrl(const std::string& url, int showCommand)
{
    const auto opened = static_cast<DWORD>(ShellExecuteA({}, "open", url.c_str(), nullptr, nullptr, showCommand));
    if (opened > kMostError)
        return opened;
    const auto command = BrowserCommand();
    if (!command)
        return opened;
    const std::string program = WithoutPlace(*command);
    const std::string line = program + ' ' + url;
    // An address is whole or not opened.
    if (!TakesArgument(program) || !IsOneArgument(url) || line.size() >= kCommandRoom)
        return opened;
    return WinExec(line.c_str(), static_cast<UINT>(showCommand));
}
