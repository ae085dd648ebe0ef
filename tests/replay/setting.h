// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include "script.h"

// Sets a field of the current battle. An unknown field ends the process with a message.
void applySetting(const Setting& setting);
