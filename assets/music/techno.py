"""Machines: a straight bass drum, claps, hi-hats between the beats, filtered saws, fast arpeggios."""
import numpy as np

import instruments as band
from score import Piece
from synth import RATE

SPACE = (1.6, 7000, 0.2)


class Club(Piece):
    """All but the bass drum gives way to it, and comes back before the next beat."""

    def __init__(self, bpm, beats, loop=True, pumping=0.65, **more):
        super().__init__(bpm, beats, loop, room=SPACE, **more)
        self.pumping = pumping
        self.drums = np.zeros((2, self.size))

    def beat(self, pattern="X.X.X.X.", gain=1.0, **more):
        rest, self.dry = self.dry, self.drums
        self.drum(band.deep_kick, pattern, gain=0.65 * gain, echo=0.0, **more)
        self.dry = rest

    def mixed(self):
        length = 60 / self.bpm * RATE
        phase = (np.arange(self.size) % length) / length
        duck = 1 - self.pumping * np.exp(-phase * 5.0) * np.clip(phase * 60, 0, 1)
        self.dry = self.dry * duck + self.drums
        self.wet = self.wet * duck
        return super().mixed()


def machines(piece, start=0.0, clap=True, end=None):
    piece.beat(start=start, end=end)
    piece.drum(band.hat, "oxxxoxxx" * 2, gain=0.28, pan=0.25, start=start, end=end)
    piece.drum(band.open_hat, ".x.x.x.x", gain=0.35, pan=-0.15, start=start, end=end)
    if clap:
        piece.drum(band.clap, ".x.x", gain=0.55, start=start, end=end)


def new_load_game():
    piece = Club(128, 64)
    changes = "Am F C G Am F Dm E Am F C G Am F Dm E"
    machines(piece)
    piece.bass(band.sub_bass, changes, ".RRR.RRR.RRR.RRR", low=33, gain=0.6, length=0.8)
    piece.arpeggio(band.synth_pluck, changes, "0241352-", 0.25, low=64, gain=0.3, pan=-0.3, length=1.2)
    piece.comp(band.supersaw, "Am F C G Am F Dm E", "X..x..x.", low=57, gain=0.3, start=32)
    piece.line(band.supersaw, """
        E5:1.5 D5:.5 C5:1 A4 | C5:1.5 D5:.5 F5:1 E5 | G5:1.5 E5:.5 C5:1 E5 | D5:2 B4:1 D5
        E5:1.5 D5:.5 C5:1 E5 | A5:1.5 G5:.5 F5:1 C5 | D5:1 F5 A5 F5 | G#5:2 E5:1 B4
        """, 32, 0.3, 0.1)
    piece.comp(band.synth_pad, changes, "x", low=52, gain=0.2, pan=0.2)
    piece.drum(band.riser, "..............x.", gain=0.12, start=16, end=32, beats=16)
    return piece


def player_icon():
    piece = Club(122, 32, pumping=0.5)
    machines(piece)
    changes = "Dm9 Dm9 Bbmaj9 C Dm9 Dm9 Bbmaj9 Am7"
    piece.comp(band.synth_pluck, changes, "x..x..x...x.x...", low=60, gain=0.5, pan=-0.2, hold=0.6)
    piece.bass(band.sub_bass, changes, "R-.R..R-..8.5.7.", low=33, gain=0.6)
    piece.comp(band.synth_pad, changes, "x", low=55, gain=0.22, pan=0.2)
    piece.line(band.synth_pluck, "A5:.75 F5 D5:.5 E5:2 | -:4 | A5:.75 F5 D5:.5 C6:2 | G5:2 E5", 0, 0.4, 0.3)
    piece.line(band.synth_pluck, "A5:.75 F5 D5:.5 E5:2 | D5:.5 E5 F5 A5 -:2 | D6:.75 C6 A5:.5 F5:2 | E5:2 C5", 16, 0.4,
               0.3)
    piece.drum(band.shaker, "oxoo", beats=1, gain=0.25, pan=0.4)
    return piece


def begin_game():
    piece = Club(138, 64, pumping=0.75)
    changes = "Em C G D Em C Am B Em C G D Em C Am B"
    machines(piece)
    piece.bass(band.sub_bass, changes, ".RR8.RR8.RR8.RR8", low=28, gain=0.6, length=0.8)
    piece.arpeggio(band.synth_pluck, changes, "02132435", 0.25, low=64, gain=0.32, pan=-0.35)
    piece.arpeggio(band.supersaw, "Em C G D Em C Am B", "0-12-43-", 0.25, low=64, gain=0.28, pan=0.3, start=32, length=1.2)
    piece.line(band.supersaw, """
        B5:1 G5:.5 B5 E6:1.5 D6:.5 | C6:1 G5:.5 C6 E6:2 | D6:1 B5:.5 G5 B5:1.5 A5:.5 | A5:1 F#5 D5 F#5
        B5:1 G5:.5 B5 E6:1.5 F#6:.5 | G6:1 E6:.5 C6 G5:2 | A5:1 C6 E6 C6 | B5:2 D#6
        """, 32, 0.26)
    piece.comp(band.supersaw, "Em C G D Em C Am B", "x", low=52, gain=0.14, start=0)
    piece.drum(band.snare, "xxxxxxxxxxxxxxxx", gain=0.25, start=28, end=32)
    return piece


