"""A toy band: recorder, xylophone, glockenspiel, toy piano, ukulele, tuba, claps."""
import instruments as band
from score import Piece

NURSERY = (0.6, 6000, 0.1)


def nursery(bpm, beats, loop=True, **more):
    return Piece(bpm, beats, loop, room=NURSERY, **more)


def oompah(piece, changes, beats=4.0, tuba="R-5-", chords=".x.x", gain=1.0):
    piece.bass(band.tuba, changes, tuba, low=33, beats=beats, gain=0.4 * gain, length=0.7)
    piece.comp(band.ukulele, changes, chords, low=60, beats=beats, gain=0.5 * gain, pan=-0.3, hold=0.4)


def new_load_game():
    piece = nursery(132, 64)
    oompah(piece, "C F C G7 C F G7 C F C G7 C F C G7 C")
    tune = """
        G4:1 E4:.5 G4 C5:1 G4 | A4:1 F4:.5 A4 C5:2 | G4:.5 A4 G4 E4 C4:1 E4 | D4:1.5 E4:.5 D4:2
        G4:1 E4:.5 G4 C5:1 E5 | D5:.5 C5 A4 C5 A4:2 | G4:.5 B4 D5 B4 A4 G4 F4 D4 | C4:1 E4 C4 -
        """
    answer = """
        C5:1 A4:.5 C5 F5:1 C5 | E5:1 C5:.5 E5 G5:2 | F5:.5 E5 D5 C5 B4:1 D5 | C5:.5 D5 E5 F5 G5:2
        A5:1 F5:.5 A5 C6:1 A5 | G5:1 E5 C5 G4 | A4:.5 B4 C5 D5 E5 F5 D5 B4 | C5:1 G4 C5 -
        """
    piece.line(band.recorder, tune, gain=0.3, shift=12, length=0.85)
    piece.line(band.xylophone, answer, 32, gain=0.75, pan=0.2)
    piece.line(band.recorder, answer, 32, gain=0.2, length=0.8)
    piece.line(band.glockenspiel, "-:2 G6:.5 E6 C6:1 | -:2 A6:.5 F6 C6:1", 28, gain=0.2, pan=0.4)
    piece.drum(band.clap, ".x.x", gain=0.16, pan=0.3, start=32)
    piece.drum(band.woodblock, "x...x.x.", gain=0.14, pan=-0.4)
    piece.drum(band.tambourine, "..x...x.", gain=0.12, pan=0.4)
    return piece


def player_icon():
    piece = nursery(126, 48)
    oompah(piece, "F C7 F Bb F C7 G7 C7 F C7 F Bb Bb F C7 F", beats=3.0, tuba="R--", chords=".xx", gain=0.8)
    piece.line(band.toy_piano, """
        C5:1 F5 A5 | G5:2 E5:1 | F5:1 A5 C6 | D6:3 | C6:1 A5 F5 | E5 G5 Bb5 | A5 G5 D5 | E5:3
        C5:1 F5 A5 | G5:2 E5:1 | F5:1 A5 C6 | F6:3 | D6:1 Bb5 D6 | C6 A5 F5 | G5 A5 E5 | F5:2 -:1
        """, gain=0.7)
    piece.line(band.glockenspiel, "-:3 | -:1 C7 Bb6", 0, 0.16, 0.4)
    piece.line(band.glockenspiel, "-:1 D6 F6 | -:1 C6 A5 | -:1 E6 G6 | F6:3", 36, 0.25, 0.4)
    piece.drum(band.triangle, "x.....", beats=6, gain=0.1, pan=-0.4)
    return piece


