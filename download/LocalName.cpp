#include "download/LocalName.h"

#include "platform/files/File.h"

bool FindLocalName(std::string& path, DWORD size)
{
    const std::size_t dot = path.rfind('.');
    const std::string stem = path.substr(0, dot);
    const std::string ending = dot == std::string::npos || dot + 1 == path.size() ? "" : path.substr(dot);
    CFileStatus status;
    for (unsigned long number = 1; CFile::GetStatus(path, status); ++number)
    {
        if (status.m_size == static_cast<std::int64_t>(size))
            return false;
        path = stem + std::to_string(number) + ending;
    }
    return true;
}
