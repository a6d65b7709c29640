#include "bench/BareProtocol.h"

#include "bench/Bench.h"

#include <arpa/inet.h>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <sys/socket.h>
#include <unistd.h>

namespace
{

constexpr const char* kDead = "the browser does not answer";

// What the browser has written down behind its port.
std::string PathOf(const RealBrowser& browser)
{
    std::ifstream file(browser.DataFolder() + "/DevToolsActivePort");
    std::string port, path;
    file >> port >> path;
    return path;
}

// The bytes of a number, the highest first.
std::string BigEndian(std::uint64_t number, int bytes)
{
    std::string text;
    while (bytes-- > 0)
        text += static_cast<char>(number >> (8 * bytes));
    return text;
}

std::string InQuotes(const std::string& text)
{
    std::string quoted = "\"";
    for (const char character : text)
    {
        if (character == '"' || character == '\\')
            quoted += '\\';
        quoted += character == '\n' ? ' ' : character;
    }
    return quoted + '"';
}

} // namespace

BareProtocol::BareProtocol(const RealBrowser& browser)
{
    Open(browser.Endpoint(), PathOf(browser));
}

BareProtocol::BareProtocol(const RealBrowser& browser, const std::string& target)
{
    Open(browser.Endpoint(), "/devtools/page/" + target);
}

BareProtocol::~BareProtocol()
{
    close(m_socket);
}

void BareProtocol::Open(const std::string& endpoint, const std::string& path)
{
    const std::string host = endpoint.substr(endpoint.rfind('/') + 1);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(std::atoi(host.substr(host.find(':') + 1).c_str())));
    m_socket = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    Expect(connect(m_socket, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0, kDead);
    Send("GET " + path + " HTTP/1.1\r\nHost: " + host +
         "\r\nUpgrade: websocket\r\nConnection: Upgrade\r\nSec-WebSocket-Version: 13\r\n"
         "Sec-WebSocket-Key: AAAAAAAAAAAAAAAAAAAAAA==\r\n\r\n");
    std::string head(1, '\0');
    for (Receive(head.data(), 1); !head.ends_with("\r\n\r\n"); Receive(&head.back(), 1))
        head += '\0';
}

std::string BareProtocol::Call(const std::string& method, const std::string& params)
{
    const std::string id = "{\"id\":" + std::to_string(++m_lastId) + ',';
    const std::string message = id + "\"method\":\"" + method + "\",\"params\":" + params + '}';
    // One frame of text. The mask of a client may be anything, zero too, which leaves the message as it is.
    const std::string size =
        message.size() < 65536 ? "\xFE" + BigEndian(message.size(), 2) : "\xFF" + BigEndian(message.size(), 8);
    Send("\x81" + size + std::string(4, '\0') + message);
    for (;;)
    {
        std::string reply = ReceiveMessage();
        if (reply.starts_with(id))
            return reply;
    }
}

std::string BareProtocol::Evaluate(const std::string& expression)
{
    return Call("Runtime.evaluate", "{\"returnByValue\":true,\"expression\":" + InQuotes(expression) + '}');
}

void BareProtocol::Send(const std::string& message)
{
    std::size_t done = 0;
    while (done < message.size())
    {
        const ssize_t sent = send(m_socket, message.data() + done, message.size() - done, MSG_NOSIGNAL);
        Expect(sent > 0, kDead);
        done += static_cast<std::size_t>(sent);
    }
}

// The browser sends a message in one frame.
std::string BareProtocol::ReceiveMessage()
{
    unsigned char head[10];
    Receive(reinterpret_cast<char*>(head), 2);
    const int more = head[1] == 126 ? 2 : head[1] == 127 ? 8 : 0;
    Receive(reinterpret_cast<char*>(head + 2), static_cast<std::size_t>(more));
    std::uint64_t size = more > 0 ? 0 : head[1];
    for (int byte = 0; byte < more; ++byte)
        size = size << 8 | head[2 + byte];
    std::string message(size, '\0');
    Receive(message.data(), size);
    return message;
}

void BareProtocol::Receive(char* to, std::size_t size)
{
    while (size > 0)
    {
        const ssize_t got = recv(m_socket, to, size, MSG_WAITALL);
        Expect(got > 0, kDead);
        to += got;
        size -= static_cast<std::size_t>(got);
    }
}
