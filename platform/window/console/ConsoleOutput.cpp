#include "platform/window/console/ConsoleOutput_p.h"

#include "platform/text/CodePage.h"
#include "platform/window/Resource.h"

#include <cerrno>
#include <cstdlib>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace
{

constexpr std::string_view kEraseRest = "\x1b[K";

// After a failed write: whether to try again. A descriptor that is shared may have been told not to wait.
bool MayTryAgain(int file)
{
    if (errno != EAGAIN)
        return errno == EINTR;
    pollfd waiting{file, POLLOUT, 0};
    return poll(&waiting, 1, -1) >= 0 || errno == EINTR;
}

void WriteAll(int file, std::string_view bytes)
{
    while (!bytes.empty())
    {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written >= 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
        else if (!MayTryAgain(file))
            return;
    }
}

bool CanRewriteLines()
{
    const char* terminal = std::getenv("TERM");
    return terminal && *terminal && std::string_view(terminal) != "dumb" && isatty(STDOUT_FILENO);
}

// A terminal that does not tell its width has the usual one. The last column stays free: there the cursor is neither in
// this line nor in the next.
int UsableColumns()
{
    constexpr int kUsualWidth = 80;
    winsize size = {};
    const bool known = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 1;
    return (known ? size.ws_col : kUsualWidth) - 1;
}

} // namespace

std::string ProgramName()
{
    const ResourceTable* resources = AfxGetResources();
    return resources ? Utf8ToAnsi(resources->desktopFile) : std::string();
}

void PrintError(std::string_view text)
{
    WriteAll(STDERR_FILENO, ProgramName() + ": " + CleanParagraph(GetACP(), text) + "\n");
}

ConsoleOutput::ConsoleOutput() : m_bTerminal(CanRewriteLines())
{}

void ConsoleOutput::WriteLine(std::string_view text)
{
    const std::lock_guard lock(m_mutex);
    EndLineLocked();
    WriteAll(STDOUT_FILENO, CleanText(GetACP(), text) + "\n");
}

void ConsoleOutput::Show(const ConsoleFields& fields)
{
    const std::string line = ConsoleLine(GetACP(), fields, m_bTerminal ? UsableColumns() : 0);
    const std::lock_guard lock(m_mutex);
    if (!m_bTerminal)
    {
        WriteAll(STDOUT_FILENO, line + "\n");
    }
    else if (line != m_inPlace)
    {
        WriteAll(STDOUT_FILENO, "\r" + line + std::string(kEraseRest));
        m_inPlace = line;
    }
}

void ConsoleOutput::EndLine()
{
    const std::lock_guard lock(m_mutex);
    EndLineLocked();
}

void ConsoleOutput::WriteError(std::string_view text)
{
    const std::lock_guard lock(m_mutex);
    if (!m_inPlace.empty())
        WriteAll(STDOUT_FILENO, "\r" + std::string(kEraseRest));
    m_inPlace.clear();
    PrintError(text);
}

void ConsoleOutput::EndLineLocked()
{
    if (!m_inPlace.empty())
        WriteAll(STDOUT_FILENO, "\n");
    m_inPlace.clear();
}
