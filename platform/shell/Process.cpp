#include "platform/shell/Process_p.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
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

struct SpawnFiles
{
    posix_spawn_file_actions_t value;

    explicit SpawnFiles(bool quiet)
    {
        posix_spawn_file_actions_init(&value);
        for (const int file : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        {
            if (quiet)
                posix_spawn_file_actions_addopen(&value, file, "/dev/null", O_RDWR, 0);
        }
    }
    ~SpawnFiles()
    {
        posix_spawn_file_actions_destroy(&value);
    }
    SpawnFiles(const SpawnFiles&) = delete;
    SpawnFiles& operator=(const SpawnFiles&) = delete;
};

int Spawn(std::vector<std::string> words, bool quiet, pid_t& process)
{
    if (words.empty())
        return EINVAL;
    std::vector<char*> arguments;
    std::ranges::transform(words, std::back_inserter(arguments), [](std::string& word) { return word.data(); });
    arguments.push_back(nullptr);
    const SpawnAttributes attributes;
    const SpawnFiles files(quiet);
    return posix_spawnp(&process, arguments.front(), &files.value, &attributes.value, arguments.data(), environ);
}

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
    pid_t process = 0;
    const int error = Spawn(std::move(words), false, process);
    if (error == 0)
        Await(process);
    return error;
}

std::shared_ptr<StartedProgram> StartedProgram::Start(std::vector<std::string> words)
{
    pid_t process = 0;
    if (Spawn(std::move(words), true, process) != 0)
        return nullptr;
    const std::shared_ptr<StartedProgram> program(new StartedProgram(process));
    try
    {
        std::thread([program] { program->TakeStatus(); }).detach();
    }
    catch (const std::system_error&)
    {
        // Without a thread to spare there is none to tell of its end.
        program->Terminate();
        program->TakeStatus();
        return nullptr;
    }
    return program;
}

void StartedProgram::TakeStatus()
{
    siginfo_t end;
    waitid(P_PID, static_cast<id_t>(m_process), &end, WEXITED | WNOWAIT);
    const std::lock_guard lock(m_mutex);
    waitpid(m_process, nullptr, 0);
    m_process = 0;
    m_ended.notify_all();
}

bool StartedProgram::IsRunning() const
{
    const std::lock_guard lock(m_mutex);
    return m_process != 0;
}

void StartedProgram::Wait() const
{
    std::unique_lock lock(m_mutex);
    m_ended.wait(lock, [this] { return m_process == 0; });
}

void StartedProgram::Terminate()
{
    const std::lock_guard lock(m_mutex);
    if (m_process)
        kill(m_process, SIGTERM);
}
