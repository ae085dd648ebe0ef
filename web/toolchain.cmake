# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT

# For Debian's Emscripten. Its JavaScript parser is in a directory that only Debian's node searches,
# and its prebuilt system libraries are complete and read-only.
set(ENV{NODE_PATH} /usr/share/nodejs)
set(ENV{EM_FROZEN_CACHE} 1)
include(/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake)
