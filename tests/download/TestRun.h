// A run of its own for tests of the fetch loop, and a record of what it told its owner. Its progress fields belong to
// no window.
#pragma once

#include "base/UrlList.h"
#include "download/DownloadRun.h"
#include "download/ProgressFields.h"
#include "tests/download/Stage.h"

#include <functional>
#include <utility>
#include <vector>

class TestRun : public CDownloadRun, public Stage
{
public:
    TestRun()
    {
        Prepare();
    }
    explicit TestRun(const TempHome& home) : Stage(home)
    {
        Prepare();
    }
    virtual ~TestRun() = default;

    void Download(const std::vector<std::string>& urls)
    {
        CUrlList list;
        for (const std::string& url : urls)
            list.AddTail(url);
        DownloadFiles(list);
    }

    std::string Content(const std::string& name) const
    {
        return m_home.Read("Download/" + name);
    }

    CProgressFields* m_fields = &m_ownFields;
    std::vector<std::string> m_stored;           // "address -> name"
    std::function<void()> m_whenShowing = [] {}; // wherever the run shows something
    std::function<void()> m_whenStored = [] {};
    int m_ends = 0;

private:
    void Prepare()
    {
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
    }
    void OnSetup() override
    {}

    CProgressFields m_ownFields;
};
