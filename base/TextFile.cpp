#include "base/TextFile.h"

#include "platform/files/File.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

ReadResult ReadTextFile(const std::string& path, GlobalPtr<char>& text)
{
    CFile file;
    if (!file.Open(path, CFile::modeRead))
        return ReadResult::Unreadable;
    const std::size_t length = file.GetLength();
    text.reset(static_cast<char*>(GlobalAlloc(GPTR, length + 1)));
    if (!text)
        return ReadResult::OutOfMemory;
    std::size_t got = 0;
    return file.Read(text.get(), length, got) ? ReadResult::Read : ReadResult::Unreadable;
}

std::int32_t ToNumber(const std::string& text)
{
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(
        std::clamp<long long>(std::strtoll(text.c_str(), nullptr, 10), Limits::min(), Limits::max()));
}
