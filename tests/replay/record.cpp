// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "record.h"

#include "state.h"

Record::Record(int framesBetweenNotes) : frames(0), interval(framesBetweenNotes) {}

void Record::addFrame() {
    chain.add(hashOfState());
    ++frames;
    if (frames % interval == 0) {
        notes.push_back(chain.value);
    }
}
