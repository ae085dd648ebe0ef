# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The subjects of commits: `Area: what it does`, so that a stranger can search the history."""

import re
import subprocess

import pytest

from house_test import PROJECT

# Older subjects have no area.
LAST_UNCHECKED = "684fd8f83b1d"
LONGEST_SUBJECT = 72
AREA = re.compile(r"^[A-Z][\w /.-]*: \S")


def new_subjects():
    """The subjects of all commits since the rule, or None without a history."""
    log = subprocess.run(["git", "log", "--no-merges", "--format=%s", f"{LAST_UNCHECKED}.."],
                         cwd=PROJECT, capture_output=True, text=True, check=False)
    return log.stdout.splitlines() if log.returncode == 0 else None


def faults(subject):
    found = []
    if len(subject) > LONGEST_SUBJECT:
        found.append("too long")
    if not AREA.match(subject):
        found.append("no area")
    if ";" in subject:
        found.append("two changes")
    return found


def test_new_commits_name_their_area():
    subjects = new_subjects()
    if subjects is None:
        pytest.skip("the history is not at hand: an archive or a shallow copy")
    assert {subject: faults(subject) for subject in subjects if faults(subject)} == {}


def test_bad_subjects_are_noticed():
    assert faults("Robots: aim while sailing") == []
    assert faults("Break a line") == ["no area"]
    assert faults("Robots: aim; Docs: say so") == ["two changes"]
    assert faults("Robots: " + "x" * 65) == ["too long"]
