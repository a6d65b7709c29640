// An ordered list of addresses. It keeps duplicates: whoever must not have them asks Contains before adding.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

class CUrlList
{
public:
    void AddTail(const std::string& url)
    {
        m_urls.push_back(url);
    }
    void RemoveAll()
    {
        m_urls.clear();
    }
    std::size_t GetCount() const
    {
        return m_urls.size();
    }
    bool IsEmpty() const
    {
        return m_urls.empty();
    }
    // Exact and case-sensitive; addresses are never normalised or decoded.
    bool Contains(const std::string& url) const;
    // Adds an address that is not in the list yet.
    void AddTailOnce(const std::string& url);

    // From head to tail.
    auto begin() const
    {
        return m_urls.begin();
    }
    auto end() const
    {
        return m_urls.end();
    }

private:
    std::vector<std::string> m_urls;
};
