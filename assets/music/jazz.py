"""A small swing band: double bass, ride cymbal, piano, vibraphone, muted trumpet, saxophone."""
import instruments as band
from score import Piece

SWING = 0.66
CLUB = (0.9, 4500, 0.16)


def club(bpm, beats, loop=True, **more):
    return Piece(bpm, beats, loop, SWING, CLUB, **more)


def rhythm(piece, changes, bass=0.5, piano=0.5, comp=".x..o..x"):
    piece.walk(band.upright_bass, changes, gain=bass)
    piece.drum(band.ride, "x.x.xxx.x.xx", gain=0.15, pan=0.35)
    piece.drum(band.hat, ".x.x", gain=0.35, pan=0.3)
    piece.drum(band.kick, "o..o", gain=0.25)
    piece.comp(band.piano, changes, comp, low=57, gain=piano, pan=-0.35, hold=0.45)


def new_load_game():
    piece = club(148, 64)
    changes = ("Gm9 C13 Fmaj9 D7b9 Gm9 C13 Fmaj9 Cm9/F13 Bbmaj9 Bbm9/Eb9 Am9 D7b9 Gm9 C13 Fmaj9/D7b9 Gm9/C13")
    rhythm(piece, changes)
    piece.line(band.muted_trumpet, """
        -:.5 D5 F5 G5 Bb5:1 A5:.5 G5 | E5:1.5 C5:.5 -:2 | -:.5 A4 C5 E5 G5:1 F5:.5 E5 | F#5:1.5 D5:.5 -:2
        Bb5:.5 A5 G5 F5 D5:1 F5 | E5:.5 G5 Bb5 A5 G5:1 E5 | A5:2 F5:1 C5 | Eb5:1 G5 F5:.5 Eb5 D5 C5
        """, gain=0.24, pan=0.1)
    piece.line(band.vibraphone, """
        D5:1.5 F5:.5 A5:2 | Db5:1.5 F5:.5 Ab5:1 G5 | C5:.5 E5 G5 E5 A5:2 | -:.5 F#5 A5 C6 Bb5 A5 G5 F#5
        G5:1 Bb5 D6:1.5 Bb5:.5 | C6 Bb5 A5 G5 F#5 G5 E5 C5 | F5:1.5 A5:.5 C5:1 F#5 | G5 F5:.5 E5 D5:1 -
        """, start=32, gain=0.4, pan=-0.1)
    piece.line(band.saxophone, "A4:4 Ab4:2 G4 G4:4 F#4 Bb4 Bb4 A4:2 C5 Bb4 E4", start=32, gain=0.13, pan=0.4)
    piece.drum(band.rim, "...x", gain=0.14, pan=-0.2, start=32)
    return piece


def player_icon():
    piece = club(126, 48)
    changes = "Bb7 Eb7 Bb7 Bb7 Eb7 Eb7 Bb7 G7b9 Cm9 F13 Bb7/G7 Cm7/F7"
    rhythm(piece, changes, comp="x..x..o.", piano=0.5)
    riff = "-:.5 F4 Ab4 A4 Bb4:1 D5:.5 Bb4 | Db5 Bb4:1 Ab4:.5 F4:1 -"
    for start, shift in ((0, 0), (8, 0), (16, 0)):
        piece.line(band.saxophone, riff, start, 0.32, 0.15, shift=shift)
    piece.line(band.saxophone, "-:.5 F4 Ab4 A4 Bb4:1 D5:.5 B4 | -:1 D5:.5 Db5 B4 Ab4 F4 -", 24, 0.32, 0.15)
    piece.line(band.saxophone, "Eb5:.5 D5 C5 Bb4 G4:1 Eb4:.5 G4 | A4 C5 Eb5 D5 C5 A4 F4 Gb4", 32, 0.32, 0.15)
    piece.line(band.vibraphone, "Bb4+D5:1.5 Ab4+D5:.5 B4+F5:2 | Bb4+Eb5:1.5 G4:.5 A4+Eb5:2", 40, 0.4, -0.2)
    piece.drum(band.brush, "o.o.x.o.", gain=0.1, pan=-0.3)
    return piece


