// A profile folder tells of its browser in the file WebDriverBiDiServer.json, which stays behind when the browser has
// crashed:
//
//   {"ws_host": "127.0.0.1", "ws_port": 46741}
#include "platform/browser/bidi/Endpoints_p.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

#include <filesystem>

namespace browsing::bidi
{
namespace
{

namespace fs = std::filesystem;

constexpr const char* kServerFile = "WebDriverBiDiServer.json";
constexpr const char* kPreferences = "prefs.js"; // in a profile that was used
constexpr const char* kPath = "/session";

bool IsProfile(const fs::path& folder)
{
    std::error_code none;
    return HasServerFile(folder) || fs::is_regular_file(folder / kPreferences, none);
}

void AddProfiles(const fs::path& folder, std::vector<Place>& places)
{
    for (const fs::path& profile : FoldersIn(folder))
    {
        if (IsProfile(profile))
            places.push_back({profile.string(), false, "Firefox", Protocol::BiDi});
    }
}

HRESULT SocketUrl(const QUrl& address, std::string& socketUrl)
{
    const std::string authority = address.isValid() ? LoopbackAuthority(address) : std::string();
    if (authority.empty() || address.scheme() != "ws")
        return E_INVALIDARG;
    socketUrl = "ws://" + authority + kPath;
    return S_OK;
}

HRESULT ResolveProfile(const fs::path& folder, std::string& socketUrl)
{
    const QByteArray text = QByteArray::fromStdString(ReadNote(folder / kServerFile));
    const QJsonObject server = QJsonDocument::fromJson(text).object();
    const int port = server.value("ws_port").toInt();
    if (port <= 0 || port > 65535)
        return RPC_E_DISCONNECTED;
    QUrl address;
    address.setScheme("ws");
    address.setHost(server.value("ws_host").toString());
    address.setPort(port);
    return SocketUrl(address, socketUrl);
}

} // namespace

std::vector<Place> KnownPlaces(const UserFolders& folders)
{
    std::vector<Place> places;
    // Where vantroy-browser has its Firefox.
    places.push_back({(folders.data / "vantroy/firefox").string(), false, "vantroy-browser --firefox", Protocol::BiDi});
    for (const fs::path& folder : {folders.home / ".mozilla/firefox", folders.config / "mozilla/firefox",
                                   folders.home / "snap/firefox/common/.mozilla/firefox",
                                   folders.home / ".var/app/org.mozilla.firefox/.mozilla/firefox"})
        AddProfiles(folder, places);
    return places;
}

bool IsPlace(const std::string& text)
{
    if (!IsAddress(text))
        return IsProfile(text);
    const QUrl url(QString::fromStdString(text), QUrl::StrictMode);
    return url.scheme() == "ws" && url.path() == kPath;
}

HRESULT Resolve(const Place& place, std::string& socketUrl)
{
    return IsAddress(place.text) ? SocketUrl(QUrl(QString::fromStdString(place.text), QUrl::StrictMode), socketUrl)
                                 : ResolveProfile(place.text, socketUrl);
}

bool HasServerFile(const std::string& folder)
{
    std::error_code none;
    return fs::is_regular_file(fs::path(folder) / kServerFile, none);
}

} // namespace browsing::bidi
