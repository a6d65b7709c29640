#include "bench/FileServer.h"

#include "platform/testing/HttpTestServer.h"

#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

[[noreturn]] void Serve(const std::vector<ServedFiles>& files, int ready)
{
    HttpTestServer server;
    for (const ServedFiles& group : files)
    {
        const std::string body = NoiseOf(group.size);
        for (const std::string& path : PathsOf(group))
            server.Serve(path, body);
    }
    const UINT port = server.Port();
    if (write(ready, &port, sizeof(port)) != sizeof(port))
        _exit(EXIT_FAILURE);
    for (;;)
        pause();
}

} // namespace

FileServer::FileServer(const std::vector<ServedFiles>& files)
{
    int ready[2];
    if (pipe(ready) != 0 || (m_process = fork()) < 0)
        throw std::runtime_error("no process for the server");
    if (m_process == 0)
        Serve(files, ready[1]);
    close(ready[1]);
    UINT port = 0;
    const bool started = read(ready[0], &port, sizeof(port)) == sizeof(port);
    close(ready[0]);
    if (!started)
        throw std::runtime_error("the server did not start");
    m_port = std::to_string(port);
    setenv("VANTROY_HTTP_PORT", m_port.c_str(), 1);
}

FileServer::~FileServer()
{
    kill(m_process, SIGKILL);
    waitpid(m_process, nullptr, 0);
}

std::vector<std::string> PathsOf(const ServedFiles& files)
{
    std::vector<std::string> paths;
    for (int number = 0; number < files.count; ++number)
        paths.push_back('/' + std::to_string(number) + files.ending);
    return paths;
}

std::string NoiseOf(std::size_t size)
{
    std::string bytes(size, '\0');
    unsigned state = 1;
    for (char& byte : bytes)
        byte = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
    return bytes;
}
