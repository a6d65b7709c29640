#include "platform/testing/BrowserProcess.h"

#include <chrono>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace
{

namespace fs = std::filesystem;
using namespace std::chrono_literals;

std::vector<char*> Pointers(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> Environment(const std::string& home)
{
    std::vector<std::string> variables{"HOME=" + home};
    for (char** variable = environ; *variable != nullptr; ++variable)
    {
        if (std::strncmp(*variable, "HOME=", 5) != 0 && std::strncmp(*variable, "XDG_", 4) != 0)
            variables.emplace_back(*variable);
    }
    return variables;
}

// In a process group of its own, so that Kill reaches all its processes and no others.
pid_t Spawn(std::vector<std::string> arguments, const std::string& home)
{
    std::vector<std::string> environment = Environment(home);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    for (const int output : {STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&files, output, "/dev/null", O_WRONLY, 0);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
    pid_t process = 0;
    const int error = posix_spawnp(&process, arguments[0].c_str(), &files, &attributes, Pointers(arguments).data(),
                                   Pointers(environment).data());
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    if (error != 0)
        throw std::runtime_error(arguments[0] + " cannot be started");
    return process;
}

} // namespace

BrowserProcess::BrowserProcess() : m_folder((fs::temp_directory_path() / "vantroy-browser-XXXXXX").string())
{
    if (mkdtemp(m_folder.data()) == nullptr)
        throw std::runtime_error("no folder for the browser");
}

BrowserProcess::~BrowserProcess()
{
    Kill();
    std::error_code ignored;
    fs::remove_all(m_folder, ignored);
}

void BrowserProcess::Start(std::vector<std::string> arguments, const std::function<bool()>& isUp)
{
    m_process = Spawn(arguments, m_folder);
    const auto deadline = std::chrono::steady_clock::now() + 30s;
    while (!isUp())
    {
        if (std::chrono::steady_clock::now() > deadline || waitpid(m_process, nullptr, WNOHANG) != 0)
            throw std::runtime_error(arguments[0] + " does not come up");
        std::this_thread::sleep_for(10ms);
    }
}

void BrowserProcess::Kill()
{
    if (m_process <= 0)
        return;
    kill(-m_process, SIGKILL);
    waitpid(m_process, nullptr, 0);
    m_process = 0;
}
