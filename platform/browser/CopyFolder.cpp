#include "platform/browser/CopyFolder_p.h"

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace browsing
{
namespace
{

bool WriteAll(int file, const QByteArray& content)
{
    qsizetype done = 0;
    while (done < content.size())
    {
        const ssize_t written = write(file, content.data() + done, static_cast<std::size_t>(content.size() - done));
        if (written < 0)
            return false;
        done += written;
    }
    return true;
}

} // namespace

CopyFolder::~CopyFolder()
{
    std::error_code ignored;
    if (!m_folder.empty())
        std::filesystem::remove_all(m_folder, ignored);
}

// mkdtemp gives the folder to its user alone.
bool CopyFolder::Make()
{
    if (!m_folder.empty())
        return true;
    const char* const base = std::getenv("TMPDIR");
    std::string name = std::string(base != nullptr && *base == '/' ? base : "/tmp") + "/vantroy-XXXXXX";
    if (mkdtemp(name.data()) == nullptr)
        return false;
    m_folder = name;
    return true;
}

std::string CopyFolder::Store(const QByteArray& content)
{
    if (!Make())
        return {};
    const std::string path = m_folder / std::to_string(++m_files);
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (file < 0)
        return {};
    const bool written = WriteAll(file, content);
    if (close(file) == 0 && written)
        return path;
    unlink(path.c_str());
    return {};
}

} // namespace browsing
