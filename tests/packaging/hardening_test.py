# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The program as it is built here, without a distribution's flags, is hardened."""

import json
import re
import subprocess

import pytest

# Functions of the C library that have a checked twin.
FORTIFIED = ("memcpy", "memmove", "memset", "strcpy", "strncpy", "strcat", "sprintf", "snprintf",
             "vsnprintf", "printf", "fprintf", "read", "fread", "gets", "fgets")


def readelf(build, *options):
    return subprocess.run(["readelf", "--wide", *options, build / "morvane"], check=True,
                          capture_output=True, text=True).stdout


def test_it_is_loaded_anywhere(build):
    assert re.search(r"Type:\s+DYN", readelf(build, "--file-header"))
    assert " INTERP " in readelf(build, "--segments")
    assert re.search(r"FLAGS_1.*\bPIE\b", readelf(build, "--dynamic"))


def test_its_tables_cannot_be_written_after_the_start(build):
    assert " GNU_RELRO " in readelf(build, "--segments")
    assert re.search(r"\(FLAGS(_1)?\).*\b(BIND_)?NOW\b", readelf(build, "--dynamic"))


def test_its_stack_is_guarded_and_cannot_be_run(build):
    stack, = [line for line in readelf(build, "--segments").splitlines() if "GNU_STACK" in line]
    assert " RW " in stack and "RWE" not in stack
    assert "__stack_chk_fail" in readelf(build, "--dyn-syms")


def undefined_functions(build):
    return set(re.findall(r"UND (\w+)", readelf(build, "--dyn-syms")))


def test_no_function_with_a_checked_twin_is_called_unchecked(build):
    called = undefined_functions(build)
    assert "SDL_Flip" in called
    # A length that the compiler knows to fit needs no check; it calls the plain function then.
    unchecked = {name for name in called if name in FORTIFIED} - {"memcpy", "memmove", "memset"}
    assert unchecked == set()


@pytest.mark.parametrize("flag", ["-D_FORTIFY_SOURCE=2", "-fstack-protector-strong"])
def test_every_unit_of_the_game_is_compiled_with_it(build, flag):
    with open(build / "compile_commands.json", encoding="utf-8") as file:
        commands = [entry["command"] for entry in json.load(file)
                    if "/CMakeFiles/morvane.dir/" in entry["command"]
                    or "CMakeFiles/morvane.dir/" in entry["command"]]
    assert len(commands) >= 14
    assert [command for command in commands if flag not in command.split()] == []
