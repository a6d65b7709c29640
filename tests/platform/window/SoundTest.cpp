#include "platform/shell/Sound.h"

#include "platform/shell/Shell.h"
#include "platform/testing/RecordingPrograms.h"
#include "platform/testing/Robot.h"

#include <filesystem>
#include <gtest/gtest.h>

TEST(Sound, TheDesktopsPlayerGetsTheFile)
{
    const TempHome home;
    home.Write("-ding.wav", "not looked at");
    const std::string file = home.Path("-ding.wav");
    const RecordingPrograms programs(home, {"pw-play", "paplay", "aplay"});
    for (const char* player : {"pw-play", "paplay", "aplay"})
    {
        EXPECT_TRUE(PlaySoundA(file.c_str(), nullptr, SND_ASYNC | SND_NODEFAULT | SND_FILENAME));
        EXPECT_EQ(programs.Arguments(player), std::vector<std::string>{file});
        std::filesystem::remove(programs.Path(player)); // the next one is the best then
    }
    EXPECT_FALSE(PlaySoundA(file.c_str(), nullptr, SND_ASYNC));
}

TEST(Sound, WhatCannotBePlayedIsSilent)
{
    const TempHome home;
    home.Write("ding.wav", "");
    const RecordingPrograms programs(home, {"pw-play"});
    const std::string file = home.Path("ding.wav");
    EXPECT_FALSE(PlaySoundA(home.Path("none.wav").c_str(), nullptr, SND_ASYNC));
    EXPECT_FALSE(PlaySoundA(home.Folder().c_str(), nullptr, SND_ASYNC));
    EXPECT_FALSE(PlaySoundA(file.c_str(), nullptr, 0x8)); // in a loop
    EXPECT_FALSE(PlaySoundA(file.c_str(), &home, SND_ASYNC));
    EXPECT_FALSE(programs.HasRun("pw-play"));
}

TEST(Sound, OneSoundAtATime)
{
    const TempHome home;
    home.Write("ding.wav", "");
    const RecordingPrograms programs(home, {"pw-play"});
    // A player that plays until it is stopped, and tells of both.
    home.Write("bin/pw-play", "#!/bin/sh\ntrap ': > \"$0.stopped\"; exit' TERM\n: > \"$0.plays\"\n"
                              "while :; do /bin/sleep 0.01; done\n");
    const std::string file = home.Path("ding.wav");
    ASSERT_TRUE(PlaySoundA(file.c_str(), nullptr, SND_ASYNC));
    ASSERT_TRUE(ServeMessagesUntil([&] { return home.Exists("bin/pw-play.plays"); }));
    EXPECT_FALSE(PlaySoundA(file.c_str(), nullptr, SND_ASYNC | SND_NOSTOP));
    EXPECT_FALSE(home.Exists("bin/pw-play.stopped"));
    home.Write("bin/pw-play", "#!/bin/sh\n: > \"$0.ended\"\n");
    EXPECT_TRUE(PlaySoundA(file.c_str(), nullptr, SND_SYNC));
    EXPECT_TRUE(home.Exists("bin/pw-play.ended")); // waited for
    EXPECT_TRUE(ServeMessagesUntil([&] { return home.Exists("bin/pw-play.stopped"); }));
    EXPECT_TRUE(PlaySoundA(nullptr, nullptr, 0));
}
