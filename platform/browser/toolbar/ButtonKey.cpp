#include "platform/browser/toolbar/ButtonKey_p.h"

#include "platform/system/LastError.h"
#include "platform/system/Registry.h"

#include <charconv>
#include <vector>

namespace toolbar
{
namespace
{

// The published class of a button that runs a program.
constexpr const char* kRunsProgram = "{1FBA04EE-3024-11D2-8F1F-0000F87ABD16}";

class OpenKey
{
public:
    OpenKey(HKEY above, const char* name)
    {
        RegOpenKeyA(above, name, &m_key);
    }
    ~OpenKey()
    {
        RegCloseKey(m_key);
    }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;

    HKEY Handle() const
    {
        return m_key;
    }
    std::string Value(const char* name) const
    {
        DWORD size = 0;
        if (RegQueryValueExA(m_key, name, nullptr, nullptr, nullptr, &size) != ERROR_SUCCESS)
            return {};
        std::vector<char> text(size);
        if (RegQueryValueExA(m_key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(text.data()), &size) !=
            ERROR_SUCCESS)
            return {};
        return text.data();
    }

private:
    HKEY m_key = HKEY::Null;
};

// "/home/ann/vantroy/vantroy,128"
int IconNumber(const std::string& icon)
{
    int number = 0;
    const std::size_t comma = icon.rfind(',');
    if (comma != std::string::npos)
        std::from_chars(icon.data() + comma + 1, icon.data() + icon.size(), number);
    return number;
}

} // namespace

std::optional<Button> ReadButton()
{
    const OpenKey buttons(HKEY_LOCAL_MACHINE, kButtonKeys);
    char name[256];
    DWORD size = sizeof name;
    for (DWORD index = 0;
         RegEnumKeyExA(buttons.Handle(), index, name, &size, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++index)
    {
        const OpenKey key(buttons.Handle(), name);
        const Button button{key.Value("ButtonText"), key.Value("Exec"), IconNumber(key.Value("Icon"))};
        if (key.Value("CLSID") == kRunsProgram && !button.program.empty())
            return button;
        size = sizeof name;
    }
    return std::nullopt;
}

} // namespace toolbar
