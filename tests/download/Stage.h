// What a run works with: a home with a save folder, a server and a URL cache.
#pragma once

#include "platform/testing/HttpTestServer.h"
#include "platform/testing/MemoryUrlCache.h"
#include "platform/testing/TempHome.h"

#include <vector>

struct Stage
{
    Stage()
    {
        m_home.Write("Download/.keep", "");
    }
    // In the home of another.
    explicit Stage(const TempHome& home) : m_home(home.Folder())
    {
        m_home.Write("Download/.keep", "");
    }

    // An address of the server that answers with the body.
    std::string Served(const std::string& path, const std::string& body)
    {
        m_server.Serve(path, body);
        return m_server.Url(path);
    }
    // An address whose copy the cache holds.
    std::string Cached(const std::string& url, const std::string& body)
    {
        const std::string copy = "cache/" + std::to_string(m_copies++);
        m_home.Write(copy, body);
        m_cache.Add(url, m_home.Path(copy));
        return url;
    }
    std::vector<std::string> Saved() const
    {
        std::vector<std::string> names = m_home.Files("Download");
        std::erase(names, ".keep");
        return names;
    }

    TempHome m_home;
    HttpTestServer m_server;
    MemoryUrlCache m_cache;
    int m_copies = 0;
};