def draw_card():
    piece = Club(124, 32, pumping=0.4)
    piece.beat("X...X...", 0.9)
    piece.drum(band.hat, "..x...x...x..xx.", gain=0.4, pan=0.3)
    piece.drum(band.rim, "...x..x....x..x.", gain=0.35, pan=-0.35)
    figure = "C3:.25 C3 C4 C3 Eb3 C3 C3 G3 C3 Bb3 C3 C3 F#3 F3 Eb3 C3"
    for bar in range(8):
        piece.line(band.acid, figure, bar * 4, 0.42, -0.1, shift=(0, 0, 0, 0, -4, -4, -2, -1)[bar])
    piece.comp(band.synth_pad, "Cm Cm Cm Cm Ab Ab Bb Bdim", "x", low=55, gain=0.3)
    piece.line(band.bell, "-:2 G5 | -:3 Eb5:1 | -:2 G5 | -:2 C6:1 B5 | -:2 C6 | -:3 Ab5:1 | -:2 D6 | -:2 B5:1 G5", 0, 0.2,
               0.3)
    piece.drum(band.clap, "...x", gain=0.35, beats=8)
    return piece


def short(bpm, beats, tail=0.5):
    return Club(bpm, beats, False, pumping=0.3, tail=tail)


def right_answer():
    piece = short(140, 3.25)
    piece.line(band.supersaw, "A4+C#5+E5:.5 B4+D5+F#5 C#5+E5+A5:1.25", gain=0.4)
    piece.line(band.synth_pluck, "A5:.25 C#6 E6 A6 E6 A6 E6 A6", gain=0.3, pan=0.3)
    piece.beat("X.X.....", 0.7)
    return piece


def wrong_answer():
    piece = short(130, 2.75)
    piece.line(band.acid, "C3:.5 B2 Bb2 F#2:1.25", gain=0.5)
    piece.line(band.supersaw, "Eb4+Gb4:.5 D4+F4 Db4+E4 A3+C4:1", gain=0.3)
    piece.beat("X..X....", 0.7)
    return piece


def good_roll():
    piece = short(140, 3.5)
    piece.line(band.synth_pluck, "C5:.25 E5 G5 C6 E5 G5 C6 E6 G6:1", gain=0.5, pan=-0.2)
    piece.line(band.supersaw, "-:2 E4+G4+C5:1", gain=0.35)
    piece.drum(band.snare, "ooxxxxXX", beats=2, gain=0.3, end=2)
    piece.beat("....X...", 0.8)
    return piece


def bad_roll():
    piece = short(130, 3)
    piece.line(band.synth_pluck, "C6:.25 A5 F#5 Eb5 C5 A4 F#4 Eb4 C4:.75", gain=0.5)
    piece.line(band.acid, "-:2 C2:.75", gain=0.5)
    piece.beat("X...X...", 0.7)
    return piece


def good_move():
    piece = short(136, 3)
    piece.line(band.acid, "A2:.25 A2 C3 D3 E3 G3 A3 C4 E4:.75", gain=0.5)
    piece.line(band.supersaw, "-:2 A4+C5+E5:.75", gain=0.3)
    piece.beat("X.X.X...", 0.7)
    piece.drum(band.open_hat, ".x.x....", gain=0.3)
    return piece


def bad_move():
    piece = short(130, 3)
    piece.line(band.acid, "E4:.25 C4 A3 G3 E3 D3 C3 A2 F2:.75", gain=0.5)
    piece.line(band.supersaw, "-:2 F3+Ab3+B3:.75", gain=0.3)
    piece.beat("X.X.X...", 0.7)
    return piece


def good_point():
    piece = short(140, 3)
    piece.line(band.bell, "E5:.5 B5 E6:1.5", gain=0.35)
    piece.line(band.synth_pluck, "E4+G#4+B4:.5 G#4+B4+E5 B4+E5+G#5:1", gain=0.45)
    piece.beat("X.X.....", 0.6)
    return piece


def bad_point():
    piece = short(130, 2.5)
    piece.line(band.synth_pluck, "G4:.5 Eb4 Db4:1", gain=0.5)
    piece.line(band.acid, "G2:.5 Eb2 C#2:1", gain=0.4)
    piece.drum(band.clap, ".x..", gain=0.3)
    return piece


def lose_turn():
    piece = short(120, 2.5)
    piece.line(band.supersaw, "E4+G4:.5 D#4+F#4 D4+F4 C4+Eb4:1", gain=0.35)
    piece.line(band.sub_bass, "E2:.5 D#2 D2 C2:1", gain=0.6)
    piece.beat("X.......", 0.6)
    return piece


def extra_turn():
    piece = short(140, 3.25)
    piece.line(band.supersaw, "A4+E5:.25 - A4+E5 - C5+G5:.5 D5+A5 E5+B5:1", gain=0.4)
    piece.line(band.sub_bass, "A2:.5 A2 C3 D3 E3:1", gain=0.5)
    piece.beat("X.X.X...", 0.8)
    piece.drum(band.clap, "..x.x...", gain=0.3)
    return piece


def won_game():
    piece = Club(132, 16, False, tail=1.6)
    machines(piece, end=12)
    changes = "F G Am"
    piece.bass(band.sub_bass, changes, ".RR8.RR8.RR8.RR8", low=28, gain=0.55, length=0.8)
    piece.arpeggio(band.synth_pluck, changes, "02132435", 0.25, low=64, gain=0.35, pan=-0.3)
    piece.comp(band.supersaw, changes, "X..x..x.", low=57, gain=0.28)
    piece.line(band.supersaw, "C6:1 A5:.5 C6 F6:2 | D6:1 B5:.5 D6 G6:2 | E6:.5 D6 C6 D6 E6:1 B6 | A6:2.5", gain=0.26)
    piece.comp(band.supersaw, "A", "X", low=57, gain=0.4, start=12, beats=3)
    piece.line(band.sub_bass, "A1:2.5", 12, 0.6)
    piece.beat("X...", 1.0, start=12)
    piece.drum(band.crash, "X...", gain=0.3, start=12)
    return piece
