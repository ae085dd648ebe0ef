# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Reads a score file into statements: a keyword, words before the colon, text after it.

A line that starts with a blank continues the one before it; # begins a comment after a
blank or at the start of a line; @name stands for the text of `line name : ...`.
"""
import re

from .notation import ScoreError


def logical_lines(text):
    """(line number, line) with comments gone and continuations joined."""
    joined = []
    for number, raw in enumerate(text.splitlines(), 1):
        line = re.sub(r'(^|\s)#(\s.*)?$', '', raw).rstrip()
        if line and line[0] in ' \t' and joined:
            joined[-1][1] += ' ' + line.strip()
        elif line:
            joined.append([number, line])
    return joined


def _expand(text, names, number):
    def value(match):
        if match.group(1) not in names:
            raise ScoreError(f'line {number}: no line named {match.group(1)!r}')
        return names[match.group(1)] * int(match.group(2) or 1)
    return re.sub(r'@(\w+)(?:\*(\d+))?', value, text)


def statements(text):
    """(line number, keyword, words, text after the colon) of every statement."""
    names, result = {}, []
    for number, line in logical_lines(text):
        head, _, tail = line.partition(':')
        keyword, *words = head.split()
        tail = _expand(tail.strip(), names, number)
        if keyword == 'line':
            names[words[0]] = tail.rstrip('| ') + ' | '
        else:
            result.append((number, keyword, words, tail))
    return result
