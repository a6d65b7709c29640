#include "platform/browser/LoadedCopies_p.h"

#include "platform/text/CodePage.h"

#include <utility>

namespace browsing
{
namespace
{

// A run looks up one address after the other; the trees are read again after this time.
constexpr std::chrono::seconds kTreeAge(2);

QString WithoutFragment(const QString& url)
{
    return url.section('#', 0, 0);
}

} // namespace

LoadedCopies::LoadedCopies(std::shared_ptr<BrowserList> browsers) : m_browsers(std::move(browsers))
{}

bool LoadedCopies::Find(const std::string& url, std::string& localFile, std::uint64_t& size)
{
    try
    {
        const std::lock_guard lock(m_mutex);
        const Copy* const copy = FindCopy(WithoutFragment(QString::fromStdString(AnsiToUtf8(url))));
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

// The copy made before serves as long as the document that it came from is there, and when there is no newer one.
const LoadedCopies::Copy* LoadedCopies::FindCopy(const QString& url)
{
    if (Clock::now() >= m_refreshAt)
        Refresh();
    const auto copy = m_copies.find(url);
    const auto holders = m_holders.find(url);
    if (holders != m_holders.end())
    {
        for (const LoadedResource& holder : holders->second)
        {
            if (copy != m_copies.end() && copy->second.loader == holder.loader)
                return &copy->second;
        }
        for (const LoadedResource& holder : holders->second)
        {
            if (const Copy* const fetched = Fetch(holder))
                return fetched;
        }
    }
    return copy != m_copies.end() ? &copy->second : nullptr;
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
    const QByteArray content = resource.fetch();
    const std::string file = content.isEmpty() ? std::string() : m_folder.Store(content);
    if (file.empty())
        return nullptr;
    return &(m_copies[resource.url] = {resource.loader, file, static_cast<std::uint64_t>(content.size())});
}

} // namespace browsing
