# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The scores are complete and well led, and what checks them finds faults."""
import subprocess
from pathlib import Path

import pytest

from engine import counterpoint, scorefile
from engine.notation import ScoreError

MUSIC = Path(__file__).resolve().parents[2] / 'assets' / 'music'
SCORES = sorted(path.stem for path in MUSIC.glob('music*.score'))
# Held over from the bar before, and touched in passing: both sound as they should.
MEANT = {'music1': ['F/G: D (horns)'], 'music2': [], 'music3': ['Am: G (whistle)']}
SMALL = '''title : Two bars
metre 6 3
key A 0
tempo : 1 126
mixing quality=6
part violins 0 0
part basses 0 0

section only 2
chords : Am | G
tune violins : {tune}
play basses up -24 : A6 | G6
'''


def small_score(folder, tune):
    path = folder / 'small.score'
    path.write_text(SMALL.format(tune=tune))
    return scorefile.load(path)


def findings(score, title):
    return [finding.text for finding in counterpoint.CHECKS[title](score)]


@pytest.mark.parametrize('name', SCORES)
def test_score_is_without_fault(name):
    report = subprocess.run([MUSIC / 'check', name], capture_output=True, text=True, check=False)
    assert report.returncode == 0, report.stdout


@pytest.mark.parametrize('name', SCORES)
def test_no_tone_is_foreign_to_its_chord_but_those_meant(name):
    score = scorefile.load(MUSIC / f'{name}.score')
    assert findings(score, 'foreign on a strong beat') == MEANT[name]


@pytest.mark.parametrize('title', ['tune and counter-melody', 'accompaniment',
                                   'semitone on a pulse'])
@pytest.mark.parametrize('name', SCORES)
def test_inner_voices_are_well_led(name, title):
    assert not findings(scorefile.load(MUSIC / f'{name}.score'), title)


def test_contrary_motion_is_no_fault(tmp_path):
    assert not findings(small_score(tmp_path, 'c6 | d6'), 'outer voices by pulse')


def test_parallel_fifths_are_found(tmp_path):
    found = findings(small_score(tmp_path, 'e6 | d6'), 'outer voices by pulse')
    assert len(found) == 1 and 'parallel fifths' in found[0]


def test_parallel_octaves_are_found(tmp_path):
    found = findings(small_score(tmp_path, 'a6 | g6'), 'outer voices by note')
    assert len(found) == 1 and 'parallel octaves' in found[0]


def test_note_out_of_range_is_found(tmp_path):
    assert findings(small_score(tmp_path, 'c6 | D,6'), 'range') == ['violins plays 50']


def test_note_struck_twice_is_found(tmp_path):
    score = small_score(tmp_path, 'c6 | d6')
    assert not findings(score, 'twice at once')
    violins = score.parts['violins']
    violins.notes.append(violins.notes[0])
    assert findings(score, 'twice at once') == ['violins plays 72']


def test_foreign_tone_is_found(tmp_path):
    found = findings(small_score(tmp_path, 'c6 | c6'), 'foreign on a strong beat')
    assert found and all('C (violins)' in text for text in found)


@pytest.mark.parametrize('tune', ['c5 | d6', 'c6 c | d6'])
def test_bar_that_is_not_full_is_refused(tmp_path, tune):
    with pytest.raises(ScoreError):
        small_score(tmp_path, tune)
