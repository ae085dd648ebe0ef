# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The scores are complete and follow the rules of voice leading, and their checker finds faults."""
import subprocess
from dataclasses import replace
from pathlib import Path

import mido
import numpy as np
import pytest

from engine import aims, counterpoint, loopmp3, mix, performance, reading, scorefile
from engine.instruments import ATTACK_VELOCITIES, ORCHESTRA
from engine.notation import ScoreError, parse_notes

MUSIC = Path(__file__).resolve().parents[2] / 'assets' / 'music'
SCORES = sorted(path.stem for path in MUSIC.glob('music*.score'))
SMALL = '''title : Two bars
metre 6 3
key A 0
tempo : 1 126
mixing quality=6
{head}
part violins 0 0
part basses 0 0

section only 2
chords : Am | G
tune violins : {tune}
play basses up -24 : A6 | G6
'''


def small_score(folder, tune, more='', last=''):
    """Two bars over A minor and G; more may hold statements of the head and of the section."""
    path = folder / 'small.score'
    lines = more.splitlines() + [last]
    head = [line for line in lines if line.startswith(('part', 'lilt'))]
    body = [line for line in lines if line not in head]
    path.write_text(SMALL.format(tune=tune, head='\n'.join(head)) + '\n'.join(body) + '\n')
    return scorefile.load(path)


def findings(score, title):
    return [finding.text for finding in counterpoint.CHECKS[title](score)]


@pytest.mark.parametrize('name', SCORES)
def test_score_is_without_fault(name):
    report = subprocess.run([MUSIC / 'check', name], capture_output=True, text=True, check=False)
    assert report.returncode == 0, report.stdout


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


@pytest.mark.parametrize('tune', ['c6- | c3 B3', 'e6 | c3 B3', 'd6 | c2B d3'],
                         ids=['suspension', 'appoggiatura', 'passing tone'])
def test_dissonance_that_moves_on_by_step_is_led(tmp_path, tune):
    score = small_score(tmp_path, tune)
    assert findings(score, 'resolved dissonances')
    assert not findings(score, 'stray dissonances')


@pytest.mark.parametrize('tune', ['c6- | c3 g3', 'e6 | c3 G3', 'e6 | c6'])
def test_dissonance_that_does_not_is_stray(tmp_path, tune):
    found = findings(small_score(tmp_path, tune), 'stray dissonances')
    assert found and all('not resolved' in text or 'nor resolved' in text for text in found)


def test_semitone_of_two_strays_is_a_clash(tmp_path):
    assert findings(small_score(tmp_path, 'e6 | [cB]6'), 'semitone on a pulse')


def test_slurred_notes_overlap_and_others_do_not():
    notes, _ = parse_notes('(abc) d3', 0, 6)
    assert [(n.joins, n.joined) for n in notes] == [
        (True, False), (True, True), (False, True), (False, False)]


def test_lilt_moves_quavers_within_the_pulse_only(tmp_path):
    straight = small_score(tmp_path, 'c6 | d6')
    lilting = small_score(tmp_path, 'c6 | d6', 'lilt 0 .06 .02')
    even, uneven = performance.Clock(straight), performance.Clock(lilting)
    pulse = even(3) - even(0)
    late = [(uneven(q) - even(q)) / pulse for q in range(7)]
    assert late == pytest.approx([0, .06, .02, 0, .06, .02, 0], abs=.01)


def test_no_stroke_is_as_hard_as_midi_allows(tmp_path):
    score = small_score(tmp_path, 'c>c>c> c>c>c> | d6', 'dyn all : 1 fff')
    clock = performance.Clock(score)
    part = score.parts['violins']
    performance.write_midi(score, part, clock, tmp_path / 'part.mid')
    hits = [m.velocity for m in mido.MidiFile(tmp_path / 'part.mid') if m.type == 'note_on']
    assert 100 < max(hits) <= performance.HARDEST < 127


def test_beginning_of_the_file_cuts_off_no_early_note(tmp_path):
    score = small_score(tmp_path, 'c6 | d6')
    clock, file = performance.Clock(score), tmp_path / 'part.mid'
    performance.write_midi(score, score.parts['basses'], clock, file)
    now, begins = -performance.LEAD_SECONDS, []
    for message in mido.MidiFile(file):
        now += message.time
        if message.type == 'note_on':
            begins.append(now)
    first, second = begins
    assert -first < min(loopmp3.EARLY) * loopmp3.FRAME / loopmp3.RATE < clock(6) - second


