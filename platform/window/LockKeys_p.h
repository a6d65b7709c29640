// Which of the keyboard's locks are on.
#pragma once

inline constexpr unsigned kCapsLock = 1;
inline constexpr unsigned kNumLock = 2;
inline constexpr unsigned kScrollLock = 4;

// The locks that are on, joined; none where the desktop does not tell (all but X). One round trip to the display.
unsigned LocksThatAreOn();
