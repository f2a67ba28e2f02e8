"""Pitches and chords by name, and how chords follow each other on an instrument."""
import re

STEPS = {"C": 0, "D": 2, "E": 4, "F": 5, "G": 7, "A": 9, "B": 11}
SIGNS = {"": 0, "#": 1, "b": -1}
QUALITIES = {
    "": (0, 4, 7), "m": (0, 3, 7), "5": (0, 7), "6": (0, 4, 7, 9), "m6": (0, 3, 7, 9), "sus": (0, 5, 7),
    "7": (0, 4, 7, 10), "maj7": (0, 4, 7, 11), "m7": (0, 3, 7, 10), "m7b5": (0, 3, 6, 10), "dim": (0, 3, 6, 9),
    "aug": (0, 4, 8), "9": (4, 7, 10, 14), "m9": (3, 7, 10, 14), "maj9": (4, 7, 11, 14), "13": (4, 10, 14, 21),
    "7b9": (4, 7, 10, 13), "add9": (0, 2, 4, 7), "7sus": (0, 5, 7, 10), "69": (4, 7, 9, 14), "mmaj7": (0, 3, 7, 11),
}


class Wrong(Exception):
    """A fault in a score; says where."""


def step(name):
    letter, sign = re.fullmatch(r"([A-G])([#b]?)", name).groups()
    return (STEPS[letter] + SIGNS[sign]) % 12


def pitch(name):
    """C4 is 60."""
    match = re.fullmatch(r"([A-G])([#b]?)(-?\d)", name)
    if not match:
        raise Wrong(f"'{name}' is no note")
    letter, sign, octave = match.groups()
    return 12 * (int(octave) + 1) + STEPS[letter] + SIGNS[sign]


def chord(name):
    """The step of the root and the intervals above it; "C^E" is C over E."""
    match = re.fullmatch(r"([A-G][#b]?)([^^]*)(\^[A-G][#b]?)?", name)
    if not match or match[2] not in QUALITIES:
        raise Wrong(f"'{name}' is no chord")
    return step(match[1]), QUALITIES[match[2]]


def bass_step(name):
    """What the bass calls the root."""
    return step(name.partition("^")[2]) if "^" in name else chord(name)[0]


def tones(name):
    """All steps that belong to a chord, those of its bass included."""
    root, intervals = chord(name)
    fifth = () if {6, 8} & set(intervals) else (7,)
    return {(root + interval) % 12 for interval in (0, *intervals, *fifth)} | {bass_step(name)}


def voicing(name, low):
    """The chord's notes in the octave that begins at `low`."""
    root, intervals = chord(name)
    return sorted({low + (root + interval - low) % 12 for interval in intervals})


def led(name, before, low):
    """The voicing nearest to the one before, so that each voice moves as little as it can."""
    choices = [voicing(name, bottom) for bottom in range(low - 4, low + 6)]
    if not before:
        return voicing(name, low)

    def way(keys):
        return sum(min(abs(key - other) for other in before) for key in keys) + 0.1 * abs(keys[0] - low)
    return min(choices, key=way)


def degree(name, letter):
    """Semitones above the bass note: R root, 3, 5, 7, 8 octave, 6 sixth."""
    intervals = {interval % 12 for interval in chord(name)[1]}
    third = 3 if 3 in intervals else 5 if 5 in intervals and 4 not in intervals else 4
    fifth = 6 if 6 in intervals and 7 not in intervals else 8 if 8 in intervals else 7
    seventh = 11 if 11 in intervals else 9 if 9 in intervals else 10
    above = {"R": 0, "8": 12, "3": third, "5": fifth, "6": 9, "7": seventh}[letter]
    return above if letter in "R8" else (chord(name)[0] + above - bass_step(name)) % 12
