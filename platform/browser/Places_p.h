// Where browsers may be waiting.
#pragma once

#include "platform/com/Unknown.h"

#include <filesystem>
#include <string>
#include <vector>

class QUrl;

namespace browsing
{

enum class Protocol
{
    DevTools,
    BiDi,
};

// "http://127.0.0.1:9222", "ws://127.0.0.1:9222/devtools/browser/…", "ws://127.0.0.1:9222/session", or a folder.
struct Place
{
    std::string text;
    bool named = false;    // by VANTROY_BROWSER: its browser has to answer
    std::string name = {}; // of the browser, for a data folder that nobody named
    Protocol protocol = Protocol::DevTools;

    bool operator==(const Place&) const = default;
};

// The places of VANTROY_BROWSER, or else the data folders of all browsers known, whether or not they stand. Reads the
// environment and the disk.
std::vector<Place> FindPlaces();

bool IsAddress(const std::string& place);

// The folders that the desktop gives a user's programs, from the environment.
struct UserFolders
{
    std::filesystem::path home;
    std::filesystem::path config;
    std::filesystem::path data;
};
UserFolders FindUserFolders();
// What stands in a folder, in the order of the names, as far as it can be read; and the folders of it.
std::vector<std::filesystem::path> EntriesOf(const std::filesystem::path& folder);
std::vector<std::filesystem::path> FoldersIn(const std::filesystem::path& folder);
// The start of what a browser has written down, 4 KB at most. Empty for anything but a regular file: a pipe would keep
// us waiting.
std::string ReadNote(const std::filesystem::path& path);

// "127.0.0.1:9222" of an address, with the number in place of a name, so that no name is ever looked up; empty if it
// is not of this machine.
std::string LoopbackAuthority(const QUrl& url);
std::string LoopbackAuthority(int port);

} // namespace browsing
