#include "platform/browser/LoadedCopies_p.h"

#include "platform/text/CodePage.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace browsing
{
namespace
{

// A run looks up one address after the other; the trees are read again after this time.
constexpr std::chrono::seconds kTreeAge(2);

// Fragments are no part of what is loaded.
QString ResourceUrl(const std::string& url)
{
    return QString::fromStdString(AnsiToUtf8(url)).section('#', 0, 0);
}

} // namespace

LoadedCopies::LoadedCopies(std::shared_ptr<BrowserList> browsers) : m_browsers(std::move(browsers))
{}

bool LoadedCopies::Find(const std::string& url, std::string& localFile, std::uint64_t& size)
{
    try
    {
        const std::lock_guard lock(m_mutex);
        const Copy* const copy = FindCopy(ResourceUrl(url));
        if (copy == nullptr)
            return false;
        localFile = Utf8ToAnsi(copy->file);
        size = copy->size;
        return true;
    }
    catch (const std::exception&)
    {
        return false;
    }
}

void LoadedCopies::Expect(const std::vector<std::string>& urls)
{
    try
    {
        std::deque<QString> expected;
        std::ranges::transform(urls, std::back_inserter(expected), ResourceUrl);
        const std::lock_guard lock(m_mutex);
        m_ahead.Expect(std::move(expected));
    }
    catch (const std::exception&)
    {} // look-ups go without
}

// The copy made before serves as long as the document that it came from is there, and when there is no newer one.
const LoadedCopies::Copy* LoadedCopies::FindCopy(const QString& url)
{
    if (Clock::now() >= m_refreshAt)
        Refresh();
    m_ahead.Ask([this](const QString& next) { return FindMissing(next); });
    if (const auto holders = m_holders.find(url); holders != m_holders.end())
    {
        if (const Copy* const current = FindCurrent(url, holders->second))
            return current;
        for (const LoadedResource& holder : holders->second)
        {
            if (const Copy* const fetched = Fetch(holder))
                return fetched;
        }
    }
    const auto copy = m_copies.find(url);
    return copy != m_copies.end() ? &copy->second : nullptr;
}

// The copy of a document that is still there; null if there is none.
const LoadedCopies::Copy* LoadedCopies::FindCurrent(const QString& url,
                                                    const std::vector<LoadedResource>& holders) const
{
    const auto copy = m_copies.find(url);
    const bool isCurrent = copy != m_copies.end() && std::ranges::any_of(holders, [&](const LoadedResource& holder) {
                               return holder.loader == copy->second.loader;
                           });
    return isCurrent ? &copy->second : nullptr;
}

// The first to ask for what has no copy yet.
const LoadedResource* LoadedCopies::FindMissing(const QString& url) const
{
    const auto holders = m_holders.find(url);
    if (holders == m_holders.end() || FindCurrent(url, holders->second) != nullptr)
        return nullptr;
    return &holders->second.front();
}

void LoadedCopies::Refresh()
{
    m_holders.clear();
    for (LoadedResource& resource : m_browsers->ReadResources())
        m_holders[resource.url].push_back(std::move(resource));
    m_refreshAt = Clock::now() + kTreeAge;
}

const LoadedCopies::Copy* LoadedCopies::Fetch(const LoadedResource& resource)
{
    const QByteArray content = m_ahead.Take(resource);
    const std::string file = content.isEmpty() ? std::string() : m_folder.Store(content);
    if (file.empty())
        return nullptr;
    return &(m_copies[resource.url] = {resource.loader, file, static_cast<std::uint64_t>(content.size())});
}

} // namespace browsing
