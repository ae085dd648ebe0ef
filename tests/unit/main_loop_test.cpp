// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "main.h"

#include <algorithm>

#include <gmock/gmock.h>

#include "display.h"
#include "drawing.h"
#include "keyboard.h"
#include "recordingmode.h"
#include "wholegame.h"

namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

const SDL_Event quit = otherEvent(SDL_QUIT);

// Frame 0 belongs to the intro, at whose end mode "a" takes over. Events are noted by their types:
// 2 is a key going down, 3 one going up, 4 the pointer moving, 5 and 6 a mouse button, 12 quit.
class MainLoopTest : public WholeGameTest {
protected:
    void SetUp() override {
        WholeGameTest::SetUp();
        frames.atStart = [this] {
            calls.log.clear();
            newProgramMode = a;
        };
    }

    // What happened to the modes.
    std::vector<std::string> ofModes() const {
        std::vector<std::string> notes;
        for (const std::string& line : calls.log) {
            if (line.find(": ") != std::string::npos) {
                notes.push_back(line);
            }
        }
        return notes;
    }

    // How often the loop waited between two notes of mode "a", one after the other.
    std::size_t delaysBetween(const std::string& from, const std::string& to) const {
        const auto start = std::find(calls.log.begin(), calls.log.end(), from);
        const auto end = std::find(start + 1, calls.log.end(), to);
        return static_cast<std::size_t>(std::count(start, end, "SDL_Delay(1)"));
    }

    RecordingMode* a = new RecordingMode("a");
};

TEST_F(MainLoopTest, handsOverTheEventsOfAFrameInOrderBeforeItsUpdate) {
    frames.events = {{},
                     {keyDown(SDLK_a), mouseMotion(1, 2), mouseDown(1), mouseUp(1), keyUp(SDLK_a)},
                     {},
                     {quit}};
    EXPECT_EQ(run(), 0);
    EXPECT_THAT(ofModes(), ElementsAre("a: activate", "a: event 2", "a: event 4", "a: event 5",
                                       "a: event 6", "a: event 3", "a: update", "a: update",
                                       "a: event 12", "a: update", "a: deleted"));
}

TEST_F(MainLoopTest, handsOverAThousandEventsInTheFrameThatFindsThem) {
    frames.events = {{}, std::vector<SDL_Event>(1000, mouseMotion(1, 2)), {}, {quit}};
    run();
    std::vector<std::string> expected(1002, "a: event 4");
    expected.front() = "a: activate";
    expected.back() = "a: update";
    const std::vector<std::string> notes = ofModes();
    ASSERT_THAT(notes, SizeIs(::testing::Gt(1002U)));
    EXPECT_EQ(std::vector<std::string>(notes.begin(), notes.begin() + 1002), expected);
}

TEST_F(MainLoopTest, neverActivatesTheFirstMode) {
    frames.events = {{}, {}};
    std::vector<std::string> startUp;
    frames.atStart = [&] {
        startUp = calls.log;
        newProgramMode = a;
    };
    run();
    EXPECT_THAT(startUp, SizeIs(::testing::Gt(20U)));
    EXPECT_THAT(calls.of({"ProgramMode::activate"}), IsEmpty());
    EXPECT_THAT(ofModes(), ::testing::Contains("a: activate").Times(1));
}

TEST_F(MainLoopTest, activatesEachLaterModeOnceBeforeItsFirstUpdate) {
    auto* b = new RecordingMode("b");
    a->onUpdate = [&] { newProgramMode = b; };
    frames.events = {{}, {}, {}, {quit}};
    run();
    EXPECT_THAT(ofModes(), ElementsAre("a: activate", "a: update", "a: deleted", "b: activate",
                                       "b: update", "b: event 12", "b: update", "b: deleted"));
    EXPECT_EQ(newProgramMode, nullptr);
}

TEST_F(MainLoopTest, switchesAfterTheUpdateAndSendsTheRestOfTheEventsToTheOldMode) {
    auto* b = new RecordingMode("b");
    a->onEvent = [&](const SDL_Event& event) {
        if (event.type == SDL_KEYDOWN) {
            newProgramMode = b;
        }
    };
    frames.events = {{}, {keyDown(SDLK_a), mouseUp(1), keyUp(SDLK_a)}, {quit}};
    run();
    EXPECT_THAT(ofModes(),
                ElementsAre("a: activate", "a: event 2", "a: event 6", "a: event 3", "a: update",
                            "a: deleted", "b: activate", "b: event 12", "b: update", "b: deleted"));
}

TEST_F(MainLoopTest, theLaterOfTwoRequestsWinsAndTheEarlierModeIsForgotten) {
    RecordingMode b("b");
    auto* c = new RecordingMode("c");
    a->onEvent = [&](const SDL_Event&) { newProgramMode = &b; };
    a->onUpdate = [&] { newProgramMode = c; };
    frames.events = {{}, {keyDown(SDLK_a)}, {quit}};
    run();
    EXPECT_THAT(ofModes(), ElementsAre("a: activate", "a: event 2", "a: update", "a: deleted",
                                       "c: activate", "c: event 12", "c: update", "c: deleted"));
}

