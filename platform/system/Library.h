// Libraries that are found by name while the program runs. What can be found is a table of the process, in which
// nothing stands unless it was entered. Any thread.
#pragma once

#include "platform/Types.h"

#include <map>
#include <string>

// Errors of the calls below; the system has no text for them.
inline constexpr DWORD ERROR_MOD_NOT_FOUND = 126;
inline constexpr DWORD ERROR_PROC_NOT_FOUND = 127;

// A library that is loaded; null is none.
using HMODULE = const void*;
// To be cast to the type that the library documents for the name.
using FARPROC = void (*)();

// Each success is to be met by one FreeLibrary. Null, with ERROR_MOD_NOT_FOUND, if there is no such library. Names are
// compared without regard to capitals.
HMODULE LoadLibraryA(const char* name);
// Null, with ERROR_PROC_NOT_FOUND, if the library has no such function or is not loaded. A function is named, or told
// by its ordinal with MAKEINTRESOURCEA.
FARPROC GetProcAddress(HMODULE library, const char* function);
// A number in the place of a name, as published: a pointer below 0x10000.
const char* MAKEINTRESOURCEA(WORD number);
// False for one that is not loaded.
bool FreeLibrary(HMODULE library);

// Ours: enters a library; no functions take it out, and it counts as loaded no more. A function with an ordinal alone
// stands under OrdinalName.
void RegisterLibrary(const std::string& name, std::map<std::string, FARPROC> functions);
std::string OrdinalName(WORD ordinal);
