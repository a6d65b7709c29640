#include "platform/shell/Process_p.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <spawn.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace
{

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

} // namespace

int StartProcess(std::vector<std::string> words)
{
    if (words.empty())
        return EINVAL;
    std::vector<char*> arguments;
    std::ranges::transform(words, std::back_inserter(arguments), [](std::string& word) { return word.data(); });
    arguments.push_back(nullptr);
    const SpawnAttributes attributes;
    pid_t process = 0;
    const int error = posix_spawnp(&process, arguments.front(), nullptr, &attributes.value, arguments.data(), environ);
    if (error == 0)
        Await(process);
    return error;
}
