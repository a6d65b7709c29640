// Scarcity for the life of an object.
#pragma once

#include "platform/system/Memory.h"

#include <csignal>
#include <cstdint>
#include <sys/resource.h>

// Writes beyond the limit, in bytes from the start of a file, fail as on a full disk.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_before{};
};

// See SetMemoryLimit.
class MemoryLimit
{
public:
    explicit MemoryLimit(std::size_t limit)
    {
        SetMemoryLimit(limit);
    }
    ~MemoryLimit()
    {
        SetMemoryLimit(SIZE_MAX);
    }
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;
};
