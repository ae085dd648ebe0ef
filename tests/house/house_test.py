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
    """Suppressed warnings of the linter without a reason."""
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


# Folders of tests

TEST_FOLDERS = sorted(path.name for path in (PROJECT / "tests").iterdir() if path.is_dir()
                      and path.name not in ("support", "web"))
IMPORTING = re.compile(r'^#include "([^"]+)"|^(?:from|import) (\w+)', re.M)


def borrowed(text, own, others):
    """Files of another test folder that a test includes or imports."""
    names = [header or f"{module}.py" for header, module in IMPORTING.findall(text)]
    reaching = re.findall(r'^#include "(\.\./[^"]+)"', text, re.M)
    return [name for name in names if name in others and name not in own] + reaching


def test_no_folder_of_tests_uses_the_files_of_another():
    files = {folder: {path.name for path in (PROJECT / "tests" / folder).rglob("*")}
             for folder in (*TEST_FOLDERS, "support")}
    src = {path.name for path in SOURCES}
    offenders = []
    for folder in TEST_FOLDERS:
        own = files[folder] | files["support"] | src
        others = set().union(*files.values())
        for path in (PROJECT / "tests" / folder).iterdir():
            if path.suffix in (".cpp", ".h", ".py") and path != Path(__file__):
                offenders += [f"{folder}/{path.name}: {name}"
                              for name in borrowed(path.read_text(), own, others)]
    assert offenders == []


def test_a_borrowed_file_is_noticed():
    others = {"battle.h", "calls_test.py"}
    assert borrowed('#include "battle.h"\nimport re\n', {"battle.h"}, others) == []
    assert borrowed('#include "battle.h"\nfrom calls_test import x\n', set(), others) == [
        "battle.h", "calls_test.py"]
    assert borrowed('#include "../unit/battle.h"\n', set(), others) == ["../unit/battle.h"]


def test_tests_import_from_the_places_in_one_file():
    tests = [path for path in files_of_the_project() if path.suffix == ".py"
             and PROJECT / "tests" in path.parents and path != Path(__file__)]
    assert [path.name for path in tests if "sys.path" in path.read_text()] == []


def test_events_are_replaced_in_three_places_at_most():
    stand_in = re.compile(r"^int (?:__wrap_)?SDL_PollEvent\([^)]*\) \{", re.M)
    files = [path for path in files_of_the_project() if path.suffix in (".cpp", ".c")]
    found = [path.name for path in files if stand_in.search(path.read_text())]
    assert len(found) <= 3 and "callwatch.cpp" in found, found


def other_names(names):
    """Python tests whose file names do not end in _test.py."""
    return [name for name in names if re.match(r"test_|.*_tests", name)]


def test_files_of_python_tests_have_one_form_of_name():
    names = [path.name for path in files_of_the_project() if path.suffix == ".py"]
    assert len([name for name in names if name.endswith("_test.py")]) > 20
    assert other_names(names) == []


def test_another_form_of_name_is_noticed():
    assert other_names(["menu_test.py", "test_menu.py"]) == ["test_menu.py"]


def doubled_suites(texts):
    """Suites of GoogleTest that more than one file defines."""
    files = {}
    for name, text in texts.items():
        for suite in set(re.findall(r"^TEST(?:_[FP])?\((\w+),", text, re.M)):
            files.setdefault(suite, []).append(name)
    return {suite: names for suite, names in files.items() if len(names) > 1}


def test_every_suite_is_in_one_file():
    texts = {str(path): path.read_text() for path in (PROJECT / "tests").rglob("*_test.cpp")}
    assert len(texts) > 30
    assert doubled_suites(texts) == {}


def test_a_suite_in_two_files_is_noticed():
    assert doubled_suites({"a": "TEST(MenuTest, b) {", "c": "TEST_F(MenuTest, d) {"}) == {
        "MenuTest": ["a", "c"]}
