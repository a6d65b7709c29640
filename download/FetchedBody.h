// The body of one item on its way into the save folder: a block of memory of the promised size. What has arrived of a
// long one goes ahead into a file that has no name yet, and its memory back to the machine, so a long body costs
// neither its size in memory nor a wait for the disk when it is over. On one thread.
#pragma once

#include "platform/files/MirrorFile.h"
#include "platform/system/Memory.h"

#include <string>

class CFetchedBody
{
public:
    // Of `size` bytes, on its way into `folder`.
    CFetchedBody(std::string folder, DWORD size);

    // False if there is no memory for it; nothing else may be called then.
    bool IsAllocated() const
    {
        return m_data != nullptr;
    }
    DWORD Size() const
    {
        return m_size;
    }
    DWORD Received() const
    {
        return m_received;
    }

    // What exceeds the size is dropped.
    void Append(const char* data, DWORD size);
    // Makes the file at a path where nothing stands, with zeros for what was not received. False, with the last error
    // set, if that cannot be done; where it is ERROR_ALREADY_EXISTS, another path may be tried.
    bool Store(const std::string& path);

private:
    void WriteAhead();
    bool WriteRest();
    bool OpenFor(const std::string& path);
    bool Write(const std::string& path);
    bool FillUp();
    bool TakeBack();

    const std::string m_folder;
    const DWORD m_size;
    const GlobalPtr<char> m_data;
    DWORD m_received = 0;
    DWORD m_written = 0; // of these; what is written is not in the memory any more
    CMirrorFile m_file;
    bool m_bOpen = false;
    bool m_bFull = false; // the file has its size
    bool m_bAhead;        // whether to go on writing before the end
};
