// What the tests of faults share: processes that can be killed, what they leave word of, and file systems of their own.
#pragma once

#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <new>
#include <sched.h>
#include <string>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

// How often a test does its round: a few times, or as VANTROY_ROUNDS says.
inline unsigned Rounds(unsigned few)
{
    const char* text = std::getenv("VANTROY_ROUNDS");
    return text ? static_cast<unsigned>(std::atoi(text)) : few;
}

// An object that stays in sight when a process that was forked writes to it.
template <class T>
class Shared
{
public:
    Shared() : m_object(new (mmap(nullptr, sizeof(T), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) T())
    {}
    ~Shared()
    {
        munmap(m_object, sizeof(T));
    }
    Shared(const Shared&) = delete;
    Shared& operator=(const Shared&) = delete;

    T* operator->() const
    {
        return m_object;
    }
    T& operator*() const
    {
        return *m_object;
    }

private:
    T* m_object;
};

// A process that does `body` and leaves with 0, or with 1 if a check failed in it. Forked from a process with a single
// thread alone.
inline pid_t StartChild(const std::function<void()>& body)
{
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child != 0)
        return child;
    body();
    std::fflush(nullptr);
    _exit(testing::Test::HasFailure() ? 1 : 0);
}

inline void ExpectGoodEnd(pid_t child)
{
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
}

inline void WriteText(const char* path, const std::string& text)
{
    std::ofstream(path) << text;
}

// From here on the process may mount, and no other one sees it; false where the system forbids that.
inline bool TakeOwnMounts()
{
    const std::string user = std::to_string(getuid());
    const std::string group = std::to_string(getgid());
    if (unshare(CLONE_NEWNS) == 0)
        return mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return false;
    WriteText("/proc/self/setgroups", "deny");
    WriteText("/proc/self/uid_map", user + ' ' + user + " 1");
    WriteText("/proc/self/gid_map", group + ' ' + group + " 1");
    return mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

inline bool MayMount()
{
    const pid_t child = StartChild([] { _exit(TakeOwnMounts() ? 0 : 1); });
    int status = -1;
    waitpid(child, &status, 0);
    return status == 0;
}

// A file system in memory over a folder.
inline bool MountMemory(const std::string& folder, const std::string& options)
{
    return mount("none", folder.c_str(), "tmpfs", 0, options.c_str()) == 0;
}
