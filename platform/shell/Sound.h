// Sounds from files.
#pragma once

#include "platform/Types.h"
#include "platform/system/Library.h"

inline constexpr DWORD SND_SYNC = 0x00000;
inline constexpr DWORD SND_ASYNC = 0x00001;
inline constexpr DWORD SND_NODEFAULT = 0x00002; // always so: a sound that is not there is silent
inline constexpr DWORD SND_NOSTOP = 0x00010;    // not while another sound plays
inline constexpr DWORD SND_FILENAME = 0x20000;  // always so

// Plays a sound file with the desktop's player (pw-play, paplay or aplay, whichever is there), and stops the sound that
// plays already. Waits for its end without SND_ASYNC. A null name only stops. FALSE, and silence, if there is no such
// file or no player, for a sound of a module, and for any other flag. Any thread.
BOOL PlaySoundA(const char* name, HMODULE module, DWORD flags);