def begin_game():
    piece = nursery(160, 64)
    oompah(piece, "G C G D7 G C D7 G Em C G D7 Em C D7 G", tuba="R.5.")
    piece.line(band.xylophone, """
        D5:.5 G5 G5 A5 B5:1 G5 | E5:.5 C6 C6 B5 A5:1 E5 | D5:.5 G5 B5 A5 G5 F#5 E5 D5 | F#5:1 A5 D5 -
        D5:.5 G5 G5 A5 B5:1 D6 | C6:.5 B5 A5 G5 E5:1 A5 | F#5:.5 A5 D6 C6 A5 F#5 E5 F#5 | G5:1 D5 G5 -
        """, gain=0.8, pan=0.15)
    piece.line(band.recorder, """
        B5:1.5 G5:.5 E5:2 | C6:1.5 G5:.5 E5:2 | B5:1 A5:.5 B5 D6:1 B5 | A5:3 -:1
        B5:1.5 G5:.5 E5:2 | C6:1 D6 E6 C6 | A5:.5 B5 C6 A5 F#5:1 D5 | G5:2 -:2
        """, 32, gain=0.32, length=0.85)
    piece.line(band.toy_piano, "E6:.5 B5 G5 B5 " * 2 + "E6 C6 G5 C6 " * 2 + "D6 B5 G5 B5 " * 2 + "D6 A5 F#5 A5 " * 2, 32,
               gain=0.22, pan=-0.35)
    piece.drum(band.snare, "x.xxx.x.", gain=0.14, pan=-0.1)
    piece.drum(band.kick, "x.x.", gain=0.22)
    piece.drum(band.clap, "...x...x", gain=0.14, start=32, pan=0.3)
    return piece


def draw_card():
    piece = nursery(116, 32)
    piece.line(band.pizzicato, "A3:.5 - E3 - " * 4 + "D3 - A3 - " * 2 + "E3 - B3 - " * 2, 0, gain=0.8, pan=-0.2)
    piece.line(band.pizzicato, "A3:.5 - E3 - " * 4 + "F3 - C3 - " * 2 + "E3 - G#3 - " * 2, 16, gain=0.8, pan=-0.2)
    piece.line(band.clarinet, """
        -:1 A4:.5 B4 C5:1 A4 | -:1 C5:.5 B4 A4:2 | -:1 D5:.5 C5 A4:1 F4 | E4:.5 F4 E4 D#4 E4:2
        -:1 A4:.5 B4 C5:1 E5 | -:1 E5:.5 D5 C5:2 | A4:.5 C5 F5 E5 D5 C5 A4 F4 | E4 G#4 B4 D5 G#4:1 E4:.5 G#4
        """, gain=0.34, length=0.6)
    piece.line(band.glockenspiel, "-:3 E6:.5 A6 | -:8 | -:3 E6:.5 D#6", 0, 0.2, 0.4)
    piece.drum(band.woodblock, "x.o.", beats=2, gain=0.3, pan=0.35)
    return piece


def short(bpm, beats, tail=0.5):
    return nursery(bpm, beats, False, tail=tail)


def right_answer():
    piece = short(180, 4)
    piece.line(band.glockenspiel, "C6:.5 E6 G6 C7:1.5", gain=0.4)
    piece.line(band.xylophone, "C5:.5 E5 G5 C6:1.5", gain=0.6)
    piece.line(band.ukulele, "-:1.5 C4+E4+G4+C5:1", gain=0.5)
    piece.drum(band.clap, "...x.x", beats=3, gain=0.25, end=3)
    return piece


def wrong_answer():
    piece = short(130, 2.75, 0.4)
    piece.line(band.recorder, "E5:.5 D#5 D5 C#5:1", gain=0.35)
    piece.line(band.tuba, "C3:.5 B2 A#2 A2:1", gain=0.5)
    piece.drum(band.boing, "......x.", beats=4, gain=0.2, end=3)
    return piece


def good_roll():
    piece = short(200, 4)
    piece.line(band.xylophone, "G4:.25 A4 B4 C5 D5 E5 F5 G5 C6:1", gain=0.7)
    piece.line(band.ukulele, "-:2 C4+E4+G4+C5:1", gain=0.6)
    piece.drum(band.tambourine, "....x.x.", gain=0.2)
    return piece


