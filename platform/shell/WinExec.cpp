#include "platform/shell/Process_p.h"
#include "platform/shell/Shell.h"

#include "platform/files/NativePath_p.h"
#include "platform/system/LastError.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <optional>
#include <string_view>

namespace
{

// Published: answers up to this number are errors.
constexpr UINT kStarted = 33;
constexpr UINT kNoResources = 0;

constexpr std::string_view kBlanks = " \t";

bool IsSchemeCharacter(char character)
{
    return std::isalnum(static_cast<unsigned char>(character)) || character == '+' || character == '-' ||
           character == '.';
}

// Takes the first word off the text; none if its quotes do not close.
std::optional<std::string> TakeWord(std::string_view& text)
{
    std::string word;
    bool quoted = false;
    std::size_t at = 0;
    for (; at < text.size() && (quoted || kBlanks.find(text[at]) == kBlanks.npos); ++at)
    {
        if (text[at] == '"')
            quoted = !quoted;
        else
            word += text[at];
    }
    text.remove_prefix(at);
    return quoted ? std::nullopt : std::optional(word);
}

void SkipBlanks(std::string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
}

// Nothing for a line that cannot be run.
std::vector<std::string> WordsOf(std::string_view line)
{
    std::vector<std::string> words;
    for (SkipBlanks(line); !line.empty(); SkipBlanks(line))
    {
        const bool address = PathIsURLA(std::string(line).c_str());
        if (address && words.empty())
            return {};
        if (address)
        {
            words.emplace_back(line);
            return words;
        }
        const auto word = TakeWord(line);
        if (!word)
            return {};
        words.push_back(*word);
    }
    return words.empty() || words.front().empty() ? std::vector<std::string>() : words;
}

UINT AnswerOf(int error)
{
    switch (error)
    {
    case 0:
        return kStarted;
    case ENOENT:
    case ENOTDIR:
        return ERROR_FILE_NOT_FOUND;
    case EACCES:
        return ERROR_ACCESS_DENIED;
    case EINVAL:
    case ENOEXEC:
        return ERROR_BAD_FORMAT;
    default:
        return kNoResources;
    }
}

} // namespace

BOOL PathIsURLA(const char* path)
{
    const std::string_view text = path ? path : "";
    const std::size_t colon = text.find(':');
    return colon != text.npos && colon > 1 && std::isalpha(static_cast<unsigned char>(text.front())) &&
           std::ranges::all_of(text.substr(0, colon), IsSchemeCharacter);
}

UINT WinExec(const char* commandLine, UINT)
{
    return AnswerOf(StartProcess(WordsOf(NativePath(commandLine ? commandLine : ""))));
}
