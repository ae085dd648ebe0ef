# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""What the documents name must exist: tests, paths, build targets, presets and commands.

Every rule is a function that returns what is missing, and each is shown an offender, so that a rule
that accepts everything fails. Text counts as a name when it stands in backticks or in a block of
commands; links are checked as well.
"""

import functools
import re
import shutil
import subprocess

import pytest

from house_test import PROJECT, files_of_the_project

PAGES = [path for path in files_of_the_project() if path.suffix == ".md"]

# Made by a build or a tool, so absent from a fresh copy.
PRODUCED = re.compile(r"^(build|obj-)|^/|^~|\*|[A-Z]{3,}|…|\$")
SUITE_AND_CASE = re.compile(r"^([A-Z]\w+Test)\.(\w+)$")
PATH = re.compile(r"^\.{0,2}/?[\w.-]+(/[\w.-]+)*/?$")
SUFFIXES = {"cpp", "h", "py", "md", "txt", "in", "png", "mp3", "ttf", "score", "supp", "webp",
            "jpg", "pov", "inc", "dat", "expected", "json"}
SHELL_WORDS = {"sudo", "cd", "git", "grep", "sed", "cp", "env", "xvfb-run", "morvane", "man"}
# Not part of this tree, or only on a system that has the thing.
FOREIGN = {"apt-get", "dnf", "pacman", "dpkg-buildpackage", "xrandr", "cpack"}


@functools.lru_cache(maxsize=None)
def names_of_tests():
    """All test cases written in C++ or Python, as Suite.case or as the name of the function."""
    names = set()
    for path in files_of_the_project():
        if path.suffix == ".cpp":
            names |= {f"{suite}.{case}" for suite, case in re.findall(
                r"^TEST(?:_[FP])?\(\s*(\w+),\s*(\w+)\)", path.read_text(), re.M)}
        elif path.suffix == ".py":
            names |= set(re.findall(r"^def (test_\w+)\(", path.read_text(), re.M))
    return names


@functools.lru_cache(maxsize=None)
def names_of_targets(build):
    """Every target of the build that is being tested, as the build tool itself lists them."""
    said = subprocess.run(["cmake", "--build", build, "--target", "help"], capture_output=True,
                          text=True, check=True).stdout
    return set(re.findall(r"^(?:\.\.\. )?([\w.-]+)(?::| |$)", said, re.M))


@functools.lru_cache(maxsize=None)
def names_of_presets():
    return set(re.findall(r'"name": "(\w+)"', (PROJECT / "CMakePresets.json").read_text()))


@functools.lru_cache(maxsize=None)
def names_of_files():
    return {path.name for path in files_of_the_project()}


def code_spans(text):
    """What stands in backticks, outside blocks."""
    return re.findall(r"`([^`\n]+)`", re.sub(r"^```.*?^```$", "", text, flags=re.M | re.S))


def shown_commands(text):
    """The lines of all blocks marked as shell commands, without comments."""
    blocks = re.findall(r"^```sh\n(.*?)^```$", text, re.M | re.S)
    lines = [re.sub(r"\s+#.*", "", line) for block in blocks for line in block.splitlines()]
    return [line for line in lines if line and line[0] not in " #"]


def missing_tests(text):
    spans = code_spans(text)
    named = [span for span in spans if SUITE_AND_CASE.match(span) or re.match(r"^test_\w+$", span)]
    return [name for name in named if name not in names_of_tests()]


def looks_like_a_path(span):
    if PRODUCED.search(span) or not PATH.match(span):
        return False
    if span.startswith("../"):
        return False
    if "/" in span and (PROJECT / span.split("/")[0]).exists():
        return True
    return span.rsplit(".", 1)[-1] in SUFFIXES and span.count(".") == 1


def exists(span, folder):
    """A path is relative to the top, the page or a folder of assets/; a bare name is any file."""
    places = [PROJECT, folder, *(PROJECT / "assets" / part
                                 for part in ("pictures", "music", "typeface"))]
    if any((place / span).exists() for place in places):
        return True
    return "/" not in span and span in names_of_files()


def missing_paths(text, folder):
    return [span for span in code_spans(text) if looks_like_a_path(span)
            and not exists(span, folder)]


def missing_links(text, folder):
    targets = re.findall(r"\]\(([^)#\s]+)(?:#[^)]*)?\)", text)
    return [target for target in targets if not target.startswith(("http", "mailto"))
            and not (folder / target).exists()]


def missing_targets(text, build):
    """Targets after --target, and presets after --preset, in commands and in backticks."""
    missing = []
    for line in shown_commands(text) + code_spans(text):
        after = re.search(r"--target ([\w ]+)", line)
        targets = after.group(1).split() if after else []
        missing += [name for name in targets if name not in names_of_targets(build)]
        missing += [name for name in re.findall(r"--preset (\w+)", line)
                    if name not in names_of_presets()]
    return missing


def missing_commands(text):
    """Commands whose first word is neither a file of the project nor a program at hand."""
    missing = []
    for line in shown_commands(text):
        words = [word for word in line.split() if not re.match(r"^\w+=", word)]
        word = words[1] if words[0] == "sudo" else words[0]
        if PRODUCED.search(word) or word in SHELL_WORDS | FOREIGN:
            continue
        there = (PROJECT / word).is_file() if "/" in word else shutil.which(word)
        if not there:
            missing.append(line)
    return missing


def problems(text, folder, build):
    return (missing_tests(text) + missing_paths(text, folder) + missing_links(text, folder)
            + missing_targets(text, build) + missing_commands(text))


@pytest.mark.parametrize("page", PAGES, ids=lambda path: str(path.relative_to(PROJECT)))
def test_what_a_page_names_exists(page, build):
    assert problems(page.read_text(), page.parent, build) == []


def test_a_missing_test_is_noticed():
    own_name = test_a_missing_test_is_noticed.__name__
    assert missing_tests(f"`BulletTest.hitsTheOtherShip` and `{own_name}`") == []
    assert missing_tests("held by `BulletTest.flies`") == ["BulletTest.flies"]
    assert missing_tests("held by `test_nothing`") == ["test_nothing"]


def test_a_missing_path_is_noticed():
    text = "`src/bullet.cpp`, `bullet.h`, `tests/unit/`, `build/play/x`, `NAME.expected`, `a b`"
    assert missing_paths(text, PROJECT) == []
    assert missing_paths("`src/shell.cpp` and `shell.h`", PROJECT) == ["src/shell.cpp", "shell.h"]


def test_a_missing_link_is_noticed():
    assert missing_links("[a](README.md#play) [b](https://example.org)", PROJECT) == []
    assert missing_links("[a](NOTHING.md)", PROJECT) == ["NOTHING.md"]


def test_a_missing_target_is_noticed(build):
    assert missing_targets("```sh\ncmake --build --preset test --target lint\n```\n", build) == []
    assert missing_targets("```sh\ncmake --build --preset tset --target lnit\n```\n",
                           build) == ["lnit", "tset"]


def test_a_missing_command_is_noticed():
    assert missing_commands("```sh\n./play\ncmake --preset play\nsudo git log\n```\n") == []
    assert missing_commands("```sh\n./paly\ncamke .\n```\n") == ["./paly", "camke ."]


def odd_rows_without_a_test(text):
    rows = [line for line in text.splitlines() if line.startswith("| ")]
    rows = [row for row in rows if not row.startswith("| behaviour ")]
    return [row for row in rows if not SUITE_AND_CASE.match(row.split("`")[-2])]


def test_every_odd_behaviour_names_the_test_that_holds_it():
    text = (PROJECT / "docs/oddities.md").read_text()
    assert len(re.findall(r"^\| ", text, re.M)) > 30
    assert odd_rows_without_a_test(text) == []


def test_an_odd_behaviour_without_a_test_is_noticed():
    assert odd_rows_without_a_test("| a | b | `BulletTest.hitsTheOtherShip` |\n") == []
    assert odd_rows_without_a_test("| a | `b` | none |\n") == ["| a | `b` | none |"]
