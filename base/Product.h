// What the build is told about the product; see the settings in CMakeLists.txt.
#pragma once

#include <compare>
#include <string>

struct CVersion
{
    int m_nMajor = 0;
    int m_nMinor = 0;
    int m_nPatch = 0;

    auto operator<=>(const CVersion&) const = default;
};

// The program's own.
CVersion ProductVersion();
// The hosts of the update server and of the maker's web site.
std::string UpdateHost();
std::string WebHost();
