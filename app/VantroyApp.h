// The application object: picks the run mode, shows the one modal dialog of that mode, and leaves.
#pragma once

#include "app/SideWindows.h"

#include "platform/browser/BrowserToolbar.h"
#include "platform/window/WinApp.h"

class CVantroyApp : public CWinApp
{
public:
    // Runs the whole program. Always FALSE: there is no message loop behind the dialog's own.
    BOOL InitInstance() override;
    // --browsers
    std::optional<std::string> AnswerOption(std::string_view option) override;
    std::string HelpWithNothing() override;
    int ExitInstance() override;

    // Runs the batch window on the pages that the file cacheurl.xml in the program's folder names:
    //
    //     <URLCACHE><URL>address</URL>…</URLCACHE>
    //
    // Without a window, after a message box, if the file cannot be read.
    void RunCurrentPages();

private:
    void RunMainDialog();
    void RunAllPages();

    CSideWindows m_sideWindows; // of the main dialog
    std::optional<BrowserToolbar> m_toolbar;
};