def begin_game():
    piece = club(208, 64)
    changes = "Bb6/G7 Cm7/F7 Dm7/G7 Cm7/F7 Fm7/Bb7 Ebmaj7/Ab7 Dm7/G7 Cm7/F7 D7 D7 G7 G7 C7 C7 F7 F7"
    rhythm(piece, changes, comp=".x.o..x.", piano=0.42)
    piece.line(band.vibraphone, """
        D5:.5 F5 Bb5 F5 G5 F5 D5 B4 | C5 Eb5 G5 Bb5 A5 G5 F5 Eb5 | D5 F5 A5 C6 B5 G5 F5 D5 | Eb5:1 C5 A4 -
        Ab5:.5 G5 F5 Eb5 D5 F5 Ab5 C6 | Bb5 G5 Eb5 D5 C5 Eb5 Gb5 Ab5 | A5:1 F5 G5:.5 F5 D5 B4 | Bb4:1 Eb5 F5 -
        """, gain=0.4, pan=-0.15)
    piece.line(band.trumpet, """
        A4:1.5 F#5:2.5 | E5:.5 F#5 A5:1 F#5 - | B4:1.5 F5:2.5 | D5:.5 F5 A5:1 G5 -
        G4:1.5 E5:2.5 | D5:.5 E5 G5:1 Bb5 - | A4:1.5 Eb5:2.5 | C5:.5 D5 Eb5 F5 G5 A5 C6:1
        """, start=32, gain=0.24, pan=0.2)
    piece.drum(band.snare, "......o..o......", beats=8, gain=0.25, pan=-0.1)
    return piece


def draw_card():
    piece = club(112, 32)
    for start in (0, 8, 16, 24):
        piece.line(band.upright_bass, "D2:1 -:.5 F2 G2:1 Ab2 | A2:1 -:.5 G2 F2:1 C#2", start, 0.75)
    piece.drum(band.snap, ".x.x", gain=0.5, pan=0.25)
    piece.drum(band.hat, "x.xx.x", gain=0.12, pan=-0.3)
    piece.line(band.vibraphone, "-:2 A4+D5:.5 - Ab4+Db5 - | -:4 | -:2 A4+D5:.5 - C5+F5 - | -:2.5 E5:.5 D5 C#5", 0, 0.42,
               -0.2)
    piece.line(band.muted_trumpet, """
        -:.5 D5 F5 G5 Ab5:1 G5:.5 F5 | A5:2.5 -:.5 E5 C#5 | -:.5 D5 F5 G5 Ab5:1 A5:.5 C6 | A5:1 G5:.5 F5 E5:1 -
        """, 16, 0.26, 0.1)
    return piece


def short(bpm, beats, tail=0.6):
    return club(bpm, beats, False, tail=tail)


def right_answer():
    piece = short(168, 3)
    piece.line(band.vibraphone, "C5:.5 E5 G5 A5+E6:1.5", gain=0.6)
    piece.line(band.piano, "-:1.5 E4+A4+D5+G5:1", gain=0.5)
    piece.line(band.upright_bass, "C2:1 G2:.5 C3:1", gain=0.6)
    piece.drum(band.ride, ".x.X..", beats=3, gain=0.12)
    return piece


def wrong_answer():
    piece = short(150, 3.5, 0.4)
    piece.line(band.trombone, "E4:.75 Eb4 D4 Db4:1.25", gain=0.5)
    piece.line(band.muted_trumpet, "Bb4:.75 A4 Ab4 G4:1.25", gain=0.35, pan=0.2)
    piece.drum(band.brush, "x.x.", beats=3, gain=0.12)
    return piece


