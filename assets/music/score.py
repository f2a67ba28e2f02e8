"""A genre's score as its text file tells it: players, grooves, and pieces of sections."""
import pathlib
import zlib

import numpy as np

from drums import Groove, beaten, beaten_rows
from figures import FIGURES, Harmony, Task, harmonised, in_fifths, options, transposed, written
from theory import Wrong, tones


class Player:
    """One instrument of the band: PROGRAM or BANK:PROGRAM of the sound font, or the name of a machine."""

    def __init__(self, name, instrument, *words):
        self.name, self.instrument = name, instrument
        flags, known = options(words, level=0.0, pan=0.0, room=1.0, len=0.95, low=55, strum=0.0)
        self.level, self.pan, self.room, self.length = known["level"], known["pan"], known["room"], known["len"]
        self.low, self.strum = int(known["low"]), known["strum"]
        self.leads, self.is_bass, self.is_drums = "lead" in flags, "bass" in flags, "drums" in flags


class Section:
    def __init__(self, name, like=None):
        self.name = name
        self.chords = list(like.chords) if like else []
        self.parts = dict(like.parts) if like else {}
        self.loud = like.loud if like else 1.0


class Piece:
    """Notes by player, in beats. `ends` are the beats at which its sections end."""

    def __init__(self, genre, name, words):
        flags, known = options(words, bpm=120, beats=4, swing=genre.swing, tail=1.0)
        self.genre, self.name = genre, name
        self.bpm, self.meter, self.swing, self.tail = known["bpm"], known["beats"], known["swing"], known["tail"]
        self.loops = "once" not in flags
        self.sections, self.form, self.notes, self.ends = {}, [], {}, []
        self.random = np.random.default_rng(zlib.crc32(f"{genre.name} {name}".encode()))

    def section(self):
        return list(self.sections.values())[-1] if self.sections else self.sections.setdefault("A", Section("A"))

    def seconds(self, beat):
        """The second half of each beat comes late in swing."""
        whole, part = divmod(beat, 1.0)
        part = part * 2 * self.swing if part < 0.5 else self.swing + (part - 0.5) * 2 * (1 - self.swing)
        return (whole + part) * 60 / self.bpm

    def assemble(self):
        order = [self.sections[name] for name in self.form or self.sections]
        bars = [chord for section in order for chord in section.chords or ["C"]]
        self.harmony = Harmony(bars, self.meter)
        self.beats, memory, start = len(bars) * self.meter, {}, 0.0
        for number, section in enumerate(order):
            end = start + max(len(section.chords), 1) * self.meter
            self.play(section, number, start, end, memory)
            self.ends.append(end)
            start = end
        check(self)

    def play(self, section, number, start, end, memory):
        done = {}
        for name, text in section.parts.items():
            task = Task(self.genre.players[name], self.harmony, start, end, memory, self.random)
            try:
                done[name] = list(self.part(text, task, done, number))
            except Wrong as wrong:
                raise Wrong(f"section {section.name}, {name}: {wrong}") from None
            self.notes.setdefault(name, []).extend(
                note._replace(force=note.force * section.loud) for note in done[name])

    def part(self, text, task, done, number):
        """One statement of a section: a figure, a groove, what another player plays, or a line."""
        verb, *words = text.split()
        if verb in FIGURES:
            return FIGURES[verb](words, task)
        if verb in self.genre.grooves:
            return beaten(self.genre.grooves[verb], task, number)
        if task.player.is_drums:
            return beaten_rows(text, task)
        if verb == "with":
            return transposed(done[words[0]], int((words + ["0"])[1]))
        if verb == "under":
            return transposed(list(harmonised(done[words[0]], task)), int((words + ["0"])[1]))
        if verb == "fifths":
            return in_fifths(written(" ".join(words), task))
        if verb[0] in "+-" and verb[1:].isdigit():
            return transposed(list(written(" ".join(words), task)), int(verb))
        return written(text, task)


def place(piece, beat):
    return f"bar {int((beat + 1e-6) // piece.meter) + 1}, beat {beat % piece.meter + 1:g}"


def check(piece):
    """No note sounds behind the end, and what the bass plays on strong beats is of the chord."""
    for name, notes in piece.notes.items():
        for note in notes:
            if note.beat < 0 or note.beat + note.beats > piece.beats + 1e-6:
                raise Wrong(f"{name}: {place(piece, note.beat)}: a note behind the end")
        if piece.genre.players[name].is_bass and any(section.chords for section in piece.sections.values()):
            check_bass(piece, name, notes)


def check_bass(piece, name, notes):
    strong = piece.meter / 2 if piece.meter % 2 == 0 else piece.meter
    for number in range(round(piece.beats / strong)):
        beat = number * strong
        sounding = [note for note in notes if note.beat <= beat + 1e-6 < note.beat + note.beats - 1e-3]
        chord = piece.harmony.at(beat)
        for note in sounding[-1:]:
            if note.keys[0] % 12 not in tones(chord):
                raise Wrong(f"{name}: {place(piece, beat)}: the bass is not of {chord}")


class Genre:
    """A score file."""

    def __init__(self, path):
        self.name = pathlib.Path(path).stem
        self.players, self.grooves, self.pieces, self.swing = {}, {}, {}, 0.5
        self.room, self.duck = (1.0, 5000.0, 0.15), 0.0
        self.piece = self.groove = None
        for line in statements(pathlib.Path(path).read_text()):
            self.read(line)
        for piece in self.pieces.values():
            try:
                piece.assemble()
            except Wrong as wrong:
                raise Wrong(f"{self.name}, {piece.name}, {wrong}") from None

    def read(self, line):
        word, *words = line.split()
        if hasattr(self, "read_" + word):
            getattr(self, "read_" + word)(words)
        elif self.groove is not None:
            self.groove.add([word, *words])
        elif self.piece and word in self.players:
            self.piece.section().parts[word] = " ".join(words)
        else:
            raise Wrong(f"{self.name}: '{word}' is nobody here")
        if words == ["rests"]:
            del self.piece.section().parts[word]

    def read_player(self, words):
        self.players[words[0]] = Player(*words)

    def read_swing(self, words):
        self.swing = float(words[0])

    def read_room(self, words):
        self.room = tuple(float(word) for word in words)

    def read_duck(self, words):
        self.duck = float(words[0])

    def read_groove(self, words):
        self.groove = self.grooves[words[0]] = Groove()

    def read_piece(self, words):
        self.groove = None
        self.piece = self.pieces[words[0]] = Piece(self, words[0], words[1:])

    def read_form(self, words):
        self.piece.form = words

    def read_section(self, words):
        """NAME, or NAME like OTHER: what the other has, but for what follows."""
        like = self.piece.sections[words[2]] if words[1:2] == ["like"] else None
        self.piece.sections[words[0]] = Section(words[0], like)

    def read_chords(self, words):
        chords = [word for word in words if word != "|"]
        for i, name in enumerate(chords):
            chords[i] = chords[i - 1] if name == "%" else name
        self.piece.section().chords = chords

    def read_loud(self, words):
        self.piece.section().loud = float(words[0])


def statements(text):
    """The lines of a score; one that begins with "|" or is indented goes on with the one before, "#" is a remark."""
    found = []
    for line in text.splitlines():
        line = line.rstrip()
        if line.startswith("#"):
            continue
        if line[:1] in ("|", " ") and line:
            found[-1] += " " + line.strip()
        elif line:
            found.append(line)
    return found
