// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <sstream>
#include <string>

// The name of an object that the game got from a library, for example "file:data/voda.png"; "null"
// for null, and "unknown" for an object that no library made or that has been released.
std::string nameOf(const void* object);

// An object as the journal shows it; looked up only where a journal is kept.
struct Named {
    const void* object;
};
std::ostream& operator<<(std::ostream& out, Named named);

// Adds text to the line of the current call.
void annotate(const std::string& text);

// One call of a library. If it comes from the game's code and not from a library, it is numbered
// and logged: the arguments before the call, so that they are known even if it never returns, and
// the result after it.
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

    // Logs a result and returns it. An object keeps its name until it is released.
    template <typename Object> Object* made(Object* object, const std::string& name) const {
        remember(object, name);
        return object;
    }
    int result(int value) const;

    // Forgets the name of a released object.
    void givesBack(const void* object) const;

private:
    static int numberOf(const void* caller); // 0 for a library's call
    static bool isJournalKept();
    static void write(const std::string& text);
    void remember(const void* object, const std::string& name) const;

    const int number;
};
