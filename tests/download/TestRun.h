// A run of its own for tests of the fetch loop: a home, a save folder, a server and a URL cache, and a record of what
// the run told its owner. Its progress fields belong to no window.
#pragma once

#include "base/UrlList.h"
#include "download/DownloadRun.h"
#include "download/ProgressFields.h"

#include "platform/testing/HttpTestServer.h"
#include "platform/testing/MemoryUrlCache.h"
#include "platform/testing/TempHome.h"

#include <functional>
#include <utility>
#include <vector>

class TestRun : public CDownloadRun
{
public:
    TestRun()
    {
        Prepare();
    }
    // In the home of another.
    explicit TestRun(const TempHome& home) : m_home(home.Folder())
    {
        Prepare();
    }
    virtual ~TestRun() = default;

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
    void Download(const std::vector<std::string>& urls)
    {
        CUrlList list;
        for (const std::string& url : urls)
            list.AddTail(url);
        DownloadFiles(list);
    }

    std::vector<std::string> Saved() const
    {
        std::vector<std::string> names = m_home.Files("Download");
        std::erase(names, ".keep");
        return names;
    }
    std::string Content(const std::string& name) const
    {
        return m_home.Read("Download/" + name);
    }

    TempHome m_home;
    HttpTestServer m_server;
    MemoryUrlCache m_cache;
    CProgressFields* m_fields = &m_ownFields;
    std::vector<std::string> m_stored;           // "address -> name"
    std::function<void()> m_whenShowing = [] {}; // wherever the run shows something
    std::function<void()> m_whenStored = [] {};
    int m_ends = 0;

private:
    void Prepare()
    {
        m_home.Write("Download/.keep", "");
        m_setting.m_szSaveFolder.Set(CDownloadSetting::SaveFolder(m_home.Path("Download")));
        m_bRunning = 1;
    }
    CProgressFields& ProgressFields() override
    {
        m_whenShowing();
        return *m_fields;
    }
    bool IsStopRequested() const override
    {
        return m_bRunning == 0;
    }
    void OnFetchBegins() override
    {}
    void OnFileStored(const std::string& url, const std::string& path) override
    {
        m_stored.push_back(url + " -> " + path.substr(path.rfind('/') + 1));
        m_whenStored();
    }
    void OnFetchEnds() override
    {
        ++m_ends;
        m_bRunning = 0;
    }
    void OnSetup() override
    {}

    CProgressFields m_ownFields;
    int m_copies = 0;
};
