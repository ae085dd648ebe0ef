// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "main.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <ostream>

#include <gmock/gmock.h>

#include "fixedclock.h"
#include "music.h"
#include "wholegame.h"

namespace fs = std::filesystem;

namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
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
const std::set<std::string> loads = {"IMG_Load", "TTF_OpenFont", "Mix_LoadMUS"};
const std::set<std::string> releases = {"Mix_CloseAudio", "Mix_FreeMusic", "TTF_CloseFont",
                                        "TTF_Quit", "SDL_Quit"};

class StartUpTest : public WholeGameTest {};

TEST_F(StartUpTest, goesThroughItsStepsInOrder) {
    fixedSeconds = 1234567890;
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
    for (const auto& image : pool) {
        names.push_back(image.first);
        EXPECT_NE(image.second, nullptr) << image.first;
    }
    EXPECT_THAT(names, ::testing::UnorderedElementsAreArray(pictureFiles));
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

TEST_F(StartUpTest, writesNothingWhenAllIsWell) {
    const Outcome outcome = runToTheBitterEnd();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "");
}

TEST_F(StartUpTest, findsItsDataInTheWorkingDirectoryFirst) {
    makeEmptyFile(directory.path / "morvane.dat");
    const Outcome outcome = runToTheBitterEnd();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(withoutSystemReasons(outcome.err),
              "ERROR: Couldn't load logo.png\nCouldn't open logo.png\n"
              "FATAL ERROR: Data loading failed\n");
    EXPECT_THAT(calls.of({"IMG_Load"}), ElementsAre("IMG_Load(logo.png)"));
}

TEST_F(StartUpTest, goesOnSilentlyWithoutAMixer) {
    calls.failing = {"Mix_OpenAudio"};
    frames.events = {{}, {}, {}};
    const Outcome outcome = runToTheBitterEnd();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err,
              "ERROR: Could not initialize mixer, will start w/o sound\nout of luck\n");
    EXPECT_THAT(calls.of({"Mix_LoadMUS", "Mix_PlayMusic", "Mix_HaltMusic", "Mix_CloseAudio",
                          "Mix_FreeMusic"}),
                IsEmpty());
    EXPECT_THAT(calls.of({"SDL_WM_SetCaption"}), ElementsAre("SDL_WM_SetCaption(Morvane, null)"));
}

TEST_F(StartUpTest, needsNoMusicFilesWithoutAMixer) {
    for (const char* name : musicFiles) {
        fs::remove(fs::path("data") / name);
    }
    calls.failing = {"Mix_OpenAudio"};
    EXPECT_EQ(runToTheBitterEnd().status, 0);
}

struct FatalStep {
    const char* failing;
    const char* messages;
    const char* lastStep; // nothing of the start-up comes after it
    std::vector<std::string> releases;
};

std::ostream& operator<<(std::ostream& out, const FatalStep& step) {
    return out << step.failing;
}

