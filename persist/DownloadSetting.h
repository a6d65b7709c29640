// The record of the user's download settings, and its file, config.xml in the folder of the program. The worker of a
// run reads the fields directly while the settings sheet may edit them; each takes effect at the next element or item
// that is tested.
//
// The file, every element on a line of its own:
//
//     <CONFIG>
//     <SAVEFOLDER>folder</SAVEFOLDER>
//     <LIMITFILESIZE>                              only while the size limit is on
//     <BIGTHAN FILESIZE="KB">on</BIGTHAN>
//     <SMALLTHAN FILESIZE="KB">on</SMALLTHAN>
//     </LIMITFILESIZE>
//     <LIMITRESOLVING>                             only while the resolution limit is on
//     <RESOLVING_CAP RESX="width" RESY="height"/>  for each size
//     </LIMITRESOLVING>
//     <LIMITFILETYPE>1 images + 2 MP3 + 4 Flash</LIMITFILETYPE>
//     </CONFIG>
//
// Elements are read in this order alone. What a limit that is off would limit by is not kept.
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

class CXmlDoc;

class CDownloadSetting
{
public:
    using SaveFolder = FixedText<520>;

    // The defaults of the fields, with the save folder below the installed program, and over them what the file holds.
    CDownloadSetting();

    // Reads the file. False if it cannot be opened; a damaged one changes nothing, and what it lacks stays as it is.
    bool Load();
    // Writes the file. False, after a message box with the reason, if that cannot be done: the old file stays whole.
    bool Save() const;

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

private:
    void Read(CXmlDoc& document);
    void ReadSizeLimit(CXmlDoc& document);
    void ReadResolutions(CXmlDoc& document);
    void WriteSizeLimit(CXmlDoc& document) const;
    void WriteResolutions(CXmlDoc& document) const;
};
