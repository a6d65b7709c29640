// Whether the size of an item lets it pass. Pure; any thread.
#pragma once

#include "platform/Types.h"

#include <cstdint>

class CDownloadSetting;

struct CSizeLimit
{
    bool m_bOn = false;
    bool m_bBigThan = false;        // the lower bound is ticked
    bool m_bSmallThan = false;      // the upper bound is ticked
    std::uint32_t m_nBigThanKb = 0; // KB of 1024 bytes; above 4194303 they have no meaning
    std::uint32_t m_nSmallThanKb = 0;

    static CSizeLimit Of(const CDownloadSetting& setting);

    // True if an item of that many bytes is to be left out. A size exactly at one of the two values is left out in
    // every case, and the values count against each other whether they are ticked or not: below the greater and above
    // the smaller one where the lower bound is the smaller, outside of both where it is the greater.
    bool IsFiltered(DWORD size) const;
};
