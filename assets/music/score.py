"""Notes on a time line, and the time line as sound."""
import re

import numpy as np

from loudness import integrated, limited
from synth import RATE, in_room, samples

LOUDNESS = -18.0
CEILING = 0.79  # 2 dB below full scale: what decoding adds stays below it
STEPS = {"C": 0, "D": 2, "E": 4, "F": 5, "G": 7, "A": 9, "B": 11}
QUALITIES = {
    "": (0, 4, 7), "m": (0, 3, 7), "5": (0, 7), "6": (0, 4, 7, 9), "m6": (0, 3, 7, 9), "sus": (0, 5, 7),
    "7": (0, 4, 7, 10), "maj7": (0, 4, 7, 11), "m7": (0, 3, 7, 10), "m7b5": (0, 3, 6, 10), "dim": (0, 3, 6, 9),
    "aug": (0, 4, 8), "9": (4, 7, 10, 14), "m9": (3, 7, 10, 14), "maj9": (4, 7, 11, 14), "13": (4, 10, 14, 21),
    "7b9": (4, 7, 10, 13), "add9": (0, 2, 4, 7),
}
ACCENTS = {"X": 1.0, "x": 0.72, "o": 0.42}


def pitch(name):
    """C4 is 60."""
    letter, sign, octave = re.fullmatch(r"([A-G])([#b]?)(-?\d)", name).groups()
    return 12 * (int(octave) + 1) + STEPS[letter] + {"": 0, "#": 1, "b": -1}[sign]


def chord(name):
    """The root's step and the intervals above it."""
    letter, sign, quality = re.fullmatch(r"([A-G])([#b]?)(.*)", name).groups()
    return (STEPS[letter] + {"": 0, "#": 1, "b": -1}[sign]) % 12, QUALITIES[quality]


def voicing(name, low):
    """The chord's notes in the octave that begins at `low`."""
    root, intervals = chord(name)
    return sorted(low + (root + interval - low) % 12 for interval in intervals)


def changes(text, beats=4.0):
    """Chords of one bar each; with "/" between, they share the bar: (name, beats)."""
    for bar in text.split():
        names = bar.split("/")
        for name in names:
            yield name, beats / len(names)


