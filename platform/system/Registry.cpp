#include "platform/system/Registry.h"

#include "platform/files/InstallHome.h"
#include "platform/files/InstallHome_p.h"
#include "platform/system/LastError.h"
#include "platform/system/RegistryFile_p.h"
#include "platform/system/Registry_p.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <type_traits>

namespace
{

constexpr std::ptrdiff_t kMostLevels = 512; // as published
constexpr DWORD kWriteAccess = 0x00006;     // to set values and to make sub-keys

struct Key
{
    HKEY root = HKEY::Null;
    std::string path; // from the root, without a backslash at either end
};

// The open keys. Numbers are not used twice, so a closed handle stays unknown.
class OpenKeys
{
public:
    HKEY Add(Key key)
    {
        const std::lock_guard lock(m_mutex);
        const auto handle = static_cast<HKEY>(++m_last);
        m_keys.emplace(handle, std::move(key));
        return handle;
    }

    // False for a handle that is neither open nor a root.
    bool Find(HKEY handle, Key& key)
    {
        if (handle == HKEY_CLASSES_ROOT || handle == HKEY_CURRENT_USER || handle == HKEY_LOCAL_MACHINE)
        {
            key = Key{handle, {}};
            return true;
        }
        const std::lock_guard lock(m_mutex);
        const auto found = m_keys.find(handle);
        if (found == m_keys.end())
            return false;
        key = found->second;
        return true;
    }

    bool Remove(HKEY handle)
    {
        const std::lock_guard lock(m_mutex);
        return m_keys.erase(handle) != 0;
    }

private:
    std::mutex m_mutex;
    std::map<HKEY, Key> m_keys;
    std::uintptr_t m_last = 0;
};

OpenKeys& Keys()
{
    static OpenKeys keys;
    return keys;
}

RegistryFile FileOf(HKEY root)
{
    const char* name = root == HKEY_CURRENT_USER   ? kUserRegistryFile
                       : root == HKEY_CLASSES_ROOT ? kClassesRegistryFile
                                                   : kMachineRegistryFile;
    return RegistryFile(InstallHomeFolder() + '/' + name);
}

// False for a handle that is not open, and for a key below the deepest level of the registry.
bool FindSubKey(HKEY handle, const char* subKey, Key& key)
{
    if (!Keys().Find(handle, key))
        return false;
    std::string below = subKey ? subKey : "";
    below.erase(0, below.find_first_not_of('\\'));
    below.erase(below.find_last_not_of('\\') + 1);
    if (!key.path.empty() && !below.empty())
        key.path += '\\';
    key.path += below;
    return std::ranges::count(key.path, '\\') < kMostLevels;
}

// Runs a reading of an open key on the root's file.
template <class Reading>
LONG ReadKey(HKEY handle, const Reading& reading)
{
    Key key;
    if (!Keys().Find(handle, key))
        return ERROR_INVALID_HANDLE;
    RegistryFile file = FileOf(key.root);
    const LONG error = file.Load();
    return error == ERROR_SUCCESS ? reading(file, key.path) : error;
}

// What a change answers; ERROR_SUCCESS for one that cannot fail.
template <class Change>
LONG Result(const Change& change, RegistryFile& file)
{
    if constexpr (std::is_void_v<decltype(change(file))>)
    {
        change(file);
        return ERROR_SUCCESS;
    }
    else
    {
        return change(file);
    }
}

// Runs a change of the root's file; no other writer comes between its reading and its writing.
template <class Change>
LONG ChangeFile(HKEY root, const Change& change)
{
    const RegistryLock lock(InstallHomeFolder());
    if (!lock.IsHeld())
        return static_cast<LONG>(GetLastError());
    RegistryFile file = FileOf(root);
    if (const LONG error = file.Load(); error != ERROR_SUCCESS)
        return error;
    if (const LONG error = Result(change, file); error != ERROR_SUCCESS)
        return error;
    return file.Save();
}

std::mutex g_watcherMutex;
std::shared_ptr<const RegistryWatcher> g_watcher;

std::shared_ptr<const RegistryWatcher> Watcher()
{
    const std::lock_guard lock(g_watcherMutex);
    return g_watcher;
}

// The same for an open key.
template <class Change>
LONG ChangeKey(const Key& key, const Change& change)
{
    const LONG error = ChangeFile(key.root, change);
    if (const auto watcher = Watcher(); error == ERROR_SUCCESS && watcher)
        (*watcher)(key.root, key.path);
    return error;
}

std::atomic<RegistryGuard> g_guard = nullptr;

bool IsRefused(const Key& key)
{
    const RegistryGuard guard = g_guard;
    return guard && !guard(key.root, key.path.c_str());
}

} // namespace

LONG RegOpenKeyA(HKEY key, const char* subKey, HKEY* result)
{
    *result = HKEY::Null;
    Key found;
    if (!FindSubKey(key, subKey, found))
        return ERROR_INVALID_HANDLE;
    RegistryFile file = FileOf(found.root);
    if (const LONG error = file.Load(); error != ERROR_SUCCESS)
        return error;
    if (!found.path.empty() && !file.HasKey(found.path))
        return ERROR_FILE_NOT_FOUND;
    *result = Keys().Add(std::move(found));
    return ERROR_SUCCESS;
}

