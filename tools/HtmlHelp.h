// The way to the desktop's help viewer, which is loaded when it is first needed.
#pragma once

#include "platform/shell/HelpViewer.h"
#include "platform/system/Library.h"

// One for the life of the program; user-interface thread. Where there was no viewer once, none is looked for again.
class CHtmlHelp
{
public:
    // What the viewer answers (see HtmlHelpFunction); 0 if there is none.
    DWORD HtmlHelp(HWND owner, const char* file, UINT command, DWORD_PTR data);

private:
    HMODULE m_module = nullptr; // stays loaded
    HtmlHelpFunction m_function = nullptr;
    bool m_bFailed = false;
};
