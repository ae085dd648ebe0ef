// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "music.h"

#include <gmock/gmock.h>

#include "librarycalls.h"
#include "main.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MusicTest : public ::testing::Test {
protected:
    void SetUp() override {
        haveSound = true;
        programDataPath = "data/";
    }

    // Leaves only what comes afterwards in the log.
    void loadAndForget() {
        ASSERT_TRUE(Music::load());
        calls.log.clear();
    }

    LibraryCalls calls;
};

TEST_F(MusicTest, isSilentAfterLoading) {
    loadAndForget();
    EXPECT_EQ(Music::current(), 0);
}

struct BrokenTrack {
    const char* failing;
    std::size_t attempts;
    const char* message;
};

const BrokenTrack brokenTracks[] = {
    {"Mix_LoadMUS(data/music1.mp3)", 1, "ERROR: Can't load music1.mp3\nout of luck\n"},
    {"Mix_LoadMUS(data/music2.mp3)", 2, "ERROR: Can't load music2.mp3\nout of luck\n"},
    {"Mix_LoadMUS(data/music3.mp3)", 3, "ERROR: Can't load music3.mp3\nout of luck\n"},
};

TEST_F(MusicTest, stopsAtTheFirstTrackThatFailsAndNamesItWithoutItsDirectory) {
    for (const BrokenTrack& track : brokenTracks) {
        SCOPED_TRACE(track.failing);
        calls.log.clear();
        calls.failing = {track.failing};
        ::testing::internal::CaptureStderr();
        EXPECT_FALSE(Music::load());
        EXPECT_EQ(::testing::internal::GetCapturedStderr(), track.message);
        EXPECT_EQ(calls.log.size(), track.attempts);
        EXPECT_EQ(calls.log.back(), track.failing);
    }
}

TEST_F(MusicTest, playsEachTrackForever) {
    loadAndForget();
    const char* plays[] = {"Mix_PlayMusic(data/music1.mp3, -1)",
                           "Mix_PlayMusic(data/music2.mp3, -1)",
                           "Mix_PlayMusic(data/music3.mp3, -1)"};
    for (int track = 1; track <= 3; ++track) {
        SCOPED_TRACE(track);
        Music::play(track);
        EXPECT_EQ(calls.log.back(), plays[track - 1]);
        EXPECT_EQ(Music::current(), track);
    }
}

TEST_F(MusicTest, anotherTrackHaltsTheOneThatPlays) {
    loadAndForget();
    Music::play(1);
    Music::play(3);
    EXPECT_THAT(calls.log, ElementsAre("Mix_PlayMusic(data/music1.mp3, -1)", "Mix_HaltMusic()",
                                       "Mix_PlayMusic(data/music3.mp3, -1)"));
}

TEST_F(MusicTest, theSameTrackAgainPlaysOnUntouched) {
    loadAndForget();
    Music::play(1);
    Music::play(1);
    EXPECT_THAT(calls.log, ElementsAre("Mix_PlayMusic(data/music1.mp3, -1)"));
    EXPECT_EQ(Music::current(), 1);
}

TEST_F(MusicTest, everyOtherNumberIsSilence) {
    for (const int track : {0, -1, 4, 323}) {
        SCOPED_TRACE(track);
        loadAndForget();
        Music::play(2);
        calls.log.clear();
        Music::play(track);
        EXPECT_THAT(calls.log, ElementsAre("Mix_HaltMusic()"));
        EXPECT_EQ(Music::current(), 0);
    }
}

TEST_F(MusicTest, aSilencedTrackCanBePlayedAgain) {
    loadAndForget();
    Music::play(1);
    Music::play(0);
    calls.log.clear();
    Music::play(0);
    EXPECT_THAT(calls.log, IsEmpty());
    Music::play(1);
    EXPECT_THAT(calls.log, ElementsAre("Mix_PlayMusic(data/music1.mp3, -1)"));
}

TEST_F(MusicTest, aTrackThatCannotBePlayedIsCurrentAllTheSame) {
    loadAndForget();
    calls.failing = {"Mix_PlayMusic"};
    ::testing::internal::CaptureStderr();
    Music::play(2);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(Music::current(), 2);
    calls.log.clear();
    Music::play(2);
    EXPECT_THAT(calls.log, IsEmpty());
}

TEST_F(MusicTest, freesTheTracksInOrder) {
    loadAndForget();
    Music::unload();
    EXPECT_THAT(calls.log,
                ElementsAre("Mix_FreeMusic(data/music1.mp3)", "Mix_FreeMusic(data/music2.mp3)",
                            "Mix_FreeMusic(data/music3.mp3)"));
}

TEST_F(MusicTest, freesOnlyTheTracksThatWereLoaded) {
    calls.failing = {"Mix_LoadMUS(data/music2.mp3)"};
    ::testing::internal::CaptureStderr();
    Music::load();
    ::testing::internal::GetCapturedStderr();
    calls.log.clear();
    Music::unload();
    EXPECT_THAT(calls.log, ElementsAre("Mix_FreeMusic(data/music1.mp3)"));
}

TEST_F(MusicTest, freesNothingBeforeLoading) {
    Music::unload();
    EXPECT_THAT(calls.log, IsEmpty());
}

TEST_F(MusicTest, freeingTheTracksKeepsTheCurrentOne) {
    loadAndForget();
    Music::play(3);
    Music::unload();
    EXPECT_EQ(Music::current(), 3);
}

TEST_F(MusicTest, withoutSoundNothingHappens) {
    haveSound = false;
    EXPECT_TRUE(Music::load());
    Music::play(2);
    EXPECT_EQ(Music::current(), 0);
    Music::unload();
    EXPECT_THAT(calls.log, IsEmpty());
    haveSound = true;
    EXPECT_EQ(Music::current(), 0);
}

TEST_F(MusicTest, withoutSoundNoTrackIsCurrentWhateverPlayedBefore) {
    loadAndForget();
    Music::play(2);
    haveSound = false;
    EXPECT_EQ(Music::current(), 0);
}

} // namespace
