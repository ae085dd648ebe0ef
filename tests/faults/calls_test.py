# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Every call of a library fails once, from the start to the end of a run.

A run without any failure is recorded first; it starts, draws two frames and ends. Then the game is
run once for each of its calls, with that one failing. The expected result is worked out here from
the rules of starting and ending, not taken from what the game does.
"""

import subprocess
from concurrent.futures import ThreadPoolExecutor

import pytest

import gamerun
import smalldata

SCRIPT = "frames=1 quit"
REASON = "out of luck"
GAVE_UP = "FATAL ERROR: Data loading failed\n"
MAKERS = {"SDL_SetVideoMode", "IMG_Load", "SDL_DisplayFormatAlpha", "SDL_CreateRGBSurface",
          "TTF_OpenFont", "TTF_RenderText_Blended", "Mix_LoadMUS"}
DRAWING = {"SDL_FillRect", "SDL_MapRGB", "SDL_SetAlpha", "SDL_UpperBlit", "SDL_Flip"}
RELEASES = {"SDL_FreeSurface", "TTF_CloseFont", "Mix_FreeMusic"}

# Failures that end the program: the message and whether it comes from a loader of files.
FATAL = {
    "SDL_Init": "FATAL ERROR: Could not initialize SDL",
    "SDL_SetVideoMode": "FATAL ERROR: Could not initialize graphics",
    "TTF_Init": "FATAL ERROR: Could not initialize TTF",
    "IMG_Load": "ERROR: Couldn't load {path}",
    "SDL_DisplayFormatAlpha": "ERROR: Couldn't convert {path}",
    "TTF_OpenFont": "ERROR: Couldn't load {path}",
    "Mix_LoadMUS": "ERROR: Can't load {name}",
}
NO_MIXER = "ERROR: Could not initialize mixer, will start w/o sound\n" + REASON + "\n"


def path_in(call):
    """The file that a call is about."""
    return call.arguments.split(" ")[0].rpartition(":")[2]


def expected_messages(call):
    if call.function == "Mix_OpenAudio":
        return NO_MIXER
    if call.function not in FATAL:
        return ""
    path = path_in(call)
    text = FATAL[call.function].format(path=path, name=path.rpartition("/")[2])
    return f"{text}\n{REASON}\n" + ("" if text.startswith("FATAL") else GAVE_UP)


def made_by(calls):
    """The names of what the calls made and did not give back yet, in order."""
    alive = []
    for call in calls:
        if call.function in MAKERS and call.result != "null":
            alive.append(call.result)
        elif call.function in RELEASES and call.arguments in alive:
            alive.remove(call.arguments)
    return [name for name in alive if name != "display"]


def succeeded(calls, function):
    return any(call.function == function and not call.failed for call in calls)


def expected_releases(calls):
    """What shutting down has to call after these calls, in order."""
    alive = made_by(calls)
    steps = [f"SDL_FreeSurface {name}" for name in sorted(alive) if name.startswith("image:")]
    if succeeded(calls, "Mix_OpenAudio"):
        steps.append("Mix_CloseAudio")
        steps += [f"Mix_FreeMusic {name}" for name in alive if name.startswith("music:")]
    if succeeded(calls, "TTF_Init"):
        steps += [f"TTF_CloseFont {name}" for name in alive if name.startswith("font:")]
        steps.append("TTF_Quit")
    if succeeded(calls, "SDL_Init"):
        steps.append("SDL_Quit")
    return steps


def expected_calls(good, number):
    """All calls of a run in which that one fails, as text."""
    before, failing, after = good[:number], good[number], good[number + 1:]
    texts = [str(call) for call in good[:number + 1]]
    if failing.function in FATAL:
        loaded = path_in(failing)
        converted = [f"SDL_FreeSurface file:{loaded}"]
        texts += converted if failing.function == "SDL_DisplayFormatAlpha" else []
        alive = [call for call in before if call.result != f"file:{loaded}"]
        return texts + ["SDL_GetError"] + expected_releases(alive)
    if failing.function == "Mix_OpenAudio":
        rest = [str(call) for call in after if not call.function.startswith("Mix_")]
        return texts + ["SDL_GetError"] + rest
    if failing.function == "SDL_CreateRGBSurface":
        # The intro has nothing to draw on, nor anything to give back.
        rest = [str(call) for call in after if call.function not in DRAWING]
        return texts + [text for text in rest if text != f"SDL_FreeSurface {failing.result}"]
    return texts + [str(call) for call in after]


def faults_of(outcome, good, number):
    """Everything that is wrong with the run in which that call failed."""
    call = good[number]
    faults = []
    status = 1 if call.function in FATAL else 0
    if outcome.status != status:
        faults.append(f"status {outcome.status} instead of {status}")
    if outcome.messages != expected_messages(call):
        faults.append(f"messages {outcome.messages!r}")
    if [each.failed for each in outcome.calls].count(True) != 1:
        faults.append("not one failure")
    faults += faults_of_releases(outcome.calls)
    calls = [str(each) for each in outcome.calls]
    wanted = expected_calls(good, number)
    if calls != wanted:
        place = next((i for i, (a, b) in enumerate(zip(calls, wanted)) if a != b),
                     min(len(calls), len(wanted)))
        faults.append(f"calls go on as {calls[place:place + 5]}, not {wanted[place:place + 5]}")
    return faults


def faults_of_releases(calls):
    faults = [f"gives back what is not its own: {call}" for call in calls
              if call.function in RELEASES and call.arguments in ("null", "unknown")]
    if not faults:
        faults += [f"keeps {name}" for name in made_by(calls)]
    return faults


@pytest.fixture(scope="module", name="good")
def run_without_failures(game, root):
    outcome = game.play(root, SCRIPT)
    assert (outcome.status, outcome.messages) == (0, "")
    return outcome.calls


def test_no_call_of_a_library_goes_unwatched(game):
    def symbols(file, kind):
        lines = subprocess.run(["nm", "-D", kind, file], check=True, capture_output=True,
                               encoding="utf-8").stdout.splitlines()
        names = {line.split()[-1] for line in lines}
        return {name for name in names if name.startswith(("SDL_", "IMG_", "TTF_", "Mix_"))}

    # This one only returns the address of a constant, so it cannot fail.
    called = symbols(game.binary, "--undefined-only") - {"SDL_Linked_Version"}
    assert called
    assert called <= symbols(game.watch, "--defined-only")


def test_a_run_is_the_same_every_time(game, root, good):
    assert game.play(root, SCRIPT).calls == good


def test_a_good_run_gives_everything_back_in_order(good):
    picture = [str(call) for call in good].index("SDL_FreeSurface surface:800x600")
    before, after = good[:picture + 1], good[picture + 1:]
    kept = len((*smalldata.PICTURES, smalldata.FONT, *smalldata.TRACKS))
    assert len(made_by(before)) == kept
    assert [str(call) for call in after] == expected_releases(before)
    assert faults_of_releases(good) == []


def test_every_call_fails_once(game, root, good, report):
    def run(number):
        return faults_of(game.play(root, SCRIPT, MORVANE_FAIL_AT=number + 1), good, number)

    numbers = range(len(good))
    with ThreadPoolExecutor(gamerun.AT_ONCE) as pool:
        results = dict(zip(numbers, pool.map(run, numbers)))
    failed = {f"{number + 1} {good[number]}": faults
              for number, faults in results.items() if faults}
    fatal = sum(good[number].function in FATAL for number in numbers)
    report("calls.functions", len({good[number].function for number in numbers}))
    report("calls.failed", len(results))
    report("calls.fatal", fatal)
    report("calls.played_on", len(results) - fatal)
    report("calls.wrong", len(failed))
    assert len(results) > 100
    assert failed == {}


def test_without_its_picture_the_intro_plays_on(game, root, good):
    number = [call.function for call in good].index("SDL_CreateRGBSurface")
    outcome = game.play(root, SCRIPT, MORVANE_FAIL_AT=number + 1)
    assert (outcome.status, outcome.messages) == (0, "")
    assert faults_of_releases(outcome.calls) == []
