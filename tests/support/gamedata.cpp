// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "gamedata.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace fs = std::filesystem;

const PictureFile pictureFiles[16] = {
    {"logo.png", true},           {"menu.png", true},       {"tlacitka.png", true},
    {"pozadie-lode3.png", false}, {"brannoc4f.png", false}, {"presentsscreen1.png", false},
    {"bar1.png", false},          {"bar2.png", false},      {"kruh.png", false},
    {"voda.png", false},          {"lod1.png", true},       {"strela2.png", true},
    {"cball.png", true},          {"prekazka1.png", true},  {"prekazka2.png", true},
    {"prekazka3.png", true},
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
    for (const PictureFile& file : pictureFiles) {
        fs::copy_file(testFile("plain.png"), directory / file.name);
    }
    fs::copy_file(testFile("blocks.ttf"), directory / fontFile);
    for (const char* name : musicFiles) {
        fs::copy_file(testFile("silence.mp3"), directory / name);
    }
}
