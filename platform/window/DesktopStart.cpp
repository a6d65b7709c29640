#include "platform/window/DesktopStart_p.h"

#include <QApplication>

#include <cstdlib>
#include <optional>
#include <string>

namespace
{

constexpr char kPlatformVariable[] = "QT_QPA_PLATFORM";
constexpr char kOffscreen[] = "offscreen";

std::string Variable(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

// What the toolkit is to try, in its own order, and off-screen at last: without that it would end the process by a
// signal where no display answers.
std::string PlatformsToTry()
{
    std::string platforms;
    if (!Variable("WAYLAND_DISPLAY").empty())
        platforms += "wayland;";
    if (!Variable("DISPLAY").empty())
        platforms += "xcb;";
    return platforms + kOffscreen;
}

// Sets a variable for as long as the object lives: programs that are started later do not get it.
class VariableForNow
{
public:
    VariableForNow(const char* name, const std::string& value) : m_name(name)
    {
        if (const char* before = std::getenv(name))
            m_before = before;
        setenv(name, value.c_str(), 1);
    }
    ~VariableForNow()
    {
        if (m_before)
            setenv(m_name, m_before->c_str(), 1);
        else
            unsetenv(m_name);
    }
    VariableForNow(const VariableForNow&) = delete;
    VariableForNow& operator=(const VariableForNow&) = delete;

private:
    const char* m_name;
    std::optional<std::string> m_before;
};

} // namespace

RunningDesktop StartDesktop(int& argc, char** argv)
{
    RunningDesktop running;
    const bool asked = Variable("VANTROY_DESKTOP") == "console";
    if (!asked && !Variable(kPlatformVariable).empty())
    {
        running.desktop = std::make_unique<Desktop>(argc, argv);
        return running;
    }
    const std::string platforms = asked ? kOffscreen : PlatformsToTry();
    // Made first, so that nothing is heard of a display that does not answer; it goes again if one does.
    running.console = std::make_unique<ConsoleDesktop>();
    const VariableForNow platform(kPlatformVariable, platforms);
    running.desktop = std::make_unique<Desktop>(argc, argv);
    if (QGuiApplication::platformName() != kOffscreen)
        running.console.reset();
    return running;
}