def test_every_pitched_key_has_an_attack_of_its_own():
    for name, instrument in ORCHESTRA.items():
        keys = instrument.high - instrument.low + 1
        rows = [keys] * len(ATTACK_VELOCITIES) if instrument.pitched else []
        assert [len(row) for row in instrument.attacks] == rows, name


def test_soft_notes_are_struck_earlier_where_they_speak_more_slowly():
    violins = ORCHESTRA['slow violins']
    keys = range(violins.low, violins.high + 1)
    assert sum(violins.lead(key, 50) > violins.lead(key, 110) + 20 for key in keys) > len(keys) / 2
    assert all(violins.lead(key, 20) == violins.lead(key, 50) for key in keys)


def test_keys_that_speak_slowly_are_struck_earlier(tmp_path):
    violins = ORCHESTRA['violins']
    keys = range(violins.low, violins.high + 1)
    leads = {key: violins.lead(key, 80) for key in keys}
    slow, fast = max(keys, key=leads.get), min(keys, key=leads.get)
    score = small_score(tmp_path, 'z3 c3 | d3 c3')
    part, clock, file = score.parts['violins'], performance.Clock(score), tmp_path / 'part.mid'
    first, *_, last = part.notes
    part.notes[:] = [replace(first, key=slow), replace(last, key=fast)]
    performance.write_midi(score, part, clock, file)
    now, ahead = -performance.LEAD_SECONDS, {}
    for message in mido.MidiFile(file):
        now += message.time
        if message.type == 'note_on':
            ahead[message.note] = clock(3 if message.note == slow else 9) - now
    expected = (leads[slow] - leads[fast]) / 1000
    assert ahead[slow] - ahead[fast] == pytest.approx(expected, abs=.04)
    assert expected > .04


def test_only_long_notes_of_single_lines_tremble(tmp_path):
    def bends(tune):
        score = small_score(tmp_path, tune, 'part oboe 0 0\nplay oboe : ' + tune)
        file = tmp_path / 'part.mid'
        performance.write_midi(score, score.parts['oboe'], performance.Clock(score), file)
        return [m.pitch for m in mido.MidiFile(file) if m.type == 'pitchwheel']
    assert max(bends('c6 | d6'), default=0) > 200
    assert not bends('[ce]6 | d6')


def test_rolls_have_a_weaker_hand(tmp_path):
    score = small_score(tmp_path, 'c6 | d6', 'part snare 0 0', 'roll snare : o')
    strokes = [note.push for note in score.parts['snare'].notes]
    assert np.mean(strokes[::2]) - np.mean(strokes[1::2]) > 3
    gaps = np.diff([note.start for note in score.parts['snare'].notes])
    assert gaps.std() > .02 * gaps.mean()


def test_syncopation_is_a_note_held_over_a_stronger_place(tmp_path):
    assert reading.syncopated(small_score(tmp_path, 'c3 d3 | e6')) == 0
    assert reading.syncopated(small_score(tmp_path, 'c2d2e2 | f6')) == 25
    assert reading.syncopated(small_score(tmp_path, 'c3 d3- | d3 e3')) == pytest.approx(100 / 3)


def test_ranges_bind_every_statistic_of_every_piece():
    wanted = [aims.ranges(MUSIC / 'ranges.txt', name) for name in SCORES]
    assert all(span.low <= span.high for spans in wanted for span in spans.values())
    assert wanted[0]['spectral centroid, Hz'].high != wanted[1]['spectral centroid, Hz'].high
    assert wanted[0]['syncopated, %'].binding and not wanted[0]['roughness'].binding


@pytest.mark.parametrize('name', SCORES)
def test_score_keeps_to_the_ranges_of_rhythm_and_breath(name):
    score = scorefile.load(MUSIC / f'{name}.score')
    values = aims.of_score(score, mix.loop_clock(score))
    wanted = aims.ranges(MUSIC / 'ranges.txt', name)
    assert not [what for what, value in values.items()
                if wanted[what].binding and not wanted[what].holds(value)]


@pytest.mark.parametrize('tune', ['c5 | d6', 'c6 c | d6'])
def test_bar_that_is_not_full_is_refused(tmp_path, tune):
    with pytest.raises(ScoreError):
        small_score(tmp_path, tune)
