// The help viewer of the desktop: the library "hhctrl.ocx", whose one function is found by its ordinal.
#pragma once

#include "platform/Types.h"
#include "platform/window/Handle.h"

#include <string>

inline constexpr const char* kHelpViewerLibrary = "hhctrl.ocx";
inline constexpr WORD kHtmlHelpOrdinal = 14;

// Commands of the function; the viewer knows no other.
inline constexpr UINT HH_DISPLAY_TOPIC = 0;

// Shows a manual. `file` names it as a compiled one, "…/name.chm", which need not exist: shown is the file index.html
// of the folder "…/name" or "…/manual", else of the manual that is installed with the program, in the desktop's own
// program for it (xdg-open). `owner` and `data` are not read. 0 if there is no manual, or nothing that shows it.
using HtmlHelpFunction = DWORD (*)(HWND owner, const char* file, UINT command, DWORD_PTR data);

// The folder of the manual that is installed with the program, relative to the executable.
std::string InstalledManualFolder();

// Enters the viewer into the table of libraries, once at the start of the program.
void RegisterHelpViewer(const std::string& installedManual = InstalledManualFolder());
