// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "gamedata.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace fs = std::filesystem;

const char* const pictureFiles[16] = {
    "logo.png",          "menu.png",      "tlacitka.png",
    "pozadie-lode3.png", "brannoc4f.png", "presentsscreen1.png",
    "bar1.png",          "bar2.png",      "kruh.png",
    "voda.png",          "lod1.png",      "strela2.png",
    "cball.png",         "prekazka1.png", "prekazka2.png",
    "prekazka3.png",
};
const char* const fontFile = "papyrus.ttf";
const char* const musicFiles[3] = {"music1.mp3", "music2.mp3", "music3.mp3"};

namespace {

fs::path makeTemporaryDirectory() {
    std::string name = fs::temp_directory_path() / "morvane-test-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) {
        std::perror(name.c_str());
        std::exit(1);
    }
    return fs::canonical(name);
}

} // namespace

fs::path testFile(const std::string& name) {
    return fs::path(MORVANE_TEST_DATA) / name;
}

TemporaryDirectory::TemporaryDirectory() : path(makeTemporaryDirectory()) {}

TemporaryDirectory::~TemporaryDirectory() {
    std::error_code ignored;
    fs::remove_all(path, ignored);
}

void makeEmptyFile(const fs::path& file) {
    fs::create_directories(file.parent_path());
    std::ofstream stream(file);
}

void makeGameData(const fs::path& directory) {
    makeEmptyFile(directory / "morvane.dat");
    for (const char* name : pictureFiles) {
        fs::copy_file(testFile("plain.png"), directory / name);
    }
    fs::copy_file(testFile("blocks.ttf"), directory / fontFile);
    for (const char* name : musicFiles) {
        fs::copy_file(testFile("silence.mp3"), directory / name);
    }
}
