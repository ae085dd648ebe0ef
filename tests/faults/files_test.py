# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Every file of the game's data, broken in many ways.

The game must either say what is wrong, in its own words, and end with status 1, or play through
all its screens and end with status 0. The other files are small ones, to be quick.
"""

import os
import random
import re
import shutil
from collections import Counter
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass
from pathlib import Path

import gamerun
import smalldata
from engine import loopmp3
from gamerun import choose, seed_of_track, tap

CUTS = 16
FLIPS = 32
INSTALLED = [Path("/usr/share/games/morvane"), Path("/usr/local/share/games/morvane")]

# Through all screens: the intro, the menu, help, credits and a battle with some shots.
SESSION = ("frames=2 " + tap("f5") + "frames=2 " + choose(1) + "frames=1 " + tap("escape") +
           choose(2) + "frames=1 " + tap("escape") + choose(0) + "frames=2 " + tap("space") +
           tap("return") + "frames=3 ")
END = "mark=end quit"

# Messages that the libraries print themselves about damaged files.
CHATTER = re.compile(r"libpng (warning|error): [^\n]*\n"
                     r"|(WARNING|CRITICAL): You are using the SDL disk [^\n]*\n"
                     r"|(CRITICAL: )? Writing to file [^\n]*\n")
GAVE_UP = "FATAL ERROR: Data loading failed\n"
NO_DATA = "FATAL ERROR: Can't find Morvane data files.\n"


def kind_of(name):
    return {".png": "picture", ".ttf": "font", ".mp3": "track"}.get(Path(name).suffix, "marker")


STRANGERS = {"picture": "papyrus.ttf", "font": "music1.mp3", "track": "voda.png",
             "marker": "logo.png"}


@dataclass(frozen=True)
class Case:
    """One file, broken in one way. The place counts bytes for a cut and bits for a flip."""
    name: str
    flaw: str
    place: int = 0

    def __str__(self):
        return f"{self.name} {self.flaw} {self.place}"


def cases_of(name, size):
    places = random.Random(name).sample(range(size * 8), FLIPS)
    return ([Case(name, flaw) for flaw in ("missing", "empty", "directory", "unreadable",
                                           "stranger")] +
            [Case(name, "cut", size * (number + 1) // (CUTS + 1)) for number in range(CUTS)] +
            [Case(name, "flip", place) for place in sorted(places)])


def flipped(content, bit):
    changed = bytearray(content)
    changed[bit // 8] ^= 1 << bit % 8
    return bytes(changed)


def break_file(case, real, file):
    """Puts the broken form of a real file in a small one's place."""
    content = (real / case.name).read_bytes()
    file.unlink()
    if case.flaw == "directory":
        file.mkdir()
    elif case.flaw == "unreadable":
        file.write_bytes(content)
        file.chmod(0)
    elif case.flaw != "missing":
        file.write_bytes({"empty": b"", "cut": content[:case.place],
                          "stranger": (real / STRANGERS[kind_of(case.name)]).read_bytes(),
                          "flip": flipped(content, case.place)}[case.flaw])


def must_end(case):
    """Whether the game must end; None if either is right."""
    unopened = case.flaw in ("missing", "unreadable")
    kind = kind_of(case.name)
    if kind == "marker":
        return unopened
    if kind == "track":
        # The mixer's reader takes whatever it can open, but some refuse a directory.
        return True if unopened else None if case.flaw == "directory" else False
    return True if unopened or case.flaw in ("empty", "directory", "stranger") else None


def fatal_message(case):
    """A pattern for what the game says before it gives up."""
    kind = kind_of(case.name)
    if kind == "marker":
        return re.escape(NO_DATA)
    text = {"track": "ERROR: Can't load "}.get(kind, "ERROR: Couldn't load data/")
    return re.escape(text + case.name) + r"\n[^\n]+\n" + re.escape(GAVE_UP)


def faults_of(case, outcome):
    """Everything that is wrong with a run."""
    said = CHATTER.sub("", outcome.messages)
    if outcome.status is None:
        return ["hangs"]
    if outcome.status not in (0, 1):
        return [f"ends with status {outcome.status} after {outcome.messages[-300:]!r}"]
    faults = []
    if outcome.status == 1 and not re.fullmatch(fatal_message(case), said):
        faults.append(f"gives up saying {said!r}")
    if outcome.status == 0 and said:
        faults.append(f"plays, but says {said!r}")
    if outcome.status == 0 and "end" not in outcome.marks():
        faults.append("ends too early")
    if must_end(case) not in (None, outcome.status == 1):
        faults.append(f"ends with status {outcome.status}")
    if not [call for call in outcome.calls if call.function == "SDL_Quit"]:
        faults.append("does not end SDL")
    return faults


def settings_of(case, folder):
    """What the run needs besides the file: a track is to be heard from beginning to end."""
    if kind_of(case.name) != "track":
        return {}
    return {**gamerun.with_ear(folder / "ear"),
            "MORVANE_FIXED_TIME": seed_of_track(3 if case.name == "music3.mp3" else 2)}


def length_of(track):
    """Sample frames in a track, and a few more for it to come round."""
    content = track.read_bytes()
    return (len(loopmp3.frames(content)) + 20) * loopmp3.FRAME


def script_of(case, real):
    if kind_of(case.name) != "track":
        return SESSION + END
    heard = f"heard={length_of(real / case.name)} "
    if case.name == "music1.mp3":
        return "frames=1 " + heard + SESSION + END
    return SESSION + heard + END


# Root reads everything; without these rights it is like anybody else.
AS_ANYBODY = "setpriv --bounding-set=-dac_override,-dac_read_search"


def run(game, real, small, folder, case):
    """Plays with the one broken file; the small files' directory is copied for it."""
    shutil.copytree(small / "data", folder / "data", copy_function=os.link)
    break_file(case, real / "data", folder / "data" / case.name)
    launcher = AS_ANYBODY if case.flaw == "unreadable" and os.geteuid() == 0 else ""
    outcome = game.play(folder, script_of(case, real / "data"), launcher=launcher,
                        **settings_of(case, folder))
    shutil.rmtree(folder)
    return outcome


def all_cases(real):
    return [case for name in smalldata.FILES
            for case in cases_of(name, (real / "data" / name).stat().st_size)]


def test_every_file_broken_in_every_way(game, real_data, root, report, request, tmp_path):
    cases = all_cases(real_data)[::request.config.option.share]

    def judge(numbered):
        number, case = numbered
        outcome = run(game, real_data, root, tmp_path / str(number), case)
        return case, outcome.status, faults_of(case, outcome)

    with ThreadPoolExecutor(gamerun.AT_ONCE) as pool:
        results = list(pool.map(judge, enumerate(cases)))
    statuses = Counter(status for _, status, _ in results)
    wrong = {str(case): faults for case, _, faults in results if faults}
    report("files.cases", len(results))
    report("files.said_so", statuses[1])
    report("files.played_on", statuses[0])
    report("files.wrong", len(wrong))
    assert wrong == {}
