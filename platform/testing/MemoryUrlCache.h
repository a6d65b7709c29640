// A URL cache in memory: which addresses have a copy, and where.
#pragma once

#include "platform/internet/UrlCache.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

class MemoryUrlCache
{
public:
    // Enters this cache as the program's.
    MemoryUrlCache();
    ~MemoryUrlCache();

    // `localFile` stands for the copy of `url`; the size is read from the file when it is looked up.
    void Add(const std::string& url, const std::string& localFile);
    // Called at each look-up with its address, on the calling thread.
    void SetHook(std::function<void(const std::string& url)> hook);
    std::vector<std::string> Lookups() const;
    // What was told last of the look-ups to come.
    std::vector<std::string> Expected() const;

    class Source;

private:
    std::shared_ptr<Source> m_source;
};
