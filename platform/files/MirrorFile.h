// A file that takes its place whole: what is written stays out of sight until Close puts it there in one step. Before,
// and if anything fails or the process dies, the file that stood there is as it was.
#pragma once

#include "platform/files/File.h"

#include <string>

class CMirrorFile : private CFile
{
public:
    enum class Place
    {
        Any,
        Free, // nothing may stand there, be it a link, neither at Open nor at Close
    };

    CMirrorFile() = default;
    // As Abort.
    ~CMirrorFile();

    // False, with the last error set, if the path names a folder or a file that cannot be written, if its folder takes
    // no new file, or if the place is not free where it has to be: ERROR_ALREADY_EXISTS. A link is followed, and a file
    // that stands there hands its permissions on.
    bool Open(const std::string& path, Place place = Place::Any);
    // A file that has no place before SetPlace gives it one, which has to be free; nothing stands in the folder before.
    // False as by Open, and where the file system knows no files without a name.
    bool OpenNameless(const std::string& folder);
    using CFile::Flush;
    using CFile::Read;
    using CFile::SeekTo;
    using CFile::SetLength;
    using CFile::Write;
    // Puts the new file into its place. False, with the last error set as by Open, if that cannot be done: what stands
    // there stays. A file whose place is no longer free (ERROR_ALREADY_EXISTS) or lies on another file system
    // (ERROR_NOT_SAME_DEVICE) stays open for another place.
    bool Close();
    // The free place to take, on the same file system.
    void SetPlace(const std::string& path);
    // Drops what was written.
    void Abort();

private:
    bool OpenBeside();
    template <class Take>
    bool TakeNameBeside(const Take& take);
    bool TakePlace();
    bool TakeFreePlace();

    Place m_place = Place::Any;
    std::string m_target;
    std::string m_name; // the one that the new file has by now; empty before it has any
};
