// The open pages of a real browser, awake and asleep.
#pragma once

#include "platform/testing/HttpTestServer.h"
#include "platform/testing/RealBrowser.h"

#include <string>
#include <vector>

class BrowserPages
{
public:
    // The smallest picture, with anything behind it.
    static std::string PictureOf(const std::string& rest);
    // A page with so many images, all of which are one file on the server, and links to music.
    static std::string PageOf(int images, int links);

    const RealBrowser& Browser() const
    {
        return m_browser;
    }
    HttpTestServer& Server()
    {
        return m_server;
    }
    // With the server's port, as the browser asks for it.
    std::string Url(const std::string& path) const;
    // Serves a page, opens it, and waits until it has loaded to its end; its target.
    std::string Open(const std::string& path, const std::string& html);
    // Closes all pages with this text in their address.
    void Close(const std::string& part);
    // Has the browser discard all pages with this text in their address, `count` of them, as it does by itself when
    // memory is short.
    void PutToSleep(const std::string& part, int count);

private:
    struct Target
    {
        std::string id;
        std::string title;
        std::string url;
    };

    std::vector<Target> Targets() const;
    std::vector<std::string> TargetsOf(const std::string& part) const;

    HttpTestServer m_server;
    RealBrowser m_browser;
};
