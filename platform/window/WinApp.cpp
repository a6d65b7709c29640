#include "platform/window/WinApp.h"

#include "platform/files/InstallHome.h"
#include "platform/shell/HelpViewer.h"
#include "platform/system/CommandLine.h"
#include "platform/window/DesktopStart_p.h"
#include "platform/window/MessageBox_p.h"
#include "platform/window/Picture_p.h"
#include "platform/window/Resource.h"
#include "platform/window/StartAnswer_p.h"
#include "platform/window/TerminationSignals_p.h"
#include "platform/window/WindowPeer_p.h"
#include "platform/window/WindowRecord_p.h"
#include "platform/window/WindowTable_p.h"

#include <QApplication>
#include <QSvgRenderer>
#include <QWidget>

#include <cassert>
#include <csignal>
#include <cstdlib>
#include <exception>

namespace
{

constexpr int kDesktopSignals[] = {SIGTERM, SIGINT};
constexpr int kConsoleSignals[] = {SIGTERM, SIGINT, SIGHUP};

CWinApp* g_application = nullptr;

// Closes what stands in front first, so that no nested loop holds the main window back.
void Leave()
{
    if (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    DismissMessageBoxes();
    const CWnd* main = AfxGetMainWnd();
    const HWND mainWindow = main ? main->m_hWnd : HWND();
    for (const auto& record : WindowTable::Get().All())
    {
        if (record->Handle() != mainWindow && record->Peer()->Widget().isModal())
            PostMessageA(record->Handle(), WM_CLOSE, 0, 0);
    }
    PostMessageA(mainWindow, WM_CLOSE, 0, 0);
}

void ServeMessagesWhileMainWindow()
{
    while (AfxGetMainWnd() && IsWindow(AfxGetMainWnd()->m_hWnd))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

int RunApplication(CWinApp& application)
{
    if (application.InitInstance())
        ServeMessagesWhileMainWindow();
    return application.ExitInstance();
}

int RunOnScreen(CWinApp& application)
{
    const TerminationSignals termination(kDesktopSignals, 1, [](int, int) { Leave(); });
    return RunApplication(application);
}

// The first signal ends the run behind the item in hand, the second does not wait for that item.
int RunOnConsole(CWinApp& application, ConsoleDesktop& console)
{
    const auto stop = [&console](int signal, int count) {
        console.Stop(signal);
        if (count == 1)
            Leave();
        else
            console.BreakOff();
    };
    const TerminationSignals termination(kConsoleSignals, 2, stop);
    const int status = RunApplication(application);
    console.HelpWithNothing(application);
    return status == EXIT_SUCCESS ? console.Status() : status;
}

int RunOnNewDesktop(int argc, char** argv)
{
    // Tests bring their own.
    if (Desktop::Current())
        return RunOnScreen(*g_application);
    const RunningDesktop running = StartDesktop(argc, argv);
    return running.console ? RunOnConsole(*g_application, *running.console) : RunOnScreen(*g_application);
}

} // namespace

CWinApp::CWinApp()
{
    assert(!g_application);
    g_application = this;
}

CWinApp::~CWinApp()
{
    g_application = nullptr;
}

BOOL CWinApp::InitInstance()
{
    return TRUE;
}

int CWinApp::ExitInstance()
{
    return EXIT_SUCCESS;
}

std::optional<std::string> CWinApp::AnswerOption(std::string_view)
{
    return std::nullopt;
}

std::string CWinApp::HelpWithNothing()
{
    return {};
}

HICON CWinApp::LoadIcon(UINT id) const
{
    return {LoadPicture(static_cast<int>(id)) ? id : 0};
}

CWinApp* AfxGetApp()
{
    return g_application;
}

CWnd* AfxGetMainWnd()
{
    return g_application ? g_application->m_pMainWnd : nullptr;
}

int AfxWinMain(int argc, char** argv)
{
    SetCommandLine(argc, argv);
    if (const std::optional<int> status = AnswerStartOption(argc, argv))
        return *status;
    try
    {
        PrepareInstallHome();
        RegisterHelpViewer();
        return RunOnNewDesktop(argc, argv);
    }
    catch (const std::exception& error)
    {
        PrintError(error.what());
    }
    catch (...)
    {
        PrintError("unknown failure");
    }
    return EXIT_FAILURE;
}
