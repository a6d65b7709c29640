#include "platform/browser/BrowserStates.h"

#include "tests/platform/browser/FakeBrowser.h"

#include "platform/testing/HttpTestServer.h"
#include "platform/testing/TempHome.h"

#include <gtest/gtest.h>

#include <cstdlib>

using Reports = std::vector<BrowserReport>;

namespace
{

// A home without browsers, on a machine without policies.
class BrowserStates : public testing::Test
{
protected:
    BrowserStates()
    {
        setenv("HOME", m_home.Folder().c_str(), 1);
        setenv("VANTROY_POLICY_ROOT", m_home.Path("root").c_str(), 1);
        unsetenv("XDG_CONFIG_HOME");
        unsetenv("XDG_DATA_HOME");
        unsetenv("VANTROY_BROWSER");
        m_server.Serve("/json/version",
                       R"({"webSocketDebuggerUrl": "ws://127.0.0.1/devtools/browser/one", "Browser": "Chrome/156"})");
    }
    ~BrowserStates() override
    {
        unsetenv("VANTROY_POLICY_ROOT");
        unsetenv("VANTROY_BROWSER");
    }
    void WritePort(const std::string& folder, UINT port, const std::string& browser) const
    {
        m_home.Write(folder + "/DevToolsActivePort", std::to_string(port) + "\n/devtools/browser/" + browser);
    }
    BrowserReport Report(const char* name, const char* folder, BrowserState state, int pages = 0) const
    {
        return {name, m_home.Path(folder), state, pages};
    }

    TempHome m_home;
    HttpTestServer m_server;
};

} // namespace

TEST_F(BrowserStates, AreToldOfEachDataFolderInOrder)
{
    EXPECT_EQ(ReportBrowsers(), Reports());
    const FakeBrowser asking({"a"}, nullptr, 404);
    m_server.Serve("/json/list", R"([{"type": "page"}, {"type": "iframe"}, {"type": "page"}, 7, {},
                                     {"type": "page", "url": "devtools://devtools/x.html"}])");
    WritePort(".local/share/vantroy/browser", m_server.Port(), "one");
    WritePort(".config/chromium", 1, "gone");
    m_home.Write(".config/google-chrome/Local State", "{}");
    m_home.Write("root/etc/opt/chrome/policies/managed/a.json", "damaged");
    m_home.Write("root/etc/opt/chrome/policies/managed/b.json", R"({"RemoteDebuggingAllowed": false})");
    m_home.Write("root/etc/chromium/policies/managed/c.json", R"({"RemoteDebuggingAllowed": true})");
    WritePort(".config/BraveSoftware/Brave-Browser", asking.Port(), "fake");
    m_home.Write(".config/vivaldi/Local State", "{}");
    WritePort(".config/microsoft-edge", m_server.Port(), "another"); // the port is that of the first now
    EXPECT_EQ(ReportBrowsers(),
              (Reports{Report("vantroy-browser", ".local/share/vantroy/browser", BrowserState::Open, 2),
                       Report("Chromium", ".config/chromium", BrowserState::Stale),
                       Report("Chrome", ".config/google-chrome", BrowserState::Refused),
                       Report("Brave", ".config/BraveSoftware/Brave-Browser", BrowserState::AsksUser),
                       Report("Vivaldi", ".config/vivaldi", BrowserState::NotEnabled),
                       Report("Edge", ".config/microsoft-edge", BrowserState::Stale)}));
    for (const auto& head : asking.Heads())
        EXPECT_EQ(head.find("Upgrade"), std::string::npos) << "the user would be asked";
}

TEST_F(BrowserStates, NamedPlacesAreAllThatCounts)
{
    WritePort(".config/chromium", m_server.Port(), "one");
    const std::string open = "http://127.0.0.1:" + std::to_string(m_server.Port());
    setenv("VANTROY_BROWSER", (open + ",/nowhere").c_str(), 1);
    for (const char* list : {"", "[", "{}", "[[[[", "7", "null"})
    {
        m_server.Serve("/json/list", list);
        EXPECT_EQ(ReportBrowsers(), (Reports{{open, open, BrowserState::Open, 0}, {"/nowhere", "/nowhere"}})) << list;
    }
}
