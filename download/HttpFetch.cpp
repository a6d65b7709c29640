#include "download/DownloadRun.h"

#include "base/ContentLength.h"
#include "base/InternetHandles.h"
#include "base/Paths.h"
#include "download/FetchedBody.h"
#include "download/ProgressFields.h"

#include <limits>
#include <optional>

namespace
{

constexpr std::size_t kShortestUrl = 8;
constexpr DWORD kBlockSize = 4096;

struct HostAndPath
{
    std::string host;
    std::string path; // with query and fragment
};

// Parts that the address lacks stay empty.
HostAndPath CrackUrl(const std::string& url)
{
    URL_COMPONENTSA parts;
    parts.dwStructSize = sizeof(parts);
    parts.dwSchemeLength = 1;
    parts.dwHostNameLength = 1;
    parts.dwUrlPathLength = 1;
    InternetCrackUrlA(url.c_str(), static_cast<DWORD>(url.size()), 0, &parts);
    HostAndPath result;
    if (parts.lpszHostName)
        result.host.assign(parts.lpszHostName, parts.dwHostNameLength);
    if (parts.lpszUrlPath)
        result.path = parts.lpszUrlPath; // up to the end of the address, whatever its length says
    return result;
}

// None for a size that no item can have.
std::optional<DWORD> PromisedSize(HINTERNET request)
{
    const std::optional<long long> size = ContentLengthOf(request);
    if (!size || *size < 0 || *size > static_cast<long long>(std::numeric_limits<DWORD>::max()))
        return std::nullopt;
    return static_cast<DWORD>(*size);
}

} // namespace

bool CDownloadRun::FetchByHttp(const std::string& url, HINTERNET internet)
{
    if (url.size() < kShortestUrl || !internet)
        return false;
    const auto [host, path] = CrackUrl(url);
    const CInternetHandle connection(
        InternetConnectA(internet, host.c_str(), INTERNET_INVALID_PORT_NUMBER, "", "", INTERNET_SERVICE_HTTP, 0, 0));
    if (!connection)
        return false;
    const CInternetHandle request(HttpOpenRequestA(connection.get(), "GET", path.c_str(), "HTTP/1.0", nullptr, nullptr,
                                                   INTERNET_FLAG_NO_CACHE_WRITE, 0));
    if (!request || !HttpSendRequestA(request.get(), nullptr, 0, nullptr, 0))
        return false;
    const std::optional<DWORD> size = PromisedSize(request.get());
    if (!size)
        return false;
    if (IsSizeFiltered(*size))
    {
        ShowFiltered(host, path);
        return false;
    }
    ShowItem(host, path, *size);
    CFetchedBody body(PathInFolder(m_setting.GetSaveFolder(), ""), *size);
    if (!body.IsAllocated())
        return true;
    ReceiveBody(request.get(), body);
    if (*size == 0 || !MayGoOn())
        return true;
    const std::string stored = SaveFetchedData(ItemNameOf(path), body);
    if (!stored.empty())
        OnFileStored(url, stored);
    return true;
}

// Bytes that never arrive stay zero. Bytes beyond the promised size are dropped, and so is the connection then: a
// server could send them for ever.
void CDownloadRun::ReceiveBody(HINTERNET request, CFetchedBody& body)
{
    char block[kBlockSize];
    DWORD count = 0;
    while (InternetReadFile(request, block, kBlockSize, &count) && MayGoOn())
    {
        if (count == 0)
        {
            ProgressFields().SetProgress(body.Size(), body.Size());
            break;
        }
        body.Append(block, count);
        ProgressFields().SetProgress(body.Received(), body.Size());
        if (body.Received() == body.Size())
            break;
    }
}

std::string CDownloadRun::SaveFetchedData(const std::string& name, CFetchedBody& body)
{
    return StoreInFreePlace(name, body.Size(), [&body](const std::string& path) { return body.Store(path); });
}
