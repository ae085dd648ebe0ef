// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "programmode.h"

ProgramMode::~ProgramMode() = default;

void ProgramMode::activate() {}

void ProgramMode::update() {}

void ProgramMode::cleanUp() {}
