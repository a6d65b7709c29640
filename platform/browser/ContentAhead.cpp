#include "platform/browser/ContentAhead_p.h"

#include <numeric>
#include <utility>

namespace browsing
{
namespace
{

// 8 keep the threads of a browser busy; 32 gain little more (bench/RESULTS.md). The bytes bound the memory, as a reply
// is held until its content is wanted.
constexpr std::size_t kMostAsked = 8;
constexpr qint64 kMostBytes = 4 << 20;

} // namespace

void ContentAhead::Expect(std::deque<QString> urls)
{
    m_expected = std::move(urls);
    m_asked.clear();
}

void ContentAhead::Ask(const Search& search)
{
    while (!m_expected.empty() && m_asked.size() < kMostAsked)
    {
        const LoadedResource* const resource = search(m_expected.front());
        if (resource != nullptr && !AskFor(*resource))
            return;
        m_expected.pop_front();
    }
}

bool ContentAhead::AskFor(const LoadedResource& resource)
{
    if (m_asked.contains(resource.url))
        return true;
    const auto add = [](qint64 bytes, const auto& asked) { return bytes + asked.second.size; };
    if (std::accumulate(m_asked.begin(), m_asked.end(), resource.size, add) > kMostBytes)
        return false;
    m_asked[resource.url] = {resource.loader, resource.size, resource.ask()};
    return true;
}

QByteArray ContentAhead::Take(const LoadedResource& resource)
{
    if (!m_expected.empty() && m_expected.front() == resource.url)
        m_expected.pop_front(); // too large to be asked for ahead
    const auto node = m_asked.extract(resource.url);
    if (node.empty())
        return resource.ask()();
    return node.mapped().loader == resource.loader ? node.mapped().content() : resource.ask()();
}

} // namespace browsing
