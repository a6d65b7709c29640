// Programs as processes of their own.
#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <sys/types.h>
#include <vector>

// Starts the first word, found on PATH, with the words as its arguments and never through a command shell. It outlives
// this process. 0, or the error number; EINVAL without words.
int StartProcess(std::vector<std::string> words);

// A program whose end matters to the one who started it. It says nothing and hears nothing. Any thread.
class StartedProgram
{
public:
    // As StartProcess; null if it cannot be started.
    static std::shared_ptr<StartedProgram> Start(std::vector<std::string> words);

    bool IsRunning() const;
    void Wait() const;
    void Terminate();

private:
    explicit StartedProgram(pid_t process) : m_process(process)
    {}
    void TakeStatus();

    mutable std::mutex m_mutex;
    mutable std::condition_variable m_ended;
    pid_t m_process; // 0 once it has ended: the number may be another one's then
};
