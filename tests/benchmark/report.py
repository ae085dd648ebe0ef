#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Runs the benchmark's parts on every SDL 1.2 library and prints one page; also as JSON.

Every ratio is taken from two results of the same run of the same process, so that it holds on a
busy machine; the times themselves do not.
"""

import argparse
import contextlib
import dataclasses
import json
import os
import platform
import re
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path
from statistics import mean

from gamerun import KEYS, choose, tap
from xserver import virtual_display

STARTS = 15
PLAYED_FRAMES = 400
FRAME = 16.0  # milliseconds
PACED_FRAMES = 10000
DISTURBED_FRAMES = 1000
HELD_UP = 40.0  # milliseconds, the least that a delayed frame takes
SCREENS = ("menu", "battle", "help")
# How each screen is reached: steps of a script, see tests/support/watch/script.h.
TO_MENU = "frames=5 " + tap("escape") + "frames=5 "
WAYS = {"intro": "", "menu": TO_MENU, "help": TO_MENU + choose(1),
        "battle": TO_MENU + choose(0) + "frames=10 " + "".join(
            f"down={KEYS[key]} " for key in ("w", "a", "up", "left"))}
FLOORS = {
    "battle frame": ("battle bare copies", "battle frame's own blits",
                     "battle plain memory copies"),
    "menu frame": ("menu frame's own blits",),
    "intro frame": ("intro frame's own blits",),
    "construction of a battle": ("its surfaces, created and filled",),
}
PARTS_OF_FRAME = ("GameHandler::update", "Barrier::update", "Bullet::update",
                  "PlayerShip::update", "PlayerShip::keyboard", "PlayerShip::move")


@dataclasses.dataclass
class Play:
    """The log of one play; times in milliseconds."""

    linking: float  # from the start of the process to the game's first call of SDL
    start: float  # to the first flip
    frames: list  # when each frame began
    events_waiting: int  # the most that waited for a frame
    events_left: int  # the most that waited after one
    processor_seconds: float


class Bench:
    """The programs under measurement, with one SDL library."""

    def __init__(self, options, library, path):
        self.options = options
        self.library = library
        self.environment = dict(os.environ, SDL_VIDEODRIVER="dummy", SDL_AUDIODRIVER="dummy")
        if path:
            self.environment["LD_LIBRARY_PATH"] = path

    def results(self, *part):
        """What frame_benchmark prints for a part, by name."""
        done = subprocess.run([self.options.benchmark, *part], cwd=self.options.root,
                              env=self.environment, stdout=subprocess.PIPE, text=True,
                              check=part[0] != "allocations")
        rows = [json.loads(line) for line in done.stdout.splitlines()]
        return {row.pop("name"): row for row in rows}

    def play(self, screen, frames, display=None, disturb=False):
        """Plays the real game and returns what it logged."""
        with tempfile.TemporaryDirectory() as scratch:
            log = Path(scratch) / "log"
            environment = dict(self.environment, LD_PRELOAD=self.options.watch,
                               MORVANE_SCRIPT=WAYS[screen] + f"frames={frames} quit",
                               MORVANE_TIMES=str(log))
            if disturb:
                environment["MORVANE_DISTURB"] = "1"
            if display:
                del environment["SDL_VIDEODRIVER"]
                environment["DISPLAY"] = display
            start = time.clock_gettime(time.CLOCK_MONOTONIC) * 1000
            process = subprocess.Popen([self.options.binary], cwd=self.options.root,
                                       env=environment)
            usage = os.wait4(process.pid, 0)
            process.returncode = os.waitstatus_to_exitcode(usage[1])
            if process.returncode != 0:
                sys.exit(f"the game ended with status {process.returncode}")
            rows = [[float(word) for word in line.split()]
                    for line in log.read_text().splitlines()]
        (init, first_flip), *frame_rows = rows
        return Play(linking=init - start, start=first_flip - start,
                    frames=[began for began, _, _ in frame_rows],
                    events_waiting=int(max(waiting for _, waiting, _ in frame_rows)),
                    events_left=int(max(left for _, _, left in frame_rows)),
                    processor_seconds=usage[2].ru_utime + usage[2].ru_stime)

    def decoding_program(self):
        """Milliseconds for a program with the same libraries that decodes the files and ends."""
        start = time.monotonic()
        self.results("decoding")
        return 1000 * (time.monotonic() - start)

    def share(self, screen, display=None):
        """The part of a core, in per cent, that a screen takes at the game's own pace.

        The difference between a short and a long play leaves the start out."""
        short = self.play(screen, PLAYED_FRAMES // 4, display)
        long = self.play(screen, PLAYED_FRAMES, display)
        length = (long.frames[-1] - long.frames[0]) - (short.frames[-1] - short.frames[0])
        return 100 * (long.processor_seconds - short.processor_seconds) / (length / 1000)

    def memory(self):
        """Resident megabytes at the end of half a second of intro."""
        done = subprocess.run(
            ["/bin/sh", "-c", '"$1" & sleep 1; cat /proc/$!/statm; kill $!', "sh",
             self.options.binary],
            cwd=self.options.root, env=self.environment, stdout=subprocess.PIPE, text=True,
            check=False)
        return int(done.stdout.split()[1]) * os.sysconf("SC_PAGESIZE") / 1e6


def quantile(values, part):
    values = sorted(values)
    return values[int(part * (len(values) - 1))]


def row(name, value, unit, ninety_nine=None):
    tail = "" if ninety_nine is None else f"{ninety_nine:10.2f}"
    print(f"  {name:58} {value:10.2f}{tail:10} {unit}".rstrip())


def report_frames(bench):
    """Frames, start, memory and share of a core."""
    results = {}
    for part in ("battle", "menu", "intro", "construction", "allocations"):
        results.update(bench.results(part))
    for name, result in results.items():
        row(name, result["median"], result["unit"], result.get("p99"))
    ratios = {}
    for name, floors in FLOORS.items():
        for floor in floors:
            median = results[name]["median"] / results[floor]["median"]
            tail = results[name]["p99"] / results[floor]["p99"]
            ratios[f"{name} / {floor}"] = {"median": median, "p99": tail}
            row(f"{name} / {floor}", median, "times", tail)
    results["ratios"] = ratios
    report_start(bench, results)
    floor = bench.results("memory")["memory floor"]["median"]
    memory = bench.memory()
    results["memory"] = {"game": memory, "floor": floor}
    row("resident memory", memory, "MB")
    row("what is kept loaded, by itself", floor, "MB")
    row("memory / floor", memory / floor, "times")
    report_shares(bench, results)
    return results


def report_start(bench, results):
    """From the start of the process to the first flip, beside decoding the same files once.

    Linking the libraries that SDL_mixer and SDL_image bring is done before the game's first line,
    so there is a second floor that links them too: a program that does nothing but decode."""
    plays, decoding, programs = [], [], []
    for _ in range(STARTS):
        plays.append(bench.play("intro", 3))
        decoding.append(bench.results("decoding")["decode all files"]["median"])
        programs.append(bench.decoding_program())
    parts = {"start to first frame": [play.start for play in plays],
             "linking before the first call": [play.linking for play in plays],
             "first call to first frame": [play.start - play.linking for play in plays],
             "decoding the same files once": decoding,
             "a program that only decodes them": programs}
    for name, times in parts.items():
        results[name] = {"unit": "ms", "median": quantile(times, 0.5), "p99": quantile(times, 0.99)}
        row(name, results[name]["median"], "ms", results[name]["p99"])
    for name, floor in (("start to first frame", "decoding the same files once"),
                        ("first call to first frame", "decoding the same files once"),
                        ("start to first frame", "a program that only decodes them")):
        ratio = results[name]["median"] / results[floor]["median"]
        results["ratios"][f"{name} / {floor}"] = {"median": ratio}
        row(f"{name} / {floor}", ratio, "times")


def report_shares(bench, results):
    """The share of a core that each screen takes, without and with a display."""
    pacing = bench.results("pacing", "300")["pacing steps alone"]["median"]
    row("pacing steps alone", pacing, "% of a core")
    results["share"] = {"pacing": pacing}
    with contextlib.ExitStack() as stack:
        stages = {"dummy": None}
        if shutil.which("Xvfb"):
            stages["Xvfb"] = stack.enter_context(virtual_display("800x600"))
        for stage, display in stages.items():
            for screen in SCREENS:
                share = bench.share(screen, display)
                results["share"][f"{screen} {stage}"] = share
                row(f"{screen} at its own pace, {stage}", share, "% of a core")


def report_growth(bench):
    """How the cost of a frame grows with barriers and with the world."""
    results = bench.results("growth")
    for name, result in results.items():
        row(name, result["median"], result["unit"], result["p99"])
    return results


def report_instructions(bench):
    """Instructions of a battle frame, part by part, from callgrind: the same on every run."""
    counts = {}
    for frames in (20, 220):
        with tempfile.TemporaryDirectory() as scratch:
            out = Path(scratch) / "callgrind"
            subprocess.run(
                ["valgrind", "-q", "--tool=callgrind", f"--callgrind-out-file={out}",
                 bench.options.benchmark, "run", str(frames)],
                cwd=bench.options.root, env=bench.environment, check=True)
            text = subprocess.run(
                ["callgrind_annotate", "--inclusive=yes", "--threshold=100", str(out)],
                stdout=subprocess.PIPE, text=True, check=True).stdout
        for part in PARTS_OF_FRAME:
            found = re.findall(rf"^\s*([\d,]+).*:{re.escape(part)}\(", text, re.MULTILINE)
            count = int(found[0].replace(",", "")) if found else 0
            counts.setdefault(part, []).append(count)
    results = {}
    for part, (few, many) in counts.items():
        results[part] = (many - few) / 200
        row(part, results[part], "instructions a frame")
    return results


def report_pacing(bench):
    """The length of ten thousand frames of a real battle beside the waiting alone; and a battle in
    which frames are held up and events pour in."""
    frames = bench.play("battle", PACED_FRAMES).frames[100:]
    results = bench.results("pacing", str(PACED_FRAMES))
    results["battle"] = describe_periods("a battle", periods_of(frames))
    for name in ("period of the pacing steps alone", "their distance from 16 ms"):
        row(name, results[name]["median"], "ms", results[name]["p99"])
    disturbed = bench.play("battle", DISTURBED_FRAMES, disturb=True)
    periods = periods_of(disturbed.frames)
    after = [periods[i + 1] for i, period in enumerate(periods[:-1]) if period > HELD_UP]
    if not after:
        sys.exit("no frame was late, although every 50th was held up")
    if disturbed.events_waiting == 0:
        sys.exit("no event ever waited, although a hundred were sent to every frame")
    results["disturbed"] = {"late": len(after), "shortest after": min(after),
                            "events waiting": disturbed.events_waiting,
                            "events left": disturbed.events_left}
    row("frames held up for 40 ms", len(after), "")
    row("shortest frame after one of them", min(after), "ms")
    row("events waiting for a frame", disturbed.events_waiting, "at most")
    row("events left over by one", disturbed.events_left, "at most")
    return results


def periods_of(starts):
    return [b - a for a, b in zip(starts, starts[1:])]


def describe_periods(name, periods):
    """Prints and returns how even the frames were."""
    distances = [abs(period - FRAME) for period in periods]
    results = {"frames": len(periods), "median": quantile(periods, 0.5), "mean": mean(periods),
               "p99": quantile(periods, 0.99), "shortest": min(periods), "longest": max(periods),
               "distance p50": quantile(distances, 0.5), "distance p99": quantile(distances, 0.99)}
    row(f"frames of {name}", len(periods), "")
    row(f"period of {name}", results["median"], "ms", results["p99"])
    row("mean", results["mean"], "ms")
    row("shortest", results["shortest"], "ms")
    row("longest", results["longest"], "ms")
    row("distance from 16 ms", results["distance p50"], "ms", results["distance p99"])
    return results


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("part", choices=("frames", "growth", "instructions", "pacing"))
    for name in ("benchmark", "watch", "binary", "root", "json"):
        parser.add_argument(f"--{name}", required=True)
    parser.add_argument("--library", action="append", default=[], help="NAME=PATH")
    options = parser.parse_args()
    reports = {"frames": report_frames, "growth": report_growth,
               "instructions": report_instructions, "pacing": report_pacing}
    store = Path(options.json)
    results = json.loads(store.read_text()) if store.exists() else {}
    cpu = re.search(r"model name\s*: (.*)", Path("/proc/cpuinfo").read_text())
    results["machine"] = f"{cpu[1] if cpu else platform.machine()}, {os.cpu_count()} cores"
    print(f"{results['machine']}; load {os.getloadavg()[0]:.1f}")
    print(f"  {'':58} {'median':>10}{'99 %':>10}")
    for library in options.library or ["default="]:
        name, path = library.split("=", 1)
        print(name)
        results.setdefault(name, {})[options.part] = reports[options.part](
            Bench(options, name, path))
    store.write_text(json.dumps(results, indent=2) + "\n")


if __name__ == "__main__":
    main()
