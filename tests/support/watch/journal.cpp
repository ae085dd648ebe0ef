// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "journal.h"

#include <cstdint>
#include <cstdlib>
#include <map>

#include <SDL.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <link.h>
#include <unistd.h>

namespace {

struct Range {
    std::uintptr_t begin;
    std::uintptr_t end;
};

// The address range of the program itself, which is the first object that the loader lists.
Range findProgram() {
    Range program = {UINTPTR_MAX, 0};
    dl_iterate_phdr(
        [](dl_phdr_info* object, std::size_t /*size*/, void* data) {
            Range& range = *static_cast<Range*>(data);
            for (int i = 0; i < object->dlpi_phnum; ++i) {
                const ElfW(Phdr)& part = object->dlpi_phdr[i];
                if (part.p_type == PT_LOAD) {
                    const std::uintptr_t begin = object->dlpi_addr + part.p_vaddr;
                    range.begin = begin < range.begin ? begin : range.begin;
                    const std::uintptr_t end = begin + part.p_memsz;
                    range.end = end > range.end ? end : range.end;
                }
            }
            return 1;
        },
        &program);
    return program;
}

bool isInProgram(const void* place) {
    static const Range program = findProgram();
    const auto address = reinterpret_cast<std::uintptr_t>(place);
    return program.begin <= address && address < program.end;
}

// Not a stream, because nothing may be lost when the program crashes.
int journal() {
    static const int descriptor = [] {
        const char* file = std::getenv("MORVANE_CALLS");
        return file == nullptr ? -1 : open(file, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    }();
    return descriptor;
}

int failingCall() {
    static const int number = [] {
        const char* text = std::getenv("MORVANE_FAIL_AT");
        return text == nullptr ? -1 : std::atoi(text);
    }();
    return number;
}

// Never destroyed: the game's own static objects may outlive those of this library.
std::map<const void*, std::string>& names() {
    static auto& map = *new std::map<const void*, std::string>;
    return map;
}

int calls = 0;

} // namespace

std::string nameOf(const void* object) {
    if (object == nullptr) {
        return "null";
    }
    const auto found = names().find(object);
    return found == names().end() ? "unknown" : found->second;
}

std::ostream& operator<<(std::ostream& out, Named named) {
    return out << nameOf(named.object);
}

void annotate(const std::string& text) {
    if (journal() >= 0 && ::write(journal(), text.data(), text.size()) < 0) {
        std::abort(); // the test would judge half a journal
    }
}

Call::~Call() {
    if (isTheGames()) {
        write("\n");
    }
}

bool Call::fails() const {
    if (number != failingCall()) {
        return false;
    }
    static auto* const setError =
        reinterpret_cast<void (*)(const char*, ...)>(dlsym(RTLD_NEXT, "SDL_SetError"));
    setError("out of luck");
    write(" FAILS");
    return true;
}

int Call::result(int value) const {
    if (isTheGames()) {
        write(" -> " + std::to_string(value));
    }
    return value;
}

void Call::givesBack(const void* object) const {
    if (isTheGames()) {
        names().erase(object);
    }
}

int Call::numberOf(const void* caller) {
    return isInProgram(caller) ? ++calls : 0;
}

bool Call::isJournalKept() {
    return journal() >= 0;
}

void Call::write(const std::string& text) {
    annotate(text);
}

void Call::remember(const void* object, const std::string& name) const {
    if (!isTheGames()) {
        return;
    }
    if (object != nullptr) {
        names()[object] = name;
    }
    write(" -> " + nameOf(object));
}
