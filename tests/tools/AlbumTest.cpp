// The album command and its window, over a component that the test enters.
#include "tests/Application.h"
#include "tests/MessageBox.h"
#include "tools/AdvancedFrame.h"
#include "tools/QuenbyGallery.h"
#include "tools/ThumbnailAlbum.h"

#include "platform/com/Com.h"
#include "platform/com/ComObject.h"
#include "platform/com/Runnable.h"
#include "platform/system/LastError.h"
#include "platform/testing/Robot.h"
#include "platform/testing/TempHome.h"

#include <atomic>
#include <gtest/gtest.h>

namespace
{

constexpr CLSID kClass{0x12345678, 0x9ABC, 0xDEF0, {1, 2, 3, 4, 5, 6, 7, 0xFA}};
constexpr const char* kRegistered = "[Quenby.Gallery\\CLSID]\n={12345678-9ABC-def0-0102-0304050607FA}\n";
constexpr const char* kNoComponent = "Unable to create Quenby Instance!\n";

// What the component does, and what was asked of it.
struct Behaviour
{
    HRESULT create = S_OK;
    HRESULT run = S_OK;
    bool isGallery = true;
    HRESULT album = S_OK;
};
Behaviour g_behaviour;
int g_living = 0;
std::atomic<int> g_albums = 0;

class Runner : public CComObject<IRunnableObject>
{
    HRESULT Run() override
    {
        return g_behaviour.run;
    }
};

class Gallery : public CComObject<IQuenbyGallery>
{
public:
    Gallery()
    {
        ++g_living;
    }
    ~Gallery() override
    {
        --g_living;
    }
    HRESULT QueryInterface(REFIID iid, void** object) override
    {
        if (iid == IRunnableObject::kIid)
            return (new Runner)->QueryInterface(iid, object);
        if (iid == IQuenbyGallery::kIid && !g_behaviour.isGallery)
            return E_NOINTERFACE;
        return CComObject::QueryInterface(iid, object);
    }
    HRESULT CreateAlbum() override
    {
        ++g_albums;
        return g_behaviour.album;
    }
};

class Album : public testing::Test
{
protected:
    Album()
    {
        StartApplication();
        CoInitialize(nullptr);
        g_behaviour = {};
        g_albums = 0;
        m_home.Write("registry-classes.ini", kRegistered);
        RegisterClassFactory(kClass, [](CComPtr<IUnknown>& object) {
            if (SUCCEEDED(g_behaviour.create))
                object = CComPtr<IUnknown>(new Gallery);
            return g_behaviour.create;
        });
    }
    ~Album() override
    {
        RegisterClassFactory(kClass, {});
        CoUninitialize();
        EXPECT_EQ(g_living, 0);
    }
    // What a message box of the command says; empty if it shows none.
    static std::string Told()
    {
        std::string told;
        std::atomic<bool> done = false;
        const auto command = [&done] {
            CreateThumbnailAlbum();
            done = true;
        };
        RunScript(command, [&](Robot& robot) {
            robot.WaitUntil([&] { return done || !robot.Windows().empty(); }, "the command to end, or a box");
            if (done)
                return;
            told = robot.MessageBoxText();
            robot.Answer("OK");
        });
        EXPECT_EQ(g_living, 0);
        return told;
    }

    TempHome m_home;
};

} // namespace

TEST_F(Album, TellsThatTheComponentCannotBeHad)
{
    for (const Behaviour& behaviour :
         {Behaviour{.create = E_FAIL}, Behaviour{.run = E_FAIL}, Behaviour{.isGallery = false}})
    {
        g_behaviour = behaviour;
        EXPECT_EQ(Told(), kNoComponent);
    }
    g_behaviour = {};
    for (const char* registry : {"", "[Quenby.Gallery\\CLSID]\n={12345678-9ABC-def0-0102-0304050607FB}\n",
                                 "[Quenby.Gallery\\CLSID]\n={12345678-9ABC-def0-01020304050607FA-}\n",
                                 "[Quenby.Gallery\\CLSID]\n={12345678-9ABC-def0-0102-0304050607FA}}\n",
                                 "[Quenby.Gallery\\CLSID]\n=12345678-9ABC-def0-0102-0304050607FA\n"})
    {
        m_home.Write("registry-classes.ini", registry);
        EXPECT_EQ(Told(), kNoComponent) << registry;
    }
    m_home.Write("registry-classes.ini", kRegistered);
    EXPECT_EQ(g_albums, 0);
    EXPECT_EQ(Told(), "") << "a failure is not for good";
    EXPECT_EQ(Told(), "");
    EXPECT_EQ(g_albums, 2);
}

TEST_F(Album, TellsWhyTheComponentFailed)
{
    const std::pair<DWORD, std::string> cases[] = {
        {0x80070005, "Permission denied"},        {0x8007000E, "Cannot allocate memory"},
        {0x80004005, "Unspecified error"},        {0x80040200, "Unknown error 0x80040200"},
        {0x80040201, "IDispatch error #1"},       {0x8004FFFF, "IDispatch error #65023"},
        {0x800401FF, "Unknown error 0x800401FF"}, {0x80050000, "Unknown error 0x80050000"},
        {0x8007FFFF, "Unknown error 0x8007FFFF"}, {0x7FFFFFFF, ""},
    };
    for (const auto& [result, text] : cases)
    {
        g_behaviour.album = static_cast<HRESULT>(result);
        EXPECT_EQ(Told(), text);
    }
}

TEST_F(Album, HasItsCommandInTheWindow)
{
    int closed = 0;
    auto* frame = new CAdvancedFrame([&closed] { ++closed; });
    ASSERT_TRUE(frame->LoadFrame(191));
    const HWND window = frame->GetSafeHwnd();
    frame->ShowWindow(SW_SHOW);
    RunScript([&] { ServeMessagesUntil([&] { return !IsWindow(window); }, std::chrono::seconds(60)); },
              [&](Robot& robot) {
                  const std::string title = "Advanced";
                  const std::string entry = "Create a Thumbnail Album...";
                  robot.WaitForWindow(title);
                  EXPECT_EQ(robot.MainMenus(title), std::vector<std::string>{"File"});
                  robot.OpenMainMenu("File", title);
                  EXPECT_EQ(robot.MenuEntries().size(), 4u);
                  EXPECT_FALSE(robot.IsMenuEntryEnabled("New Project..."));
                  robot.ChooseMenu(entry);
                  robot.WaitUntil([] { return g_albums == 1; }, "the first album");
                  robot.Press(entry, title);
                  robot.WaitUntil([] { return g_albums == 2; }, "the second album");
                  robot.PointAt(entry, title);
                  EXPECT_EQ(robot.StatusText(title), entry);
                  EXPECT_EQ(robot.LayoutFaults(title), "");
                  m_home.Write("registry-classes.ini", "");
                  robot.Press(entry, title);
                  ExpectBox(robot, kNoComponent);
                  EXPECT_EQ(closed, 0);
                  for (const char* edge : {"left", "bottom", "right", "top"})
                  {
                      robot.DragToolBar(edge, title);
                      EXPECT_EQ(robot.LayoutFaults(title), "");
                  }
                  robot.ChooseMainMenu("File", "Exit", title);
                  robot.WaitForNoWindow(title);
              });
    EXPECT_EQ(closed, 1);
}
