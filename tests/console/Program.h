// A run of the scenarios' program: started, read, signalled, waited for. Nothing here waits for ever: after a deadline
// the process is killed and the test sees an end that it does not expect.
#pragma once

#include "platform/testing/TempHome.h"

#include <string>
#include <sys/types.h>
#include <vector>

inline constexpr char kScenarioVariable[] = "CONSOLE_SCENARIO";

enum class Output
{
    Pipe,
    Terminal,
    ClosedPipe, // nobody reads
};

class Program
{
public:
    struct Start
    {
        std::string scenario;
        std::vector<std::string> arguments = {};
        std::vector<std::string> environment = {}; // in front of the usual
        Output output = Output::Pipe;
        unsigned short columns = 80;
    };

    explicit Program(const Start& start);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // Reads on until the text has come in standard output or error.
    bool Await(const std::string& text);
    void Signal(int number) const;
    // Reads to the end; gives what a shell would: the status, or 128 and the signal.
    int End();

    const std::string& Out() const
    {
        return m_streams[0].text;
    }
    const std::string& Error() const
    {
        return m_streams[1].text;
    }

private:
    struct Stream
    {
        int file = -1;
        std::string text;
    };

    // False after the deadline, and once both streams have ended.
    bool ReadMore();

    const TempHome m_home;
    pid_t m_process = -1;
    Stream m_streams[2];
};