TEST_F(MainLoopTest, aModeRequestedInActivationTakesOverOnlyAfterAnotherFrame) {
    auto* b = new RecordingMode("b");
    a->onActivate = [&] { newProgramMode = b; };
    frames.events = {{}, {}, {quit}};
    run();
    EXPECT_THAT(ofModes(), ElementsAre("a: activate", "a: update", "a: deleted", "b: activate",
                                       "b: event 12", "b: update", "b: deleted"));
}

TEST_F(MainLoopTest, theActiveModeIsInstalledAndTheRequestClearedBeforeActivation) {
    bool installed = false;
    a->onActivate = [&] { installed = activeProgramMode == a && newProgramMode == nullptr; };
    frames.events = {{}};
    run();
    EXPECT_TRUE(installed);
}

TEST_F(MainLoopTest, aQuitEventLetsItsFrameEndWithTheRestOfItsEvents) {
    frames.events = {{}, {quit, keyDown(SDLK_a)}, {mouseUp(1)}};
    EXPECT_EQ(run(), 0);
    EXPECT_THAT(ofModes(),
                ElementsAre("a: activate", "a: event 12", "a: event 2", "a: update", "a: deleted"));
    EXPECT_FALSE(running);
    EXPECT_EQ(activeProgramMode, nullptr);
}

TEST_F(MainLoopTest, aQuitEventHasAlreadyStoppedTheProgramWhenTheModeSeesIt) {
    bool stopped = false;
    a->onEvent = [&](const SDL_Event&) { stopped = !running; };
    frames.events = {{}, {quit}};
    run();
    EXPECT_TRUE(stopped);
}

TEST_F(MainLoopTest, aQuitEventDoesNotKeepARequestedModeFromTakingOver) {
    auto* b = new RecordingMode("b");
    a->onUpdate = [&] { newProgramMode = b; };
    frames.events = {{}, {quit}};
    run();
    EXPECT_THAT(ofModes(), ElementsAre("a: activate", "a: event 12", "a: update", "a: deleted",
                                       "b: activate", "b: deleted"));
}

TEST_F(MainLoopTest, theFrameOfAQuitEventIsPacedLikeAnother) {
    frames.events = {{}, {quit}};
    run();
    EXPECT_EQ(delaysBetween("a: update", "a: deleted"), 16U);
}

TEST_F(MainLoopTest, aModeMayStopTheProgramItself) {
    a->onUpdate = [] { stopProgram(); };
    frames.events = {{}, {}, {mouseUp(1)}};
    EXPECT_EQ(run(), 0);
    EXPECT_THAT(ofModes(), ElementsAre("a: activate", "a: update", "a: deleted"));
}

TEST_F(MainLoopTest, aProgramToldToStopDuringStartUpStillRunsOneFrame) {
    frames.atStart = [this] {
        calls.log.clear();
        newProgramMode = a;
        stopProgram();
    };
    EXPECT_EQ(run(), 0);
    EXPECT_THAT(ofModes(), ElementsAre("a: activate", "a: deleted"));
}

TEST_F(MainLoopTest, deletesTheActiveModeBeforeItShutsDown) {
    frames.events = {{}, {quit}};
    run();
    const auto deleted = std::find(calls.log.begin(), calls.log.end(), "a: deleted");
    const std::vector<std::string> afterwards(deleted + 1, calls.log.end());
    ASSERT_THAT(afterwards, SizeIs(::testing::Gt(20U)));
    EXPECT_EQ(afterwards.front(), "SDL_FreeSurface(bar1.png)");
    EXPECT_EQ(afterwards.back(), "SDL_Quit()");
}

TEST_F(MainLoopTest, neverDrawsOrFlipsByItself) {
    FlipWatch flips;
    a->onActivate = [&] {
        flips.count = 0;
        fill(screen, {0, 0, 800, 600}, red);
    };
    Colour left = black;
    a->onUpdate = [&] { left = pixel(screen, 400, 300); };
    frames.events = {{}, {}, {keyDown(SDLK_a)}, {}, {}};
    run();
    EXPECT_EQ(left, red);
    EXPECT_EQ(flips.count, 0);
}

TEST_F(MainLoopTest, aModeAskingInsideItsEventSeesTheKeyAlreadyDown) {
    std::vector<bool> seen;
    a->onEvent = [&](const SDL_Event&) { seen.push_back(Keyboard::isPressed(SDLK_a)); };
    frames.events = {{}, {mouseUp(1), keyDown(SDLK_a), mouseUp(1)}};
    run();
    EXPECT_THAT(seen, ElementsAre(false, true, true, true));
}

