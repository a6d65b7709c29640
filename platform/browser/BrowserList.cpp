#include "platform/browser/BrowserList_p.h"

#include "platform/browser/IoThread_p.h"
#include "platform/browser/Protocols_p.h"

#include <algorithm>

namespace browsing
{

BrowserList::BrowserList() : m_io(std::make_shared<IoThread>())
{}

BrowserList::~BrowserList()
{
    Close();
}

// Places come with the disk. A browser whose place has gone is kept all the same: its connection ends in Close.
std::vector<std::shared_ptr<Browser>> BrowserList::Current()
{
    const std::lock_guard lock(m_mutex);
    std::vector<std::shared_ptr<Browser>> browsers;
    for (const Place& place : FindPlaces())
    {
        auto found = std::ranges::find(m_browsers, place, [](const auto& known) { return known->GetPlace(); });
        if (found == m_browsers.end())
            found = m_browsers.insert(found, MakeBrowser(place, m_io));
        browsers.push_back(*found);
    }
    return browsers;
}

template <class Action>
HRESULT BrowserList::ForEachReached(const Action& action)
{
    std::vector<std::string> reached;
    for (const auto& browser : Current())
    {
        HRESULT result = browser->Reach();
        // Two places can lead to one browser.
        if (SUCCEEDED(result) && std::ranges::find(reached, browser->SocketUrl()) == reached.end())
        {
            reached.push_back(browser->SocketUrl());
            result = action(*browser);
        }
        if (FAILED(result) && (browser->GetPlace().named || result == E_ABORT))
            return result;
    }
    return S_OK;
}

HRESULT BrowserList::Reach()
{
    return ForEachReached([](Browser&) { return S_OK; });
}

HRESULT BrowserList::Look(std::vector<SeenPage>& pages)
{
    return ForEachReached([&](Browser& browser) {
        std::vector<SeenPage> own;
        const HRESULT result = browser.Look(own);
        if (SUCCEEDED(result))
            pages.insert(pages.end(), own.begin(), own.end());
        return result;
    });
}

std::vector<LoadedResource> BrowserList::ReadResources()
{
    std::vector<std::shared_ptr<Browser>> browsers;
    {
        const std::lock_guard lock(m_mutex);
        browsers = m_browsers;
    }
    std::vector<LoadedResource> resources;
    for (const auto& browser : browsers)
        browser->ReadResources(resources);
    return resources;
}

std::vector<std::shared_ptr<Browser>> BrowserList::Connected()
{
    std::vector<std::shared_ptr<Browser>> browsers = Current();
    std::erase_if(browsers, [](const auto& browser) { return !browser->OpenConnection(); });
    return browsers;
}

void BrowserList::Close()
{
    CloseConnections();
    m_io->Stop();
    CloseConnections(); // one that was made meanwhile
}

void BrowserList::CloseConnections()
{
    const std::lock_guard lock(m_mutex);
    for (const auto& browser : m_browsers)
        browser->Close();
}

} // namespace browsing
