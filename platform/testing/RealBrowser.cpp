#include "platform/testing/RealBrowser.h"

#include <csignal>
#include <cstdlib>
#include <curl/curl.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <memory>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace
{

namespace fs = std::filesystem;
using namespace std::chrono_literals;

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

// In a process group of its own, so that Kill reaches all its processes and no others.
pid_t Spawn(std::vector<std::string> arguments)
{
    std::vector<char*> argv;
    for (std::string& argument : arguments)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    for (const int output : {STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&files, output, "/dev/null", O_WRONLY, 0);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
    pid_t process = 0;
    const int error = posix_spawnp(&process, argv[0], &files, &attributes, argv.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    if (error != 0)
        throw std::runtime_error("chromium cannot be started");
    return process;
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
    std::string folder = (fs::temp_directory_path() / "vantroy-browser-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr)
        throw std::runtime_error("no folder for the browser");
    m_folder = folder;
    try
    {
        Start(url);
    }
    catch (const std::runtime_error&)
    {
        Remove();
        throw;
    }
}

RealBrowser::~RealBrowser()
{
    Remove();
}

void RealBrowser::Remove()
{
    Kill();
    std::error_code ignored;
    fs::remove_all(m_folder, ignored);
}

void RealBrowser::Start(const std::string& url)
{
    const fs::path portFile = fs::path(m_folder) / "DevToolsActivePort";
    fs::remove(portFile);
    m_process = Spawn(Arguments(m_folder, url));
    const auto deadline = std::chrono::steady_clock::now() + 30s;
    std::string path;
    for (;;)
    {
        std::ifstream file(portFile);
        if (file >> m_port >> path)
            return;
        if (std::chrono::steady_clock::now() > deadline || waitpid(m_process, nullptr, WNOHANG) != 0)
            throw std::runtime_error("chromium does not come up");
        std::this_thread::sleep_for(10ms);
    }
}

void RealBrowser::Kill()
{
    if (m_process <= 0)
        return;
    kill(-m_process, SIGKILL);
    waitpid(m_process, nullptr, 0);
    m_process = 0;
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
