// What the home folder goes by: where the program was started, where the executable stands, and the registry's files,
// of which the first one's absence tells a home that was never used.
#pragma once

#include <filesystem>

inline constexpr const char* kUserRegistryFile = "registry-user.ini";
inline constexpr const char* kMachineRegistryFile = "registry-machine.ini";
inline constexpr const char* kClassesRegistryFile = "registry-classes.ini";

// Native; empty if the machine does not tell.
// Where the user's relative names begin. The working folder is another one as soon as a run has entered its save
// folder.
const std::filesystem::path& StartFolder();
std::filesystem::path ExecutablePath();
std::filesystem::path ExecutableFolder();
// $XDG_DATA_HOME or what stands for it.
std::filesystem::path UserDataFolder();
