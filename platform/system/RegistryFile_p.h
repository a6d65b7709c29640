// The file behind one root of the registry. The format is told in RegistryFile.cpp.
#pragma once

#include "platform/Types.h"

#include <optional>
#include <string>
#include <vector>

class RegistryFile
{
public:
    explicit RegistryFile(std::string path);

    // ERROR_SUCCESS also when there is no file yet.
    LONG Load();
    // Replaces the file whole: a reader meets the old one or the new one, at a power cut too.
    LONG Save() const;

    bool HasKey(const std::string& key) const;
    void AddKey(const std::string& key);
    // The key and its values; what stands below it stays, and so does the key above it.
    void RemoveKey(const std::string& key);
    // The names of the keys right below, as they are written, in the order of the file.
    std::vector<std::string> SubKeys(const std::string& key) const;
    std::optional<std::string> Value(const std::string& key, const std::string& name) const;
    void SetValue(const std::string& key, const std::string& name, const std::string& text);

private:
    std::size_t FindKey(const std::string& key) const;
    std::size_t EndOfValues(std::size_t key) const;
    std::size_t FindValue(const std::string& key, const std::string& name) const;

    std::string m_path;
    std::vector<std::string> m_lines;
};

// Keeps the other writers of the registry in a home out, threads and processes, while it lives.
class RegistryLock
{
public:
    explicit RegistryLock(const std::string& home);
    ~RegistryLock();
    RegistryLock(const RegistryLock&) = delete;
    RegistryLock& operator=(const RegistryLock&) = delete;

    bool IsHeld() const
    {
        return m_descriptor >= 0;
    }

private:
    int m_descriptor;
};