def good_roll():
    piece = short(190, 3)
    piece.line(band.piano, "F4+A4+C5:.5 G4+Bb4+D5 A4+C5+E5:.5 C5+E5+G5+D6:1.5", gain=0.6)
    piece.drum(band.snare, "ooxX", beats=2, gain=0.3)
    piece.line(band.upright_bass, "C2:.5 D2 E2 F2:1", gain=0.6)
    return piece


def bad_roll():
    piece = short(170, 3)
    piece.line(band.piano, "E4+Bb4:.5 Eb4+A4 D4+Ab4 C4+Gb4:1.5", gain=0.6)
    piece.line(band.upright_bass, "E2:.5 Eb2 D2 Db2:1.5", gain=0.6)
    piece.drum(band.low_tom, "...x", beats=2, gain=0.35)
    return piece


def good_move():
    piece = short(200, 4)
    piece.line(band.upright_bass, "C2:1 D2 E2 G2", gain=0.6)
    piece.line(band.saxophone, "G4:.5 A4 C5 D5 E5 G5 A5:1", gain=0.4)
    piece.drum(band.ride, "x.xxxx", beats=2, gain=0.1)
    return piece


def bad_move():
    piece = short(190, 4)
    piece.line(band.upright_bass, "G2:1 F2 Eb2 C2", gain=0.6)
    piece.line(band.saxophone, "Bb4:.5 A4 Ab4 G4 Gb4 F4 C4:1", gain=0.4)
    piece.drum(band.brush, "x.o.", gain=0.12)
    return piece


def good_point():
    piece = short(176, 3)
    piece.line(band.vibraphone, "E5+G5:.5 E5+A5 G5+C6:1.5", gain=0.6)
    piece.line(band.upright_bass, "C2:1 C3:.5", gain=0.6)
    piece.drum(band.snap, ".x.x", beats=2, gain=0.3)
    return piece


def bad_point():
    piece = short(160, 3)
    piece.line(band.muted_trumpet, "Eb5:.5 C5 Gb4:1.5", gain=0.4)
    piece.line(band.upright_bass, "C2:1 Gb2:1", gain=0.6)
    piece.drum(band.rim, "x..x", beats=2, gain=0.2)
    return piece


def lose_turn():
    piece = short(132, 3)
    piece.line(band.clarinet, "G4:.5 E4 C4 A3:1.25", gain=0.45)
    piece.line(band.piano, "-:1.5 C3+Eb3+Gb3+A3:1", gain=0.5)
    piece.drum(band.brush, "x.o.", beats=2, gain=0.12)
    return piece


def extra_turn():
    piece = short(190, 4)
    piece.line(band.trumpet, "C5:.5 C5 - G5 E5 - C6:1", gain=0.35)
    piece.line(band.piano, "E4+G4+Bb4:.5 - - A4+C5+E5 - - D5+E5+A5:1", gain=0.4)
    piece.line(band.upright_bass, "C2:1 E2 G2 C3", gain=0.5)
    piece.drum(band.ride, "x.xxxx", beats=2, gain=0.1)
    return piece


def won_game():
    piece = club(172, 16, False, tail=1.6)
    changes = "Dm9/G13 Em7/A7 Dm9/G13 C6"
    rhythm(piece, "Dm9/G13 Em7/A7 Dm9/G13", comp="x..x.x..")
    piece.comp(band.piano, changes.split()[-1], "X...", start=12, low=57, gain=0.6)
    piece.line(band.trumpet, "A4:.5 D5 F5 A5 B5:1 G5 | G5:.5 E5 B5 G5 C#6:1 A5 | A5:.5 C6 F5 A5 G5 D5 B4 F5 | E5:1 G5 C6:2",
               gain=0.3, pan=0.15)
    piece.line(band.saxophone, "F4:2 F4 | D4 C#4 | C4 B3 | G4:1 C5 E5:2", gain=0.22, pan=-0.2)
    piece.line(band.vibraphone, "E6+G6:2", 14, 0.4)
    piece.line(band.upright_bass, "C2:1 G2 C3:2", 12, 0.6)
    piece.drum(band.crash, "X...", gain=0.12, start=12)
    return piece
