#include "platform/browser/Places_p.h"

#include "platform/browser/Protocols_p.h"
#include "platform/files/InstallHome_p.h"

#include <QHostAddress>
#include <QUrl>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace browsing
{
namespace
{

namespace fs = std::filesystem;

constexpr std::size_t kLargestNote = 4096;

std::string Environment(const char* name)
{
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::string Trimmed(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

std::vector<Place> NamedPlaces(const std::string& list)
{
    std::vector<Place> places;
    std::istringstream parts(list);
    for (std::string part; std::getline(parts, part, ',');)
    {
        if (part = Trimmed(part); part.empty())
            continue;
        if (!IsAddress(part))
            part = (StartFolder() / part).string();
        places.push_back({part, true, {}, ProtocolOf(part)});
    }
    return places;
}

std::string Authority(const QString& host, int port)
{
    QUrl url;
    url.setHost(host);
    url.setPort(port);
    return url.authority().toStdString();
}

} // namespace

std::vector<Place> FindPlaces()
{
    const std::vector<Place> named = NamedPlaces(Environment("VANTROY_BROWSER"));
    return named.empty() ? KnownPlaces(FindUserFolders()) : named;
}

bool IsAddress(const std::string& place)
{
    return place.find("://") != std::string::npos;
}

UserFolders FindUserFolders()
{
    const fs::path home = Environment("HOME");
    const fs::path config = Environment("XDG_CONFIG_HOME");
    return {home, config.is_absolute() ? config : home / ".config", UserDataFolder()};
}

// The operator of the iterator would throw where the disk fails.
std::vector<fs::path> EntriesOf(const fs::path& folder)
{
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); entry != fs::directory_iterator(); entry.increment(error))
        entries.push_back(entry->path());
    std::ranges::sort(entries);
    return entries;
}

std::vector<fs::path> FoldersIn(const fs::path& folder)
{
    std::vector<fs::path> folders = EntriesOf(folder);
    std::error_code none;
    std::erase_if(folders, [&none](const fs::path& path) { return !fs::is_directory(path, none); });
    return folders;
}

std::string ReadNote(const fs::path& path)
{
    std::error_code none;
    if (!fs::is_regular_file(path, none))
        return {};
    std::ifstream file(path, std::ios::binary);
    std::string text(kLargestNote, '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(file.gcount()));
    return text;
}

std::string LoopbackAuthority(const QUrl& url)
{
    if (url.host() == "localhost")
        return Authority("127.0.0.1", url.port(80));
    return QHostAddress(url.host()).isLoopback() ? Authority(url.host(), url.port(80)) : std::string();
}

std::string LoopbackAuthority(int port)
{
    return Authority("127.0.0.1", port);
}

} // namespace browsing
