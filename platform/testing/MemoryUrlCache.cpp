#include "platform/testing/MemoryUrlCache.h"

#include <filesystem>
#include <mutex>
#include <system_error>

class MemoryUrlCache::Source : public IUrlCacheSource
{
public:
    bool Find(const std::string& url, std::string& localFile, std::uint64_t& size) override
    {
        std::function<void(const std::string&)> hook;
        {
            const std::lock_guard lock(m_mutex);
            m_lookups.push_back(url);
            hook = m_hook;
        }
        if (hook)
            hook(url);
        const std::lock_guard lock(m_mutex);
        const auto found = m_files.find(url);
        if (found == m_files.end())
            return false;
        localFile = found->second;
        // A copy whose file has gone is still an entry.
        std::error_code error;
        const std::uintmax_t length = std::filesystem::file_size(localFile, error);
        size = error ? 0 : length;
        return true;
    }

    void Expect(const std::vector<std::string>& urls) override
    {
        const std::lock_guard lock(m_mutex);
        m_expected = urls;
    }

    std::mutex m_mutex;
    std::map<std::string, std::string> m_files;
    std::vector<std::string> m_lookups;
    std::vector<std::string> m_expected;
    std::function<void(const std::string&)> m_hook;
};

MemoryUrlCache::MemoryUrlCache() : m_source(std::make_shared<Source>())
{
    SetUrlCacheSource(m_source);
}

MemoryUrlCache::~MemoryUrlCache()
{
    SetUrlCacheSource(nullptr);
}

void MemoryUrlCache::Add(const std::string& url, const std::string& localFile)
{
    const std::lock_guard lock(m_source->m_mutex);
    m_source->m_files[url] = localFile;
}

void MemoryUrlCache::SetHook(std::function<void(const std::string&)> hook)
{
    const std::lock_guard lock(m_source->m_mutex);
    m_source->m_hook = std::move(hook);
}

std::vector<std::string> MemoryUrlCache::Lookups() const
{
    const std::lock_guard lock(m_source->m_mutex);
    return m_source->m_lookups;
}

std::vector<std::string> MemoryUrlCache::Expected() const
{
    const std::lock_guard lock(m_source->m_mutex);
    return m_source->m_expected;
}
