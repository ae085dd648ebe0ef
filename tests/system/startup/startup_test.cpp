// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// The real program, started where something is wrong. Under a sanitizer these are the leak checks
// too: a leak of the game's own would add to its messages and change its exit status.

#include <cctype>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <ostream>
#include <vector>

#include <gmock/gmock.h>

#include "childprocess.h"
#include "gamedata.h"

namespace fs = std::filesystem;

namespace {

using ::testing::MatchesRegex;

using Environment = std::map<std::string, std::string>;

class StartUpTest : public ::testing::Test {
protected:
    void SetUp() override {
        makeGameData(data());
    }

    fs::path data() const {
        return directory.path / "data";
    }

    // A run that gets as far as the frames is ended after a second's worth of them.
    Outcome start(Environment environment = {}) const {
        environment["LD_PRELOAD"] = MORVANE_BAD_LUCK;
        environment.emplace("MORVANE_STOPS_AFTER", "60");
        environment["ASAN_OPTIONS"] = "verify_asan_link_order=0";
        return runProgram(MORVANE_BINARY, directory.path, environment);
    }

    TemporaryDirectory directory;
};

void expectCleanEnd(const Outcome& outcome, const std::string& messages) {
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(withoutSystemReasons(outcome.err), messages);
}

void expectFatalEnd(const Outcome& outcome, const std::string& messages) {
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(withoutSystemReasons(outcome.err), messages);
}

TEST_F(StartUpTest, withEverythingInPlaceIsSilentAndEndsWellOnRequest) {
    expectCleanEnd(start(), "");
}

TEST_F(StartUpTest, needsNoWritableDirectory) {
    fs::permissions(data(), fs::perms::owner_read | fs::perms::owner_exec);
    fs::permissions(directory.path, fs::perms::owner_read | fs::perms::owner_exec);
    expectCleanEnd(start(), "");
    fs::permissions(directory.path, fs::perms::owner_all);
    fs::permissions(data(), fs::perms::owner_all);
}

TEST_F(StartUpTest, leavesNoFilesBehind) {
    start();
    EXPECT_EQ(std::distance(fs::directory_iterator(directory.path), {}), 1);
    EXPECT_EQ(std::distance(fs::directory_iterator(data()), {}), 21);
}

TEST_F(StartUpTest, withoutADataDirectoryIsFatal) {
    fs::remove(data() / "morvane.dat");
    if (fs::exists("/usr/share/games/morvane") || fs::exists("/usr/local/share/games/morvane")) {
        GTEST_SKIP() << "The game is installed here, so its data is always found.";
    }
    expectFatalEnd(start(), "FATAL ERROR: Can't find Morvane data files.\n");
}

TEST_F(StartUpTest, withoutAVideoModeIsFatal) {
    expectFatalEnd(start({{"MORVANE_FAILS", "SDL_SetVideoMode"}}),
                   "FATAL ERROR: Could not initialize graphics\nout of luck\n");
}

TEST_F(StartUpTest, withoutSdlIsFatal) {
    expectFatalEnd(start({{"MORVANE_FAILS", "SDL_Init"}}),
                   "FATAL ERROR: Could not initialize SDL\nout of luck\n");
}

TEST_F(StartUpTest, withoutAVideoDriverIsFatalAndGivesTheReason) {
    const Outcome outcome = start({{"SDL_VIDEODRIVER", "bogus"}});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, MatchesRegex("FATAL ERROR: Could not initialize SDL\n"
                                          "(No available video device|bogus not available)\n"));
}

TEST_F(StartUpTest, withoutTtfIsFatal) {
    expectFatalEnd(start({{"MORVANE_FAILS", "TTF_Init"}}),
                   "FATAL ERROR: Could not initialize TTF\nout of luck\n");
}

TEST_F(StartUpTest, withoutAMixerGoesOnSilently) {
    expectCleanEnd(start({{"MORVANE_FAILS", "Mix_OpenAudio"}}),
                   "ERROR: Could not initialize mixer, will start w/o sound\nout of luck\n");
}

TEST_F(StartUpTest, withASoundDeviceThatCannotBeOpenedGoesOnSilently) {
    expectCleanEnd(start({{"SDL_AUDIODRIVER", "disk"}, {"SDL_DISKAUDIOFILE", "/no/such/file"}}),
                   "ERROR: Could not initialize mixer, will start w/o sound\n"
                   "Couldn't open /no/such/file\n");
}

