// The process of a browser of its own for one test, with a folder that goes with the object.
#pragma once

#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

class BrowserProcess
{
public:
    // Throws std::runtime_error without a folder.
    BrowserProcess();
    ~BrowserProcess();
    BrowserProcess(const BrowserProcess&) = delete;
    BrowserProcess& operator=(const BrowserProcess&) = delete;

    const std::string& Folder() const
    {
        return m_folder;
    }
    // Starts a program on the PATH with the folder as its home, and waits until it is up. Throws std::runtime_error if
    // there is no such program or it is not up within 30 s.
    void Start(std::vector<std::string> arguments, const std::function<bool()>& isUp);
    // Ends it as a crash would, and waits for its end. The folder stays.
    void Kill();

private:
    std::string m_folder;
    pid_t m_process = 0;
};
