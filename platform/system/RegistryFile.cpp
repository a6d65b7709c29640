// The registry file: one for each root, registry-user.ini and registry-machine.ini in the home folder, made to be read
// and mended by hand. A line in brackets opens a key, written from its root with backslashes; the lines below it are
// the key's values, name=text. The nameless value of a key has nothing before its "=".
//
//     # Vantroy's settings of this user
//     [SOFTWARE\Orlenta\Vantroy]
//     InstallPath=/home/ann/vantroy
//
// A byte that would be read as something else is written as "%" and two hexadecimal digits: controls and "%"
// everywhere, also "=" in a name, and "#" or "[" where a name begins with it. Nothing is trimmed: blanks belong to the
// text. Lines that begin with "#", empty lines and lines that make no sense are passed over when reading and kept when
// writing. The first of two equal keys or names counts.
#include "platform/system/RegistryFile_p.h"

#include "platform/files/File.h"
#include "platform/files/MirrorFile.h"
#include "platform/files/NativePath_p.h"
#include "platform/system/LastError.h"
#include "platform/text/Ascii_p.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <unistd.h>

namespace
{

// A registry of ours is a few hundred bytes; a file this big is not one.
constexpr std::size_t kLongestFile = 1 << 20;

constexpr std::size_t kNone = std::string::npos;

std::string Escaped(std::string_view text, std::string_view special, std::string_view specialAtStart = {})
{
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string line;
    for (const char byte : text)
    {
        const auto value = static_cast<unsigned char>(byte);
        const bool atStart = line.empty() && specialAtStart.find(byte) != kNone;
        if (value >= 0x20 && value != 0x7F && byte != '%' && special.find(byte) == kNone && !atStart)
            line += byte;
        else
            line.append({'%', kDigits[value >> 4], kDigits[value & 15]});
    }
    return line;
}

std::string Unescaped(std::string_view line)
{
    std::string text;
    for (; !line.empty(); line.remove_prefix(1))
    {
        unsigned value = 0;
        if (line.size() >= 3 && line[0] == '%' &&
            std::from_chars(line.data() + 1, line.data() + 3, value, 16).ptr == line.data() + 3)
        {
            text += static_cast<char>(value);
            line.remove_prefix(2);
        }
        else
        {
            text += line[0];
        }
    }
    return text;
}

bool IsKeyLine(std::string_view line)
{
    return line.size() >= 2 && line.front() == '[' && line.back() == ']';
}

std::string KeyOf(std::string_view line)
{
    return Unescaped(line.substr(1, line.size() - 2));
}

std::string NameLine(const std::string& name)
{
    return Escaped(name, "=", "#[");
}

std::vector<std::string> SplitLines(std::string_view content)
{
    std::vector<std::string> lines;
    while (!content.empty())
    {
        const std::size_t end = std::min(content.find('\n'), content.size());
        std::string_view line = content.substr(0, end);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines.emplace_back(line);
        content.remove_prefix(std::min(end + 1, content.size()));
    }
    return lines;
}

bool ReadWhole(const std::string& path, std::string& content)
{
    CFile file;
    if (!file.Open(path, CFile::modeRead))
        return false;
    if (file.GetLength() > kLongestFile)
    {
        SetLastError(ERROR_GEN_FAILURE);
        return false;
    }
    content.resize(file.GetLength());
    std::size_t got = 0;
    if (!file.Read(content.data(), content.size(), got))
        return false;
    content.resize(got);
    return true;
}

} // namespace

RegistryFile::RegistryFile(std::string path) : m_path(std::move(path))
{}

LONG RegistryFile::Load()
{
    std::string content;
    if (!ReadWhole(m_path, content) && GetLastError() != ERROR_FILE_NOT_FOUND)
        return static_cast<LONG>(GetLastError());
    m_lines = SplitLines(content);
    return ERROR_SUCCESS;
}

LONG RegistryFile::Save() const
{
    std::string content;
    for (const std::string& line : m_lines)
        content.append(line).append("\n");
    CMirrorFile file;
    const bool written =
        file.Open(m_path) && file.Write(content.data(), content.size()) && file.Flush() && file.Close();
    return static_cast<LONG>(written ? ERROR_SUCCESS : GetLastError());
}

