#include "platform/files/File.h"
#include "platform/files/FileCalls.h"
#include "platform/files/InstallHome.h"
#include "platform/files/MirrorFile.h"
#include "platform/files/Path.h"
#include "platform/system/LastError.h"
#include "platform/testing/TempHome.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

TEST(File, RefusesWhatIsNoFile)
{
    const TempHome home;
    ASSERT_EQ(mkfifo(home.Path("pipe").c_str(), 0600), 0);
    for (const UINT flags : {CFile::modeRead, CFile::modeWrite, CFile::modeCreate | CFile::modeWrite})
        for (const std::string& path : {home.Folder(), home.Path("pipe"), std::string("/dev/full"), std::string()})
            EXPECT_FALSE(CFile().Open(path, flags)) << path << flags;
    CFileStatus status;
    EXPECT_TRUE(CFile::GetStatus(home.Folder(), status) && status.m_bFolder);
    EXPECT_FALSE(CFile::GetStatus(home.Folder() + '/', status));
}

TEST(MirrorFile, TakesItsPlaceWholeOrNotAtAll)
{
    const TempHome home;
    home.Write("folder/real", "old");
    std::filesystem::permissions(home.Path("folder/real"), std::filesystem::perms(0640));
    std::filesystem::create_symlink("folder/real", home.Path("link"));
    for (const bool closes : {false, true})
    {
        CMirrorFile file;
        ASSERT_TRUE(file.Open(home.Path("link")));
        EXPECT_TRUE(file.Write("new ", 4) && file.Write("text", 4));
        EXPECT_EQ(home.Read("link"), "old");
        EXPECT_TRUE(!closes || (file.Flush() && file.Close()));
    }
    EXPECT_EQ(home.Read("folder/real"), "new text");
    EXPECT_TRUE(std::filesystem::is_symlink(home.Path("link")));
    EXPECT_EQ(std::filesystem::status(home.Path("folder/real")).permissions(), std::filesystem::perms(0640));
    CMirrorFile file;
    for (const char* path : {"folder", "folder/", "none/file", "link/file"})
        EXPECT_FALSE(file.Open(home.Path(path))) << path;
    EXPECT_FALSE(file.Open("") || file.Close());
    EXPECT_EQ(home.Files("folder"), std::vector<std::string>{"real"});
    // What a killed process has left under the same number.
    for (int i = 0; i < 200; ++i)
        home.Write("folder/.new-" + std::to_string(getpid()) + '-' + std::to_string(i), "left");
    EXPECT_TRUE(file.Open(home.Path("link")) && file.Write("next", 4) && file.Close());
    EXPECT_EQ(home.Read("folder/real"), "next");
    EXPECT_EQ(home.Files("folder").size(), 201u);
}

// Where the place is taken before the start and where it is taken on the way.
TEST(MirrorFile, LeavesAPlaceAloneThatIsNoLongerFree)
{
    const TempHome home;
    const std::string place = home.Path("folder/place");
    const auto refused = [&] {
        CMirrorFile file;
        return !(file.Open(place, CMirrorFile::Place::Free) && file.Close()) && GetLastError() == ERROR_ALREADY_EXISTS;
    };
    home.Write("folder/place", "first");
    EXPECT_TRUE(refused());
    std::filesystem::remove(place);
    std::filesystem::create_symlink(home.Path("nowhere"), place);
    EXPECT_TRUE(refused());
    std::filesystem::remove(place);
    CMirrorFile late;
    ASSERT_TRUE(late.Open(place, CMirrorFile::Place::Free));
    std::filesystem::create_symlink(home.Path("nowhere"), place);
    EXPECT_FALSE(late.Write("x", 1) && late.Close());
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    EXPECT_TRUE(std::filesystem::is_symlink(place));
    EXPECT_FALSE(home.Exists("nowhere"));
    EXPECT_EQ(home.Files("folder"), std::vector<std::string>{"place"});
    late.SetPlace(home.Path("folder/next"));
    EXPECT_TRUE(late.Close());
    EXPECT_EQ(home.Read("folder/next"), "x");
}

// What a progress routine was told, and where it says stop.
struct Watcher
{
    std::vector<std::int64_t> done;
    std::size_t cancelAt = SIZE_MAX;

