// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "main.h"

#include <filesystem>
#include <fstream>
#include <iostream>

#include <gmock/gmock.h>
#include <sched.h>
#include <unistd.h>

#include "childprocess.h"
#include "display.h"
#include "gamedata.h"
#include "librarycalls.h"
#include "pictures.h"

namespace fs = std::filesystem;

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(FileExistsTest, isTrueForAFileEvenIfEmpty) {
    const TemporaryDirectory directory;
    makeEmptyFile(directory.path / "morvane.dat");
    EXPECT_TRUE(fileExists((directory.path / "morvane.dat").c_str()));
}

TEST(FileExistsTest, isFalseForNothingAndForALinkToNothing) {
    const TemporaryDirectory directory;
    fs::create_symlink("nowhere", directory.path / "link");
    EXPECT_FALSE(fileExists((directory.path / "morvane.dat").c_str()));
    EXPECT_FALSE(fileExists((directory.path / "link").c_str()));
    EXPECT_FALSE(fileExists((directory.path / "no/such/directory").c_str()));
    EXPECT_FALSE(fileExists(""));
}

TEST(FileExistsTest, closesTheFileAgain) {
    const TemporaryDirectory directory;
    makeEmptyFile(directory.path / "morvane.dat");
    for (int i = 0; i < 5000; ++i) {
        ASSERT_TRUE(fileExists((directory.path / "morvane.dat").c_str())) << i;
    }
}

struct Place {
    const char* marker; // as seen from /home/player
    const char* prefix;
};

const Place places[] = {
    {"home/player/morvane.dat", ""},
    {"home/player/data/morvane.dat", "data/"},
    {"home/morvane.dat", "../"},
    {"home/data/morvane.dat", "../data/"},
    {"usr/share/games/morvane/morvane.dat", "/usr/share/games/morvane/"},
    {"usr/local/share/games/morvane/morvane.dat", "/usr/local/share/games/morvane/"},
    {"usr/share/games/morvane/data/morvane.dat", "/usr/share/games/morvane/data/"},
    {"usr/local/share/games/morvane/data/morvane.dat", "/usr/local/share/games/morvane/data/"},
};

const int noRights = 77;

// Shuts the process in: the directory becomes its "/". Takes root, or a user namespace.
void shutIn(const fs::path& directory) {
    if (chroot(directory.c_str()) != 0 &&
        (unshare(CLONE_NEWUSER) != 0 || chroot(directory.c_str()) != 0)) {
        _exit(noRights);
    }
    // The leak check at the end of a sanitized program needs /proc, which is shut out.
    on_exit([](int status, void*) { _exit(status); }, nullptr);
}

// Looks for the data from /home/player in a file system of its own, in which some places are
// marked, and prints the prefix.
class DataPathTest : public ::testing::Test {
protected:
    void SetUp() override {
        fs::create_directories(root.path / "home/player");
    }

    void mark(const Place& place) {
        makeEmptyFile(root.path / place.marker);
    }

    Outcome search() {
        return runInChild([this] {
            shutIn(root.path);
            fs::current_path("/home/player");
            const std::string prefix = getDataPath();
            std::cout << "[" << prefix << "]";
        });
    }

    TemporaryDirectory root;
};

TEST_F(DataPathTest, knowsEachOfTheEightPlacesAndPrefersTheEarlierOnes) {
    for (const Place& place : places) {
        mark(place);
    }
    for (const Place& place : places) {
        SCOPED_TRACE(place.marker);
        const Outcome outcome = search();
        if (outcome.status == noRights) {
            GTEST_SKIP() << "This user may make neither a root directory nor a user namespace.";
        }
        EXPECT_EQ(outcome.out, "[" + std::string(place.prefix) + "]");
        EXPECT_EQ(outcome.err, "");
        fs::remove(root.path / place.marker);
    }
}

TEST_F(DataPathTest, withoutAnyPlaceEndsTheProgramWithOneLine) {
    const Outcome outcome = search();
    if (outcome.status == noRights) {
        GTEST_SKIP() << "This user may make neither a root directory nor a user namespace.";
    }
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "FATAL ERROR: Can't find Morvane data files.\n");
}

// The relative places need no rights.
TEST_F(DataPathTest, isRelativeToTheWorkingDirectory) {
    makeEmptyFile(root.path / "game/data/morvane.dat");
    fs::create_directories(root.path / "game/data/more");
    fs::create_directories(root.path / "game/bin");
    const std::pair<const char*, const char*> searches[] = {
        {"game/data", ""}, {"game", "data/"}, {"game/data/more", "../"}, {"game/bin", "../data/"}};
    for (const auto& search : searches) {
        SCOPED_TRACE(search.first);
        fs::current_path(root.path / search.first);
        EXPECT_STREQ(getDataPath(), search.second);
    }
}

