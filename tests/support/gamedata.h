// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>

struct PictureFile {
    const char* name;
    bool hasAlpha; // false: magenta is transparent
};

// The game's files in the order in which it loads them.
extern const PictureFile pictureFiles[16];
extern const char* const fontFile;
extern const char* const musicFiles[3];

// One of the tests' own small files (see the folder data).
std::filesystem::path testFile(const std::string& name);

// An empty directory that is removed with everything in it at the end.
class TemporaryDirectory {
public:
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::filesystem::path path;
};

// Makes an empty file, and the directories on the way to it.
void makeEmptyFile(const std::filesystem::path& file);

// Makes a whole data directory of the tests' own small files, so that new art changes no result.
void makeGameData(const std::filesystem::path& directory);
