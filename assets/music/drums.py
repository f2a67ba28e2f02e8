"""Drum bars: the rows of a groove, its fills, and who plays what by which key."""
from figures import ACCENTS, Note
from theory import Wrong

KEYS = {
    "kick": 36, "kick2": 35, "snare": 38, "snare2": 40, "rim": 37, "clap": 39, "hat": 42, "pedal": 44, "open": 46,
    "tom1": 50, "tom2": 48, "tom3": 47, "tom4": 45, "floor": 43, "crash": 49, "crash2": 57, "splash": 55, "ride": 51,
    "bell": 53, "tamb": 54, "cowbell": 56, "bongo": 60, "bongo2": 61, "slap": 62, "conga": 63, "tumba": 64,
    "timbale": 65, "timbale2": 66, "agogo": 67, "agogo2": 68, "cabasa": 69, "maracas": 70, "guiro": 73, "clave": 75,
    "block": 76, "block2": 77, "triangle": 81, "shaker": 82, "castanet": 85, "bassdrum": 41, "cymbals": 59,
}


class Groove:
    """Rows of bars that come in turn, bars that fill before a section ends, and what greets a section."""

    def __init__(self):
        self.rows, self.fills, self.starts = [], [], []

    def add(self, words):
        if words[0] == "fill":
            self.fills.append([])
        elif words[0] == "start":
            self.starts.append(row(words[1:]))
        else:
            (self.fills[-1] if self.fills else self.rows).append(row(words))


def row(words):
    """NAME[*strength] PATTERN…: a bar each."""
    name, _, strength = words[0].partition("*")
    if name not in KEYS:
        raise Wrong(f"'{name}' is no drum")
    return KEYS[name], float(strength or 1), [pattern for pattern in words[1:] if pattern != "|"]


def bar_of(rows, number, start, meter):
    for key, strength, patterns in rows:
        pattern = patterns[number % len(patterns)]
        width = meter / len(pattern)
        for i, letter in enumerate(pattern):
            if letter in ACCENTS:
                yield Note(start + i * width, min(width, 0.5), (key,), ACCENTS[letter] * strength)


def beaten(groove, task, fill):
    """A section in a groove; its last bar is the fill of that number."""
    bars = task.bars()
    for bar in range(bars):
        start = task.start + bar * task.meter
        filled = bar == bars - 1 and groove.fills
        rows = groove.fills[fill % len(groove.fills)] if filled else groove.rows
        yield from bar_of(rows, bar, start, task.meter)
        if bar == 0:
            yield from bar_of(groove.starts, 0, start, task.meter)


def beaten_rows(text, task):
    """Rows that stand in the section itself, parted by ";"."""
    groove = Groove()
    for words in text.split(";"):
        groove.add(words.split())
    yield from beaten(groove, task, 0)


def different_bars(notes, meter):
    """How many of the bars are unlike all before."""
    bars = {}
    for note in notes:
        bars.setdefault(int((note.beat + 1e-6) // meter), set()).add((round(note.beat % meter, 3), note.keys,
                                                                       round(note.force, 1)))
    return len({frozenset(bar) for bar in bars.values()})
