// The registry's files in the home folder: the first one's absence tells a home that was never used.
#pragma once

inline constexpr const char* kUserRegistryFile = "registry-user.ini";
inline constexpr const char* kMachineRegistryFile = "registry-machine.ini";
inline constexpr const char* kClassesRegistryFile = "registry-classes.ini";