// Loads from a data directory, given as a prefix.
class LoaderTest : public DisplayTest {
protected:
    void SetUp() override {
        DisplayTest::SetUp();
        fs::create_directory(directory.path / "data");
        fs::current_path(directory.path);
        programDataPath = "data/";
    }

    void provide(const char* name) {
        fs::copy_file(testFile(name), fs::path("data") / name);
    }

    TemporaryDirectory directory;
};

TEST_F(LoaderTest, aPictureIsPooledUnderItsBareName) {
    provide("plain.png");
    SDL_Surface* picture = loadImage("plain.png", false);
    ASSERT_NE(picture, nullptr);
    EXPECT_THAT(imagePool, ElementsAre(std::make_pair("plain.png", picture)));
    EXPECT_EQ(picture->w, 4);
    EXPECT_EQ(picture->h, 1);
    EXPECT_EQ(pixel(picture, 0, 0), (Colour{200, 100, 50}));
}

TEST_F(LoaderTest, aPictureHasTheDisplaysFormatWithAlphaInBothWays) {
    provide("plain.png");
    provide("alpha.png");
    for (const char* name : {"plain.png", "alpha.png"}) {
        for (const bool hasAlpha : {false, true}) {
            SCOPED_TRACE(name);
            SDL_Surface* picture = loadImage(name, hasAlpha);
            ASSERT_NE(picture, nullptr);
            EXPECT_EQ(picture->format->BitsPerPixel, 32);
            EXPECT_EQ(picture->format->Rmask, screen->format->Rmask);
            EXPECT_EQ(picture->format->Gmask, screen->format->Gmask);
            EXPECT_EQ(picture->format->Bmask, screen->format->Bmask);
            EXPECT_EQ(picture->format->Amask, 0xFF000000U);
            EXPECT_EQ(picture->flags & SDL_SRCALPHA, static_cast<Uint32>(SDL_SRCALPHA));
            EXPECT_EQ(picture->flags & SDL_SRCCOLORKEY, 0U);
            SDL_FreeSurface(picture);
            imagePool.clear();
        }
    }
}

TEST_F(LoaderTest, withAlphaAPictureIsBlendedByIt) {
    provide("alpha.png");
    fillAll(screen, white);
    drawPicture(loadImage("alpha.png", true), screen, 0, 0);
    EXPECT_EQ(pixel(screen, 0, 0), (Colour{10, 20, 30}));
    EXPECT_THAT(pixel(screen, 1, 0), isNear(Colour{132, 137, 142}, 2));
    EXPECT_EQ(pixel(screen, 2, 0), white);
    EXPECT_EQ(pixel(screen, 3, 0), (Colour{255, 0, 255}));
}

TEST_F(LoaderTest, withoutAlphaPureMagentaAloneIsTransparent) {
    provide("magenta.png");
    SDL_Surface* picture = loadImage("magenta.png", false);
    fillAll(screen, green);
    drawPicture(picture, screen, 0, 0);
    EXPECT_EQ(pixel(screen, 0, 0), green);
    EXPECT_EQ(pixel(screen, 1, 0), (Colour{254, 0, 255}));
    EXPECT_EQ(pixel(screen, 2, 0), (Colour{255, 1, 255}));
    EXPECT_EQ(pixel(screen, 3, 0), (Colour{255, 0, 254}));
    EXPECT_EQ(pixel(screen, 4, 0), (Colour{10, 20, 30}));
}

TEST_F(LoaderTest, withoutAlphaMagentaOfAPictureThatHasAnAlphaChannelIsTransparentToo) {
    provide("alpha.png");
    SDL_Surface* picture = loadImage("alpha.png", false);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(pixel(picture, 0, 0).a, 255);
    if (SDL_Linked_Version()->patch >= 68) {
        // The game's own keyed pictures have no alpha channel, so it never shows.
        GTEST_SKIP() << "This library passes over the key of a picture with an alpha channel.";
    }
    EXPECT_EQ(pixel(picture, 3, 0).a, 0);
}

TEST_F(LoaderTest, withoutAlphaMagentaOfAPaletteIsTransparent) {
    provide("palette.png");
    fillAll(screen, white);
    drawPicture(loadImage("palette.png", false), screen, 0, 0);
    EXPECT_EQ(pixel(screen, 0, 0), black);
    EXPECT_EQ(pixel(screen, 1, 0), white);
    EXPECT_EQ(pixel(screen, 2, 0), (Colour{0, 200, 0}));
}

TEST_F(LoaderTest, aSecondLoadReadsTheFileAgainAndLeavesTheFirstPictureAlive) {
    provide("plain.png");
    SDL_Surface* first = loadImage("plain.png", false);
    LibraryCalls calls;
    SDL_Surface* second = loadImage("plain.png", false);
    EXPECT_EQ(calls.log.front(), "IMG_Load(data/plain.png)");
    EXPECT_EQ(calls.of({"SDL_FreeSurface"}).size(), 1U);
    EXPECT_NE(first, second);
    EXPECT_EQ(imagePool["plain.png"], second);
    EXPECT_EQ(imagePool.size(), 1U);
    EXPECT_EQ(first->refcount, 1);
    EXPECT_EQ(pixel(first, 0, 0), (Colour{200, 100, 50}));
    SDL_FreeSurface(first);
}

