// The answer, shortened:
//
//   {"Browser": "Chrome/156.0.8078.79", "webSocketDebuggerUrl": "ws://127.0.0.1:34959/devtools/browser/06e2f9d3-…"}
#include "platform/browser/devtools/VersionQuery_p.h"

#include "platform/system/Thread.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

#include <curl/curl.h>
#include <memory>

namespace devtools
{
namespace
{

constexpr long kConnectMs = 2000;
constexpr long kAnswerMs = 5000;
constexpr std::size_t kLargestAnswer = 65536;

std::size_t Append(char* data, std::size_t size, std::size_t count, void* body)
{
    auto& text = *static_cast<std::string*>(body);
    if (text.size() + size * count > kLargestAnswer)
        return 0;
    text.append(data, size * count);
    return size * count;
}

int IsCancelled(void*, curl_off_t, curl_off_t, curl_off_t, curl_off_t)
{
    return IsSynchronousIoCancelled() ? 1 : 0;
}

void SetOptions(CURL* curl, const std::string& url, std::string& body)
{
    curl_easy_setopt(curl, CURLOPT_URL, url.c_str());
    curl_easy_setopt(curl, CURLOPT_PROTOCOLS_STR, "http");
    curl_easy_setopt(curl, CURLOPT_PROXY, ""); // the environment's would be asked even for this machine
    curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT_MS, kConnectMs);
    curl_easy_setopt(curl, CURLOPT_TIMEOUT_MS, kAnswerMs);
    curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, Append);
    curl_easy_setopt(curl, CURLOPT_WRITEDATA, &body);
    curl_easy_setopt(curl, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(curl, CURLOPT_XFERINFOFUNCTION, IsCancelled);
}

// Only the path is taken: the server does not decide where we connect to.
std::string SocketPath(const std::string& body)
{
    const QJsonObject answer = QJsonDocument::fromJson(QByteArray::fromStdString(body)).object();
    return QUrl(answer.value("webSocketDebuggerUrl").toString()).path(QUrl::FullyEncoded).toStdString();
}

} // namespace

Version AskVersion(const std::string& authority)
{
    const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl(curl_easy_init(), curl_easy_cleanup);
    std::string body;
    if (!curl)
        return {E_OUTOFMEMORY, false, {}};
    SetOptions(curl.get(), "http://" + authority + "/json/version", body);
    const CURLcode code = curl_easy_perform(curl.get());
    long status = 0;
    curl_easy_getinfo(curl.get(), CURLINFO_RESPONSE_CODE, &status);
    if (code == CURLE_ABORTED_BY_CALLBACK)
        return {E_ABORT, false, {}};
    if (code != CURLE_OK)
        return {};
    return {S_OK, status == 404, status == 200 ? SocketPath(body) : std::string()};
}

} // namespace devtools
