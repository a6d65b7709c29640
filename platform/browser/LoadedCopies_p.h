// The browsers' loaded resources as the program's URL cache, with nothing asked of the network.
#pragma once

#include "platform/browser/BrowserList_p.h"
#include "platform/browser/ContentAhead_p.h"
#include "platform/browser/CopyFolder_p.h"
#include "platform/internet/UrlCache.h"

#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace browsing
{

// Only what a browser surely holds as the server sent it is found: resources that are loaded to their end and handed
// out as bytes. The pages that the last looks have seen are searched, their top document and the frames of its site.
class LoadedCopies : public IUrlCacheSource
{
public:
    explicit LoadedCopies(std::shared_ptr<BrowserList> browsers);

    bool Find(const std::string& url, std::string& localFile, std::uint64_t& size) override;
    void Expect(const std::vector<std::string>& urls) override;

private:
    struct Copy
    {
        QString loader;
        std::string file;
        std::uint64_t size = 0;
    };

    void Refresh();
    const Copy* FindCopy(const QString& url);
    const Copy* FindCurrent(const QString& url, const std::vector<LoadedResource>& holders) const;
    const LoadedResource* FindMissing(const QString& url) const;
    const Copy* Fetch(const LoadedResource& resource);

    const std::shared_ptr<BrowserList> m_browsers;
    std::mutex m_mutex; // of all below
    CopyFolder m_folder;
    std::map<QString, Copy> m_copies;
    std::map<QString, std::vector<LoadedResource>> m_holders;
    ContentAhead m_ahead;
    Clock::time_point m_refreshAt; // the epoch: never read
};

} // namespace browsing