template <typename Function> std::string stderrOf(Function function) {
    ::testing::internal::CaptureStderr();
    function();
    return ::testing::internal::GetCapturedStderr();
}

TEST_F(LoaderTest, aMissingPictureIsReportedWithItsPathAndNotPooled) {
    SDL_Surface* picture = screen;
    const std::string messages = stderrOf([&] { picture = loadImage("voda.png", false); });
    EXPECT_THAT(messages, ::testing::StartsWith(
                              "ERROR: Couldn't load data/voda.png\nCouldn't open data/voda.png"));
    EXPECT_EQ(picture, nullptr);
    EXPECT_THAT(imagePool, IsEmpty());
}

TEST_F(LoaderTest, aFailureLeavesThePooledPictureOfThatName) {
    SDL_Surface* pooled = addPicture("voda.png", 1, 1, red);
    stderrOf([] { loadImage("voda.png", false); });
    EXPECT_EQ(imagePool["voda.png"], pooled);
}

TEST_F(LoaderTest, anEmptyPrefixMeansTheWorkingDirectory) {
    programDataPath = "";
    fs::copy_file(testFile("plain.png"), "plain.png");
    EXPECT_NE(loadImage("plain.png", false), nullptr);
}

TEST_F(LoaderTest, aFontIsOpenedAtItsSizeAndNotPooled) {
    provide("blocks.ttf");
    ASSERT_EQ(TTF_Init(), 0);
    LibraryCalls calls;
    TTF_Font* font = loadFont("blocks.ttf", 58);
    ASSERT_NE(font, nullptr);
    EXPECT_THAT(calls.log, ElementsAre("TTF_OpenFont(data/blocks.ttf, 58)"));
    EXPECT_EQ(TTF_FontHeight(font), 59);
    EXPECT_THAT(imagePool, IsEmpty());
    TTF_CloseFont(font);
    TTF_Quit();
}

TEST_F(LoaderTest, aNewSurfaceHasTheDisplaysLayoutWithoutAlpha) {
    const OwnedSurface surface(createSurface(200, 43));
    ASSERT_NE(surface, nullptr);
    EXPECT_EQ(surface->w, 200);
    EXPECT_EQ(surface->h, 43);
    EXPECT_EQ(surface->format->BitsPerPixel, 32);
    EXPECT_EQ(surface->format->Rmask, screen->format->Rmask);
    EXPECT_EQ(surface->format->Gmask, screen->format->Gmask);
    EXPECT_EQ(surface->format->Bmask, screen->format->Bmask);
    EXPECT_EQ(surface->format->Amask, 0U);
    EXPECT_EQ(surface->flags & (SDL_HWSURFACE | SDL_SRCALPHA | SDL_SRCCOLORKEY), 0U);
}

TEST_F(LoaderTest, aNewSurfaceFollowsTheDisplaysDepth) {
    SDL_Surface* display = screen;
    const OwnedSurface shallow(
        SDL_CreateRGBSurface(SDL_SWSURFACE, 8, 8, 16, 0xF800, 0x7E0, 0x1F, 0));
    screen = shallow.get();
    const OwnedSurface surface(createSurface(2, 2));
    screen = display;
    EXPECT_EQ(surface->format->BitsPerPixel, 16);
    EXPECT_EQ(surface->format->Rmask, 0xF800U);
    EXPECT_EQ(surface->format->Gmask, 0x7E0U);
    EXPECT_EQ(surface->format->Bmask, 0x1FU);
}

TEST_F(LoaderTest, drawingAPicturePutsItsTopLeftCorner) {
    SDL_Surface* picture = addPicture("a", 2, 1, red);
    drawPicture(picture, screen, 10, 20);
    drawPicture(picture, screen, -1, 0);
    EXPECT_EQ(pixel(screen, 9, 20), black);
    EXPECT_EQ(pixel(screen, 10, 20), red);
    EXPECT_EQ(pixel(screen, 11, 20), red);
    EXPECT_EQ(pixel(screen, 12, 20), black);
    EXPECT_EQ(pixel(screen, 10, 21), black);
    EXPECT_EQ(pixel(screen, 0, 0), red);
    EXPECT_EQ(pixel(screen, 1, 0), black);
}

TEST_F(LoaderTest, drawingNoPictureDrawsNothing) {
    drawPicture(nullptr, screen, 10, 20);
    EXPECT_EQ(pixel(screen, 10, 20), black);
}

} // namespace
