// Choosing a folder as a user does.
#include "TestDialog.h"

#include "platform/files/Path.h"
#include "platform/shell/FolderBrowser.h"
#include "platform/testing/TempHome.h"
#include "tests/persist/InCodePage.h"

#include <filesystem>

namespace fs = std::filesystem;

namespace
{

// Opens the dialog on a path, as the callback names it.
int SelectPath(HWND dialog, UINT message, LPARAM, LPARAM path)
{
    if (message == BFFM_INITIALIZED && path)
        SendMessageA(dialog, BFFM_SETSELECTIONA, TRUE, path);
    return 0;
}

ITEMIDLIST* Browse(HWND owner, const char* path)
{
    BROWSEINFOA info;
    info.hwndOwner = owner;
    info.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
    info.lpfn = &SelectPath;
    info.lParam = reinterpret_cast<LPARAM>(path);
    return SHBrowseForFolderA(&info);
}

// The path of an item, which it frees; "none" if it has none.
std::string TakePath(ITEMIDLIST* item, DWORD size = 5000)
{
    std::string path(5000, '#');
    const BOOL given = SHGetPathFromIDListEx(item, path.data(), size, 0);
    IMalloc* allocator = nullptr;
    SHGetMalloc(&allocator);
    allocator->Free(item);
    allocator->Release();
    return given ? path.c_str() : "none";
}

// Chooses the folder that the dialog stands on, or another one.
void Accept(Robot& robot)
{
    robot.Press("Choose");
}
auto Accepting(const std::string& folder)
{
    return [folder](Robot& robot) {
        robot.TypeFolder(folder);
        Accept(robot);
    };
}

class FolderBrowser : public testing::Test
{
protected:
    // What a dialog over the form gives that opens on `path`, with `use` at its controls.
    std::string Choose(const std::string& path, const std::function<void(Robot&)>& use, DWORD size = 5000)
    {
        std::string chosen;
        TestDialog form;
        form.m_onAct = [&] { chosen = TakePath(Browse(form.m_hWnd, path.c_str()), size); };
        form.Play([&](Robot& robot) {
            robot.Press("Act");
            use(robot);
            robot.WaitForNoWindow("Browse For Folder");
            robot.Press("Cancel", "Form");
        });
        return chosen;
    }
    std::string Make(const std::string& name) const
    {
        fs::create_directories(m_home.Path(name));
        return m_home.Path(name);
    }

    TempHome m_home;
};

} // namespace

TEST_F(FolderBrowser, OpensWhereTheCallbackSays)
{
    const std::string folder = Make("two words/f\xC3\xBCnf");
    m_home.Write("file", "");
    const std::string home = getenv("HOME");
    const std::pair<std::string, std::string> cases[] = {
        {folder, folder},
        {folder + '/', folder},
        {folder + "/gone/too", folder},
        {m_home.Path("file"), m_home.Folder()},
        {Make("no UTF-8 \xFF"), m_home.Folder()},
        {"/", "/"},
        {"/no such folder", home},
        {"", home},
    };
    for (const auto& [named, stands] : cases)
        EXPECT_EQ(Choose(named, &Accept), stands);
}

TEST_F(FolderBrowser, GivesWhatIsChosenAndNothingOtherwise)
{
    const std::string first = Make("first");
    const std::string second = Make("second");
    const auto take = [&second](Robot& robot) {
        EXPECT_THROW(kImpatient.Press("Cancel", "Form"), RobotError);
        Accepting(second)(robot);
    };
    EXPECT_EQ(Choose(first, take), second);
    EXPECT_EQ(Choose(first, [](Robot& robot) { robot.Press("Cancel", "Browse For Folder"); }), "none");
    EXPECT_EQ(Choose(first, [](Robot& robot) { robot.Key("Esc"); }), "none");
    EXPECT_EQ(Choose(first, [](Robot& robot) { robot.CloseWindow("Browse For Folder"); }), "none");
}

TEST_F(FolderBrowser, KeepsToTheRoomForAPath)
{
    const std::string folder = Make(std::string(200, 'a') + '/' + std::string(200, 'b'));
    EXPECT_EQ(Choose(folder, &Accept, static_cast<DWORD>(folder.size() + 1)), folder);
    EXPECT_EQ(Choose(folder, &Accept, static_cast<DWORD>(folder.size())), "none");
    const auto browse = [&folder] {
        ITEMIDLIST* item = Browse({}, folder.c_str());
        std::string path(MAX_PATH + 1, '#');
        EXPECT_FALSE(SHGetPathFromIDListA(item, path.data()));
        EXPECT_STREQ(path.c_str(), "");
        EXPECT_EQ(path.back(), '#');
        TakePath(item);
    };
    RunScript(browse, &Accept);
}

TEST_F(FolderBrowser, GivesNoPathThatWouldNameAnotherFolder)
{
    const std::string chinese = Make("\xE4\xB8\xAD");
    const std::string german = Make("\xC3\xB6");
    ExpectInCodePage("936", [&] {
        const std::string named = m_home.Path("\xD6\xD0");
        EXPECT_EQ(Choose("/", Accepting(chinese)), named);
        EXPECT_EQ(Choose(named, &Accept), named);
        EXPECT_EQ(Choose(named, Accepting(german)), "none");
    });
}

TEST_F(FolderBrowser, GoesWithItsOwner)
{
    TestDialog form;
    bool ended = false;
    form.m_onAct = [&] { ended = !Browse(form.m_hWnd, "/"); };
    form.Play([&](Robot& robot) {
        robot.Press("Act");
        robot.WaitForWindow("Browse For Folder");
        EXPECT_TRUE(form.DestroyWindow());
        robot.WaitForNoWindow("Browse For Folder");
    });
    EXPECT_TRUE(ended);
    EXPECT_EQ(Browse({12345}, "/"), nullptr);
}

TEST_F(FolderBrowser, BlocksAWorkerAlone)
{
    const std::string folder = Make("folder");
    TestDialog form;
    form.m_answers[WM_ASK] = [](WPARAM, LPARAM) { return 7; };
    form.Play([&](Robot& robot) {
        Worker worker([&] { EXPECT_EQ(TakePath(Browse(form.m_hWnd, folder.c_str())), folder); });
        EXPECT_EQ(robot.BrowsedFolder(), folder);
        EXPECT_EQ(form.SendMessage(WM_ASK), 7);
        Accept(robot);
        worker->Wait();
        form.DestroyWindow();
    });
}