TEST_F(StartUpTest, withoutAMixerNeedsNoMusic) {
    for (const char* name : musicFiles) {
        fs::remove(data() / name);
    }
    expectCleanEnd(start({{"MORVANE_FAILS", "Mix_OpenAudio"}}),
                   "ERROR: Could not initialize mixer, will start w/o sound\nout of luck\n");
}

// Classic SDL starts without any sound driver and only misses it when the mixer opens; the
// compatibility library already refuses to start.
TEST_F(StartUpTest, withoutASoundDriverGoesOnSilentlyWhereSdlItselfStarts) {
    const Outcome outcome = start({{"SDL_AUDIODRIVER", "bogus"}});
    if (outcome.status == 1) {
        EXPECT_STREQ(std::getenv("MORVANE_TESTED_SDL"), "compat");
        expectFatalEnd(outcome, "FATAL ERROR: Could not initialize SDL\n"
                                "Audio target 'bogus' not available\n");
    } else {
        expectCleanEnd(outcome, "ERROR: Could not initialize mixer, will start w/o sound\n"
                                "No available audio device\n");
    }
}

// The sound driver that writes into a file says so on the standard error stream by itself.
TEST_F(StartUpTest, withSoundFeedsItsDevice) {
    const fs::path sound = directory.path / "sound";
    const Outcome outcome =
        start({{"SDL_AUDIODRIVER", "disk"}, {"SDL_DISKAUDIOFILE", sound.string()}});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.err, ::testing::Not(::testing::HasSubstr("mixer")));
    EXPECT_GT(fs::file_size(sound), 0U);
}

enum class Flaw { missing, empty, directory, garbage, cutShort, deadLink, forbidden };

struct FlawName {
    Flaw flaw;
    const char* name;
};

const FlawName flaws[] = {
    {Flaw::missing, "missing"},     {Flaw::empty, "empty"},       {Flaw::directory, "directory"},
    {Flaw::garbage, "garbage"},     {Flaw::cutShort, "cutShort"}, {Flaw::deadLink, "deadLink"},
    {Flaw::forbidden, "forbidden"},
};

void spoil(const fs::path& file, Flaw flaw) {
    if (flaw == Flaw::forbidden) {
        fs::permissions(file, fs::perms::none); // counts for root too, see runProgram
        return;
    }
    if (flaw == Flaw::cutShort) {
        fs::resize_file(file, 40);
        return;
    }
    fs::remove(file);
    if (flaw == Flaw::empty) {
        makeEmptyFile(file);
    }
    if (flaw == Flaw::directory) {
        fs::create_directory(file);
    }
    if (flaw == Flaw::garbage) {
        std::ofstream(file) << std::string(2000, '?');
    }
    if (flaw == Flaw::deadLink) {
        fs::create_symlink("nowhere", file);
    }
}

struct BadFile {
    std::string file;
    FlawName flaw;
};

std::ostream& operator<<(std::ostream& out, const BadFile& bad) {
    return out << bad.file << ", " << bad.flaw.name;
}

std::string testName(const ::testing::TestParamInfo<BadFile>& row) {
    std::string name = row.param.file + "_" + row.param.flaw.name;
    for (char& c : name) {
        if (std::isalnum(static_cast<unsigned char>(c)) == 0) {
            c = '_';
        }
    }
    return name;
}

bool cannotBeOpened(Flaw flaw) {
    return flaw == Flaw::missing || flaw == Flaw::deadLink || flaw == Flaw::forbidden;
}

class BadFileTest : public StartUpTest, public ::testing::WithParamInterface<BadFile> {
protected:
    // Starts with the one bad file.
    Outcome startWithBadFile() const {
        spoil(data() / GetParam().file, GetParam().flaw.flaw);
        return start();
    }

    static std::string couldNotLoad(const std::string& reason) {
        return "ERROR: Couldn't load data/" + GetParam().file + "\n" + reason +
               "\nFATAL ERROR: Data loading failed\n";
    }

    static std::string couldNotOpen() {
        return couldNotLoad("Couldn't open data/" + GetParam().file);
    }

