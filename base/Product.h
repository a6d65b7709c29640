// What the build is told about the product; see the settings in CMakeLists.txt.
#pragma once

#include <string>
#include <tuple>

struct CVersion
{
    int m_nMajor = 0;
    int m_nMinor = 0;
    int m_nPatch = 0;

    bool operator==(const CVersion&) const = default;
    // Newer.
    bool operator>(const CVersion& other) const
    {
        return std::tie(m_nMajor, m_nMinor, m_nPatch) > std::tie(other.m_nMajor, other.m_nMinor, other.m_nPatch);
    }
};

// The key of the product below the roots of the registry.
inline constexpr const char* kProductKey = "SOFTWARE\\Orlenta\\Vantroy";

// The program's own.
CVersion ProductVersion();
// The hosts of the update server and of the maker's web site.
std::string UpdateHost();
std::string WebHost();
