#include "Program.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

constexpr int kDeadlineMilliseconds = 60000;

struct Ends
{
    int read = -1;
    int write = -1;
};

Ends MakePipe()
{
    int ends[2];
    EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
    return {ends[0], ends[1]};
}

Ends MakeTerminal(unsigned short columns)
{
    Ends ends;
    const winsize size{24, columns, 0, 0};
    EXPECT_EQ(openpty(&ends.read, &ends.write, nullptr, nullptr, &size), 0);
    fcntl(ends.read, F_SETFD, FD_CLOEXEC);
    return ends;
}

std::vector<char*> Pointers(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

[[noreturn]] void Become(const Program::Start& start, int out, int error)
{
    std::vector<std::string> arguments{"program"};
    arguments.insert(arguments.end(), start.arguments.begin(), start.arguments.end());
    std::vector<std::string> environment = start.environment;
    environment.insert(environment.end(), {kScenarioVariable + ("=" + start.scenario), "LANG=C", "TERM=xterm"});
    for (const char* name : {"VANTROY_HOME", "LSAN_OPTIONS", "TSAN_OPTIONS", "UBSAN_OPTIONS"})
    {
        if (const char* value = std::getenv(name))
            environment.push_back(std::string(name) + "=" + value);
    }
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        signal(number, SIG_DFL);
    dup2(out, STDOUT_FILENO);
    dup2(error, STDERR_FILENO);
    close(STDIN_FILENO);
    execve("/proc/self/exe", Pointers(arguments).data(), Pointers(environment).data());
    _exit(127);
}

} // namespace

Program::Program(const Start& start)
{
    const Ends out = start.output == Output::Terminal ? MakeTerminal(start.columns) : MakePipe();
    const Ends error = MakePipe();
    m_process = fork();
    if (m_process == 0)
        Become(start, out.write, error.write);
    close(out.write);
    close(error.write);
    m_streams[0].file = out.read;
    m_streams[1].file = error.read;
    if (start.output == Output::ClosedPipe)
        close(std::exchange(m_streams[0].file, -1));
}

Program::~Program()
{
    if (m_process > 0)
        End();
    for (const Stream& stream : m_streams)
    {
        if (stream.file >= 0)
            close(stream.file);
    }
}

bool Program::ReadMore()
{
    pollfd waiting[2] = {{m_streams[0].file, POLLIN, 0}, {m_streams[1].file, POLLIN, 0}};
    if ((waiting[0].fd < 0 && waiting[1].fd < 0) || poll(waiting, 2, kDeadlineMilliseconds) <= 0)
        return false;
    for (int i = 0; i < 2; ++i)
    {
        if (waiting[i].revents == 0)
            continue;
        char block[4096];
        const ssize_t count = read(waiting[i].fd, block, sizeof block);
        if (count > 0)
            m_streams[i].text.append(block, static_cast<std::size_t>(count));
        else // a terminal ends with an error
            close(std::exchange(m_streams[i].file, -1));
    }
    return true;
}

bool Program::Await(const std::string& text)
{
    while (Out().find(text) == std::string::npos && Error().find(text) == std::string::npos)
    {
        if (!ReadMore())
            return false;
    }
    return true;
}

void Program::Signal(int number) const
{
    kill(m_process, number);
}

int Program::End()
{
    while (ReadMore())
    {}
    if (m_streams[0].file >= 0 || m_streams[1].file >= 0)
        kill(m_process, SIGKILL);
    int status = 0;
    waitpid(std::exchange(m_process, -1), &status, 0);
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}
