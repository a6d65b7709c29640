// The application object: picks the run mode, shows the one modal dialog of that mode, and leaves.
#pragma once

#include "platform/window/WinApp.h"

class CVantroyApp : public CWinApp
{
public:
    // Runs the whole program. Always FALSE: there is no message loop behind the dialog's own.
    BOOL InitInstance() override;
    int ExitInstance() override;

private:
    void RunMainDialog();
};
