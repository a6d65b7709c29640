#include "platform/testing/HttpTestServer.h"

#include <arpa/inet.h>
#include <condition_variable>
#include <cstdlib>
#include <map>
#include <mutex>
#include <netinet/tcp.h>
#include <set>
#include <stdexcept>
#include <string_view>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace
{

constexpr std::size_t kLongestHead = 1 << 20;

int Listen()
{
    const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (listener < 0 || bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener, 128) != 0)
        throw std::runtime_error("no loopback port for a test server");
    return listener;
}

UINT PortOf(int listener)
{
    sockaddr_in address = {};
    socklen_t size = sizeof address;
    getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.sin_port);
}

bool SendAll(int connection, std::string_view bytes)
{
    while (!bytes.empty())
    {
        const ssize_t sent = send(connection, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

// Makes the close that follows a reset.
void Break(int connection)
{
    const linger atOnce{1, 0};
    setsockopt(connection, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
}

// Everything up to the empty line; empty if the client left before it.
std::string ReceiveHead(int connection)
{
    std::string head;
    char block[4096];
    while (head.find("\r\n\r\n") == std::string::npos && head.size() < kLongestHead)
    {
        const ssize_t got = recv(connection, block, sizeof block, 0);
        if (got <= 0)
            return {};
        head.append(block, static_cast<std::size_t>(got));
    }
    return head;
}

std::string PathOf(const std::string& requestLine)
{
    const std::size_t start = requestLine.find(' ') + 1;
    return requestLine.substr(start, requestLine.find(' ', start) - start);
}

std::string HeadOf(const HttpAnswer& answer)
{
    std::string head = "HTTP/1.0 " + std::to_string(answer.status) + " Answer\r\n";
    if (answer.contentLength != "none")
        head += "Content-Length: " +
                (answer.contentLength == "auto" ? std::to_string(answer.body.size()) : answer.contentLength) + "\r\n";
    if (!answer.location.empty())
        head += "Location: " + answer.location + "\r\n";
    return head + "\r\n";
}

} // namespace

struct HttpTestServer::State
{
    const int listener = Listen();
    std::mutex mutex;
    std::condition_variable changed;
    std::map<std::string, std::shared_ptr<const HttpAnswer>> answers;
    std::vector<std::string> heads;
    std::set<int> connections;
    int releases = 0;
    bool ending = false;
    std::thread acceptor;

    std::shared_ptr<const HttpAnswer> Find(const std::string& path)
    {
        const std::lock_guard lock(mutex);
        const auto found = answers.find(path);
        if (found != answers.end())
            return found->second;
        return std::make_shared<HttpAnswer>(HttpAnswer{.status = 404, .body = "There is no such page here."});
    }

    // False at the server's end.
    bool WaitForRelease(int releasesAtStart)
    {
        std::unique_lock lock(mutex);
        changed.wait(lock, [&] { return ending || releases != releasesAtStart; });
        return !ending;
    }

    void Drip(int connection, std::string_view bytes, std::chrono::milliseconds pause)
    {
        std::unique_lock lock(mutex);
        for (; !bytes.empty() && SendAll(connection, bytes.substr(0, 1)); bytes.remove_prefix(1))
            if (changed.wait_for(lock, pause, [this] { return ending; }))
                return;
    }

    void Send(int connection, const HttpAnswer& answer, int releasesAtStart)
    {
        if (answer.raw.empty() && !SendAll(connection, HeadOf(answer)))
            return;
        const std::string_view bytes = answer.raw.empty() ? answer.body : answer.raw;
        if (answer.pause.count() > 0)
            return Drip(connection, bytes, answer.pause);
        if (!SendAll(connection, bytes.substr(0, answer.stallAfter)) || answer.stallAfter == SIZE_MAX)
            return;
        if (answer.reset)
            Break(connection);
        if (!answer.closeEarly && WaitForRelease(releasesAtStart) && answer.stallAfter < bytes.size())
            SendAll(connection, bytes.substr(answer.stallAfter));
    }

    void ServeOne(int connection)
    {
        const std::string head = ReceiveHead(connection);
        if (head.empty())
            return;
        int releasesAtStart = 0;
        {
            const std::lock_guard lock(mutex);
            heads.push_back(head);
            releasesAtStart = releases;
        }
        const auto answer = Find(PathOf(head.substr(0, head.find("\r\n"))));
        Send(connection, *answer, releasesAtStart);
    }

    void Enter(int connection)
    {
        const std::lock_guard lock(mutex);
        connections.insert(connection);
        if (ending)
            shutdown(connection, SHUT_RDWR);
    }

    void Leave(int connection)
    {
        const std::lock_guard lock(mutex);
        connections.erase(connection);
        close(connection);
        changed.notify_all();
    }

    void End()
    {
        std::unique_lock lock(mutex);
        ending = true;
        changed.notify_all();
        shutdown(listener, SHUT_RDWR);
        for (const int connection : connections)
            shutdown(connection, SHUT_RDWR);
        changed.wait(lock, [this] { return connections.empty(); });
    }
};

HttpTestServer::HttpTestServer() : m_state(std::make_shared<State>())
{
    m_state->acceptor = std::thread([state = m_state] {
        for (;;)
        {
            const int connection = accept4(state->listener, nullptr, nullptr, SOCK_CLOEXEC);
            if (connection < 0)
                return;
            const int noDelay = 1;
            setsockopt(connection, IPPROTO_TCP, TCP_NODELAY, &noDelay, sizeof noDelay);
            state->Enter(connection);
            std::thread([state, connection] {
                state->ServeOne(connection);
                state->Leave(connection);
            }).detach();
        }
    });
    setenv("VANTROY_HTTP_PORT", std::to_string(Port()).c_str(), 1);
}

HttpTestServer::~HttpTestServer()
{
    unsetenv("VANTROY_HTTP_PORT");
    m_state->End();
    m_state->acceptor.join();
    close(m_state->listener);
}

UINT HttpTestServer::Port() const
{
    return PortOf(m_state->listener);
}

std::string HttpTestServer::Url(const std::string& path) const
{
    return "http://127.0.0.1" + path;
}

void HttpTestServer::Serve(const std::string& path, HttpAnswer answer)
{
    const std::lock_guard lock(m_state->mutex);
    m_state->answers[path] = std::make_shared<HttpAnswer>(std::move(answer));
}

void HttpTestServer::Serve(const std::string& path, const std::string& body)
{
    Serve(path, HttpAnswer{.body = body});
}

void HttpTestServer::Release()
{
    const std::lock_guard lock(m_state->mutex);
    ++m_state->releases;
    m_state->changed.notify_all();
}

std::vector<std::string> HttpTestServer::Requests() const
{
    std::vector<std::string> lines;
    for (const std::string& head : RequestHeads())
        lines.push_back(head.substr(0, head.find("\r\n")));
    return lines;
}

std::vector<std::string> HttpTestServer::RequestHeads() const
{
    const std::lock_guard lock(m_state->mutex);
    return m_state->heads;
}
