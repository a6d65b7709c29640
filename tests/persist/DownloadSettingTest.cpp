#include "persist/DownloadSetting.h"
#include "tests/MessageBox.h"

#include "platform/testing/Limits.h"
#include "platform/testing/Robot.h"
#include "platform/testing/TempHome.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace
{

constexpr const char* kDefaults = "/def/Download|0: 1>250 0<0|0:|100";

// The file of the fullest setting.
const std::string kFull = "<CONFIG>\r\n"
                          "<SAVEFOLDER>/media/Download</SAVEFOLDER>\r\n"
                          "<LIMITFILESIZE>\r\n"
                          "<BIGTHAN FILESIZE=\"251\">1</BIGTHAN>\r\n"
                          "<SMALLTHAN FILESIZE=\"7\">0</SMALLTHAN>\r\n"
                          "</LIMITFILESIZE>\r\n"
                          "<LIMITRESOLVING>\r\n"
                          "<RESOLVING_CAP RESX=\"800\" RESY=\"600\"/>\r\n"
                          "<RESOLVING_CAP RESX=\"1024\" RESY=\"768\"/>\r\n"
                          "</LIMITRESOLVING>\r\n"
                          "<LIMITFILETYPE>3</LIMITFILETYPE>\r\n"
                          "</CONFIG>\r\n";

// folder|size limit: lower bound, upper bound|resolution limit: sizes|images, MP3, Flash
std::string Summary(const CDownloadSetting& setting)
{
    const auto number = [](const CFlag& flag) { return std::to_string(flag); };
    std::string text = setting.GetSaveFolder() + '|' + number(setting.m_bLimitFileSize) + ": " +
                       number(setting.m_bBigThan) + '>' + number(setting.m_nBigThanKb) + ' ' +
                       number(setting.m_bSmallThan) + '<' + number(setting.m_nSmallThanKb) + '|' +
                       number(setting.m_bLimitResolution) + ':';
    for (const auto& [width, height] : *setting.m_resolutions.Get())
        text += ' ' + std::to_string(width) + 'x' + std::to_string(height);
    return text + '|' + number(setting.m_bImages) + number(setting.m_bMp3) + number(setting.m_bFlash);
}

class DownloadSettingTest : public testing::Test
{
protected:
    DownloadSettingTest()
    {
        SetInstallPath("/def");
    }

    void SetInstallPath(const std::string& path) const
    {
        m_home.Write("registry-user.ini", "[SOFTWARE\\Orlenta\\Vantroy]\nInstallPath=" + path + '\n');
    }
    // What a start of the program makes of a file of this content.
    std::string Loaded(const std::string& content) const
    {
        m_home.Write("config.xml", content);
        return Summary(CDownloadSetting());
    }

    TempHome m_home;
};

} // namespace

TEST_F(DownloadSettingTest, StartsWithTheDefaultsWhereThereIsNoFile)
{
    EXPECT_EQ(Summary(CDownloadSetting()), kDefaults);
    EXPECT_FALSE(CDownloadSetting().Load());
    EXPECT_FALSE(m_home.Exists("config.xml"));
    SetInstallPath(std::string(300, 'x'));
    EXPECT_EQ(CDownloadSetting().GetSaveFolder(), "");
    m_home.Write("registry-user.ini", std::string(5000, '\xFF'));
    EXPECT_EQ(CDownloadSetting().GetSaveFolder(), "");
}

