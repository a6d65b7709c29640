// A file that takes its place whole: what is written stays out of sight until Close puts it there in one step. Before,
// and if anything fails or the process dies, the file that stood there is as it was.
#pragma once

#include "platform/files/File.h"

#include <string>

class CMirrorFile : private CFile
{
public:
    CMirrorFile() = default;
    // As Abort.
    ~CMirrorFile();

    // False, with the last error set, if the path names a folder or a file that cannot be written, or if its folder
    // takes no new file. A link is followed, and a file that stands there hands its permissions on.
    bool Open(const std::string& path);
    using CFile::Flush;
    using CFile::Write;
    // Puts the new file into the place of the old one. False, with the last error set, if that cannot be done: the old
    // one stays.
    bool Close();
    // Drops what was written.
    void Abort();

private:
    bool OpenBeside();
    bool GiveName();

    std::string m_target;
    std::string m_beside;  // the name on the way, in the folder of the target
    bool m_bNamed = false; // the new file has that name already
};
