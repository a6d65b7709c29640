// The application object. There is exactly one, a static object; AfxWinMain runs it.
#pragma once

#include "platform/window/Wnd.h"

#include <optional>
#include <string>
#include <string_view>

class CWinApp
{
public:
    CWinApp();
    virtual ~CWinApp();
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;

    CWnd* m_pMainWnd = nullptr; // what AfxGetMainWnd gives

    virtual BOOL InitInstance();
    // Gives the exit status of the process.
    virtual int ExitInstance();

    // What an option of the program's own prints ("--name", which the layer does not know), before anything of the
    // program starts; nothing for one that it does not know either.
    virtual std::optional<std::string> AnswerOption(std::string_view option);
    // What may help the user of a run that has shown no item: printed behind it where there is no display.
    virtual std::string HelpWithNothing();

    // The icon with a number of the resource table, at every size; the null handle if there is none.
    HICON LoadIcon(UINT id) const;
    // Controls are always drawn in the desktop's own look, so there is nothing to switch on.
    void Enable3dControls()
    {}
};

CWinApp* AfxGetApp();
CWnd* AfxGetMainWnd();
// A message box over the main window with the application's name as caption. Any thread; see MessageBoxA.
int AfxMessageBox(const std::string& text, UINT type = MB_OK);
// Controls of other programs are never hosted here: nothing to switch on.
inline void AfxEnableControlContainer()
{}

// The whole program: starts the desktop, calls InitInstance of the one application object and, if that gave TRUE,
// serves messages until the main window has gone; then ExitInstance. Gives the exit status.
int AfxWinMain(int argc, char** argv);
