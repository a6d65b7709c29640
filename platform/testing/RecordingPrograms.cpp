#include "platform/testing/RecordingPrograms.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <thread>

namespace fs = std::filesystem;

namespace
{

// Arguments end with a zero each; the file is there when all are in it.
constexpr const char* kScript =
    "#!/bin/sh\n{ [ $# = 0 ] || printf '%s\\0' \"$@\"; } > \"$0.$$\" && /bin/mv \"$0.$$\" \"$0.args\"\n";

} // namespace

RecordingPrograms::RecordingPrograms(const TempHome& home, const std::vector<std::string>& names)
    : m_home(home), m_path(getenv("PATH") ? getenv("PATH") : "")
{
    for (const std::string& name : names)
    {
        home.Write("bin/" + name, kScript);
        fs::permissions(Path(name), fs::perms::owner_all);
    }
    setenv("PATH", home.Path("bin").c_str(), 1);
}

RecordingPrograms::~RecordingPrograms()
{
    setenv("PATH", m_path.c_str(), 1);
}

std::string RecordingPrograms::Path(const std::string& name) const
{
    return m_home.Path("bin/" + name);
}

bool RecordingPrograms::HasRun(const std::string& name) const
{
    return m_home.Exists("bin/" + name + ".args");
}

std::vector<std::string> RecordingPrograms::Arguments(const std::string& name) const
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!HasRun(name) && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    if (!HasRun(name))
        throw std::runtime_error(name + " was never started");
    std::istringstream text(m_home.Read("bin/" + name + ".args"));
    fs::remove(Path(name) + ".args");
    std::vector<std::string> arguments;
    for (std::string argument; std::getline(text, argument, '\0');)
        arguments.push_back(argument);
    return arguments;
}
