#include "platform/window/WinApp.h"

#include "platform/files/InstallHome.h"
#include "platform/system/CommandLine.h"
#include "platform/window/Desktop_p.h"
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
#include <cstdio>
#include <cstdlib>
#include <exception>

namespace
{

constexpr int kNoDesktopStatus = 2;

CWinApp* g_application = nullptr;

bool IsSet(const char* variable)
{
    const char* value = std::getenv(variable);
    return value && *value;
}

// The toolkit would end the process by a signal.
bool HasDisplay()
{
    return IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY") || IsSet("QT_QPA_PLATFORM");
}

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
    const TerminationSignals termination(Leave);
    if (application.InitInstance())
        ServeMessagesWhileMainWindow();
    return application.ExitInstance();
}

int RunOnNewDesktop(int argc, char** argv)
{
    // Tests bring their own.
    std::unique_ptr<Desktop> desktop;
    if (!Desktop::Current())
        desktop = std::make_unique<Desktop>(argc, argv);
    return RunApplication(*g_application);
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
    const std::string name = ApplicationName();
    if (!HasDisplay())
    {
        std::fprintf(stderr, "%s: no display; set DISPLAY or WAYLAND_DISPLAY\n", name.c_str());
        return kNoDesktopStatus;
    }
    try
    {
        PrepareInstallHome();
        return RunOnNewDesktop(argc, argv);
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "%s: %s\n", name.c_str(), error.what());
    }
    catch (...)
    {
        std::fprintf(stderr, "%s: unknown failure\n", name.c_str());
    }
    return EXIT_FAILURE;
}