TEST_F(MainLoopTest, aTapWithinAFrameIsSeenByExactlyOneUpdate) {
    std::vector<bool> seen;
    a->onUpdate = [&] { seen.push_back(Keyboard::isPressed(SDLK_a)); };
    frames.events = {{}, {}, {keyDown(SDLK_a), keyUp(SDLK_a)}, {}, {}};
    run();
    EXPECT_THAT(seen, ElementsAre(false, true, false, false, false));
}

TEST_F(MainLoopTest, aHeldKeyIsSeenUntilTheUpdateOfItsRelease) {
    std::vector<bool> seen;
    a->onUpdate = [&] { seen.push_back(Keyboard::isPressed(SDLK_a)); };
    frames.events = {{}, {keyDown(SDLK_a)}, {}, {keyUp(SDLK_a)}, {}};
    run();
    EXPECT_THAT(seen, ElementsAre(true, true, true, false, false));
}

TEST_F(MainLoopTest, aKeyReleasedInTheFrameOfASwitchIsSeenInActivationButNotAfterwards) {
    auto* b = new RecordingMode("b");
    std::vector<bool> seen;
    a->onUpdate = [&] { newProgramMode = b; };
    b->onActivate = [&] { seen.push_back(Keyboard::isPressed(SDLK_a)); };
    b->onUpdate = [&] { seen.push_back(Keyboard::isPressed(SDLK_a)); };
    frames.events = {{}, {keyDown(SDLK_a), keyUp(SDLK_a)}, {}};
    run();
    EXPECT_THAT(seen, ElementsAre(true, false, false));
}

TEST_F(MainLoopTest, aKeyHeldOverASwitchStaysHeldForTheNextMode) {
    auto* b = new RecordingMode("b");
    bool seen = false;
    a->onUpdate = [&] { newProgramMode = b; };
    b->onUpdate = [&] { seen = Keyboard::isPressed(SDLK_a); };
    frames.events = {{}, {keyDown(SDLK_a)}, {quit}};
    run();
    EXPECT_TRUE(seen);
}

struct Pace {
    Uint32 frameTook; // milliseconds
    std::size_t delays;
};

std::ostream& operator<<(std::ostream& out, const Pace& pace) {
    return out << pace.frameTook << " ms";
}

class PaceTest : public MainLoopTest, public ::testing::WithParamInterface<Pace> {};

TEST_P(PaceTest, waitsForTheRestOfSixteenMillisecondsOneAtATime) {
    a->onUpdate = [this] { frames.time += GetParam().frameTook; };
    frames.events = {{}, {}, {mouseUp(1)}};
    run();
    EXPECT_EQ(delaysBetween("a: update", "a: event 6"), GetParam().delays);
    EXPECT_THAT(calls.of({"SDL_Delay"}), Each("SDL_Delay(1)"));
}

INSTANTIATE_TEST_SUITE_P(FrameLengths, PaceTest,
                         ::testing::Values(Pace{0, 16}, Pace{1, 15}, Pace{9, 7}, Pace{15, 1},
                                           Pace{16, 0}, Pace{17, 0}, Pace{40, 0}, Pace{100000, 0}),
                         [](const auto& row) {
                             return std::to_string(row.param.frameTook) + "ms";
                         });

TEST_F(MainLoopTest, aFrameOf40MillisecondsIsNotMadeUp) {
    std::vector<Uint32> starts;
    Uint32 length = 40;
    a->onUpdate = [&] {
        starts.push_back(frames.time);
        frames.time += length;
        length = 0;
    };
    frames.events = {{}, {}, {}, {}};
    run();
    ASSERT_THAT(starts, SizeIs(4));
    EXPECT_EQ(starts[1] - starts[0], 40U);
    EXPECT_EQ(starts[2] - starts[1], 16U);
    EXPECT_EQ(starts[3] - starts[2], 16U);
}

TEST_F(MainLoopTest, theTimeThatEventsAndTheSwitchTakeCountsForTheFrame) {
    auto* b = new RecordingMode("b");
    a->onEvent = [&](const SDL_Event&) { frames.time += 4; };
    a->onUpdate = [&] { newProgramMode = b; };
    b->onActivate = [&] { frames.time += 5; };
    frames.events = {{}, {keyDown(SDLK_a)}, {mouseUp(1)}};
    run();
    EXPECT_EQ(delaysBetween("b: activate", "b: event 6"), 7U);
}

TEST_F(MainLoopTest, stopsWaitingAsSoonAsALongDelayHasPassedTheMark) {
    frames.oversleep = 9;
    frames.events = {{}, {}, {mouseUp(1)}};
    run();
    EXPECT_EQ(delaysBetween("a: update", "a: event 6"), 2U);
}

TEST_F(MainLoopTest, keepsItsPaceWhileTheTicksWrapRound) {
    frames.time = 0xFFFFFFFFU - 16 - 7; // eight before the end when frame 1 begins
    frames.events = {{}, {}, {mouseUp(1)}};
    run();
    EXPECT_EQ(delaysBetween("a: update", "a: event 6"), 16U);
}

} // namespace
