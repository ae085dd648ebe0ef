# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT

include(GoogleTest)

# Every case of a GoogleTest program becomes a test of its own, once for each SDL 1.2 library. Each
# runs in its own process, because the state of the game is global.
#
# The properties come from a file of their own, read after the discovery, because discovery splits
# lists: passed to it directly, ENVIRONMENT would end at its first semicolon.
function(discover_tests_on_each_library target label)
  set(suppressions ${PROJECT_SOURCE_DIR}/tests/sanitizer-suppressions.txt)
  foreach(library IN LISTS sdl_libraries)
    set(list ${target}_${library})
    gtest_discover_tests(${target}
      TEST_PREFIX "${label}.${library}."
      TEST_LIST ${list}
      DISCOVERY_MODE PRE_TEST
      DISCOVERY_TIMEOUT 60)
    set(environment SDL_VIDEODRIVER=dummy SDL_AUDIODRIVER=dummy MORVANE_TESTED_SDL=${library}
        "LSAN_OPTIONS=suppressions=${suppressions}:print_suppressions=0"
        ${${library}_environment})
    set(properties_file ${CMAKE_CURRENT_BINARY_DIR}/${list}_properties.cmake)
    file(WRITE ${properties_file}
      "if(${list})\n"
      "  set_tests_properties(\${${list}} PROPERTIES\n"
      "    LABELS \"${label};${library}\"\n"
      "    ENVIRONMENT \"${environment}\")\n"
      "endif()\n")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${properties_file})
  endforeach()
endfunction()
