// A data folder tells of its browser in the file DevToolsActivePort, which stays behind when the browser has gone:
//
//   34959
//   /devtools/browser/06e2f9d3-eaca-407b-af1b-759fb93ea3fb
#include "platform/browser/devtools/Endpoints_p.h"

#include "platform/browser/devtools/PortQuery_p.h"

#include <QHostAddress>
#include <QUrl>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace devtools
{
namespace
{

namespace fs = std::filesystem;

constexpr const char* kPortFile = "DevToolsActivePort";

struct KnownFolder
{
    const char* folder;
    const char* name;
};
constexpr KnownFolder kFolders[] = {{"chromium", "Chromium"},
                                    {"google-chrome", "Chrome"},
                                    {"BraveSoftware/Brave-Browser", "Brave"},
                                    {"vivaldi", "Vivaldi"},
                                    {"microsoft-edge", "Edge"}};

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
        if (part = Trimmed(part); !part.empty())
            places.push_back({part, true});
    }
    return places;
}

void AddKnownFolders(const fs::path& config, std::vector<Place>& places)
{
    for (const auto& [folder, name] : kFolders)
        places.push_back({(config / folder).string(), false, name});
}

std::vector<Place> KnownPlaces()
{
    const fs::path home = Environment("HOME");
    const fs::path config = Environment("XDG_CONFIG_HOME");
    const fs::path data = Environment("XDG_DATA_HOME");
    std::vector<Place> places;
    // Where vantroy-browser has its browser.
    const fs::path own = (data.is_absolute() ? data : home / ".local/share") / "vantroy/browser";
    places.push_back({own.string(), false, "vantroy-browser"});
    AddKnownFolders(config.is_absolute() ? config : home / ".config", places);
    places.push_back({(home / "snap/chromium/common/chromium").string(), false, "Chromium"});
    std::vector<fs::path> sandboxes;
    std::error_code none;
    for (const fs::directory_entry& sandbox : fs::directory_iterator(home / ".var/app", none))
        sandboxes.push_back(sandbox.path());
    std::ranges::sort(sandboxes);
    for (const fs::path& sandbox : sandboxes)
        AddKnownFolders(sandbox / "config", places);
    return places;
}

// The address with its number in place of a name, so that no name is ever looked up; empty if it is not of this
// machine.
QString LoopbackHost(const QUrl& url)
{
    if (url.host() == "localhost")
        return "127.0.0.1";
    const QHostAddress address(url.host());
    return address.isLoopback() ? url.host() : QString();
}

std::string Authority(const QString& host, int port)
{
    QUrl url;
    url.setHost(host);
    url.setPort(port);
    return url.authority().toStdString();
}

HRESULT ResolveAddress(const std::string& text, Endpoint& endpoint)
{
    const QUrl url(QString::fromStdString(text), QUrl::StrictMode);
    const QString host = LoopbackHost(url);
    if (host.isEmpty() || (url.scheme() != "http" && url.scheme() != "ws"))
        return E_INVALIDARG;
    const std::string authority = Authority(host, url.port(80));
    std::string path = url.path(QUrl::FullyEncoded).toStdString();
    if (url.scheme() != "ws" || path.size() <= 1)
    {
        const Version version = AskVersion(authority);
        if (FAILED(version.result) || version.socketPath.empty())
            return FAILED(version.result) ? version.result : RPC_E_DISCONNECTED;
        path = version.socketPath;
    }
    endpoint = {authority, "ws://" + authority + path, false};
    return S_OK;
}

bool ReadPortFile(const fs::path& folder, int& port, std::string& path)
{
    std::ifstream file(folder / kPortFile);
    std::string line;
    if (!std::getline(file, line) || line.size() > 5 || line.find_first_not_of("0123456789") != std::string::npos)
        return false;
    port = std::atoi(line.c_str());
    return port > 0 && port < 65536 && std::getline(file, path) && path.starts_with("/devtools/browser/");
}

// A profile's folder lies in that of its browser, which holds the file.
bool FindPort(const std::string& text, int& port, std::string& path)
{
    const fs::path folder = text.ends_with('/') ? text.substr(0, text.size() - 1) : text;
    return ReadPortFile(folder, port, path) || ReadPortFile(folder.parent_path(), port, path);
}

// A port that answers for another browser than the file's is one that was given anew. 404 is the answer of a browser
// whose user has to agree: only the path of the file works there.
HRESULT ResolveFolder(const std::string& text, Endpoint& endpoint)
{
    int port = 0;
    std::string path;
    if (!FindPort(text, port, path))
        return RPC_E_DISCONNECTED;
    const std::string authority = Authority("127.0.0.1", port);
    const Version version = AskVersion(authority);
    if (FAILED(version.result))
        return version.result;
    if (!version.notFound && version.socketPath != path)
        return RPC_E_DISCONNECTED;
    endpoint = {authority, "ws://" + authority + path, version.notFound};
    return S_OK;
}

} // namespace

std::vector<Place> FindPlaces()
{
    const std::vector<Place> named = NamedPlaces(Environment("VANTROY_BROWSER"));
    return named.empty() ? KnownPlaces() : named;
}

HRESULT Resolve(const Place& place, Endpoint& endpoint)
{
    const bool isAddress = place.text.find("://") != std::string::npos;
    return isAddress ? ResolveAddress(place.text, endpoint) : ResolveFolder(place.text, endpoint);
}

bool HasPortFile(const std::string& folder)
{
    int port = 0;
    std::string path;
    return FindPort(folder, port, path);
}

} // namespace devtools
