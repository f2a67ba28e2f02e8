"""What a player makes of the chords: figures in which he plays them, and lines that are written out."""
from collections import namedtuple

from theory import Wrong, bass_step, chord, degree, led, pitch, tones, voicing

Note = namedtuple("Note", "beat beats keys force")
ACCENTS = {"X": 0.95, "x": 0.74, "o": 0.48, ">": 0.84}


class Harmony:
    """Which chord sounds at which beat; behind the end it begins again."""

    def __init__(self, bars, meter):
        self.spans = []
        for number, bar in enumerate(bars):
            names = bar.split("/")
            share = meter / len(names)
            self.spans += [(number * meter + i * share, share, name) for i, name in enumerate(names)]
        self.meter, self.beats = meter, len(bars) * meter

    def index(self, beat):
        beat = (beat + 1e-6) % self.beats
        return max(i for i, (start, _, _) in enumerate(self.spans) if start <= beat)

    def at(self, beat):
        return self.spans[self.index(beat)][2]

    def after(self, beat):
        return self.spans[(self.index(beat) + 1) % len(self.spans)][2]

    def between(self, start, end):
        return [span for span in self.spans if start - 1e-6 <= span[0] < end - 1e-6]


class Task:
    """What one player does in one section: his text, from which beat to which, over which chords."""

    def __init__(self, player, harmony, start, end, memory, random):
        self.player, self.harmony, self.start, self.end = player, harmony, start, end
        self.memory, self.random = memory, random

    @property
    def meter(self):
        return self.harmony.meter

    def bars(self):
        return round((self.end - self.start) / self.meter)


def options(words, **known):
    """The words that are no settings, and the settings, as numbers."""
    for word in words:
        key, sign, value = word.partition("=")
        if sign:
            known[key] = float(value)
    return [word for word in words if "=" not in word], known


def steps(patterns, task):
    """Each letter of patterns that take a bar each and come in turn: (beat, beats, letter)."""
    for bar in range(task.bars()):
        pattern = patterns[bar % len(patterns)]
        width = task.meter / len(pattern)
        for i, letter in enumerate(pattern):
            yield task.start + bar * task.meter + i * width, width, letter


def held(played):
    """Each letter with the beats up to the next that is not "-": what is struck rings so long."""
    played = list(played)
    for i, (beat, width, letter) in enumerate(played):
        if letter in "-.":
            continue
        ring = i + 1
        while ring < len(played) and played[ring][2] == "-":
            ring += 1
        yield beat, (ring - i) * width, letter


def comp(words, task):
    """Chords in a rhythm: X, x, o by strength, ">" brings the next chord early, "-" holds, "." is silent."""
    patterns, settings = options(words, low=task.player.low)
    for beat, ring, letter in held(steps(patterns, task)):
        name = task.harmony.after(beat) if letter == ">" else task.harmony.at(beat)
        task.memory[task.player.name] = led(name, task.memory.get(task.player.name), int(settings["low"]))
        yield Note(beat, ring, tuple(task.memory[task.player.name]), ACCENTS[letter])


GRIPS = {"5": (0, 7), "6": (0, 9), "7": (0, 10)}
FULL_GRIP = (0, 7, 12)


def power(words, task):
    """A rock guitar in a rhythm: root, fifth and octave; 5, 6, 7 are the root with one note above."""
    patterns, settings = options(words, low=task.player.low)
    for beat, ring, letter in held(steps(patterns, task)):
        name = task.harmony.after(beat) if letter == ">" else task.harmony.at(beat)
        low = int(settings["low"])
        root = low + (chord(name)[0] - low) % 12
        yield Note(beat, ring, tuple(root + above for above in GRIPS.get(letter, FULL_GRIP)), ACCENTS.get(letter, 0.74))


def arp(words, task):
    """The notes of each chord one by one: the order numbers them from 0; behind the last an octave higher."""
    (order, *_), settings = options(words, low=task.player.low, step=0.5)
    for start, beats, name in task.harmony.between(task.start, task.end):
        keys = voicing(name, int(settings["low"]))
        begun = round((start - task.start) / settings["step"])
        for i in range(round(beats / settings["step"])):
            letter = order[(begun + i) % len(order)]
            if letter in "-.":
                continue
            octave, place = divmod(int(letter), len(keys))
            yield Note(start + i * settings["step"], settings["step"], (keys[place] + 12 * octave,),
                       0.74 if i % 4 == 0 else 0.6)


