// A browser reads every JSON file in its folder of policies:
//
//   {"RemoteDebuggingAllowed": false}
#include "platform/browser/devtools/Policies_p.h"

#include "platform/browser/Places_p.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace browsing::devtools
{
namespace
{

namespace fs = std::filesystem;

constexpr std::uintmax_t kLargestPolicy = 4 << 20;

struct PolicyFolder
{
    const char* browser;
    const char* folder;
};
constexpr PolicyFolder kPolicyFolders[] = {
    {"Chromium", "etc/chromium/policies"}, {"vantroy-browser", "etc/chromium/policies"},
    {"Chrome", "etc/opt/chrome/policies"}, {"Brave", "etc/brave/policies"},
    {"Edge", "etc/opt/edge/policies"},     {"Vivaldi", "etc/opt/vivaldi/policies"}};

bool Forbids(const fs::path& file)
{
    std::error_code error;
    if (fs::file_size(file, error) > kLargestPolicy || error)
        return false;
    std::ifstream stream(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    const auto policy = QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
    return policy.value("RemoteDebuggingAllowed").toBool(true) == false;
}

} // namespace

bool IsDebuggingForbidden(const std::string& browser)
{
    const char* root = std::getenv("VANTROY_POLICY_ROOT");
    for (const auto& [name, folder] : kPolicyFolders)
    {
        if (browser == name &&
            std::ranges::any_of(EntriesOf(fs::path(root ? root : "/") / folder / "managed"), Forbids))
            return true;
    }
    return false;
}

} // namespace browsing::devtools
