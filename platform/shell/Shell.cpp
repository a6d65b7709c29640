#include "platform/shell/Shell.h"

#include "platform/files/NativePath_p.h"
#include "platform/system/LastError.h"

#include <cstring>
#include <filesystem>
#include <spawn.h>
#include <string>
#include <string_view>
#include <strings.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace
{

// Published: answers up to this number are errors.
constexpr long kStarted = 33;

bool IsAddress(std::string_view file)
{
    for (const std::string_view scheme : {"http://", "https://", "mailto:"})
    {
        if (file.size() > scheme.size() && strncasecmp(file.data(), scheme.data(), scheme.size()) == 0)
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

struct SpawnAttributes
{
    posix_spawnattr_t value;

    SpawnAttributes()
    {
        posix_spawnattr_init(&value);
        posix_spawnattr_setflags(&value, POSIX_SPAWN_SETSID);
    }
    ~SpawnAttributes()
    {
        posix_spawnattr_destroy(&value);
    }
    SpawnAttributes(const SpawnAttributes&) = delete;
    SpawnAttributes& operator=(const SpawnAttributes&) = delete;
};

// Takes the exit status, which would stay behind as a dead process otherwise.
void Await(pid_t process)
{
    try
    {
        std::thread([process] { waitpid(process, nullptr, 0); }).detach();
    }
    catch (const std::system_error&)
    {
        // Without a thread to spare it stays until this process ends.
    }
}

bool Start(const std::string& target)
{
    std::string program = "xdg-open";
    std::string argument = target;
    char* arguments[] = {program.data(), argument.data(), nullptr};
    const SpawnAttributes attributes;
    pid_t process = 0;
    if (posix_spawnp(&process, program.c_str(), nullptr, &attributes.value, arguments, environ) != 0)
        return false;
    Await(process);
    return true;
}

} // namespace

long ShellExecuteA(HWND, const char* verb, const char* file, const char* parameters, const char* directory, int)
{
    const std::string_view action = verb ? verb : "open";
    if ((action != "open" && action != "explore") || !file || !*file || parameters || directory)
        return 0;
    const std::string target = TargetOf(file);
    return !target.empty() && Start(target) ? kStarted : static_cast<long>(ERROR_FILE_NOT_FOUND);
}
