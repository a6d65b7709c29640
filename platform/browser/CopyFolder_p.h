// A private folder for copies of loaded resources, removed with the object.
#pragma once

#include <QByteArray>

#include <filesystem>
#include <string>

namespace browsing
{

class CopyFolder
{
public:
    CopyFolder() = default;
    ~CopyFolder();
    CopyFolder(const CopyFolder&) = delete;
    CopyFolder& operator=(const CopyFolder&) = delete;

    // Writes a file of its own; its path in UTF-8, empty if it could not be written whole. One thread at a time.
    std::string Store(const QByteArray& content);

private:
    bool Make();

    std::filesystem::path m_folder;
    int m_files = 0;
};

} // namespace browsing
