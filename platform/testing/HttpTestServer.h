// A real HTTP server on a free loopback port, which can lie. It serves each connection on a thread of its own.
#pragma once

#include "platform/Types.h"

#include <chrono>
#include <cstdint>

#include <memory>
#include <string>
#include <vector>

struct HttpAnswer
{
    int status = 200;
    std::string body = {};
    std::string contentLength = "auto"; // the header's text; "auto" is the body's true length, "none" leaves it out
    std::string location = {};          // for a redirect
    std::string raw = {};               // when not empty, sent instead of all the above, head included
    std::size_t stallAfter = SIZE_MAX;  // body bytes after which the server stops sending until Release or its end
    bool closeEarly = false;            // with stallAfter: closes there instead of stalling
    std::chrono::milliseconds pause{0}; // behind every byte of what is sent
    bool reset = false;                 // with closeEarly: breaks the connection, which may swallow what was sent
};

class HttpTestServer
{
public:
    HttpTestServer();
    ~HttpTestServer();

    UINT Port() const;
    // "http://127.0.0.1/path" without the port: the client takes the port from VANTROY_HTTP_PORT, which the constructor
    // sets and the destructor removes.
    std::string Url(const std::string& path) const;
    // Answers a path (with its query) so. Everything else is a 404 with a body.
    void Serve(const std::string& path, HttpAnswer answer);
    void Serve(const std::string& path, const std::string& body);
    // Lets stalled answers go on.
    void Release();
    // Request lines and whole heads so far, in order.
    std::vector<std::string> Requests() const; // "GET /path HTTP/1.0"
    std::vector<std::string> RequestHeads() const;

    struct State;

private:
    std::shared_ptr<State> m_state; // shared with the threads of its connections
};