TEST_F(DownloadSettingTest, ReadsWhatStandsInItsPlace)
{
    const std::string full = "/media/Download|1: 1>251 0<7|1: 800x600 1024x768|110";
    const std::pair<std::string, std::string> cases[] = {
        {kFull, full},
        {"<?xml version=\"1.0\"?><!-- mine --><CONFIG><SAVEFOLDER/></CONFIG>", "|0: 1>250 0<0|0:|100"},
        {"<CONFIG/>", kDefaults},
        {"<CONFIG><SAVEFOLDER>a&amp;&lt;&gt;b</SAVEFOLDER></CONFIG>", "a&<>b|0: 1>250 0<0|0:|100"},
        {"<CONFIG><LIMITFILETYPE>0</LIMITFILETYPE></CONFIG>", "/def/Download|0: 1>250 0<0|0:|000"},
        {"<CONFIG><LIMITFILETYPE>6</LIMITFILETYPE><SAVEFOLDER>late</SAVEFOLDER></CONFIG>", "late|0: 1>250 0<0|0:|100"},
        {"<CONFIG><LIMITFILESIZE><BIGTHAN FILESIZE=\"9\">0</BIGTHAN></LIMITFILESIZE></CONFIG>",
         "/def/Download|1: 0>9 0<0|0:|100"},
        {"<CONFIG><LIMITFILESIZE><SMALLTHAN>x</SMALLTHAN></LIMITFILESIZE></CONFIG>",
         "/def/Download|1: 1>250 0<0|0:|100"},
        {"<CONFIG><LIMITFILESIZE><BIGTHAN FILESIZE=\"99999999999999999999\">1</BIGTHAN>"
         "<SMALLTHAN FILESIZE=\" -99999999999x\">1</SMALLTHAN></LIMITFILESIZE></CONFIG>",
         "/def/Download|1: 1>2147483647 1<-2147483648|0:|100"},
        {"<CONFIG><LIMITRESOLVING/></CONFIG>", "/def/Download|0: 1>250 0<0|1:|100"},
        {"<CONFIG><LIMITRESOLVING><RESOLVING_CAP RESX=\"5\"/></LIMITRESOLVING></CONFIG>",
         "/def/Download|0: 1>250 0<0|1: 5x0|100"},
        {"<CONFIG><SAVEFOLDER>" + std::string(600, 'f') + "</SAVEFOLDER></CONFIG>",
         std::string(519, 'f') + "|0: 1>250 0<0|0:|100"},
        {kFull + '\0' + "<CONFIG/>", full},
        // A character that is cut swallows no bracket.
        {"<CONFIG><SAVEFOLDER>\xFF\xE4</SAVEFOLDER></CONFIG>", "\xFF\xE4|0: 1>250 0<0|0:|100"},
        // What is damaged anywhere changes nothing.
        {" \r\n\t", kDefaults},
        {"<config><SAVEFOLDER>x</SAVEFOLDER></config>", kDefaults},
        {"<CONFIG><SAVEFOLDER>x</CONFIG></SAVEFOLDER>", kDefaults},
        {std::string("<CONFIG><SAVEFOLDER>x</SAVEFOLDER>\0</CONFIG>", 45), kDefaults},
        {std::string(1 << 20, '<'), kDefaults},
    };
    for (const auto& [content, summary] : cases)
    {
        EXPECT_EQ(Loaded(content), summary) << content.substr(0, 200);
    }
    for (std::size_t length = 0; length < kFull.rfind('>'); ++length)
    {
        ASSERT_EQ(Loaded(kFull.substr(0, length)), kDefaults) << length;
    }
}

TEST_F(DownloadSettingTest, AFileThatCannotBeReadOrReplacedIsToldAndStays)
{
    m_home.Write("config.xml", kFull);
    CDownloadSetting setting;
    {
        const MemoryLimit memory(16);
        EXPECT_TRUE(setting.Load()); // a damaged one, which is none of these
    }
    std::filesystem::remove(m_home.Path("config.xml"));
    std::filesystem::create_directory(m_home.Path("config.xml"));
    EXPECT_FALSE(setting.Load());
    RunScript([&] { EXPECT_FALSE(setting.Save()); }, [](Robot& robot) { ExpectBox(robot, "Permission denied"); });
    EXPECT_EQ(m_home.Files(""), (std::vector<std::string>{"config.xml", "registry-user.ini"}));
}

TEST_F(DownloadSettingTest, WritesWhatItReads)
{
    m_home.Write("config.xml", kFull);
    CDownloadSetting setting;
    m_home.Write("config.xml", "old");
    EXPECT_TRUE(setting.Save());
    EXPECT_EQ(m_home.Read("config.xml"), kFull);

    setting.m_bLimitFileSize = 0;
    setting.m_bLimitResolution = 0;
    setting.m_bImages = 0;
    setting.m_bMp3 = 0;
    setting.m_szSaveFolder.Set(CDownloadSetting::SaveFolder(std::string("P&Q <1>")));
    EXPECT_TRUE(setting.Save());
    EXPECT_EQ(m_home.Read("config.xml"), "<CONFIG>\r\n<SAVEFOLDER>P&amp;Q &lt;1&gt;</SAVEFOLDER>\r\n"
                                         "<LIMITFILETYPE>0</LIMITFILETYPE>\r\n</CONFIG>\r\n");
    EXPECT_EQ(Summary(CDownloadSetting()), "P&Q <1>|0: 1>250 0<0|0:|000");

    setting.m_szSaveFolder.Set({});
    setting.m_bLimitResolution = 1;
    setting.m_bFlash = 1;
    setting.m_resolutions.Set({});
    EXPECT_TRUE(setting.Save());
    EXPECT_EQ(m_home.Read("config.xml"), "<CONFIG>\r\n<SAVEFOLDER/>\r\n<LIMITRESOLVING/>\r\n"
                                         "<LIMITFILETYPE>4</LIMITFILETYPE>\r\n</CONFIG>\r\n");
}
