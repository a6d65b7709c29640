#include "download/DownloadRun.h"

#include "base/InternetHandles.h"
#include "base/Paths.h"
#include "download/ProgressFields.h"

#include "platform/files/MirrorFile.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>
#include <utility>

namespace
{

constexpr std::size_t kShortestUrl = 8;
constexpr DWORD kBlockSize = 4096;
constexpr DWORD kWriteSize = 8u << 20;

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

// The size that a response promises: 0 for a text without digits, none without the header or for a size that no item
// can have.
std::optional<DWORD> ContentLengthOf(HINTERNET request)
{
    char text[32] = {};
    DWORD room = sizeof(text);
    if (!HttpQueryInfoA(request, HTTP_QUERY_CONTENT_LENGTH, text, &room, nullptr))
        return std::nullopt;
    text[sizeof(text) - 1] = '\0';
    const long long size = std::atoll(text);
    if (size < 0 || size > static_cast<long long>(std::numeric_limits<DWORD>::max()))
        return std::nullopt;
    return static_cast<DWORD>(size);
}

// What is written is given back as it goes: the machine then takes the same pages for the file, where body and file
// side by side would need fresh ones for all of it.
bool WriteUp(CMirrorFile& file, const GlobalPtr<char>& data, DWORD size)
{
    for (DWORD done = 0; done < size;)
    {
        const DWORD count = std::min(kWriteSize, size - done);
        if (!file.Write(data.get() + done, count))
            return false;
        done += count;
        GlobalDiscard(data.get(), done);
    }
    return true;
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
    const std::optional<DWORD> size = ContentLengthOf(request.get());
    if (!size)
        return false;
    if (IsSizeFiltered(*size))
    {
        ShowFiltered(host, path);
        return false;
    }
    ShowItem(host, path, *size);
    GlobalPtr<char> body(static_cast<char*>(GlobalAlloc(GPTR, *size)));
    if (!body)
        return true;
    const DWORD received = ReceiveBody(request.get(), body.get(), *size);
    if (*size == 0 || !MayGoOn())
        return true;
    const std::string stored = SaveBody(ItemNameOf(path), std::move(body), received, *size);
    if (!stored.empty())
        OnFileStored(url, stored);
    return true;
}

// Bytes that never arrive stay zero. Bytes beyond the promised size are dropped, and so is the connection then: a
// server could send them for ever.
DWORD CDownloadRun::ReceiveBody(HINTERNET request, char* body, DWORD size)
{
    char block[kBlockSize];
    DWORD count = 0;
    DWORD received = 0;
    while (InternetReadFile(request, block, kBlockSize, &count) && MayGoOn())
    {
        if (count == 0)
        {
            ProgressFields().SetProgress(size, size);
            break;
        }
        const DWORD taken = std::min(count, size - received);
        std::memcpy(body + received, block, taken);
        received += taken;
        ProgressFields().SetProgress(received, size);
        if (received == size)
            break;
    }
    return received;
}

std::string CDownloadRun::SaveFetchedData(const std::string& name, GlobalPtr<char> data, DWORD size)
{
    return SaveBody(name, std::move(data), size, size);
}

// The zeros are a hole of the file: what a server promises and does not send takes no room on the disk. What is written
// once is not there for a second time, so a file whose place was taken meanwhile goes to the next one as it is.
std::string CDownloadRun::SaveBody(const std::string& name, GlobalPtr<char> data, DWORD received, DWORD size)
{
    CMirrorFile file;
    bool written = false;
    return StoreInFreePlace(name, size, [&](const std::string& path) {
        if (written)
            file.SetPlace(path);
        else if (file.Open(path, CMirrorFile::Place::Free))
            written = WriteUp(file, data, received) && file.SetLength(size);
        return written && file.Close();
    });
}
