/* SPDX-FileCopyrightText: 2026 The Morvane makers
   SPDX-License-Identifier: MIT */

/* The part of SDL_ttf 2.0 that the game uses: one scalable typeface, Latin-1 text, blended and
   kerned. Metrics and rounding follow SDL_ttf 2.0.11, so that every pixel of a text is the same. */
#include <ft2build.h>
#include FT_FREETYPE_H
#include <stdlib.h>

#include "SDL.h"
#include "SDL_ttf.h"

struct _TTF_Font {
    FT_Face face;
    int ascent; /* pixels above the baseline */
    int height; /* pixels of a line */
};

/* A glyph's box in pixels, x to the right of the pen and y up from the baseline. */
typedef struct {
    int left, top, width, height, advance;
} Box;

typedef struct {
    int minX, maxX, minY;
} Extent;

static FT_Library library;

static int floorPixels(FT_Pos position) {
    return (int)((position & -64) / 64);
}

static int ceilPixels(FT_Pos position) {
    return floorPixels(position + 63);
}

int TTF_Init(void) {
    if (!library && FT_Init_FreeType(&library) != 0) {
        SDL_SetError("Couldn't init FreeType engine");
        return -1;
    }
    return 0;
}

void TTF_Quit(void) {
    FT_Done_FreeType(library);
    library = NULL;
}

TTF_Font* TTF_OpenFont(const char* file, int points) {
    TTF_Font* font = calloc(1, sizeof *font);
    if (!font || FT_New_Face(library, file, 0, &font->face) != 0 ||
        FT_Set_Char_Size(font->face, 0, points * 64, 0, 0) != 0) {
        SDL_SetError("Couldn't load font file");
        TTF_CloseFont(font);
        return NULL;
    }
    const FT_Fixed scale = font->face->size->metrics.y_scale;
    font->ascent = ceilPixels(FT_MulFix(font->face->ascender, scale));
    font->height = font->ascent - ceilPixels(FT_MulFix(font->face->descender, scale)) + 1;
    return font;
}

void TTF_CloseFont(TTF_Font* font) {
    if (font) {
        FT_Done_Face(font->face);
        free(font);
    }
}

static Box loadGlyph(TTF_Font* font, FT_UInt glyph) {
    Box box = {0, 0, 0, 0, 0};
    if (FT_Load_Glyph(font->face, glyph, FT_LOAD_RENDER) == 0) {
        const FT_Glyph_Metrics* metrics = &font->face->glyph->metrics;
        box.left = floorPixels(metrics->horiBearingX);
        box.top = floorPixels(metrics->horiBearingY);
        box.width = ceilPixels(metrics->width);
        box.height = ceilPixels(metrics->height);
        box.advance = ceilPixels(metrics->horiAdvance);
    }
    return box;
}

static int kerning(TTF_Font* font, FT_UInt before, FT_UInt glyph) {
    FT_Vector delta = {0, 0};
    if (FT_HAS_KERNING(font->face) && before && glyph) {
        FT_Get_Kerning(font->face, before, glyph, FT_KERNING_DEFAULT, &delta);
    }
    return (int)(delta.x >> 6);
}

static void include(Extent* extent, int x, Box box) {
    const int right = x + (box.advance > box.left + box.width ? box.advance : box.left + box.width);
    const int bottom = box.top - box.height;
    extent->minX = x + box.left < extent->minX ? x + box.left : extent->minX;
    extent->maxX = right > extent->maxX ? right : extent->maxX;
    extent->minY = bottom < extent->minY ? bottom : extent->minY;
}

static void drawGlyph(const FT_Bitmap* bitmap, int width, SDL_Surface* surface, int x, int y) {
    const int columns = (int)bitmap->width < width ? (int)bitmap->width : width;
    for (int row = 0; row < (int)bitmap->rows; ++row) {
        if (y + row < 0 || y + row >= surface->h) {
            continue;
        }
        Uint32* line = (Uint32*)((Uint8*)surface->pixels + (y + row) * surface->pitch);
        const Uint8* coverage = bitmap->buffer + row * bitmap->pitch;
        for (int column = 0; column < columns; ++column) {
            if (x + column >= 0 && x + column < surface->w) {
                line[x + column] |= (Uint32)coverage[column] << 24;
            }
        }
    }
}

/* Measures the text, and draws it if there is a surface. */
static Extent layOut(TTF_Font* font, const char* text, SDL_Surface* surface) {
    Extent extent = {0, 0, 0};
    FT_UInt before = 0;
    int x = 0;
    for (const char* c = text; *c; ++c) {
        const FT_UInt glyph = FT_Get_Char_Index(font->face, (unsigned char)*c);
        const Box box = loadGlyph(font, glyph);
        x += kerning(font, before, glyph);
        before = glyph;
        if (surface && c == text && box.left < 0) {
            x -= box.left;
        }
        if (surface) {
            drawGlyph(&font->face->glyph->bitmap, box.width, surface, x + box.left,
                      font->ascent - box.top);
        }
        include(&extent, x, box);
        x += box.advance;
    }
    return extent;
}

SDL_Surface* TTF_RenderText_Blended(TTF_Font* font, const char* text, SDL_Color color) {
    const Extent extent = layOut(font, text, NULL);
    const int width = extent.maxX - extent.minX;
    const int depth = font->ascent - extent.minY;
    if (width == 0) {
        SDL_SetError("Text has zero width");
        return NULL;
    }
    SDL_Surface* surface =
        SDL_CreateRGBSurface(SDL_SWSURFACE, width, depth > font->height ? depth : font->height, 32,
                             0xFF, 0xFF00, 0xFF0000, 0xFF000000);
    if (surface) {
        SDL_FillRect(surface, NULL, color.r | (Uint32)color.g << 8 | (Uint32)color.b << 16);
        layOut(font, text, surface);
    }
    return surface;
}
