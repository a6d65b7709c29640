// The answers, shortened:
//
//   {"Browser": "Chrome/156.0.8078.79", "webSocketDebuggerUrl": "ws://127.0.0.1:34959/devtools/browser/06e2f9d3-…"}
//   [{"type": "page", "title": "Coast", "url": "http://127.0.0.1/coast/"}, {"type": "iframe", …}]
#include "platform/browser/devtools/PortQuery_p.h"

#include "platform/system/Thread.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

#include <algorithm>
#include <curl/curl.h>
#include <memory>

namespace browsing::devtools
{
namespace
{

constexpr long kConnectMs = 2000;
constexpr long kAnswerMs = 5000;
constexpr std::size_t kLargestAnswer = 32 << 20; // addresses of pages can be long

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

struct Answer
{
    HRESULT result = RPC_E_DISCONNECTED; // S_OK if there is one
    long status = 0;
    std::string body = {};
};

Answer Ask(const std::string& url)
{
    const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl(curl_easy_init(), curl_easy_cleanup);
    if (!curl)
        return {E_OUTOFMEMORY};
    Answer answer;
    SetOptions(curl.get(), url, answer.body);
    const CURLcode code = curl_easy_perform(curl.get());
    curl_easy_getinfo(curl.get(), CURLINFO_RESPONSE_CODE, &answer.status);
    if (code == CURLE_OK)
        answer.result = S_OK;
    else if (code == CURLE_ABORTED_BY_CALLBACK)
        answer.result = E_ABORT;
    return answer;
}

// Only the path is taken: the server does not decide where we connect to.
std::string SocketPath(const std::string& body)
{
    const QJsonObject answer = QJsonDocument::fromJson(QByteArray::fromStdString(body)).object();
    return QUrl(answer.value("webSocketDebuggerUrl").toString()).path(QUrl::FullyEncoded).toStdString();
}

// The browser's own tools are no pages of the user.
bool IsPage(const QJsonObject& target)
{
    return target.value("type").toString() == "page" && !target.value("url").toString().startsWith("devtools://");
}

} // namespace

Version AskVersion(const std::string& authority)
{
    const Answer answer = Ask("http://" + authority + "/json/version");
    if (FAILED(answer.result))
        return {answer.result, false, {}};
    return {S_OK, answer.status == 404, answer.status == 200 ? SocketPath(answer.body) : std::string()};
}

int CountPages(const std::string& authority)
{
    const Answer answer = Ask("http://" + authority + "/json/list");
    if (FAILED(answer.result) || answer.status != 200)
        return 0;
    const QJsonArray targets = QJsonDocument::fromJson(QByteArray::fromStdString(answer.body)).array();
    return static_cast<int>(
        std::ranges::count_if(targets, [](const QJsonValue& target) { return IsPage(target.toObject()); }));
}

} // namespace browsing::devtools