    // Older libraries open a directory like a file and find nothing in it, newer ones refuse it.
    static bool isRefusedDirectory(const Outcome& outcome) {
        return GetParam().flaw.flaw == Flaw::directory &&
               outcome.err.find(" is not a regular file or pipe") != std::string::npos;
    }

    static std::string refusedDirectory() {
        return couldNotLoad("data/" + GetParam().file + " is not a regular file or pipe");
    }
};

class BadPictureTest : public BadFileTest {};

TEST_P(BadPictureTest, isNamedAndFatal) {
    const Outcome outcome = startWithBadFile();
    const Flaw flaw = GetParam().flaw.flaw;
    if (cannotBeOpened(flaw)) {
        expectFatalEnd(outcome, couldNotOpen());
    } else if (isRefusedDirectory(outcome)) {
        expectFatalEnd(outcome, refusedDirectory());
    } else if (flaw == Flaw::cutShort) {
        // The PNG library may speak first, about the file's insides.
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.err, ::testing::EndsWith(couldNotLoad("Error reading the PNG file.")));
    } else {
        expectFatalEnd(outcome, couldNotLoad("Unsupported image format"));
    }
}

std::vector<BadFile> everyFlawOf(std::vector<std::string> files) {
    std::vector<BadFile> all;
    for (const std::string& file : files) {
        for (const FlawName& flaw : flaws) {
            all.push_back({file, flaw});
        }
    }
    return all;
}

INSTANTIATE_TEST_SUITE_P(
    Pictures, BadPictureTest,
    ::testing::ValuesIn(everyFlawOf({std::begin(pictureFiles), std::end(pictureFiles)})), testName);

class BadFontTest : public BadFileTest {};

TEST_P(BadFontTest, isNamedAndFatal) {
    const Outcome outcome = startWithBadFile();
    if (cannotBeOpened(GetParam().flaw.flaw)) {
        expectFatalEnd(outcome, couldNotOpen());
    } else if (isRefusedDirectory(outcome)) {
        expectFatalEnd(outcome, refusedDirectory());
    } else {
        expectFatalEnd(outcome, couldNotLoad("Couldn't load font file"));
    }
}

INSTANTIATE_TEST_SUITE_P(Font, BadFontTest, ::testing::ValuesIn(everyFlawOf({fontFile})), testName);

class BadTrackTest : public BadFileTest {};

// The mixer's reader takes any file that it can open for a track, and finds nothing to play in a
// bad one.
TEST_P(BadTrackTest, isNamedAndFatalIfItCannotBeOpened) {
    const Outcome outcome = startWithBadFile();
    const bool isRefused = GetParam().flaw.flaw == Flaw::directory && outcome.status == 1;
    if (cannotBeOpened(GetParam().flaw.flaw) || isRefused) {
        expectFatalEnd(outcome, "ERROR: Can't load " + GetParam().file + "\nCouldn't open 'data/" +
                                    GetParam().file + "'\nFATAL ERROR: Data loading failed\n");
    } else {
        expectCleanEnd(outcome, "");
    }
}

INSTANTIATE_TEST_SUITE_P(
    Tracks, BadTrackTest,
    ::testing::ValuesIn(everyFlawOf({std::begin(musicFiles), std::end(musicFiles)})), testName);

std::vector<std::string> filesInOrder() {
    std::vector<std::string> files(std::begin(pictureFiles), std::end(pictureFiles));
    files.emplace_back(fontFile);
    files.insert(files.end(), std::begin(musicFiles), std::end(musicFiles));
    return files;
}

// With a file and all that come after it missing, only the first is missed: the rest are never
// attempted.
TEST_F(StartUpTest, stopsAtTheFirstFileThatIsMissing) {
    const std::vector<std::string> files = filesInOrder();
    for (auto file = files.rbegin(); file != files.rend(); ++file) {
        SCOPED_TRACE(*file);
        fs::remove(data() / *file);
        const bool isTrack = fs::path(*file).extension() == ".mp3";
        const std::string path = "data/" + *file;
        expectFatalEnd(start(),
                       (isTrack ? "ERROR: Can't load " + *file + "\nCouldn't open '" + path + "'"
                                : "ERROR: Couldn't load " + path + "\nCouldn't open " + path) +
                           "\nFATAL ERROR: Data loading failed\n");
    }
}

} // namespace
