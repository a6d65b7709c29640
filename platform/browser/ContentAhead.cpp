#include "platform/browser/ContentAhead_p.h"

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
    m_bytes = 0;
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
    if (m_bytes + resource.size > kMostBytes)
        return false;
    if (m_asked.try_emplace(resource.url, Asked{resource.loader, resource.size, resource.ask()}).second)
        m_bytes += resource.size;
    return true;
}

QByteArray ContentAhead::Take(const LoadedResource& resource)
{
    if (!m_expected.empty() && m_expected.front() == resource.url)
        m_expected.pop_front(); // too large to be asked for ahead
    const auto node = m_asked.extract(resource.url);
    if (node.empty())
        return resource.ask()();
    m_bytes -= node.mapped().size;
    return node.mapped().loader == resource.loader ? node.mapped().content() : resource.ask()();
}

} // namespace browsing
