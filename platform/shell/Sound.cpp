#include "platform/shell/Sound.h"

#include "platform/files/NativePath_p.h"
#include "platform/shell/Process_p.h"

#include <filesystem>
#include <mutex>
#include <system_error>

namespace
{

constexpr DWORD kKnownFlags = SND_ASYNC | SND_NODEFAULT | SND_NOSTOP | SND_FILENAME;

std::mutex g_mutex;
std::shared_ptr<StartedProgram> g_playing; // the last sound; it may have ended

// The absolute path, which never reads as an option; empty if there is no such file.
std::string FileOf(const char* name)
{
    std::error_code error;
    const auto path = std::filesystem::absolute(NativePath(name), error);
    return !error && std::filesystem::is_regular_file(path, error) ? path.string() : std::string();
}

std::shared_ptr<StartedProgram> StartPlayer(const std::string& file)
{
    for (const char* player : {"pw-play", "paplay", "aplay"})
    {
        if (auto program = StartedProgram::Start({player, file}))
            return program;
    }
    return nullptr;
}

} // namespace

BOOL PlaySoundA(const char* name, HMODULE module, DWORD flags)
{
    const std::string file = name ? FileOf(name) : std::string();
    if (name && (file.empty() || module || (flags & ~kKnownFlags)))
        return FALSE;
    std::shared_ptr<StartedProgram> sound;
    {
        const std::lock_guard lock(g_mutex);
        const bool playing = g_playing && g_playing->IsRunning();
        if (name && playing && (flags & SND_NOSTOP))
            return FALSE;
        if (playing)
            g_playing->Terminate();
        g_playing = name ? StartPlayer(file) : nullptr;
        sound = g_playing;
    }
    if (sound && !(flags & SND_ASYNC))
        sound->Wait();
    return !name || sound;
}
