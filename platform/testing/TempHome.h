// A home folder of its own for one test, removed with the object. VANTROY_HOME names it meanwhile.
#pragma once

#include <string>
#include <vector>

class TempHome
{
public:
    TempHome();
    // The home of another object, in this process or another, which removes it.
    explicit TempHome(const std::string& folder);
    ~TempHome();
    TempHome(const TempHome&) = delete;
    TempHome& operator=(const TempHome&) = delete;

    const std::string& Folder() const
    {
        return m_folder;
    }
    std::string Path(const std::string& name) const;                       // folder/name
    void Write(const std::string& name, const std::string& content) const; // makes folders on the way
    std::string Read(const std::string& name) const;                       // throws if it cannot be read
    bool Exists(const std::string& name) const;
    std::vector<std::string> Files(const std::string& folder) const; // names, sorted; empty if the folder is not there

private:
    std::string m_folder;
    bool m_own = true;
};
