#include "settings/PagePath.h"

#include "platform/text/Mbcs.h"

#include <string_view>

namespace
{

constexpr std::string_view kSeparator = "::";

void ReplaceAll(std::string& text, std::string_view from, std::string_view to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

// The first separator that no odd number of backslashes stands before; the length if there is none. A backslash may be
// the second byte of a character, which is none.
std::size_t FindSeparator(const std::string& path)
{
    std::size_t backslashes = 0;
    for (const char* at = path.c_str(); *at; at = CharNextA(at))
    {
        if (backslashes % 2 == 0 && std::string_view(at).starts_with(kSeparator))
            return static_cast<std::size_t>(at - path.c_str());
        backslashes = *at == '\\' ? backslashes + 1 : 0;
    }
    return path.size();
}

} // namespace

std::string NextPathComponent(std::string& path)
{
    const std::size_t end = FindSeparator(path);
    std::string name = path.substr(0, end);
    path.erase(0, end + kSeparator.size());
    ReplaceAll(name, "\\::", "::");
    ReplaceAll(name, "\\\\", "\\");
    return name;
}
