#include "base/Paths.h"

#include "platform/files/InstallHome.h"
#include "platform/files/Path.h"

std::string GetInstallFolder()
{
    char path[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    path[MAX_PATH - 1] = '\0';
    const std::string text = path;
    const std::size_t separator = text.rfind(kPathSeparator);
    return separator == std::string::npos ? text : text.substr(0, separator + 1);
}

std::string PathInFolder(std::string_view folder, std::string_view name)
{
    std::string path(folder);
    if (!path.empty() && path.back() != kPathSeparator)
        path += kPathSeparator;
    return path.append(name);
}

std::string ItemNameOf(std::string_view url)
{
    const std::size_t slash = url.rfind('/');
    return std::string(slash == std::string_view::npos ? url : url.substr(slash + 1));
}
