#include "platform/browser/BrowserToolbar.h"

#include "platform/browser/BrowserStates.h"
#include "platform/system/Registry.h"
#include "platform/testing/RecordingPrograms.h"
#include "platform/testing/TempHome.h"
#include "tests/platform/browser/Collection.h"
#include "tests/platform/browser/FakeBrowser.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>

namespace
{

const std::string kKey = "Software\\Microsoft\\Internet Explorer\\Extensions\\{5B7D2C16-A94E-4F03-9C61-2E8F40D1B7A3}";
constexpr const char* kRunsProgram = "{1FBA04EE-3024-11D2-8F1F-0000F87ABD16}";
const std::string kId = "mcdafhigjjcocleamdailkllpehldafh";
const std::string kHost = "vantroy/browser/NativeMessagingHosts/example.vantroy.button.json";
const std::string kManifest = "vantroy/button/manifest.json";

using Values = std::vector<std::pair<const char*, std::string>>;

// The button's key in the registry, or one below it.
void AddKey(const Values& values, const std::string& below = "")
{
    HKEY key = HKEY::Null;
    RegCreateKeyA(HKEY_LOCAL_MACHINE, (kKey + below).c_str(), &key);
    for (const auto& [name, text] : values)
        RegSetValueExA(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                       static_cast<DWORD>(text.size() + 1));
    RegCloseKey(key);
}

// An open browser of vantroy-browser, which notes what it is told of extensions.
class Toolbar : public testing::Test
{
protected:
    Toolbar()
        : m_browser({},
                    [this](const QJsonObject& request, const FakeBrowser::Send& send) { return Note(request, send); })
    {
        setenv("XDG_DATA_HOME", m_home.Folder().c_str(), 1);
        setenv("HOME", m_home.Folder().c_str(), 1);
        unsetenv("XDG_CONFIG_HOME");
        m_home.Write("vantroy/browser/DevToolsActivePort",
                     std::to_string(m_browser.Port()) + "\n/devtools/browser/fake");
    }
    ~Toolbar() override
    {
        unsetenv("XDG_DATA_HOME");
    }

    bool Note(const QJsonObject& request, const FakeBrowser::Send& send)
    {
        const std::string method = request.value("method").toString().toStdString();
        if (!method.starts_with("Extensions."))
            return false;
        const QJsonObject params = request.value("params").toObject();
        m_told.push_back(method + ' ' +
                         (params.value("path").toString() + params.value("id").toString()).toStdString());
        send(m_refuses ? QString(R"({"id": %1, "error": {"code": -32000}})").arg(request.value("id").toInt())
                       : FakeBrowser::Reply(request, {}));
        return true;
    }

    static void StartAndEnd()
    {
        const BrowserToolbar toolbar; // its end waits
    }
    bool Has(const std::string& file) const
    {
        return m_home.Exists(file);
    }
    QJsonObject ReadJson(const std::string& file) const
    {
        return QJsonDocument::fromJson(QByteArray::fromStdString(m_home.Read(file))).object();
    }
    TempHome m_home;
    bool m_refuses = false;
    std::vector<std::string> m_told; // of the fake's thread while it lives
    FakeBrowser m_browser;
};

int Press(const std::string& origin, std::string& reply)
{
    std::string arguments[] = {"vantroy", origin};
    char* argv[] = {arguments[0].data(), arguments[1].data()};
    testing::internal::CaptureStdout();
    const auto status = AnswerToolbarPress(2, argv);
    reply = testing::internal::GetCapturedStdout();
    return status.value_or(-1);
}

} // namespace

TEST_F(Toolbar, FollowsTheRegistryAndMakesGoodAtStartWhatWasChangedByHand)
{
    AddKey({{"CLSID", kRunsProgram}, {"ButtonText", "A \"button\" ü"}, {"Icon", "/a,128"}, {"Exec", "/a"}});
    StartAndEnd();
    ASSERT_TRUE(Has(kHost) && Has(kManifest));
    EXPECT_EQ(ReadJson(kHost).value("allowed_origins").toArray(),
              QJsonArray{QString::fromStdString("chrome-extension://" + kId + "/")});
    EXPECT_EQ(ReadJson(kManifest).value("name").toString(), QString::fromUtf8("A \"button\" ü"));
    EXPECT_EQ(ReadJson(kManifest).value("permissions").toArray(), QJsonArray{"nativeMessaging"});
    EXPECT_FALSE(ReadJson(kManifest).contains("host_permissions"));
    std::optional<BrowserToolbar> toolbar(std::in_place); // what stands already is left alone
    RegDeleteKeyA(HKEY_LOCAL_MACHINE, kKey.c_str());
    toolbar.reset();
    EXPECT_FALSE(Has(kHost) || Has(kManifest));
    const std::string load = "Extensions.loadUnpacked " + m_home.Path("vantroy/button");
    EXPECT_EQ(m_told, (std::vector<std::string>{load, load, "Extensions.uninstall " + kId}));

    toolbar.emplace();
    AddKey({{"CLSID", kRunsProgram}, {"Exec", "/a"}});
    toolbar.reset();
    EXPECT_TRUE(Has(kHost) && Has(kManifest));
    m_home.Write("registry-machine.ini", "");
    StartAndEnd();
    EXPECT_FALSE(Has(kHost) || Has(kManifest));
    m_home.Write(kHost, R"({"path": "/another/program"})"); // which has a home of its own
    toolbar.emplace();
    AddKey({{"CLSID", "{00000000-0000-0000-0000-000000000000}"}, {"Exec", "/a"}});
    AddKey({{"CLSID", kRunsProgram}, {"Exec", ""}}, "\\below");
    toolbar.reset();
    EXPECT_TRUE(Has(kHost));
    EXPECT_FALSE(Has(kManifest));
}

TEST_F(Toolbar, APressRunsWhatTheRegistryNames)
{
    const std::string origin = "chrome-extension://" + kId + "/";
    const RecordingPrograms programs(m_home, {"album maker"});
    std::string reply;
    EXPECT_EQ(Press("chrome-extension://" + std::string(32, 'a') + "/", reply), -1);
    EXPECT_EQ(Press("--all", reply), -1);
    EXPECT_EQ(Press(origin, reply), EXIT_FAILURE);
    EXPECT_EQ(reply, std::string("\x11\0\0\0", 4) + R"({"started":false})");
    AddKey({{"CLSID", kRunsProgram}, {"Exec", programs.Path("album maker")}});
    EXPECT_EQ(Press(origin, reply), EXIT_SUCCESS);
    EXPECT_EQ(reply, std::string("\x10\0\0\0", 4) + R"({"started":true})");
    EXPECT_EQ(programs.Arguments("album maker"), std::vector<std::string>());
}

TEST_F(Toolbar, ABrowserThatRefusesIsTold)
{
    const auto refuses = [] { return ReportBrowsers().at(0).refusesButton; };
    m_refuses = true;
    m_home.Write(kHost, "");
    EXPECT_FALSE(refuses()) << "nobody has asked for a button";
    AddKey({{"CLSID", kRunsProgram}, {"Exec", "/a"}});
    StartAndEnd();
    EXPECT_TRUE(refuses());
    m_browser.Die();
    EXPECT_FALSE(refuses());
}
