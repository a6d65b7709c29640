// Programs that write down what they are given, as the only ones on PATH while the object lives.
#pragma once

#include "platform/testing/TempHome.h"

#include <string>
#include <vector>

class RecordingPrograms
{
public:
    // In the folder "bin" of the home, which must outlive the object.
    RecordingPrograms(const TempHome& home, const std::vector<std::string>& names);
    ~RecordingPrograms();
    RecordingPrograms(const RecordingPrograms&) = delete;
    RecordingPrograms& operator=(const RecordingPrograms&) = delete;

    std::string Path(const std::string& name) const;
    // What the program's last run got; waits for it, and throws if it never comes. The next call wants another run.
    std::vector<std::string> Arguments(const std::string& name) const;
    bool HasRun(const std::string& name) const; // does not wait

private:
    const TempHome& m_home;
    const std::string m_path;
};