def bass(words, task):
    """Degrees in a rhythm: R, 3, 5, 6, 7, 8; N the next root, A a semitone below it; "-" holds, "." is silent."""
    patterns, settings = options(words, low=task.player.low)
    low = int(settings["low"])
    for beat, ring, letter in held(steps(patterns, task)):
        strong = 0.85 if beat % task.meter < 1e-6 else 0.74
        name = task.harmony.after(beat) if letter in "NA" else task.harmony.at(beat)
        root = low + (bass_step(name) - low) % 12
        above = -1 if letter == "A" else 0 if letter == "N" else degree(name, letter)
        yield Note(beat, ring, (root + above,), strong)


def nearest(key, last, low, high):
    choices = [key % 12 + 12 * octave for octave in range(10) if low <= key % 12 + 12 * octave <= high]
    return min(choices, key=lambda choice: (abs(choice - last), choice))


def walk(words, task):
    """A walking bass: the root, notes of the chord, and a neighbour of the next root as the last."""
    _, settings = options(words, low=task.player.low)
    low = int(settings["low"])
    last = task.memory.get(task.player.name, low + 9)
    for start, beats, name in task.harmony.between(task.start, task.end):
        target = bass_step(task.harmony.after(start))
        inner = sorted(tones(name) - {bass_step(name)})
        line = [bass_step(name)]
        while len(line) < beats - 1:
            line.append(inner[int(task.random.integers(len(inner)))])
        if beats > 1:
            line.append(target + int(task.random.choice([-1, 1])))
        for i, key in enumerate(line[:round(beats)]):
            last = nearest(key, last, low, low + 19)
            yield Note(start + i, 1.0, (last,), 0.8 if i % 2 == 0 else 0.7)
    task.memory[task.player.name] = last


def keys_of(names, beat):
    try:
        return tuple(pitch(name) for name in names.split("+"))
    except Wrong as wrong:
        raise Wrong(f"beat {beat + 1:g}: {wrong}") from None


def add_bar(notes, bar, start, meter, beats):
    """NOTE:BEATS …, a chord as C4+E4, "-" a rest, "~" more of the note before; without BEATS as long as that."""
    beat = 0.0
    for word in bar.split():
        names, colon, stated = word.partition(":")
        beats = float(stated) if colon else beats
        if beat > meter - 1e-6:
            raise Wrong(f"beat {beat + 1:g}: {word} is behind the bar's end")
        if names == "~" and notes:
            notes[-1] = notes[-1]._replace(beats=notes[-1].beats + beats)
        elif names != "-":
            notes.append(Note(start + beat, beats, keys_of(names, beat), 0.0))
        beat += beats
    if abs(beat - meter) > 1e-6:
        raise Wrong(f"beat {beat + 1:g}: the bar has {beat:g} beats, not {meter:g}")
    return beats


def sung(beat, meter):
    """How strong a note of a tune is: the bar's first beat most, and four bars swell and sink."""
    place = beat % meter
    metre = 0.08 if place < 1e-6 else 0.04 if abs(place - meter / 2) < 1e-6 else 0.0 if place % 1 < 1e-6 else -0.05
    return 0.72 + metre + 0.06 * (1 - abs((beat / (4 * meter)) % 1 * 2 - 1))


def written(text, task):
    """A line bar by bar; one of fewer bars than its section is repeated."""
    notes, beats, bars = [], 1.0, text.split("|")
    for number, bar in enumerate(bars):
        try:
            beats = add_bar(notes, bar, number * task.meter, task.meter, beats)
        except Wrong as wrong:
            raise Wrong(f"bar {number + 1}, {wrong}") from None
    if task.bars() % len(bars):
        raise Wrong(f"bar {len(bars)}, beat 1: the line has {len(bars)} bars, its section {task.bars()}")
    for again in range(task.bars() // len(bars)):
        later = again * len(bars) * task.meter
        for note in notes:
            yield note._replace(beat=task.start + later + note.beat, force=sung(later + note.beat, task.meter))


def below(key, name):
    """The note of the chord under a tune, at least a third below it."""
    return next(lower for lower in range(key - 3, key - 15, -1) if lower % 12 in tones(name))


def harmonised(notes, task):
    for note in notes:
        yield note._replace(keys=tuple(below(key, task.harmony.at(note.beat)) for key in note.keys), force=note.force - 0.04)


def transposed(notes, semitones):
    return [note._replace(keys=tuple(key + semitones for key in note.keys)) for note in notes]


def in_fifths(notes):
    return [note._replace(keys=tuple(note.keys[0] + above for above in FULL_GRIP)) for note in notes]


FIGURES = {"comp": comp, "power": power, "arp": arp, "bass": bass, "walk": walk}
