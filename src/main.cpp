// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "main.h"

#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iostream>
#include <sstream>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include <SDL_image.h>
#include <SDL_mixer.h>

#include "introscreen.h"
#include "keyboard.h"
#include "music.h"
#include "programmode.h"

SDL_Surface* screen = nullptr;
ProgramMode* activeProgramMode = nullptr;
ProgramMode* newProgramMode = nullptr;
bool running = false;
bool haveSound = false;
int initializationProgress = 0;
TTF_Font* papyrusFont = nullptr;
std::string programDataPath;
std::map<std::string, SDL_Surface*> imagePool;

namespace {

const int displayWidth = 800;
const int displayHeight = 600;
const int displayDepth = 32;
const int soundFrequency = 22050; // Hz, the rate of the music files
const int soundChannels = 2;
const int soundChunkSize = 4096;
const int fontSize = 29;      // points
const Uint32 frameTicks = 16; // milliseconds

const char* const marker = "morvane.dat";

// Where the data files may be, in the order of the search.
const char* const dataPlaces[] = {
    "",
    "data/",
    "../",
    "../data/",
    "/usr/share/games/morvane/",
    "/usr/local/share/games/morvane/",
    "/usr/share/games/morvane/data/",
    "/usr/local/share/games/morvane/data/",
};

struct ImageFile {
    const char* filename;
    bool hasAlpha;
};

const ImageFile imageFiles[] = {
    {"logo.png", true},           {"menu.png", true},       {"tlacitka.png", true},
    {"pozadie-lode3.png", false}, {"brannoc4f.png", false}, {"presentsscreen1.png", false},
    {"bar1.png", false},          {"bar2.png", false},      {"kruh.png", false},
    {"voda.png", false},          {"lod1.png", true},       {"strela2.png", true},
    {"cball.png", true},          {"prekazka1.png", true},  {"prekazka2.png", true},
    {"prekazka3.png", true},
};

void startLibraries() {
    if (SDL_Init(SDL_INIT_EVERYTHING) != 0) {
        error("$Could not initialize SDL", 4);
    }
    initializationProgress = 1;
    screen = SDL_SetVideoMode(displayWidth, displayHeight, displayDepth, SDL_FULLSCREEN);
    if (screen == nullptr) {
        error("$Could not initialize graphics", 4);
    }
    initializationProgress = 2;
    if (TTF_Init() == -1) {
        error("$Could not initialize TTF", 4);
    }
    initializationProgress = 3;
    if (Mix_OpenAudio(soundFrequency, AUDIO_S16SYS, soundChannels, soundChunkSize) != 0) {
        error("$Could not initialize mixer, will start w/o sound", 3);
    } else {
        haveSound = true;
    }
    SDL_WM_SetCaption("Morvane", nullptr);
}

// Stops at the first image that fails, so that one missing file gives one message.
bool loadImages() {
    for (const ImageFile& file : imageFiles) {
        if (loadImage(file.filename, file.hasAlpha) == nullptr) {
            return false;
        }
    }
    return true;
}

void loadData() {
    programDataPath = getDataPath();
    if (!loadImages()) {
        error("Data loading failed", 4);
    }
    papyrusFont = loadFont("papyrus.ttf", fontSize);
    if (papyrusFont == nullptr) {
        error("Data loading failed", 4);
    }
    if (!Music::load()) {
        error("Data loading failed", 4);
    }
#ifdef __GLIBC__
    // Decoding leaves 4 MB of free memory in the heap that nothing uses later.
    malloc_trim(0);
#endif
}

void handleEvents() {
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0) {
        if (event.type == SDL_QUIT) {
            stopProgram();
        }
        if (event.type == SDL_KEYDOWN) {
            Keyboard::keyPress(&event);
        }
        if (event.type == SDL_KEYUP) {
            Keyboard::keyRelease(&event);
        }
        activeProgramMode->event(&event);
    }
}

void switchMode() {
    if (newProgramMode == nullptr) {
        return;
    }
    delete activeProgramMode;
    activeProgramMode = newProgramMode;
    newProgramMode = nullptr;
    activeProgramMode->activate();
}

// Waits one millisecond at a time, so that the frame ends close to its 16 ms. The time that a late
// frame has lost is not made up.
void waitForFrameEnd(Uint32 frameStart) {
    while (SDL_GetTicks() - frameStart < frameTicks) {
        SDL_Delay(1);
    }
}

void runFrame() {
    const Uint32 fpsTimer = SDL_GetTicks();
    handleEvents();
    activeProgramMode->update();
    switchMode();
    Keyboard::releaseKeys();
    waitForFrameEnd(fpsTimer);
}

} // namespace

void stopProgram() {
    running = false;
}

