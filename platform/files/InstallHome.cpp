#include "platform/files/InstallHome.h"

#include "platform/files/File.h"
#include "platform/files/FileCalls.h"
#include "platform/files/InstallHome_p.h"
#include "platform/files/NativePath_p.h"
#include "platform/system/Registry.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <pwd.h>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace
{

const fs::path g_startFolder = [] {
    std::error_code error;
    return fs::current_path(error);
}();

std::string Environment(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

// Whether the folder is the program's alone. Root can write into those that all programs share, and must not.
bool IsOwnFolder(const fs::path& folder)
{
    return !folder.empty() && folder != "/usr/bin" && folder != "/usr/local/bin" && access(folder.c_str(), W_OK) == 0;
}

fs::path HomeFolder()
{
    if (const std::string named = Environment("VANTROY_HOME"); !named.empty())
        return named;
    const fs::path own = ExecutableFolder();
    return IsOwnFolder(own) ? own : UserDataFolder() / "vantroy";
}

} // namespace

const fs::path& StartFolder()
{
    return g_startFolder;
}

fs::path ExecutablePath()
{
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error);
}

fs::path ExecutableFolder()
{
    return ExecutablePath().parent_path();
}

fs::path UserDataFolder()
{
    if (const std::string data = Environment("XDG_DATA_HOME"); data.starts_with('/'))
        return data;
    std::string home = Environment("HOME");
    if (home.empty())
        if (const passwd* user = getpwuid(getuid()))
            home = user->pw_dir;
    return fs::path(home) / ".local" / "share";
}

std::string InstallHomeFolder()
{
    std::string folder = (g_startFolder / HomeFolder()).lexically_normal().string();
    while (folder.size() > 1 && folder.back() == '/')
        folder.pop_back();
    return PathFromNative(folder);
}

void PrepareInstallHome()
{
    const std::string home = InstallHomeFolder();
    std::error_code error;
    fs::create_directories(NativePath(home), error);
    CFileStatus status;
    if (CFile::GetStatus(home + '/' + kUserRegistryFile, status))
        return;
    HKEY key = HKEY::Null;
    RegCreateKeyA(HKEY_CURRENT_USER, "SOFTWARE\\Orlenta\\Vantroy", &key);
    RegSetValueExA(key, "InstallPath", 0, REG_SZ, reinterpret_cast<const BYTE*>(home.c_str()),
                   static_cast<DWORD>(home.size() + 1));
    RegCloseKey(key);
    CreateDirectoryA((home + "/Download").c_str(), nullptr);
}

DWORD GetModuleFileNameA(void*, char* path, DWORD size)
{
    const std::string name = InstallHomeFolder() + "/vantroy";
    if (size == 0)
        return 0;
    const DWORD length = std::min<DWORD>(static_cast<DWORD>(name.size()), size - 1);
    std::memcpy(path, name.data(), length);
    path[length] = '\0';
    return length < name.size() ? size : length;
}