bool RegistryFile::HasKey(const std::string& key) const
{
    const std::string above = key + '\\';
    return std::ranges::any_of(m_lines, [&](const std::string& line) {
        if (!IsKeyLine(line))
            return false;
        const std::string found = KeyOf(line);
        return SameButForCapitals(found, key) || SameButForCapitals(found.substr(0, above.size()), above);
    });
}

void RegistryFile::AddKey(const std::string& key)
{
    if (FindKey(key) == kNone)
        m_lines.push_back('[' + Escaped(key, {}) + ']');
}

void RegistryFile::RemoveKey(const std::string& key)
{
    bool inside = false;
    std::erase_if(m_lines, [&](const std::string& line) {
        if (IsKeyLine(line))
            inside = SameButForCapitals(KeyOf(line), key);
        return inside && !line.empty() && !line.starts_with('#');
    });
    const std::size_t above = key.rfind('\\');
    if (above != kNone && !HasKey(key.substr(0, above)))
        AddKey(key.substr(0, above));
}

std::vector<std::string> RegistryFile::SubKeys(const std::string& key) const
{
    const std::string above = key.empty() ? key : key + '\\';
    std::vector<std::string> names;
    for (const std::string& line : m_lines)
    {
        const std::string found = IsKeyLine(line) ? KeyOf(line) : std::string();
        if (found.size() <= above.size() || !SameButForCapitals(found.substr(0, above.size()), above))
            continue;
        const std::string name = found.substr(above.size(), found.find('\\', above.size()) - above.size());
        if (std::ranges::none_of(names, [&name](const std::string& other) { return SameButForCapitals(name, other); }))
            names.push_back(name);
    }
    return names;
}

std::optional<std::string> RegistryFile::Value(const std::string& key, const std::string& name) const
{
    const std::size_t at = FindValue(key, name);
    if (at == kNone)
        return std::nullopt;
    return Unescaped(std::string_view(m_lines[at]).substr(m_lines[at].find('=') + 1));
}

void RegistryFile::SetValue(const std::string& key, const std::string& name, const std::string& text)
{
    const std::string line = NameLine(name) + '=' + Escaped(text, {});
    const std::size_t at = FindValue(key, name);
    if (at != kNone)
    {
        m_lines[at] = line;
        return;
    }
    AddKey(key);
    m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(EndOfValues(FindKey(key))), line);
}

// Behind the last value of the key at that line, before what separates it from the next one.
std::size_t RegistryFile::EndOfValues(std::size_t key) const
{
    std::size_t end = key + 1;
    for (std::size_t i = end; i < m_lines.size() && !IsKeyLine(m_lines[i]); ++i)
    {
        if (!m_lines[i].empty() && !m_lines[i].starts_with('#'))
            end = i + 1;
    }
    return end;
}

std::size_t RegistryFile::FindKey(const std::string& key) const
{
    for (std::size_t i = 0; i < m_lines.size(); ++i)
        if (IsKeyLine(m_lines[i]) && SameButForCapitals(KeyOf(m_lines[i]), key))
            return i;
    return kNone;
}

std::size_t RegistryFile::FindValue(const std::string& key, const std::string& name) const
{
    const std::size_t start = FindKey(key);
    if (start == kNone)
        return kNone;
    for (std::size_t i = start + 1; i < m_lines.size() && !IsKeyLine(m_lines[i]); ++i)
    {
        const std::string_view line = m_lines[i];
        const std::size_t end = line.find('=');
        if (end != kNone && !line.starts_with('#') && SameButForCapitals(Unescaped(line.substr(0, end)), name))
            return i;
    }
    return kNone;
}

RegistryLock::RegistryLock(const std::string& home)
    : m_descriptor(open(NativePath(home + "/registry.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666))
{
    if (m_descriptor < 0)
    {
        SetLastErrorFromErrno(errno);
        return;
    }
    while (flock(m_descriptor, LOCK_EX) != 0 && errno == EINTR)
    {}
}

RegistryLock::~RegistryLock()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}
