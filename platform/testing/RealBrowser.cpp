#include "platform/testing/RealBrowser.h"

#include <curl/curl.h>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <unistd.h>
#include <vector>

namespace
{

namespace fs = std::filesystem;

std::vector<std::string> Arguments(const std::string& folder, const std::string& url)
{
    std::vector<std::string> arguments{"chromium",
                                       "--headless",
                                       "--disable-gpu",
                                       "--disable-quic",
                                       "--disable-dev-shm-usage",
                                       "--no-first-run",
                                       "--disable-background-networking",
                                       "--disable-component-update",
                                       "--disable-sync",
                                       "--user-data-dir=" + folder,
                                       "--remote-debugging-port=0"};
    if (geteuid() == 0)
        arguments.emplace_back("--no-sandbox");
    arguments.push_back(url);
    return arguments;
}

std::size_t Append(char* data, std::size_t size, std::size_t count, void* body)
{
    static_cast<std::string*>(body)->append(data, size * count);
    return size * count;
}

std::string Request(const char* method, const std::string& url)
{
    const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl(curl_easy_init(), curl_easy_cleanup);
    std::string body;
    curl_easy_setopt(curl.get(), CURLOPT_URL, url.c_str());
    curl_easy_setopt(curl.get(), CURLOPT_CUSTOMREQUEST, method);
    curl_easy_setopt(curl.get(), CURLOPT_PROXY, "");
    curl_easy_setopt(curl.get(), CURLOPT_TIMEOUT, 30L);
    curl_easy_setopt(curl.get(), CURLOPT_FAILONERROR, 1L);
    curl_easy_setopt(curl.get(), CURLOPT_WRITEFUNCTION, Append);
    curl_easy_setopt(curl.get(), CURLOPT_WRITEDATA, &body);
    if (curl_easy_perform(curl.get()) != CURLE_OK)
        throw std::runtime_error("the browser refuses " + url);
    return body;
}

std::string Escaped(const std::string& url)
{
    char* const escaped = curl_easy_escape(nullptr, url.c_str(), static_cast<int>(url.size()));
    std::string text = escaped;
    curl_free(escaped);
    return text;
}

} // namespace

RealBrowser::RealBrowser(const std::string& url)
{
    Start(url);
}

void RealBrowser::Start(const std::string& url)
{
    const fs::path portFile = fs::path(DataFolder()) / "DevToolsActivePort";
    fs::remove(portFile);
    m_process.Start(Arguments(DataFolder(), url), [&] {
        std::string path;
        std::ifstream file(portFile);
        return static_cast<bool>(file >> m_port >> path);
    });
}

std::string RealBrowser::Endpoint() const
{
    return "http://127.0.0.1:" + std::to_string(m_port);
}

std::string RealBrowser::OpenPage(const std::string& url)
{
    const std::string answer = Request("PUT", Endpoint() + "/json/new?" + Escaped(url));
    const std::string key = "\"id\": \"";
    const std::size_t start = answer.find(key);
    if (start == std::string::npos)
        throw std::runtime_error("the browser opens no page");
    return answer.substr(start + key.size(), answer.find('"', start + key.size()) - start - key.size());
}

void RealBrowser::ClosePage(const std::string& target)
{
    Request("GET", Endpoint() + "/json/close/" + target);
}
