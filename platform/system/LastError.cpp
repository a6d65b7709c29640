#include "platform/system/LastError.h"

#include "platform/com/Unknown.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <locale.h>

namespace
{

struct Meaning
{
    DWORD code;
    int error;
};

// The first line of a code gives its text; the first line of an errno gives its code.
constexpr Meaning kMeanings[] = {
    {ERROR_SUCCESS, 0},
    {ERROR_FILE_NOT_FOUND, ENOENT},
    {ERROR_PATH_NOT_FOUND, ENOENT}, // a folder on the way
    {ERROR_PATH_NOT_FOUND, ENOTDIR},
    {ERROR_PATH_NOT_FOUND, ELOOP},
    {ERROR_ACCESS_DENIED, EACCES},
    {ERROR_ACCESS_DENIED, EPERM},
    {ERROR_ACCESS_DENIED, EROFS},
    {ERROR_ACCESS_DENIED, EISDIR},
    {ERROR_ACCESS_DENIED, ETXTBSY},
    {ERROR_INVALID_HANDLE, EBADF},
    {ERROR_NOT_ENOUGH_MEMORY, ENOMEM},
    {ERROR_NOT_ENOUGH_MEMORY, EMFILE},
    {ERROR_NOT_ENOUGH_MEMORY, ENFILE},
    {ERROR_OUTOFMEMORY, ENOMEM},
    {ERROR_NOT_SAME_DEVICE, EXDEV},
    {ERROR_GEN_FAILURE, EIO},
    {ERROR_INVALID_PARAMETER, EINVAL},
    {ERROR_DISK_FULL, ENOSPC},
    {ERROR_DISK_FULL, EDQUOT},
    {ERROR_DISK_FULL, EFBIG},
    {ERROR_INSUFFICIENT_BUFFER, ENOBUFS},
    {ERROR_ALREADY_EXISTS, EEXIST},
    {ERROR_FILENAME_EXCED_RANGE, ENAMETOOLONG},
    {ERROR_OPERATION_ABORTED, ECANCELED},
    {ERROR_REQUEST_ABORTED, ECONNABORTED},
};

// Results of the object model that no code of the last error stands behind.
constexpr struct
{
    HRESULT result;
    const char* text;
} kResults[] = {
    {E_NOTIMPL, "Not implemented"},
    {E_NOINTERFACE, "No such interface supported"},
    {E_POINTER, "Invalid pointer"},
    {E_ABORT, "Operation aborted"},
    {E_FAIL, "Unspecified error"},
    {REGDB_E_CLASSNOTREG, "Class not registered"},
    {RPC_E_DISCONNECTED, "The object has disconnected from its clients"},
};

thread_local DWORD t_lastError = ERROR_SUCCESS;

const char* SystemText(int error)
{
    // The program's texts are English, so its system texts are.
    static const locale_t english = newlocale(LC_ALL_MASK, "C", nullptr);
    return english ? strerror_l(error, english) : nullptr;
}

const char* TextOf(DWORD code)
{
    constexpr DWORD kNotTheCode = 0xFFFF0000;
    const bool carriesCode = (code & kNotTheCode) == (static_cast<DWORD>(HRESULT_FROM_WIN32(1)) & kNotTheCode);
    const auto* meaning = std::ranges::find(kMeanings, carriesCode ? code & ~kNotTheCode : code, &Meaning::code);
    if (meaning != std::end(kMeanings))
        return SystemText(meaning->error);
    for (const auto& [result, text] : kResults)
        if (result == static_cast<HRESULT>(code))
            return text;
    return nullptr;
}

} // namespace

DWORD GetLastError()
{
    return t_lastError;
}

void SetLastError(DWORD code)
{
    t_lastError = code;
}

void SetLastErrorFromErrno(int error)
{
    const auto* found = std::ranges::find(kMeanings, error, &Meaning::error);
    SetLastError(found == std::end(kMeanings) ? ERROR_GEN_FAILURE : found->code);
}

DWORD FormatMessageA(DWORD flags, const void*, DWORD code, DWORD, char** buffer, DWORD, void*)
{
    constexpr DWORD kOffered =
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_SYSTEM;
    const char* text = flags == kOffered ? TextOf(code) : nullptr;
    *buffer = text ? strdup(text) : nullptr;
    return *buffer ? static_cast<DWORD>(std::strlen(*buffer)) : 0;
}

void* LocalFree(void* block)
{
    std::free(block);
    return nullptr;
}
