// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "main.h"

#include <gmock/gmock.h>

#include "fixedclock.h"
#include "music.h"
#include "wholegame.h"

namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

const std::set<std::string> startUpCalls = {"SDL_Init",
                                            "SDL_SetVideoMode",
                                            "TTF_Init",
                                            "Mix_OpenAudio",
                                            "SDL_WM_SetCaption",
                                            "srand",
                                            "IMG_Load",
                                            "TTF_OpenFont",
                                            "Mix_LoadMUS",
                                            "SDL_CreateRGBSurface",
                                            "ProgramMode::activate",
                                            "Mix_PlayMusic"};

class StartUpTest : public WholeGameTest {};

TEST_F(StartUpTest, goesThroughItsStepsInOrder) {
    stopClock(1234567890);
    EXPECT_EQ(run(), 0);
    EXPECT_THAT(calls.of(startUpCalls),
                ElementsAre("SDL_Init(0xffff)", "SDL_SetVideoMode(800, 600, 32, 0x80000000)",
                            "TTF_Init()", "Mix_OpenAudio(22050, 0x8010, 2, 4096)",
                            "SDL_WM_SetCaption(Morvane, null)", "srand(1234567890)",
                            "IMG_Load(data/logo.png)", "IMG_Load(data/menu.png)",
                            "IMG_Load(data/tlacitka.png)", "IMG_Load(data/pozadie-lode3.png)",
                            "IMG_Load(data/brannoc4f.png)", "IMG_Load(data/presentsscreen1.png)",
                            "IMG_Load(data/bar1.png)", "IMG_Load(data/bar2.png)",
                            "IMG_Load(data/kruh.png)", "IMG_Load(data/voda.png)",
                            "IMG_Load(data/lod1.png)", "IMG_Load(data/strela2.png)",
                            "IMG_Load(data/cball.png)", "IMG_Load(data/prekazka1.png)",
                            "IMG_Load(data/prekazka2.png)", "IMG_Load(data/prekazka3.png)",
                            "TTF_OpenFont(data/papyrus.ttf, 29)", "Mix_LoadMUS(data/music1.mp3)",
                            "Mix_LoadMUS(data/music2.mp3)", "Mix_LoadMUS(data/music3.mp3)",
                            StartsWith("SDL_CreateRGBSurface(0x0, 800, 600, 32,"),
                            "Mix_PlayMusic(data/music1.mp3, -1)"));
}

// The call that prepares a picture comes right after its loading and tells the two kinds apart.
TEST_F(StartUpTest, givesEachPictureItsKindOfTransparency) {
    run();
    const std::string alpha = "SDL_SetAlpha(0x14000, 0)";
    const std::string key = "SDL_SetColorKey(0x5000, 0xff00ff)";
    std::vector<std::string> kinds;
    for (std::size_t i = 0; i < calls.log.size(); ++i) {
        if (calls.log[i].rfind("IMG_Load", 0) == 0) {
            kinds.push_back(calls.log[i + 1]);
        }
    }
    EXPECT_THAT(kinds, ElementsAre(alpha, alpha, alpha, key, key, key, key, key, key, key, alpha,
                                   alpha, alpha, alpha, alpha, alpha));
}

TEST_F(StartUpTest, poolsThePicturesUnderTheirBareNames) {
    std::map<std::string, SDL_Surface*> pool;
    frames.atStart = [&] { pool = imagePool; };
    run();
    std::vector<std::string> names;
    std::vector<std::string> expected;
    for (const PictureFile& file : pictureFiles) {
        expected.emplace_back(file.name);
    }
    for (const auto& image : pool) {
        names.push_back(image.first);
        EXPECT_NE(image.second, nullptr) << image.first;
    }
    EXPECT_THAT(names, ::testing::UnorderedElementsAreArray(expected));
}

TEST_F(StartUpTest, hasEverythingReadyBeforeTheFirstFrame) {
    bool ready = false;
    frames.atStart = [&] {
        ready = running && haveSound && initializationProgress == 3 && screen != nullptr &&
                screen == SDL_GetVideoSurface() && papyrusFont != nullptr &&
                activeProgramMode != nullptr && newProgramMode == nullptr &&
                programDataPath == "data/" && Music::current() == 1;
    };
    run();
    EXPECT_TRUE(ready);
}

// Everything that shutdown() could release, all of it fake.
class ShutdownTest : public ::testing::Test {
protected:
    void SetUp() override {
        calls.pretending = true;
        haveSound = true;
        Music::load();
        papyrusFont = loadFont("papyrus.ttf", 29);
        calls.log.clear();
    }

    void shutDownAfter(int progress) {
        initializationProgress = progress;
        shutdown();
    }

    LibraryCalls calls;
};

TEST_F(ShutdownTest, afterAllStagesClosesTheFontTtfAndSdl) {
    shutDownAfter(3);
    EXPECT_THAT(calls.log, ElementsAre("Mix_CloseAudio()", "Mix_FreeMusic(music1.mp3)",
                                       "Mix_FreeMusic(music2.mp3)", "Mix_FreeMusic(music3.mp3)",
                                       "TTF_CloseFont(papyrus.ttf)", "TTF_Quit()", "SDL_Quit()"));
}

TEST_F(ShutdownTest, withoutAFontClosesNone) {
    haveSound = false;
    papyrusFont = nullptr;
    shutDownAfter(3);
    EXPECT_THAT(calls.log, ElementsAre("TTF_Quit()", "SDL_Quit()"));
}

TEST_F(ShutdownTest, beforeTtfQuitsSdlAtMost) {
    haveSound = false;
    for (const int progress : {-1, 0, 1, 2, 4}) {
        SCOPED_TRACE(progress);
        calls.log.clear();
        shutDownAfter(progress);
        const std::size_t quits = progress == 1 || progress == 2 ? 1 : 0;
        EXPECT_EQ(calls.log, std::vector<std::string>(quits, "SDL_Quit()"));
    }
}

TEST_F(ShutdownTest, closesAnOpenMixerAtEveryStage) {
    shutDownAfter(0);
    EXPECT_THAT(calls.of({"Mix_CloseAudio"}), ElementsAre("Mix_CloseAudio()"));
    EXPECT_EQ(calls.of({"Mix_FreeMusic"}).size(), 3U);
}

TEST_F(ShutdownTest, freesThePicturesFirstInTheOrderOfTheirNamesAndKeepsTheirEntries) {
    char surfaces[2];
    imagePool["voda.png"] = reinterpret_cast<SDL_Surface*>(&surfaces[0]);
    imagePool["missing.png"] = nullptr;
    imagePool["bar1.png"] = reinterpret_cast<SDL_Surface*>(&surfaces[1]);
    shutDownAfter(1);
    EXPECT_EQ(calls.log[0], "SDL_FreeSurface(bar1.png)");
    EXPECT_EQ(calls.log[1], "SDL_FreeSurface(voda.png)");
    EXPECT_EQ(calls.log[2], "Mix_CloseAudio()");
    EXPECT_EQ(imagePool.size(), 3U);
    EXPECT_NE(imagePool["voda.png"], nullptr);
}

TEST_F(ShutdownTest, resetsNothing) {
    TTF_Font* font = papyrusFont;
    programDataPath = "data/";
    running = true;
    shutDownAfter(3);
    EXPECT_TRUE(haveSound);
    EXPECT_TRUE(running);
    EXPECT_EQ(initializationProgress, 3);
    EXPECT_EQ(papyrusFont, font);
    EXPECT_EQ(programDataPath, "data/");
}

} // namespace