const FatalStep fatalSteps[] = {
    {"SDL_Init", "FATAL ERROR: Could not initialize SDL\nout of luck\n", "SDL_Init(0xffff)", {}},
    {"SDL_SetVideoMode",
     "FATAL ERROR: Could not initialize graphics\nout of luck\n",
     "SDL_SetVideoMode(800, 600, 32, 0x80000000)",
     {"SDL_Quit()"}},
    {"TTF_Init",
     "FATAL ERROR: Could not initialize TTF\nout of luck\n",
     "TTF_Init()",
     {"SDL_Quit()"}},
    {"IMG_Load(data/logo.png)",
     "ERROR: Couldn't load data/logo.png\nout of luck\nFATAL ERROR: Data loading failed\n",
     "IMG_Load(data/logo.png)",
     {"Mix_CloseAudio()", "TTF_Quit()", "SDL_Quit()"}},
    {"IMG_Load(data/prekazka2.png)",
     "ERROR: Couldn't load data/prekazka2.png\nout of luck\nFATAL ERROR: Data loading failed\n",
     "IMG_Load(data/prekazka2.png)",
     {"Mix_CloseAudio()", "TTF_Quit()", "SDL_Quit()"}},
    {"SDL_DisplayFormatAlpha",
     "ERROR: Couldn't convert data/logo.png\nout of luck\nFATAL ERROR: Data loading failed\n",
     "IMG_Load(data/logo.png)",
     {"Mix_CloseAudio()", "TTF_Quit()", "SDL_Quit()"}},
    {"TTF_OpenFont",
     "ERROR: Couldn't load data/papyrus.ttf\nout of luck\nFATAL ERROR: Data loading failed\n",
     "TTF_OpenFont(data/papyrus.ttf, 29)",
     {"Mix_CloseAudio()", "TTF_Quit()", "SDL_Quit()"}},
    {"Mix_LoadMUS(data/music1.mp3)",
     "ERROR: Can't load music1.mp3\nout of luck\nFATAL ERROR: Data loading failed\n",
     "Mix_LoadMUS(data/music1.mp3)",
     {"Mix_CloseAudio()", "TTF_CloseFont(data/papyrus.ttf)", "TTF_Quit()", "SDL_Quit()"}},
    {"Mix_LoadMUS(data/music3.mp3)",
     "ERROR: Can't load music3.mp3\nout of luck\nFATAL ERROR: Data loading failed\n",
     "Mix_LoadMUS(data/music3.mp3)",
     {"Mix_CloseAudio()", "Mix_FreeMusic(data/music1.mp3)", "Mix_FreeMusic(data/music2.mp3)",
      "TTF_CloseFont(data/papyrus.ttf)", "TTF_Quit()", "SDL_Quit()"}},
};

class FatalStepTest : public WholeGameTest, public ::testing::WithParamInterface<FatalStep> {};

TEST_P(FatalStepTest, releasesWhatWasStartedAndEndsWithStatusOne) {
    calls.failing = {GetParam().failing};
    const Outcome outcome = runToTheBitterEnd();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, GetParam().messages);
    EXPECT_EQ(calls.of(startUpCalls).back(), GetParam().lastStep);
    EXPECT_THAT(calls.of(releases), ElementsAreArray(GetParam().releases));
}

INSTANTIATE_TEST_SUITE_P(StartUp, FatalStepTest, ::testing::ValuesIn(fatalSteps),
                         [](const auto& row) {
                             std::string name = row.param.failing;
                             std::replace_if(
                                 name.begin(), name.end(),
                                 [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
                             return name;
                         });

TEST_F(StartUpTest, withoutDataReleasesSdlAndTtfAndTheMixerButNoFont) {
    fs::remove("data/morvane.dat");
    if (fs::exists("/usr/share/games/morvane") || fs::exists("/usr/local/share/games/morvane")) {
        GTEST_SKIP() << "The game is installed here, so its data is always found.";
    }
    const Outcome outcome = runToTheBitterEnd();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "FATAL ERROR: Can't find Morvane data files.\n");
    EXPECT_THAT(calls.of(releases), ElementsAre("Mix_CloseAudio()", "TTF_Quit()", "SDL_Quit()"));
    EXPECT_THAT(calls.of(loads), IsEmpty());
}

TEST_F(StartUpTest, freesThePicturesLoadedBeforeTheOneThatFails) {
    calls.failing = {"IMG_Load(data/tlacitka.png)"};
    runToTheBitterEnd();
    const auto freed = calls.of({"SDL_FreeSurface"});
    ASSERT_GE(freed.size(), 2U);
    EXPECT_EQ(freed[freed.size() - 2], "SDL_FreeSurface(logo.png)");
    EXPECT_EQ(freed[freed.size() - 1], "SDL_FreeSurface(menu.png)");
}

// Everything that shutdown could release, none of it real.
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

TEST_F(ShutdownTest, beforeTtfOnlyQuitsSdl) {
    haveSound = false;
    for (const int progress : {1, 2}) {
        SCOPED_TRACE(progress);
        calls.log.clear();
        shutDownAfter(progress);
        EXPECT_THAT(calls.log, ElementsAre("SDL_Quit()"));
    }
}

TEST_F(ShutdownTest, beforeSdlOrAtAnUnknownStageQuitsNothing) {
    haveSound = false;
    for (const int progress : {0, 4, -1}) {
        SCOPED_TRACE(progress);
        calls.log.clear();
        shutDownAfter(progress);
        EXPECT_THAT(calls.log, IsEmpty());
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
