#include "platform/system/Library.h"

#include "platform/system/LastError.h"
#include "platform/text/Ascii_p.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <mutex>

namespace
{

struct IgnoringCase
{
    bool operator()(const std::string& one, const std::string& other) const
    {
        return std::ranges::lexicographical_compare(one, other, {}, LowerAscii, LowerAscii);
    }
};

struct Library
{
    std::map<std::string, FARPROC> functions;
    int nLoads = 0;
};

std::mutex g_mutex; // guards the table
std::map<std::string, Library, IgnoringCase> g_libraries;

// Null for one that is not loaded. The table is held.
Library* Loaded(HMODULE library)
{
    const auto found =
        std::ranges::find_if(g_libraries, [library](const auto& entry) { return &entry.second == library; });
    return found != g_libraries.end() && found->second.nLoads > 0 ? &found->second : nullptr;
}

// As published: no text stands at so low an address.
std::string NameOf(const char* function)
{
    const auto number = reinterpret_cast<std::uintptr_t>(function);
    return number <= std::numeric_limits<WORD>::max() ? OrdinalName(static_cast<WORD>(number)) : function;
}

} // namespace

HMODULE LoadLibraryA(const char* name)
{
    const std::lock_guard lock(g_mutex);
    const auto found = g_libraries.find(name);
    if (found == g_libraries.end())
    {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    ++found->second.nLoads;
    return &found->second;
}

FARPROC GetProcAddress(HMODULE library, const char* function)
{
    const std::lock_guard lock(g_mutex);
    if (const Library* loaded = Loaded(library))
    {
        if (const auto found = loaded->functions.find(NameOf(function)); found != loaded->functions.end())
            return found->second;
    }
    SetLastError(ERROR_PROC_NOT_FOUND);
    return nullptr;
}

const char* MAKEINTRESOURCEA(WORD number)
{
    return reinterpret_cast<const char*>(static_cast<std::uintptr_t>(number));
}

std::string OrdinalName(WORD ordinal)
{
    return '#' + std::to_string(ordinal);
}

bool FreeLibrary(HMODULE library)
{
    const std::lock_guard lock(g_mutex);
    Library* loaded = Loaded(library);
    if (loaded)
        --loaded->nLoads;
    return loaded != nullptr;
}

void RegisterLibrary(const std::string& name, std::map<std::string, FARPROC> functions)
{
    const std::lock_guard lock(g_mutex);
    g_libraries.erase(name);
    if (!functions.empty())
        g_libraries[name].functions = std::move(functions);
}
