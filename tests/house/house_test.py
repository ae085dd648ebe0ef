# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The house rules that need no compiler. CONTRIBUTING.md gives the reason of each.

Every rule is a function that names what breaks it; each is shown an offender, too, so that a rule
which lets everything pass is noticed.
"""

import re
import subprocess
from pathlib import Path

import pytest

PROJECT = Path(__file__).resolve().parents[2]
SOURCES = sorted((PROJECT / "src").iterdir())
HEADERS = [path for path in SOURCES if path.suffix == ".h"]
UNITS = [path for path in SOURCES if path.suffix == ".cpp"]
LONGEST_LINE = 100
LONG_FILE = 250
WRITTEN_BY_HAND = {".cpp", ".h", ".c", ".py", ".cmake", ".in", ".pov", ".inc", ".md", ".yml"}
# Tables, links and drawings cannot be broken.
UNBREAKABLE = re.compile(r"^\s*(\||!?\[|- \[|<|\d+\. )|https?://|^ {4}")
OUTPUT = re.compile(r"\b(f?printf|f?puts|putchar|fputs|perror|fwrite|v?syslog|SDL_Log)\s*\(|"
                    r"\b(cout|cerr|clog|iostream|cstdio)\b")


def files_of_the_project():
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "-z"], cwd=PROJECT,
                            capture_output=True, check=False)
    if listed.returncode == 0:
        names = listed.stdout.decode().split("\0")[:-1]
    else:  # an unpacked archive
        names = [str(path.relative_to(PROJECT)) for path in PROJECT.rglob("*")
                 if "build" not in path.relative_to(PROJECT).parts[:1]]
    return [PROJECT / name for name in names if (PROJECT / name).is_file()]


def is_script(path):
    with open(path, "rb") as file:
        return file.read(2) == b"#!"


def without_comments(text):
    return re.sub(r"//[^\n]*|/\*.*?\*/", "", text, flags=re.S)


# Lines

def long_lines(name, text):
    """Lines of more than 100 columns, but for what Markdown cannot break."""
    return [f"{name}:{number}" for number, line in enumerate(text.splitlines(), 1)
            if len(line) > LONGEST_LINE
            and not (name.endswith(".md") and UNBREAKABLE.search(line))]


def test_no_line_is_longer_than_the_limit():
    offenders = []
    checked = 0
    for path in files_of_the_project():
        name = str(path.relative_to(PROJECT))
        if (path.suffix in WRITTEN_BY_HAND or path.name in ("CMakeLists.txt", "rules")
                or is_script(path)):
            offenders += long_lines(name, path.read_text())
            checked += 1
    assert checked > 100
    assert offenders == []


def test_a_long_line_is_noticed():
    assert long_lines("a.cpp", "x" * 100 + "\n" + "x" * 101) == ["a.cpp:2"]


# Units

def class_names(text):
    """The classes that a header defines; structs without a base class are records, not classes."""
    return re.findall(r"^class (\w+)[^;{]*\{", without_comments(text), re.M)


def namespace_names(text):
    return re.findall(r"^namespace (\w+) \{", without_comments(text), re.M)


def misfits(stem, text):
    """What a header defines beside the one class or namespace that has its file's name."""
    names = class_names(text) + namespace_names(text)
    return [name for name in names if name.lower() != stem] + names[1:]


@pytest.mark.parametrize("header", HEADERS, ids=lambda path: path.name)
def test_a_file_pair_holds_one_class_of_its_name(header):
    assert misfits(header.stem, header.read_text()) == []
    assert header.with_suffix(".cpp") in UNITS


def test_every_unit_has_its_header():
    assert [unit.stem for unit in UNITS] == [header.stem for header in HEADERS]
    assert all(re.fullmatch(r"[a-z]+", unit.stem) for unit in UNITS)


def test_a_second_class_in_a_file_is_noticed():
    assert misfits("bullet", "class Bullet : public GameObject {\n};\n") == []
    assert misfits("bullet", "class Bullet {\n};\nclass Shell {\n};\n") == ["Shell", "Shell"]
    assert misfits("bullet", "class Shell;\nnamespace Shells {\n}\n") == ["Shells"]


# The order of a file

def misplaced(stem, suffix, text):
    """A header begins with its guard, a unit with its own header: then each stands by itself."""
    code = [line for line in without_comments(text).splitlines() if line.strip()]
    first = "#pragma once" if suffix == ".h" else f'#include "{stem}.h"'
    return [] if code[0] == first else [code[0]]


@pytest.mark.parametrize("path", SOURCES, ids=lambda path: path.name)
def test_a_header_is_guarded_and_a_unit_includes_its_own_first(path):
    assert misplaced(path.stem, path.suffix, path.read_text()) == []


def test_another_first_include_is_noticed():
    assert misplaced("bullet", ".cpp", '// why\n#include "bullet.h"\n') == []
    assert misplaced("bullet", ".cpp", '#include <cmath>\n#include "bullet.h"\n')


# Pictures and messages

def freed_without_being_made(text):
    """Surfaces that a unit frees although it has not made them: those may be the image pool's."""
    code = without_comments(text)
    made = set(re.findall(r"(\w+)\s*=\s*createSurface\(", code))
    made |= set(re.findall(r"(\w+)\(createSurface\(", code))
    return [name for name in re.findall(r"SDL_FreeSurface\(([^)]*)\)", code) if name not in made]


@pytest.mark.parametrize("unit", [unit for unit in UNITS if unit.stem != "main"],
                         ids=lambda path: path.name)
def test_a_mode_frees_only_what_it_has_made(unit):
    assert freed_without_being_made(unit.read_text()) == []


def test_freeing_a_picture_of_the_pool_is_noticed():
    assert freed_without_being_made("buf = createSurface(2, 2); SDL_FreeSurface(buf);") == []
    assert freed_without_being_made('SDL_Surface* sea = imagePool["voda.png"];'
                                    "SDL_FreeSurface(sea);") == ["sea"]


def output_calls(text):
    return [match.group(0) for match in OUTPUT.finditer(without_comments(text))]


@pytest.mark.parametrize("path", [path for path in SOURCES if path.name != "main.cpp"],
                         ids=lambda path: path.name)
def test_only_error_writes_messages(path):
    assert output_calls(path.read_text()) == []


def test_error_itself_writes_once():
    text = (PROJECT / "src/main.cpp").read_text()
    assert sorted(output_calls(text)) == ["cerr", "iostream"]


def test_stray_output_is_noticed():
    assert output_calls('std::cerr << "here";') == ["cerr"]
    assert output_calls('printf("here");') == ["printf("]
    assert output_calls("// printf would do\nSDL_Flip(screen);") == []


def silenced(text):
    """Remarks of the linter that are switched off without a word why."""
    return re.findall(r"NOLINT(?!.*[:)] ?\w.{9}).*", text)


@pytest.mark.parametrize("path", SOURCES, ids=lambda path: path.name)
def test_no_remark_of_the_linter_is_silenced_without_a_reason(path):
    assert silenced(path.read_text()) == []


def test_a_silenced_remark_is_noticed():
    assert silenced("int x; // NOLINT")
    assert silenced("int x; // NOLINT(bugprone-x): the library wants it so") == []


# Sizes

def test_units_are_small():
    lengths = sorted(len(path.read_text().splitlines()) for path in SOURCES)
    assert lengths[len(lengths) // 2] <= 70
    assert lengths[len(lengths) * 9 // 10] < LONG_FILE
