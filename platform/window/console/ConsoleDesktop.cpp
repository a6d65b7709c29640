#include "platform/window/console/ConsoleDesktop_p.h"

#include "platform/system/Thread_p.h"
#include "platform/window/Messages.h"
#include "platform/window/Resource.h"
#include "platform/window/StartAnswer_p.h"
#include "platform/window/WinApp.h"
#include "platform/window/console/ConsoleProgress_p.h"

#include <QString>
#include <QtGlobal>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace
{

constexpr int kSignalStatus = 128;

std::atomic<ConsoleDesktop*> g_console = nullptr;

// What the toolkit misses off-screen is nothing to a user of the console.
void HoldBackChatter(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        PrintError(text.toLocal8Bit().toStdString());
}

// A descriptor that the caller has closed would become that of the next file or connection, and be written to.
void OpenStandardFiles()
{
    int file = 0;
    do
        file = open("/dev/null", O_RDWR);
    while (file >= 0 && file <= STDERR_FILENO);
    if (file >= 0)
        close(file);
}

bool HasProgressBar(const DialogTemplate& dialog)
{
    return std::ranges::count(dialog.controls, ControlClass::ProgressBar, &ControlTemplate::kind) > 0;
}

} // namespace

// A reader that goes away does not end the run.
ConsoleDesktop::ConsoleDesktop() : m_pipeAction(std::signal(SIGPIPE, SIG_IGN))
{
    OpenStandardFiles();
    qInstallMessageHandler(HoldBackChatter);
    g_console = this;
}

ConsoleDesktop::~ConsoleDesktop()
{
    m_output.EndLine();
    if (m_nSignal != 0)
        m_output.WriteError("stopped");
    g_console = nullptr;
    qInstallMessageHandler(nullptr);
    std::signal(SIGPIPE, m_pipeAction);
}

ConsoleDesktop* ConsoleDesktop::Current()
{
    return g_console;
}

int ConsoleDesktop::AnswerBox(const std::string& text, UINT buttons)
{
    m_bAnythingShown = true;
    if (buttons != MB_YESNO)
    {
        m_bMessageShown = true;
        m_output.WriteError(text);
        return IDOK;
    }
    const bool yes = m_nSignal != 0;
    m_output.WriteError(text + (yes ? " Yes" : " No"));
    return yes ? IDYES : IDNO;
}

bool ConsoleDesktop::MayOpen(const DialogTemplate& dialog)
{
    const bool isFirst = !m_bAnythingShown.exchange(true);
    if (HasProgressBar(dialog))
        return true;
    if (isFirst)
    {
        m_bRefused = true;
        m_output.WriteError("no display for the main window; --all and --current do without one, see --help");
    }
    return false;
}

void ConsoleDesktop::Watch(WindowRecord& record, const DialogTemplate& dialog)
{
    if (HasProgressBar(dialog))
        m_windows.push_back(ConsoleProgress::Attach(*this, record, dialog));
}

void ConsoleDesktop::NoteItem()
{
    m_bItemShown = true;
}

void ConsoleDesktop::Stop(int signal)
{
    m_nSignal = signal;
}

void ConsoleDesktop::BreakOff()
{
    for (const auto& window : m_windows)
    {
        if (const auto progress = window.lock())
            progress->PressAllButCancel();
    }
    CancelSynchronousIoOfAll();
}

void ConsoleDesktop::HelpWithNothing(CWinApp& application)
{
    if (m_bItemShown || m_bRefused || m_nSignal != 0)
        return;
    if (const std::string text = application.HelpWithNothing(); !text.empty())
        m_output.WriteError(text);
}

int ConsoleDesktop::Status() const
{
    if (m_nSignal != 0)
        return kSignalStatus + m_nSignal;
    if (m_bRefused)
        return kWrongUse;
    return m_bItemShown && !m_bMessageShown ? EXIT_SUCCESS : EXIT_FAILURE;
}
