// A server of the files that a run brings: a process of its own, so that it takes nothing from the one that is
// measured.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

struct ServedFiles
{
    std::string ending; // the paths are "/0<ending>", "/1<ending>", …
    int count;
    std::size_t size; // of each
};

class FileServer
{
public:
    // To be made before any thread starts: it is a fork of this process. Sets VANTROY_HTTP_PORT.
    explicit FileServer(const std::vector<ServedFiles>& files);
    ~FileServer();
    FileServer(const FileServer&) = delete;
    FileServer& operator=(const FileServer&) = delete;

    const std::string& Port() const
    {
        return m_port;
    }

private:
    pid_t m_process = -1;
    std::string m_port;
};

std::vector<std::string> PathsOf(const ServedFiles& files);
// Bytes that compress as badly as a picture.
std::string NoiseOf(std::size_t size);