LONG RegCreateKeyA(HKEY key, const char* subKey, HKEY* result)
{
    if (RegOpenKeyA(key, subKey, result) == ERROR_SUCCESS)
        return ERROR_SUCCESS;
    Key made;
    if (!FindSubKey(key, subKey, made))
        return ERROR_INVALID_HANDLE;
    const LONG error = ChangeKey(made, [&](RegistryFile& file) { file.AddKey(made.path); });
    if (error == ERROR_SUCCESS)
        *result = Keys().Add(std::move(made));
    return error;
}

LONG RegOpenKeyExA(HKEY key, const char* subKey, DWORD, DWORD access, HKEY* result)
{
    *result = HKEY::Null;
    Key wanted;
    if (!FindSubKey(key, subKey, wanted))
        return ERROR_INVALID_HANDLE;
    return (access & kWriteAccess) && IsRefused(wanted) ? ERROR_ACCESS_DENIED : RegOpenKeyA(key, subKey, result);
}

LONG RegCreateKeyExA(HKEY key, const char* subKey, DWORD, char*, DWORD, DWORD access, void*, HKEY* result, DWORD*)
{
    const LONG error = RegOpenKeyExA(key, subKey, 0, access, result);
    return error == static_cast<LONG>(ERROR_FILE_NOT_FOUND) ? RegCreateKeyA(key, subKey, result) : error;
}

LONG RegEnumKeyExA(HKEY key, DWORD index, char* name, DWORD* size, DWORD*, char*, DWORD*, void*)
{
    return ReadKey(key, [&](const RegistryFile& file, const std::string& path) -> LONG {
        const std::vector<std::string> names = file.SubKeys(path);
        if (index >= names.size())
            return ERROR_NO_MORE_ITEMS;
        const std::string& text = names[index];
        if (*size <= text.size())
            return ERROR_MORE_DATA;
        std::memcpy(name, text.c_str(), text.size() + 1);
        *size = static_cast<DWORD>(text.size());
        return ERROR_SUCCESS;
    });
}

LONG RegDeleteKeyA(HKEY key, const char* subKey)
{
    Key wanted;
    if (!FindSubKey(key, subKey, wanted) || wanted.path.empty())
        return ERROR_INVALID_HANDLE;
    if (IsRefused(wanted))
        return ERROR_ACCESS_DENIED;
    return ChangeKey(wanted, [&wanted](RegistryFile& file) -> LONG {
        if (!file.HasKey(wanted.path))
            return ERROR_FILE_NOT_FOUND;
        if (!file.SubKeys(wanted.path).empty())
            return ERROR_ACCESS_DENIED;
        file.RemoveKey(wanted.path);
        return ERROR_SUCCESS;
    });
}

void SetRegistryGuard(RegistryGuard guard)
{
    g_guard = guard;
}

void SetRegistryWatcher(RegistryWatcher watcher)
{
    const std::lock_guard lock(g_watcherMutex);
    g_watcher = watcher ? std::make_shared<const RegistryWatcher>(std::move(watcher)) : nullptr;
}

LONG RegQueryValueExA(HKEY key, const char* name, DWORD*, DWORD* type, BYTE* data, DWORD* size)
{
    return ReadKey(key, [&](const RegistryFile& file, const std::string& path) -> LONG {
        const auto text = file.Value(path, name ? name : "");
        if (!text)
            return ERROR_FILE_NOT_FOUND;
        if (type)
            *type = REG_SZ;
        const DWORD room = size ? *size : 0;
        const auto needed = static_cast<DWORD>(text->size() + 1);
        if (size)
            *size = needed;
        if (!data)
            return ERROR_SUCCESS;
        if (room < needed)
            return ERROR_INSUFFICIENT_BUFFER;
        std::memcpy(data, text->c_str(), needed);
        return ERROR_SUCCESS;
    });
}

LONG RegQueryValueA(HKEY key, const char* subKey, char* data, LONG* size)
{
    HKEY below = HKEY::Null;
    if (const LONG error = RegOpenKeyA(key, subKey, &below); error != ERROR_SUCCESS)
        return error;
    auto room = static_cast<DWORD>(size ? *size : 0);
    const LONG error = RegQueryValueExA(below, nullptr, nullptr, nullptr, reinterpret_cast<BYTE*>(data), &room);
    if (size)
        *size = static_cast<LONG>(room);
    RegCloseKey(below);
    return error;
}

LONG RegSetValueExA(HKEY key, const char* name, DWORD, DWORD type, const BYTE* data, DWORD size)
{
    Key found;
    if (!Keys().Find(key, found))
        return ERROR_INVALID_HANDLE;
    if (type != REG_SZ || (!data && size != 0))
        return ERROR_INVALID_PARAMETER;
    std::string text(reinterpret_cast<const char*>(data), size);
    if (text.ends_with('\0'))
        text.pop_back();
    return ChangeKey(found, [&](RegistryFile& file) { file.SetValue(found.path, name ? name : "", text); });
}

LONG RegCloseKey(HKEY key)
{
    Key found;
    if (!Keys().Find(key, found))
        return ERROR_INVALID_HANDLE;
    Keys().Remove(key);
    return ERROR_SUCCESS;
}
