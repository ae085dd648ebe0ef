// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <map>
#include <string>

#include <SDL.h>
#include <SDL_ttf.h>

class ProgramMode;

// What the main loop shares with every screen. Sizes and positions are in pixels of the 800 x 600
// display, x to the right and y down.

extern SDL_Surface* screen;            // the display; SDL owns it
extern ProgramMode* activeProgramMode; // owned by the main loop
extern ProgramMode*
    newProgramMode; // becomes active at the end of the frame; owned by the main loop
extern bool running;
extern bool haveSound;              // true once the mixer is open
extern int initializationProgress;  // 1 after SDL, 2 after the video mode, 3 after SDL_ttf
extern TTF_Font* papyrusFont;       // the only font; owned by the main loop
extern std::string programDataPath; // ends in "/", or is empty for the current directory
extern std::map<std::string, SDL_Surface*> imagePool; // owns every image until shutdown

// Lets the current frame run to its end and then ends the program.
void stopProgram();

// Releases the libraries that were started. Runs once, at the end of the program.
void shutdown();

// Reports a problem on the standard error stream. Level 1 is written without a prefix, 2 as a
// warning, 3 as an error, 4 as a fatal error that ends the program with exit status 1; any other
// level writes nothing. A text that begins with "$" loses it and gets SDL's reason on a second
// line. Returns 0, so that a caller can return it as false.
int error(const char* str2, int type);

// The one place where text for the display would be translated; returns it unchanged.
std::string tr(const std::string& str);

// Writes white Latin-1 text onto the display without flipping it, centred horizontally; line 0 is
// centred vertically, the other lines are whole text heights above (negative) or below it. Text
// that cannot be rendered is left out.
void simpleText(const char* str, int line);

// Fills the display's clipping rectangle with black, without flipping it.
void blackenDisplay();

// True for the events that leave the help and credits screens: Escape, Return or Space going down,
// or the release of any mouse button.
bool leavesTextScreen(const SDL_Event& e);

// True when the file can be opened for reading.
bool fileExists(const char* filename);

// The first candidate directory that contains the marker file, as a prefix for file names. Ends the
// program when there is none.
const char* getDataPath();

// Loads an image of the data directory, converts it to the display's format and puts it into
// imagePool, which owns it, under its bare file name. With hasAlpha its own alpha channel is used;
// without it, pure magenta is transparent. On failure, reports it, leaves the pool unchanged and
// returns null.
SDL_Surface* loadImage(const std::string& filename, bool hasAlpha);

// Opens a font of the data directory at a size in points; the caller owns it. On failure, reports
// it and returns null.
TTF_Font* loadFont(const std::string& filename, int size);

// A new black surface in the display's pixel layout without an alpha channel, or null; the caller
// owns it.
SDL_Surface* createSurface(int w, int h);

// Draws a whole picture onto a surface with its top left corner at x, y. A null picture draws
// nothing.
void drawPicture(SDL_Surface* picture, SDL_Surface* where, int x, int y);
