// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "introscreen.h"

#include <string>

#include "main.h"
#include "mainmenu.h"

namespace {

const int presentsStart = 180; // frames
const int titleStart = 360;
const int titleShown = 540;
const int introEnd = 600;
const int fadeFrames = 180;
const int titleFadeFrames = 1140;
const int titleFadeCap = 64; // never reached in the frames the title fades
const int opaque = 255;

void composeCentred(SDL_Surface* buf, const std::string& filename) {
    SDL_Surface* picture = imagePool[filename];
    SDL_FillRect(buf, nullptr, SDL_MapRGB(screen->format, 0, 0, 0));
    drawPicture(picture, buf, (screen->w - picture->w) / 2, (screen->h - picture->h) / 2);
}

// Exactly what the main menu shows under its panel and buttons.
void composeTitle(SDL_Surface* buf) {
    SDL_Surface* logo = imagePool["logo.png"];
    drawPicture(imagePool["pozadie-lode3.png"], buf, 0, 0);
    drawPicture(logo, buf, (screen->w - logo->w) / 2, 0);
}

// Blends the picture over what the last frame left on the display. Deliberate: the display is never
// cleared. The steps add up to a soft fade that also covers the previous picture.
void fade(SDL_Surface* buf, int opacity) {
    SDL_SetAlpha(buf, SDL_SRCALPHA | SDL_RLEACCEL, static_cast<Uint8>(opacity));
    drawPicture(buf, screen, 0, 0);
    SDL_Flip(screen);
}

int opacityAfter(int frames, int fullAfter) {
    return frames * opaque / fullAfter;
}

void drawFrame(SDL_Surface* buf, int f) {
    if (f == 0) {
        composeCentred(buf, "brannoc4f.png");
    }
    if (f >= 0 && f < presentsStart) {
        fade(buf, opacityAfter(f, fadeFrames));
    }
    if (f == presentsStart) {
        composeCentred(buf, "presentsscreen1.png");
    }
    if (f >= presentsStart && f < titleStart) {
        fade(buf, opacityAfter(f - presentsStart, fadeFrames));
    }
    if (f == titleStart) {
        composeTitle(buf);
    }
    if (f >= titleStart && f < titleShown) {
        const int opacity = opacityAfter(f - titleStart, titleFadeFrames);
        fade(buf, opacity > titleFadeCap ? opaque : opacity);
    }
    if (f == titleShown) {
        fade(buf, opaque);
        composeTitle(buf);
        fade(buf, opaque);
    }
}

} // namespace

IntroScreen::IntroScreen() : frameCounter(0), buf(createSurface(screen->w, screen->h)) {}

IntroScreen::~IntroScreen() {
    if (buf != nullptr) {
        SDL_FreeSurface(buf);
    }
}

void IntroScreen::event(SDL_Event* e) {
    if (e->type == SDL_KEYDOWN || e->type == SDL_MOUSEBUTTONUP) {
        newProgramMode = new MainMenu;
    }
    if (e->type == SDL_QUIT) {
        stopProgram();
    }
}

void IntroScreen::update() {
    // Without memory for its picture, the intro continues without showing anything.
    if (buf != nullptr) {
        drawFrame(buf, frameCounter);
    }
    if (frameCounter == introEnd) {
        newProgramMode = new MainMenu;
    }
    ++frameCounter;
}

void IntroScreen::cleanUp() {}
