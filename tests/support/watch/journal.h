// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <sstream>
#include <string>

// What a pointer that the game got from a library stands for, for example "file:data/voda.png";
// "null" for null, and "unknown" for what no library gave out or what has been given back already.
std::string nameOf(const void* object);

// An object as the journal shows it; looked up only where a journal is kept.
struct Named {
    const void* object;
};
std::ostream& operator<<(std::ostream& out, Named named);

// Adds something to the line of the call that is under way.
void annotate(const std::string& text);

// One call of a library. It is numbered and written down if the game made it, by the place it came
// from, and not a library: its arguments before it is carried out, so that they are known of a
// call that never returns, and its result after it.
class Call {
public:
    template <typename... Arguments>
    Call(const void* caller, const char* function, const Arguments&... arguments)
        : number(numberOf(caller)) {
        if (isTheGames() && isJournalKept()) {
            std::ostringstream line;
            line << number << ' ' << function;
            ((line << ' ' << arguments), ...);
            write(line.str());
        }
    }
    ~Call();
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    bool isTheGames() const {
        return number != 0;
    }

    // True when this is the call that is to fail; the reason is then "out of luck".
    bool fails() const;

    // Passes a result on and writes it down; objects go by that name until they are given back.
    template <typename Object> Object* made(Object* object, const std::string& name) const {
        remember(object, name);
        return object;
    }
    int result(int value) const;

    // The object has no name any more.
    void givesBack(const void* object) const;

private:
    static int numberOf(const void* caller); // 0 for a library's call
    static bool isJournalKept();
    static void write(const std::string& text);
    void remember(const void* object, const std::string& name) const;

    const int number;
};
