// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "textscreen.h"

#include <cstdlib>
#include <filesystem>

#include <SDL_ttf.h>

#include "main.h"
#include "mainmenu.h"
#include "pictures.h"

namespace {

// MORVANE_DATA names the data directory when the tests are built outside the source tree.
std::string fontPath() {
    namespace fs = std::filesystem;
    const char* given = std::getenv("MORVANE_DATA");
    if (given != nullptr) {
        return fs::path(given) / "papyrus.ttf";
    }
    for (const fs::path& start : {fs::current_path(), fs::read_symlink("/proc/self/exe")}) {
        for (fs::path place = start; place != place.parent_path(); place = place.parent_path()) {
            if (fs::exists(place / "data/papyrus.ttf")) {
                return place / "data/papyrus.ttf";
            }
        }
    }
    return "papyrus.ttf";
}

void drawLine(SDL_Surface* where, const TextLine& line) {
    SDL_Surface* text = TTF_RenderText_Blended(papyrusFont, line.text, {255, 255, 255, 0});
    ASSERT_NE(text, nullptr) << line.text;
    SDL_Rect place = {static_cast<Sint16>((800 - text->w) / 2),
                      static_cast<Sint16>((600 - text->h) / 2 + line.line * text->h), 0, 0};
    SDL_BlitSurface(text, nullptr, where, &place);
    SDL_FreeSurface(text);
}

} // namespace

void TextScreenTest::SetUp() {
    DisplayTest::SetUp();
    ASSERT_EQ(TTF_Init(), 0) << TTF_GetError();
    papyrusFont = TTF_OpenFont(fontPath().c_str(), 29);
    ASSERT_NE(papyrusFont, nullptr) << TTF_GetError() << "; set MORVANE_DATA to the data directory";
    fillAll(screen, red);
    running = true;
}

void TextScreenTest::TearDown() {
    running = false;
    haveSound = false;
    if (papyrusFont != nullptr) {
        TTF_CloseFont(papyrusFont);
        papyrusFont = nullptr;
    }
    TTF_Quit();
    DisplayTest::TearDown();
}

std::string TextScreenTest::differenceFrom(const std::vector<TextLine>& lines) {
    const OwnedSurface expected(createSurface(800, 600));
    for (const TextLine& line : lines) {
        drawLine(expected.get(), line);
    }
    return difference(expected.get(), screen);
}

bool TextScreenTest::takeMenuRequest() {
    const bool requested = dynamic_cast<MainMenu*>(newProgramMode) != nullptr;
    delete newProgramMode;
    newProgramMode = nullptr;
    return requested;
}
