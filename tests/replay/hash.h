// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <cstring>
#include <string>

#include <SDL.h>

// A 64-bit hash of a sequence of numbers, the same with every compiler.
class Hash {
public:
    void add(std::uint64_t number) {
        value = (value ^ number) * 0x9e3779b97f4a7c15;
        value ^= value >> 32;
    }

    void add(double number) {
        std::uint64_t bits = 0;
        std::memcpy(&bits, &number, sizeof bits);
        add(bits);
    }

    std::uint64_t value = 0x6d6f7276616e65;
};

// The colours of a surface in the layout of a 32-bit display; the unused byte does not count.
std::uint64_t hashOfColours(const SDL_Surface& surface);

// As 16 hexadecimal digits.
std::string textOf(std::uint64_t hash);
