#include "tools/ThumbnailAlbum.h"

#include "base/FormatText.h"
#include "resources/ResourceIds.h"
#include "tools/QuenbyGallery.h"

#include "platform/com/ClassId.h"
#include "platform/com/Com.h"
#include "platform/system/LastError.h"
#include "platform/text/CodePage.h"
#include "platform/window/Resource.h"
#include "platform/window/WinApp.h"

#include <cstdio>
#include <string_view>

namespace
{

// Results that a component defines itself, as published: from the first one's number on.
constexpr DWORD kDispatchErrors = 0x80040200;
constexpr DWORD kLastDispatchError = 0x8004FFFF;

// With the terminating zero.
HRESULT ToWide(const char* text, std::wstring& wide)
{
    const int length = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    wide.resize(static_cast<std::size_t>(length));
    if (length == 0 || MultiByteToWideChar(CP_ACP, 0, text, -1, wide.data(), length) == 0)
        return HRESULT_FROM_WIN32(GetLastError());
    return S_OK;
}

HRESULT FindClass(const std::wstring& text, CLSID& clsid)
{
    return text.starts_with(L'{') ? CLSIDFromString(text.c_str(), &clsid) : CLSIDFromProgID(text.c_str(), &clsid);
}

HRESULT CreateGallery(CComPtr<IQuenbyGallery>& gallery)
{
    std::wstring name;
    CLSID clsid;
    CComPtr<IUnknown> object;
    HRESULT result = ToWide(kQuenbyGalleryProgId, name);
    if (SUCCEEDED(result))
        result = FindClass(name, clsid);
    if (SUCCEEDED(result))
        result =
            CoCreateInstance(clsid, nullptr, CLSCTX_ALL, IUnknown::kIid, reinterpret_cast<void**>(object.Receive()));
    if (SUCCEEDED(result))
        result = OleRun(object.Get());
    if (SUCCEEDED(result))
        result = object.QueryInterface(gallery);
    return result;
}

std::string SystemText(HRESULT result)
{
    constexpr std::string_view kLineEnd = "\r\n";
    char* allocated = nullptr;
    FormatMessageA(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                   static_cast<DWORD>(result), 0, &allocated, 0, nullptr);
    std::string text = allocated ? allocated : "";
    LocalFree(allocated);
    if (text.ends_with(kLineEnd))
        text.resize(text.size() - kLineEnd.size());
    return text;
}

// 0 for none.
DWORD DispatchErrorOf(DWORD result)
{
    return result >= kDispatchErrors && result <= kLastDispatchError ? (result - kDispatchErrors) & 0xFFFF : 0;
}

} // namespace

std::string ComErrorText(const _com_error& error)
{
    if (std::string text = SystemText(error.Error()); !text.empty())
        return text;
    const auto result = static_cast<DWORD>(error.Error());
    if (const DWORD number = DispatchErrorOf(result))
        return FormatText(IDS_ALBUM_DISPATCH_ERROR, "%d", std::to_string(number));
    char digits[2 * sizeof(result) + 1];
    std::snprintf(digits, sizeof(digits), "%X", result);
    return FormatText(IDS_ALBUM_UNKNOWN_ERROR, "%0lX", digits);
}

void CreateThumbnailAlbum()
{
    CComPtr<IQuenbyGallery> gallery;
    if (FAILED(CreateGallery(gallery)))
    {
        AfxMessageBox(AfxLoadString(IDS_ALBUM_NO_COMPONENT), MB_OK | MB_ICONEXCLAMATION);
        return;
    }
    try
    {
        _com_util_CheckError(gallery->CreateAlbum());
    }
    catch (const _com_error& error)
    {
        AfxMessageBox(ComErrorText(error), MB_OK | MB_ICONEXCLAMATION);
    }
}
