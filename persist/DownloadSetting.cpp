#include "persist/DownloadSetting.h"

#include "base/Product.h"

#include "platform/files/Path.h"
#include "platform/system/LastError.h"
#include "platform/system/Registry.h"

namespace
{

// Empty if the registry does not name the install folder.
std::string DefaultSaveFolder()
{
    HKEY key = HKEY::Null;
    if (RegOpenKeyA(HKEY_CURRENT_USER, kProductKey, &key) != static_cast<LONG>(ERROR_SUCCESS))
        return {};
    char path[MAX_PATH] = {};
    DWORD size = sizeof(path) - 1;
    const LONG result = RegQueryValueExA(key, "InstallPath", nullptr, nullptr, reinterpret_cast<BYTE*>(path), &size);
    RegCloseKey(key);
    if (result != static_cast<LONG>(ERROR_SUCCESS))
        return {};
    return std::string(path) + kPathSeparator + "Download";
}

} // namespace

CDownloadSetting::CDownloadSetting()
{
    m_szSaveFolder.Set(SaveFolder(DefaultSaveFolder()));
    Load();
}

std::string CDownloadSetting::GetSaveFolder() const
{
    return m_szSaveFolder.Get()->c_str();
}