    static DWORD Note(LARGE_INTEGER total, LARGE_INTEGER done, LARGE_INTEGER, LARGE_INTEGER, DWORD, DWORD reason, void*,
                      void*, void* data)
    {
        auto* self = static_cast<Watcher*>(data);
        EXPECT_EQ(total.QuadPart, 3 * 65536 + 1);
        EXPECT_EQ(reason, self->done.empty() ? CALLBACK_STREAM_SWITCH : CALLBACK_CHUNK_FINISHED);
        self->done.push_back(done.QuadPart);
        return self->done.size() == self->cancelAt ? PROGRESS_CANCEL : PROGRESS_CONTINUE;
    }
};

TEST(CopyFile, ReplacesTheTargetWholeOrNotAtAllAndReportsEachBlock)
{
    const TempHome home;
    std::string content;
    for (int i = 0; i < 3 * 65536 + 1; ++i)
        content += static_cast<char>(i * 7 + i / 256);
    home.Write("from", content);
    home.Write("to/file", "old");
    const std::string from = home.Path("from");
    const auto copy = [&](const std::string& to, Watcher* watcher, DWORD flags = 0) {
        return CopyFileExA(from.c_str(), to.c_str(), watcher ? &Watcher::Note : nullptr, watcher, nullptr, flags);
    };
    for (const std::size_t at : {1, 3, 5})
    {
        Watcher watcher{.done = {}, .cancelAt = at};
        EXPECT_FALSE(copy(home.Path("to/file"), &watcher));
        EXPECT_EQ(GetLastError(), ERROR_REQUEST_ABORTED);
        EXPECT_EQ(watcher.done.size(), at);
        EXPECT_EQ(home.Read("to/file"), "old");
        EXPECT_EQ(home.Files("to").size(), 1u);
    }
    Watcher watcher;
    EXPECT_TRUE(copy(home.Path("to/file"), &watcher));
    EXPECT_EQ(home.Read("to/file"), content);
    EXPECT_EQ(home.Files("to").size(), 1u);
    EXPECT_EQ(watcher.done, (std::vector<std::int64_t>{0, 65536, 2 * 65536, 3 * 65536, 3 * 65536 + 1}));
    EXPECT_FALSE(copy(from, nullptr, COPY_FILE_FAIL_IF_EXISTS));
    EXPECT_TRUE(copy(from, nullptr));
    EXPECT_EQ(home.Read("from"), content);
}

TEST(InstallHome, IsNamedOrTheProgramsOwn)
{
    unsetenv("VANTROY_HOME");
    const std::string own = std::filesystem::read_symlink("/proc/self/exe").parent_path().string();
    EXPECT_EQ(InstallHomeFolder(), own);
    const TempHome home;
    EXPECT_EQ(InstallHomeFolder(), home.Folder());
    setenv("VANTROY_HOME", (home.Folder() + "//x/../").c_str(), 1);
    EXPECT_EQ(InstallHomeFolder(), home.Folder());
    const std::string start = std::filesystem::current_path().string();
    setenv("VANTROY_HOME", "beside/../here", 1);
    EXPECT_EQ(_chdir(home.Folder().c_str()), 0);
    EXPECT_EQ(InstallHomeFolder(), start + "/here");
    EXPECT_EQ(_chdir(start.c_str()), 0);
    setenv("VANTROY_HOME", home.Folder().c_str(), 1);

    char path[MAX_PATH] = {};
    const std::string expected = home.Folder() + "/vantroy";
    EXPECT_EQ(GetModuleFileNameA(nullptr, path, sizeof path), expected.size());
    EXPECT_EQ(path, expected);
    EXPECT_EQ(GetModuleFileNameA(nullptr, path, 5), 5u);
    EXPECT_EQ(std::string(path), expected.substr(0, 4));
}

TEST(InstallHome, IsPreparedOnce)
{
    const TempHome home;
    const std::string folder = home.Path("new/home");
    setenv("VANTROY_HOME", folder.c_str(), 1);
    PrepareInstallHome();
    EXPECT_TRUE(home.Exists("new/home/Download"));
    EXPECT_NE(home.Read("new/home/registry-user.ini").find("InstallPath=" + folder + '\n'), std::string::npos);
    home.Write("new/home/registry-user.ini", "[Software\\Orlenta\\Vantroy]\nInstallPath=/else\n");
    PrepareInstallHome();
    EXPECT_NE(home.Read("new/home/registry-user.ini").find("InstallPath=/else\n"), std::string::npos);
}

} // namespace
