#include "platform/shell/Shell.h"

#include "platform/files/NativePath_p.h"
#include "platform/shell/Process_p.h"
#include "platform/system/LastError.h"
#include "platform/text/Ascii_p.h"

#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace
{

// Published: answers up to this number are errors.
constexpr long kStarted = 33;

bool IsAddress(std::string_view file)
{
    for (const std::string_view scheme : {"http://", "https://", "mailto:"})
    {
        if (file.size() > scheme.size() && SameButForCapitals(file.substr(0, scheme.size()), scheme))
            return true;
    }
    return false;
}

// What the desktop's opener is given: the address, or the absolute path of a file that exists, which can never read as
// an option. Empty if there is no such file.
std::string TargetOf(const char* file)
{
    if (IsAddress(file))
        return file;
    std::error_code error;
    const auto path = std::filesystem::absolute(NativePath(file), error);
    return !error && std::filesystem::exists(path, error) ? path.string() : std::string();
}

} // namespace

long ShellExecuteA(HWND, const char* verb, const char* file, const char* parameters, const char* directory, int)
{
    const std::string_view action = verb ? verb : "open";
    if ((action != "open" && action != "explore") || !file || !*file || parameters || directory)
        return 0;
    const std::string target = TargetOf(file);
    return !target.empty() && StartProcess({"xdg-open", target}) == 0 ? kStarted
                                                                      : static_cast<long>(ERROR_FILE_NOT_FOUND);
}

BOOL ShellExecuteExA(SHELLEXECUTEINFOA* info)
{
    info->hInstApp =
        ShellExecuteA(info->hwnd, info->lpVerb, info->lpFile, info->lpParameters, info->lpDirectory, info->nShow);
    return info->hInstApp >= kStarted;
}
