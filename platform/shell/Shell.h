// What the desktop does on a program's behalf.
#pragma once

#include "platform/Types.h"
#include "platform/window/Handle.h"

// Opens a folder or an address in the desktop's own program for it (xdg-open), started as a process of its own and
// never through a command shell. Only the verbs "open", which null stands for, and "explore" exist; `parameters` and
// `directory` must be null; `showCommand` is not read. Above 32 if it could be started. A file that does not exist
// fails without a message.
long ShellExecuteA(HWND owner, const char* verb, const char* file, const char* parameters, const char* directory,
                   int showCommand);

// Flags of SHELLEXECUTEINFOA.
inline constexpr DWORD SEE_MASK_FLAG_NO_UI = 0x400; // no message of a failure: always so

struct SHELLEXECUTEINFOA
{
    DWORD cbSize = sizeof(SHELLEXECUTEINFOA);
    DWORD fMask = 0;
    HWND hwnd;
    const char* lpVerb = nullptr;
    const char* lpFile = nullptr;
    const char* lpParameters = nullptr;
    const char* lpDirectory = nullptr;
    int nShow = 0;
    long hInstApp = 0; // out: what ShellExecuteA answers
};

// ShellExecuteA with its arguments in a record. FALSE if nothing was started.
BOOL ShellExecuteExA(SHELLEXECUTEINFOA* info);

// Runs a command line, without a command shell: words are parted by blanks and tabs, double quotes group and are taken
// off, no other character means anything. The first word behind the program that PathIsURLA takes for an address is one
// argument with all that follows it, as it stands: nothing in an address becomes an option or an argument of its own.
//
// Above 31 if it could be started; `showCommand` is not read. Else 0 for a lack of resources or a code of LastError.h:
// ERROR_BAD_FORMAT for a line without a program, with an address as the program, or with a quote that does not close.
UINT WinExec(const char* commandLine, UINT showCommand);

// Whether a text begins with a scheme: a letter, one or more letters, digits, "+", "-" or ".", and a colon.
BOOL PathIsURLA(const char* path);
