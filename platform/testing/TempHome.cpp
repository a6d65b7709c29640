#include "platform/testing/TempHome.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace fs = std::filesystem;

TempHome::TempHome() : m_folder((fs::temp_directory_path() / "vantroy-test-XXXXXX").string())
{
    if (!mkdtemp(m_folder.data()))
        throw std::runtime_error("no folder for a test home: " + m_folder);
    setenv("VANTROY_HOME", m_folder.c_str(), 1);
}

TempHome::TempHome(const std::string& folder) : m_folder(folder), m_own(false)
{
    setenv("VANTROY_HOME", m_folder.c_str(), 1);
}

TempHome::~TempHome()
{
    unsetenv("VANTROY_HOME");
    std::error_code error;
    if (m_own)
        fs::remove_all(m_folder, error);
}

std::string TempHome::Path(const std::string& name) const
{
    return m_folder + '/' + name;
}

void TempHome::Write(const std::string& name, const std::string& content) const
{
    const fs::path path = Path(name);
    fs::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    if (!file.flush())
        throw std::runtime_error("cannot write " + path.string());
}

std::string TempHome::Read(const std::string& name) const
{
    std::ifstream file(Path(name), std::ios::binary);
    if (!file)
        throw std::runtime_error("cannot read " + Path(name));
    return {std::istreambuf_iterator<char>(file), {}};
}

bool TempHome::Exists(const std::string& name) const
{
    return fs::exists(Path(name));
}

std::vector<std::string> TempHome::Files(const std::string& folder) const
{
    std::vector<std::string> names;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(Path(folder), error))
        names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
}