def bad_roll():
    piece = short(180, 4)
    piece.line(band.xylophone, "C6:.25 B5 Bb5 A5 Ab5 G5 Gb5 F5 C5:1", gain=0.7)
    piece.line(band.tuba, "-:2 F2:.5 C2:1", gain=0.5)
    piece.drum(band.woodblock, "....x...", gain=0.3)
    return piece


def good_move():
    piece = short(168, 3.5)
    piece.line(band.recorder, "C5:.5 D5 E5 F5 G5:1", gain=0.35, length=0.7)
    piece.line(band.ukulele, "C4+E4+G4:1 F4+A4+C5 C4+E4+G4+C5", gain=0.5)
    piece.drum(band.woodblock, "xxxxx.x.", gain=0.3)
    return piece


def bad_move():
    piece = short(160, 3.5)
    piece.line(band.recorder, "G5:.5 F5 Eb5 D5 C5:1", gain=0.35, length=0.7)
    piece.line(band.tuba, "C3:1 G2 C2", gain=0.5)
    piece.drum(band.woodblock, "x.x.x.x.", gain=0.3)
    return piece


def good_point():
    piece = short(170, 3)
    piece.line(band.glockenspiel, "E6:.5 G6 C7:1", gain=0.45)
    piece.line(band.toy_piano, "C5+E5:.5 E5+G5 G5+C6:1", gain=0.5)
    piece.drum(band.triangle, "..x.", beats=2, gain=0.15, end=2)
    return piece


def bad_point():
    piece = short(150, 2.5)
    piece.line(band.toy_piano, "Eb5:.5 C5 F#4:1", gain=0.6)
    piece.line(band.tuba, "C3:.5 A2 F#2:1", gain=0.45)
    return piece


def lose_turn():
    piece = short(140, 3)
    piece.line(band.clarinet, "E5:.5 C5 A4 E4:1", gain=0.4, length=0.9)
    piece.line(band.pizzicato, "A3:.5 E3 C3 A2:1", gain=0.7)
    piece.drum(band.boing, "...x", beats=2, gain=0.2, end=2)
    return piece


def extra_turn():
    piece = short(190, 4)
    piece.line(band.recorder, "G5:.5 G5 C6:1 G5:.5 C6:1", gain=0.3, length=0.8)
    piece.line(band.xylophone, "E5:.5 E5 G5:1 E5:.5 G5:1", gain=0.5)
    piece.line(band.ukulele, "C4+E4+G4:1 C4+E4+G4 G4+C5+E5", gain=0.5)
    piece.drum(band.clap, "x.x..x..", gain=0.2)
    return piece


def won_game():
    piece = nursery(152, 16, False, tail=1.2)
    oompah(piece, "C F G7")
    piece.line(band.xylophone, """
        G5:.5 C6 E6 C6 G5 E5 G5:1 | A5:.5 C6 F6 C6 A5 F5 A5:1 | G5:.5 A5 B5 C6 D6 E6 F6 D6 | C6:1 G5 C6:1
        """, gain=0.7, pan=0.2)
    piece.line(band.recorder, "C5:1 E5 G5:2 | F5:1 A5 C6:2 | B5:1 A5 G5 F5 | E5:1 D5 C5:1.5", gain=0.3, length=0.9)
    piece.line(band.glockenspiel, "C7:.25 G6 E6 C6 C7:1", 13, 0.35, 0.4)
    piece.line(band.ukulele, "C4+E4+G4+C5:1 G4+B4+D5 C4+E4+G4+C5:2", 12, 0.6, -0.3)
    piece.line(band.tuba, "C3:1 G2 C2:1.5", 12, 0.4)
    piece.drum(band.clap, ".x.x", gain=0.2)
    piece.drum(band.tambourine, "x.xx", gain=0.12)
    return piece
