/* SPDX-FileCopyrightText: 2026 The Morvane makers
 * SPDX-License-Identifier: MIT */
/* Draws one page of text with SDL_ttf as the game does. Reads lines from the standard input:
 * "row TAB text"; the row counts text heights from the middle of the 800 x 600 page, as on the
 * game's text screens, and may be a fraction. Prints each text's width. */
#include <SDL.h>
#include <SDL_ttf.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static int fail(const char *what)
{
    fprintf(stderr, "specimen: %s: %s\n", what, SDL_GetError());
    return 1;
}

static int drawLine(SDL_Surface *page, TTF_Font *font, double row, const char *text)
{
    const SDL_Color white = {255, 255, 255, 0};
    SDL_Surface *message = TTF_RenderText_Blended(font, text, white);
    SDL_Rect at;
    if (!message)
        return fail(text);
    at.x = (Sint16)((page->w - message->w) / 2);
    at.y = (Sint16)((page->h - message->h) / 2 + (int)(message->h * row));
    printf("%d\t%d\t%s\n", message->w, message->h, text);
    SDL_BlitSurface(message, NULL, page, &at);
    SDL_FreeSurface(message);
    return 0;
}

int main(int argc, char **argv)
{
    char line[512];
    int failures = 0;
    SDL_Surface *page;
    TTF_Font *font;
    if (argc != 4) {
        fprintf(stderr, "usage: specimen font points page.bmp < lines\n");
        return 2;
    }
    if (SDL_Init(SDL_INIT_VIDEO) != 0 || TTF_Init() != 0)
        return fail("start");
    page = SDL_SetVideoMode(800, 600, 32, SDL_SWSURFACE);
    SDL_ShowCursor(SDL_DISABLE);
    font = TTF_OpenFont(argv[1], atoi(argv[2]));
    if (!page || !font)
        return fail(argv[1]);
    while (fgets(line, sizeof line, stdin)) {
        char *text = strchr(line, '\t');
        line[strcspn(line, "\n")] = '\0';
        if (text && text[1])
            failures += drawLine(page, font, atof(line), text + 1);
    }
    if (SDL_SaveBMP(page, argv[3]) != 0)
        return fail(argv[3]);
    TTF_CloseFont(font);
    TTF_Quit();
    SDL_Quit();
    return failures != 0;
}