void shutdown() {
    for (const auto& image : imagePool) {
        if (image.second != nullptr) {
            SDL_FreeSurface(image.second);
        }
    }
    if (haveSound) {
        Mix_CloseAudio();
    }
    // Deliberate: the tracks are freed after the mixer is closed, because closing stops the music.
    Music::unload();
    if (initializationProgress == 3) {
        if (papyrusFont != nullptr) {
            TTF_CloseFont(papyrusFont);
        }
        TTF_Quit();
    }
    if (initializationProgress >= 1 && initializationProgress <= 3) {
        SDL_Quit();
    }
}

int error(const char* str2, int type) {
    std::string str = str2;
    if (str[0] == '$') {
        str = str.substr(1) + "\n" + SDL_GetError();
    }
    std::ostringstream buf;
    switch (type) {
    case 1:
        buf << str << '\n';
        break;
    case 2:
        buf << "WARNING: " << str << '\n';
        break;
    case 3:
        buf << "ERROR: " << str << '\n';
        break;
    case 4:
        buf << "FATAL ERROR: " << str << '\n';
        break;
    default:
        break;
    }
    std::cerr << buf.str();
    if (type == 4) {
        shutdown();
        std::exit(1);
    }
    return 0;
}

std::string tr(const std::string& str) {
    return str;
}

void simpleText(const char* str, int line) {
    const SDL_Color white = {255, 255, 255, 0};
    SDL_Surface* message = TTF_RenderText_Blended(papyrusFont, tr(str).c_str(), white);
    if (message == nullptr) {
        return;
    }
    drawPicture(message, screen, (screen->w - message->w) / 2,
                (screen->h - message->h) / 2 + message->h * line);
    SDL_FreeSurface(message);
}

void blackenDisplay() {
    SDL_FillRect(screen, &screen->clip_rect, SDL_MapRGB(screen->format, 0, 0, 0));
}

bool leavesTextScreen(const SDL_Event& e) {
    if (e.type == SDL_KEYDOWN) {
        const SDLKey key = e.key.keysym.sym;
        return key == SDLK_ESCAPE || key == SDLK_RETURN || key == SDLK_SPACE;
    }
    return e.type == SDL_MOUSEBUTTONUP;
}

bool fileExists(const char* filename) {
    return std::ifstream(filename).is_open();
}

const char* getDataPath() {
    for (const char* place : dataPlaces) {
        if (fileExists((place + std::string(marker)).c_str())) {
            return place;
        }
    }
    error("Can't find Morvane data files.", 4);
    return nullptr;
}

SDL_Surface* loadImage(const std::string& filename, bool hasAlpha) {
    const std::string path = programDataPath + filename;
    SDL_Surface* loadedImage = IMG_Load(path.c_str());
    if (loadedImage == nullptr) {
        error(("$Couldn't load " + path).c_str(), 3);
        return nullptr;
    }
    if (hasAlpha) {
        SDL_SetAlpha(loadedImage, SDL_SRCALPHA | SDL_RLEACCEL, 0);
    } else {
        const Uint32 colorkey = SDL_MapRGB(loadedImage->format, 255, 0, 255);
        SDL_SetColorKey(loadedImage, SDL_SRCCOLORKEY | SDL_RLEACCEL, colorkey);
    }
    SDL_Surface* image = SDL_DisplayFormatAlpha(loadedImage);
    SDL_FreeSurface(loadedImage);
    if (image == nullptr) {
        error(("$Couldn't convert " + path).c_str(), 3);
        return nullptr;
    }
    imagePool[filename] = image;
    return image;
}

TTF_Font* loadFont(const std::string& filename, int size) {
    const std::string path = programDataPath + filename;
    TTF_Font* font = TTF_OpenFont(path.c_str(), size);
    if (font == nullptr) {
        error(("$Couldn't load " + path).c_str(), 3);
    }
    return font;
}

SDL_Surface* createSurface(int w, int h) {
    const SDL_PixelFormat* f = screen->format;
    return SDL_CreateRGBSurface(SDL_SWSURFACE, w, h, f->BitsPerPixel, f->Rmask, f->Gmask, f->Bmask,
                                0);
}

void drawPicture(SDL_Surface* picture, SDL_Surface* where, int x, int y) {
    SDL_Rect offset = {static_cast<Sint16>(x), static_cast<Sint16>(y), 0, 0};
    SDL_BlitSurface(picture, nullptr, where, &offset);
}

int main(int /*argc*/, char** /*argv*/) {
    startLibraries();
    std::srand(static_cast<unsigned>(std::time(nullptr)));
    loadData();
    // The first mode is not activated; the intro prepares itself in its constructor.
    activeProgramMode = new IntroScreen;
    Music::play(1);
    running = true;
    do {
        runFrame();
    } while (running);
    delete activeProgramMode;
    activeProgramMode = nullptr;
    shutdown();
    return 0;
}
