// A data folder tells of its browser in the file DevToolsActivePort, which stays behind when the browser has gone:
//
//   34959
//   /devtools/browser/06e2f9d3-eaca-407b-af1b-759fb93ea3fb
#include "platform/browser/devtools/Endpoints_p.h"

#include "platform/browser/devtools/PortQuery_p.h"

#include <QUrl>

#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace browsing::devtools
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

void AddKnownFolders(const fs::path& config, std::vector<Place>& places)
{
    for (const auto& [folder, name] : kFolders)
        places.push_back({(config / folder).string(), false, name});
}

HRESULT ResolveAddress(const std::string& text, Endpoint& endpoint)
{
    const QUrl url(QString::fromStdString(text), QUrl::StrictMode);
    const std::string authority = LoopbackAuthority(url);
    if (authority.empty() || (url.scheme() != "http" && url.scheme() != "ws"))
        return E_INVALIDARG;
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
    std::istringstream file(ReadNote(folder / kPortFile));
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
    const std::string authority = LoopbackAuthority(port);
    const Version version = AskVersion(authority);
    if (FAILED(version.result))
        return version.result;
    if (!version.notFound && version.socketPath != path)
        return RPC_E_DISCONNECTED;
    endpoint = {authority, "ws://" + authority + path, version.notFound};
    return S_OK;
}

} // namespace

std::vector<Place> KnownPlaces(const UserFolders& folders)
{
    std::vector<Place> places;
    // Where vantroy-browser has its browser.
    places.push_back({(folders.data / "vantroy/browser").string(), false, "vantroy-browser"});
    AddKnownFolders(folders.config, places);
    places.push_back({(folders.home / "snap/chromium/common/chromium").string(), false, "Chromium"});
    for (const fs::path& sandbox : FoldersIn(folders.home / ".var/app"))
        AddKnownFolders(sandbox / "config", places);
    return places;
}

HRESULT Resolve(const Place& place, Endpoint& endpoint)
{
    return IsAddress(place.text) ? ResolveAddress(place.text, endpoint) : ResolveFolder(place.text, endpoint);
}

bool HasPortFile(const std::string& folder)
{
    int port = 0;
    std::string path;
    return FindPort(folder, port, path);
}

} // namespace browsing::devtools
