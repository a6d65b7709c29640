// The file of a day's history, open for appending.
//
// A record counts from the moment when its first byte stands there: the rest is written before it, behind a zero byte,
// where no reader looks. So a record is in the file whole or not at all, also when the program is killed in the middle,
// and what such a death or a power cut has left is cut off by the next one who opens the file. Other text behind a zero
// byte stays, and hides what is appended to it. Programs that append to one file at the same time wait for each other.
#pragma once

#include "platform/files/File.h"

#include <string>

class CDayFile
{
public:
    // Opens the file, and creates it if it is not there.
    explicit CDayFile(const std::string& path);

    const std::string& GetPath() const
    {
        return m_path;
    }
    // False if the record could not be appended; the file is then as it was. A record that is not empty starts with
    // "<".
    bool Append(const std::string& record);

private:
    void CutRemains();

    std::string m_path;
    CFile m_file;
    bool m_bOpen;
};