class Piece:
    """A piece of so many beats. A loop goes back to its beginning: what still sounds then, sounds there."""

    def __init__(self, bpm, beats, loop=True, swing=0.5, room=(1.2, 5000, 0.18), tail=1.0, seed=1):
        self.bpm, self.beats, self.loop, self.swing, self.room = bpm, beats, loop, swing, room
        self.count = samples(beats * 60 / bpm)
        self.size = self.count + (samples(4.0) if loop else samples(tail))
        self.dry = np.zeros((2, self.size))
        self.wet = np.zeros((2, self.size))
        self.random = np.random.default_rng(seed)
        self.cache = {}

    def place(self, beat):
        """The sample of a beat; the second half of each beat comes late in swing."""
        whole, part = divmod(beat, 1.0)
        part = part * 2 * self.swing if part < 0.5 else self.swing + (part - 0.5) * 2 * (1 - self.swing)
        return samples((whole + part) * 60 / self.bpm) if whole + part > 0 else 0

    def add(self, sound, beat, gain, pan, echo):
        start = max(self.place(beat) + int(self.random.normal(0, 60)), 0) if beat > 0 else 0
        end = min(start + len(sound), self.size)
        if end <= start:
            return
        angle = (pan + 1) * np.pi / 4
        for side, level in ((0, np.cos(angle)), (1, np.sin(angle))):
            part = sound[:end - start] * (gain * level)
            self.dry[side, start:end] += part
            self.wet[side, start:end] += part * echo

    def sound(self, instrument, pitches, duration):
        key = (instrument, tuple(pitches), round(duration, 4))
        if key not in self.cache:
            self.cache[key] = instrument(pitches, duration)
        return self.cache[key]

    def note(self, instrument, pitches, beat, beats, gain=1.0, pan=0.0, echo=1.0):
        duration = (self.place(beat + beats) - self.place(beat)) / RATE
        accent = 1 + self.random.normal(0, 0.06)
        self.add(self.sound(instrument, pitches, duration), beat, gain * accent, pan, echo)

    def line(self, instrument, text, start=0.0, gain=1.0, pan=0.0, echo=1.0, shift=0, length=1.0):
        """NOTE:BEATS …, a chord as C4+E4, a rest as "-"; without BEATS a note is as long as the one before."""
        beat, beats = start, 1.0
        for word in text.replace("|", " ").split():
            names, colon, stated = word.partition(":")
            beats = float(stated) if colon else beats
            if names != "-":
                pitches = [pitch(name) + shift for name in names.split("+")]
                self.note(instrument, pitches, beat, beats * length, gain, pan, echo)
            beat += beats
        return beat

    def comp(self, instrument, text, rhythm, low=55, beats=4.0, gain=1.0, pan=0.0, echo=1.0, start=0.0, hold=None):
        """Chords in a rhythm of one bar: a letter for each step of it. Each rings to the next, or so many beats."""
        step = beats / len(rhythm)
        bar_at = start
        for bar in text.split():
            names = bar.split("/")
            hits = [i for i, letter in enumerate(rhythm) if letter in ACCENTS]
            for i, following in zip(hits, hits[1:] + [len(rhythm)]):
                name = names[min(i * len(names) // len(rhythm), len(names) - 1)]
                ring = hold if hold else (following - i) * step
                self.note(instrument, voicing(name, low), bar_at + i * step, ring, gain * ACCENTS[rhythm[i]], pan,
                          echo)
            bar_at += beats

    def arpeggio(self, instrument, text, order, step, low=55, beats=4.0, gain=1.0, pan=0.0, echo=1.0, start=0.0,
                 length=1.0):
        """The notes of each chord one by one: `order` numbers them from 0, above the last an octave higher."""
        beat = start
        for name, duration in changes(text, beats):
            notes = voicing(name, low)
            for i in range(int(round(duration / step))):
                if order[i % len(order)] != "-":
                    octave, place = divmod(int(order[i % len(order)]), len(notes))
                    self.note(instrument, [notes[place] + 12 * octave], beat + i * step, step * length, gain, pan,
                              echo)
            beat += duration

    def bass(self, instrument, text, pattern, low=28, beats=4.0, gain=1.0, start=0.0, length=1.0, pan=0.0):
        """A bass figure for each bar: steps of R (root), 3, 5, 7, 8 (octave), N (the next root), A (a semitone below it)."""
        step = beats / len(pattern)
        chords = list(changes(text, beats))
        beat = start
        at = []
        for name, duration in chords:
            at += [(name, beat + i * step) for i in range(int(round(duration / step)))]
            beat += duration
        for i, (name, when) in enumerate(at):
            letter = pattern[i % len(pattern)]
            if letter in ".-":
                continue
            ring = 1
            while i + ring < len(at) and pattern[(i + ring) % len(pattern)] == "-":
                ring += 1
            following = at[(i + 1) % len(at)][0]
            self.note(instrument, [self.bass_note(name, letter, following, low)], when, ring * step * length, gain, pan,
                      0.3)

    @staticmethod
    def bass_note(name, letter, following, low):
        root, intervals = chord(name)
        third = 3 if 3 in intervals else 5 if 5 in intervals else 4
        fifth = 6 if 6 in intervals and 7 not in intervals else 8 if 8 in intervals else 7
        seventh = 11 if 11 in intervals else 9 if 9 in intervals else 10
        base = low + (root - low) % 12
        if letter in "NA":
            return low + (chord(following)[0] - low) % 12 - (letter == "A")
        return base + {"R": 0, "3": third, "5": fifth, "7": seventh, "8": 12}[letter]

    def walk(self, instrument, text, low=31, gain=1.0, beats=4.0):
        """A walking bass: root first, a neighbour of the next root last, chord notes between."""
        chords = list(changes(text, beats))
        beat = 0.0
        last = low + 7
        for i, (name, duration) in enumerate(chords):
            root, intervals = chord(name)
            following = chord(chords[(i + 1) % len(chords)][0])[0]
            steps = int(duration)
            inner = [root + interval for interval in intervals[1:]]
            walk = [root] + [inner[int(self.random.integers(len(inner)))] for _ in range(steps - 2)]
            if steps > 1:
                walk.append(following + int(self.random.choice([-1, 1])))
            for step in walk:
                near = [low + (step - low) % 12 + octave for octave in (0, 12)]
                last = min(near, key=lambda key: abs(key - last) + (30 if key > low + 19 else 0))
                self.note(instrument, [last], beat, 1.0, gain, 0.0, 0.3)
                beat += 1.0

    def drum(self, instrument, pattern, beats=4.0, gain=1.0, pan=0.0, echo=0.5, start=0.0, end=None):
        """A rhythm, again and again up to the end: X strong, x, o soft; each letter a step of `beats`."""
        step = beats / len(pattern)
        beat = start
        while beat < (self.beats if end is None else end) - 1e-6:
            for i, letter in enumerate(pattern):
                if letter in ACCENTS:
                    self.note(instrument, (), beat + i * step, 1.0, gain * ACCENTS[letter], pan, echo)
            beat += beats

    def mixed(self):
        length, brightness, amount = self.room
        stereo = self.dry + in_room(self.wet, length, brightness) * amount
        if self.loop:
            stereo[:, :self.size - self.count] += stereo[:, self.count:]
            return stereo[:, :self.count]
        fade = min(samples(0.35), self.size)
        stereo[:, -fade:] *= np.cos(np.linspace(0, np.pi / 2, fade)) ** 2
        return stereo

    def rendered(self):
        """Left and right, as loud as all others and within the ceiling."""
        stereo = self.mixed()
        stereo = stereo - np.mean(stereo, axis=1, keepdims=True)
        for _ in range(4):
            stereo = stereo * 10 ** ((LOUDNESS - integrated(stereo, RATE)) / 20)
            stereo = limited(stereo, RATE, CEILING, self.loop)
        return stereo
