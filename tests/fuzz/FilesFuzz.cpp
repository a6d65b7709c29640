// Any content of the files that the program reads, any head of a response, any command line. The first byte of an input
// chooses which; the rest is the content.

#include "app/PageList.h"
#include "app/RunMode.h"
#include "base/UrlList.h"
#include "persist/DownloadSetting.h"
#include "persist/HistoryStore.h"

#include "platform/files/InstallHome.h"
#include "platform/internet/CurlLine_p.h"
#include "platform/internet/Internet.h"
#include "platform/internet/ResponseHead_p.h"
#include "platform/internet/UrlRules_p.h"
#include "platform/system/CommandLine.h"
#include "platform/system/CommandLine_p.h"
#include "platform/system/LastError.h"
#include "platform/system/Registry.h"
#include "platform/testing/TempHome.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace
{

void Require(bool isTrue, const char* what)
{
    if (isTrue)
        return;
    std::fprintf(stderr, "not so: %s\n", what);
    std::abort();
}

// What is written of it reads the same again.
void ReadSettings(const TempHome& home, const std::string& content)
{
    home.Write("config.xml", content);
    CDownloadSetting setting;
    setting.Load();
    Require(setting.Save(), "settings can be saved");
    const std::string saved = home.Read("config.xml");
    CDownloadSetting again;
    Require(again.Load() && again.Save(), "saved settings can be read");
    Require(home.Read("config.xml") == saved, "settings stay what they are");
}

// Text behind a zero, where no reader looks, also not for what is appended to it.
bool HidesText(const std::string& content)
{
    const std::size_t zero = std::min(content.find('\0'), content.size());
    return content.find_first_not_of(std::string("\0 \t\r\n", 5), zero) != std::string::npos;
}

// A record that is appended to a file that can be read leaves it so.
void ReadHistory(const TempHome& home, const std::string& content)
{
    constexpr std::int32_t kNoon = 1056456000; // of that day, in whatever zone
    home.Write("History/2003-06-24", content);
    CHistoryStore store;
    store.LoadAll();
    const std::size_t read = store.GetItems().size();
    CHistoryItem item;
    item.SetPageUrl("http://the page/");
    item.SetTime(kNoon);
    item.AddFile({});
    item.m_files[0].SetUrl("http://page/a.jpg");
    CHistoryStore added;
    added.AddItem(item);
    added.MarkFileDone("http://page/a.jpg", "/a.jpg");
    added.SaveItems();
    store.LoadAll();
    Require(read == 0 || store.GetItems().size() >= read, "records stay");
    Require(read == 0 || HidesText(content) ||
                std::ranges::find(store.GetItems(), "http://the page/", &CHistoryItem::GetPageUrl) !=
                    store.GetItems().end(),
            "an appended record is read");
}

void ReadPages(const TempHome& home, const std::string& content)
{
    home.Write("cacheurl.xml", content);
    CUrlList pages;
    const bool failed = !ReadPageList(pages).empty();
    Require(!failed || pages.IsEmpty(), "a list that cannot be read has no pages");
}

std::vector<std::string> KeysOfTheMachine()
{
    std::vector<std::string> names;
    char name[300];
    DWORD size = sizeof name;
    for (DWORD i = 0; RegEnumKeyExA(HKEY_LOCAL_MACHINE, i, name, &size, nullptr, nullptr, nullptr, nullptr) == 0; ++i)
    {
        names.emplace_back(name);
        size = sizeof name;
    }
    return names;
}

// A value that is set is read, and the keys beside it stay.
void ReadRegistry(const TempHome& home, const std::string& content)
{
    constexpr const char* kValue = "%1\n=";
    home.Write("registry-machine.ini", content);
    const std::vector<std::string> keys = KeysOfTheMachine();
    HKEY key = HKEY::Null;
    if (RegCreateKeyA(HKEY_LOCAL_MACHINE, "a\\[b]#%", &key) != static_cast<LONG>(ERROR_SUCCESS))
        return; // a file that is too long
    RegSetValueExA(key, "=v", 0, REG_SZ, reinterpret_cast<const BYTE*>(kValue), 5);
    char text[16] = {};
    DWORD size = sizeof text;
    RegQueryValueExA(key, "=v", nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size);
    Require(std::string(text) == kValue, "a value that is set is read");
    RegCloseKey(key);
    const std::vector<std::string> after = KeysOfTheMachine();
    for (const std::string& name : keys)
        Require(std::ranges::find(after, name) != after.end(), "keys stay");
}

void ReadHead(const std::string& content)
{
    ResponseHead head;
    std::string_view rest = content;
    while (!rest.empty() && head.AddLine(rest.substr(0, rest.find('\n') + 1)) != ResponseHead::State::TooLong)
        rest.remove_prefix(std::min(rest.find('\n'), rest.size() - 1) + 1);
    head.BodyLength();
    const std::string target = ResolveRedirect("http://host/a/b?c", head.RedirectTarget().value_or(content));
    Require(target.empty() || target.starts_with("http://") || target.starts_with("https://"), "a redirect is HTTP");
    URL_COMPONENTSA parts;
    parts.dwHostNameLength = parts.dwUrlPathLength = 1;
    if (!InternetCrackUrlA(content.c_str(), 0, 0, &parts))
        return;
    const std::string path = RequestPath({parts.lpszUrlPath, parts.dwUrlPathLength});
    Require(path.find_first_of(" \r\n") == std::string::npos, "a path is one word of the request");
    IsHostName({parts.lpszHostName, parts.dwHostNameLength});
}

void ReadCommandLine(std::string content)
{
    std::vector<char*> arguments;
    for (std::size_t start = 0; start <= content.size(); start = content.find('\0', start) + 1)
    {
        arguments.push_back(content.data() + start);
        if (content.find('\0', start) == std::string::npos)
            break;
    }
    const int count = static_cast<int>(arguments.size());
    FindStartRequest(count, arguments.data());
    SetCommandLine(count, arguments.data());
    RunModeOf(GetCommandLineA());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    static const TempHome home;
    PrepareInstallHome();
    if (size == 0)
        return 0;
    const std::string content(reinterpret_cast<const char*>(data) + 1, size - 1);
    switch (data[0] % 6)
    {
    case 0:
        ReadSettings(home, content);
        break;
    case 1:
        ReadHistory(home, content);
        break;
    case 2:
        ReadPages(home, content);
        break;
    case 3:
        ReadRegistry(home, content);
        break;
    case 4:
        ReadHead(content);
        break;
    default:
        ReadCommandLine(content);
    }
    return 0;
}
