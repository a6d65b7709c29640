// The DevTools protocol with nothing around it, the peer of what the program does over it: one blocking socket, one
// call at a time, and replies as the text that they are.
#pragma once

#include "platform/testing/RealBrowser.h"

#include <string>

class BareProtocol
{
public:
    // To the browser itself, or to one of its pages. Throws std::runtime_error, as the calls do, if it does not answer.
    explicit BareProtocol(const RealBrowser& browser);
    BareProtocol(const RealBrowser& browser, const std::string& target);
    ~BareProtocol();
    BareProtocol(const BareProtocol&) = delete;
    BareProtocol& operator=(const BareProtocol&) = delete;

    // The whole reply; `params` is a JSON object. Events are passed over.
    std::string Call(const std::string& method, const std::string& params = "{}");
    // The reply to an expression whose value is handed out as JSON.
    std::string Evaluate(const std::string& expression);

private:
    void Open(const std::string& endpoint, const std::string& path);
    void Send(const std::string& message);
    std::string ReceiveMessage();
    void Receive(char* to, std::size_t size);

    int m_socket = -1;
    int m_lastId = 0;
};
