# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT

# Debian's Emscripten. Its parser of JavaScript lies where only Debian's node looks, and its
# prebuilt system libraries are complete and not writable.
set(ENV{NODE_PATH} /usr/share/nodejs)
set(ENV{EM_FROZEN_CACHE} 1)
include(/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake)
