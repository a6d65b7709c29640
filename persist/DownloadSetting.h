// The record of the user's download settings. The worker of a run reads the fields directly while the settings sheet
// may edit them; each takes effect at the next element or item that is tested.
#pragma once

#include "base/FixedText.h"
#include "base/Flag.h"
#include "base/Guarded.h"

#include "platform/Types.h"

#include <string>
#include <vector>

// An image size in pixels.
struct CResolution
{
    LONG m_nWidth = 0;
    LONG m_nHeight = 0;

    bool operator==(const CResolution&) const = default;
};

class CDownloadSetting
{
public:
    using SaveFolder = FixedText<520>;

    // The defaults of the fields, with the save folder below the installed program.
    CDownloadSetting();

    CGuarded<SaveFolder> m_szSaveFolder; // with or without the separator at its end
    CFlag m_bLimitFileSize = 0;          // the size limit is on
    CFlag m_bBigThan = 1;                // its lower bound is on
    CFlag m_bSmallThan = 0;              // its upper bound is on
    CFlag m_nBigThanKb = 250;            // KB of 1024 bytes
    CFlag m_nSmallThanKb = 0;
    CFlag m_bLimitResolution = 0;                     // images of a listed size are left out
    CGuarded<std::vector<CResolution>> m_resolutions; // the sizes that are not wanted
    CFlag m_bImages = 1;
    CFlag m_bMp3 = 0;
    CFlag m_bFlash = 0;

    // The save folder as it is now.
    std::string GetSaveFolder() const;
};
