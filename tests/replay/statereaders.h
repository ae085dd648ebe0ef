// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include <SDL.h>

#include "hash.h"
#include "keyboard.h"

// Readers of the state. Both have the same operations, so the same fields are hashed and described.

// Folds every field into one hash.
class Hasher {
public:
    void begin(const char* /*group*/, int number) {
        hash.add(static_cast<std::uint64_t>(number));
    }
    void text(const char* /*name*/, const char* value) {
        for (; *value != '\0'; ++value) {
            hash.add(static_cast<std::uint64_t>(*value));
        }
    }
    void real(const char* /*name*/, double value) {
        hash.add(value);
    }
    void number(const char* /*name*/, long value) {
        hash.add(static_cast<std::uint64_t>(value));
    }
    void keys() {
        std::uint64_t word = 0;
        for (int key = 0; key < SDLK_LAST; ++key) {
            word = word << 1 | (Keyboard::isPressed(key) ? 1U : 0U);
            if (key % 64 == 63) {
                hash.add(word);
            }
        }
        hash.add(word);
    }

    Hash hash;
};

// Writes every field as a line.
class Describer {
public:
    void begin(const char* group, int number) {
        prefix = std::string(group) + (number == 0 ? "" : std::to_string(number)) + ".";
    }
    void text(const char* name, const char* value) {
        lines.push_back(prefix + name + " " + value);
    }
    void real(const char* name, double value) {
        // Enough digits to tell any two numbers apart.
        char digits[32];
        std::snprintf(digits, sizeof digits, "%.17g", value);
        text(name, digits);
    }
    void number(const char* name, long value) {
        text(name, std::to_string(value).c_str());
    }
    void keys() {
        std::string pressed;
        for (int key = 0; key < SDLK_LAST; ++key) {
            if (Keyboard::isPressed(key)) {
                pressed += (pressed.empty() ? "" : ",") + std::to_string(key);
            }
        }
        text("pressed", pressed.empty() ? "none" : pressed.c_str());
    }

    std::vector<std::string> lines;

private:
    std::string prefix;
};
