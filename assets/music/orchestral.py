"""An orchestra in a hall: strings, woodwinds, horns and trumpets, harp, timpani."""
import instruments as band
from score import Piece

HALL = (2.2, 4500, 0.34)


def hall(bpm, beats, loop=True, **more):
    return Piece(bpm, beats, loop, room=HALL, **more)


def bed(piece, changes, low=48, beats=4.0, gain=0.3, start=0.0):
    """Held strings with the basses below them."""
    piece.comp(band.strings, changes, "x", low=low, beats=beats, gain=gain, pan=-0.3, start=start)
    piece.bass(band.strings, changes, "R---", low=31, beats=beats, gain=gain * 0.9, start=start, pan=0.35)


def new_load_game():
    piece = hall(104, 48)
    bed(piece, "D G/A D Bm G/Em A D/A A Bm G Em/A D/A", gain=0.34)
    piece.line(band.trumpet, """
        D4:.75 D4:.25 A4:1 A4:.75 F#4:.25 D5:1 | B4:1 C#5:.5 D5 E5:1.5 A4:.5 | F#5:1.5 E5:.5 D5:1 A4 | B4:3 -:1
        """, gain=0.26, pan=0.2)
    piece.line(band.trumpet, "A3:2 F#4 | G4 A4 | D4 F#4 | F#4:3 -:1", gain=0.2, pan=0.3)
    piece.line(band.horn, """
        D4:1 G4:1.5 F#4:.5 E4:1 | C#4:1 E4 A4:2 | F#4:1.5 G4:.5 A4:1 E4 | C#4:2 E4
        """, 16, gain=0.42, pan=-0.2)
    piece.line(band.flute, """
        B5:.5 D6 G5 B5 E5 G5 B5 E6 | C#6:1 A5 E6:2 | D6:.5 C#6 B5 A5 C#6:1 E6 | A5:2 C#6
        """, 16, gain=0.22, pan=-0.1)
    piece.line(band.strings, "F#5:1.5 E5:.5 D5:1 F#5 | G5:2 B4:1 D5 | E5:1.5 G5:.5 C#5:2 | D5:1 F#5 E5:2", 32, gain=0.42,
               pan=-0.2)
    piece.line(band.trumpet, "B4:2 D5 | D5:1 B4 G4:2 | G4:1.5 B4:.5 E4:1 A4 | A4:.75 A4:.25 D5:1 C#5:.75 A4:.25 E5:1", 32,
               gain=0.2, pan=0.2)
    piece.drum(band.timpani, "X...x.xx", gain=0.35, pan=0.1, end=16)
    piece.drum(band.timpani_high, "......x.", gain=0.3, pan=0.1, start=32)
    piece.drum(band.timpani, "x.......", gain=0.3, pan=0.1, start=32)
    piece.drum(band.snare, "x...xxx.", gain=0.17, pan=0.3, end=16)
    piece.drum(band.crash, "X" + "." * 15, beats=16, gain=0.14, pan=-0.2)
    return piece


def player_icon():
    piece = hall(150, 48)
    changes = "G D7 G C Am D7 G D7 Em Bm C G Am D7 G D7"
    piece.bass(band.pizzicato, changes, "R--", low=36, beats=3.0, gain=0.7, pan=0.3)
    piece.comp(band.pizzicato, changes, ".xx", low=57, beats=3.0, gain=0.4, pan=0.1, hold=0.5)
    piece.line(band.strings, """
        B4:2 D5:1 | C5:2 F#4:1 | G4:1 B4 D5 | E5:3 | C5:2 E5:1 | D5:1 C5 A4 | B4:3 | A4:2 -:1
        E5:2 G5:1 | F#5:2 D5:1 | E5:1 C5 E5 | D5:3 | C5:2 A4:1 | F#4:1 A4 C5 | B4:2 G4:1 | A4:2 -:1
        """, gain=0.4, pan=-0.3)
    piece.line(band.flute, """
        -:12 | A5:1 C6 E6 | D6:3 | -:1 B5 D6 | F#5:3 | G5:3 | B5:3 | C6:1 G5 C6 | B5:3 | E6:2 C6:1 | A5:1 C6 D6 | B5:3
        F#5:1 A5 D6""", gain=0.24, pan=0.15)
    piece.line(band.horn, "G4:3 F#4 G4 G4 E4 F#4 G4 F#4 G4 F#4 E4 D4 E4 F#4 G4 F#4", gain=0.2, pan=0.4)
    piece.arpeggio(band.harp, "Em Bm C G Am D7 G D7", "012345", 0.5, low=55, beats=3.0, gain=0.22, pan=0.4, start=24)
    piece.drum(band.triangle, "x.....", beats=6, gain=0.07, start=24)
    return piece


def begin_game():
    piece = hall(126, 48)
    changes = "Cm Cm Ab Bb Cm Eb Ab G Cm Ab/Bb Eb/Ab G"
    for name, bar in zip(changes.split(), range(12)):
        piece.arpeggio(band.quick_strings, name, "00100210", 0.5, low=48, gain=0.6, pan=-0.3, start=bar * 4, length=0.8)
    piece.bass(band.quick_strings, changes, "R.R.R.R.", low=31, gain=0.4, pan=0.35, length=0.7)
    piece.line(band.horn, """
        G3:1 C4:1.5 D4:.5 Eb4:1 | G4:2 F4:1 Eb4 | C4:1 Eb4 Ab4:2 | F4:1.5 G4:.5 F4:1 D4
        Eb4:1 G4 C5:2 | Bb4:1.5 Ab4:.5 G4:1 Eb4 | C4:1 Eb4 Ab4 C5 | B4:2 G4
        """, gain=0.5, pan=-0.15)
    piece.line(band.trumpet, "C5:1.5 D5:.5 Eb5:2 | C5:1 Eb5 D5 F5 | G5:1.5 F5:.5 Eb5:1 C5 | D5:2 B4", 32, gain=0.28,
               pan=0.2)
    piece.line(band.trombone, "C3:3 G3:1 | Ab3:2 Bb3 | Eb3 Ab3 | G3:4", 32, gain=0.26, pan=0.3)
    piece.drum(band.timpani, "X..xx.xx", gain=0.4, pan=0.1)
    piece.drum(band.snare, "X.xxx.xxX.x.xxxx", gain=0.17, pan=0.3)
    piece.drum(band.crash, "X" + "." * 15, beats=16, gain=0.12, pan=-0.3)
    return piece


def draw_card():
    piece = hall(104, 32)
    piece.line(band.pizzicato, "A2:.5 E3 A3 E3 " * 4 + "F2 C3 F3 C3 " * 2 + "E2 B2 E3 G#3 " * 2, 0, gain=0.8, pan=0.3)
    piece.line(band.pizzicato, "D2:.5 A2 D3 F3 " * 2 + "A2 E3 A3 C4 " * 2 + "B1 F2 B2 D3 " * 2 + "E2 B2 G#3 E3 " * 2, 16,
               gain=0.8, pan=0.3)
    piece.line(band.clarinet, "-:4 | E4:1 F4:.5 E4 D#4:1 E4 | C5:2 A4:1 F4 | E4:2 G#4", 0, gain=0.32, pan=0.1)
    piece.line(band.oboe, "D5:1.5 E5:.5 F5:1 D5 | C5:1 B4:.5 A4 E5:2 | D5:1 F5 Ab5 F5 | E5:2 D5:1 B4", 16, gain=0.24,
               pan=-0.1)
    piece.comp(band.strings, "Am Am F E Dm Am Bdim E7", "x", low=52, gain=0.24, pan=-0.3)
    piece.drum(band.timpani_high, "x.....o.", gain=0.2, pan=0.1)
    piece.drum(band.triangle, "...x", gain=0.05, pan=-0.4)
    return piece


def short(bpm, beats, tail=0.7):
    return Piece(bpm, beats, False, room=(1.1, 4500, 0.3), tail=tail)


def right_answer():
    piece = short(150, 3)
    piece.line(band.trumpet, "G4+C5:.5 C5+E5 E5+G5:1", gain=0.5)
    piece.line(band.quick_strings, "C4+E4:.5 E4+G4 C4+G4+C5+E5:1", gain=0.5, pan=-0.3)
    piece.drum(band.timpani, "..X.", beats=2, gain=0.3, end=2)
    return piece


def wrong_answer():
    piece = short(132, 2.5)
    piece.line(band.trombone, "Eb3+Gb3:.5 D3+F3 Db3+E3:1.25", gain=0.5)
    piece.line(band.quick_strings, "C4+Eb4:.5 B3+D4 Bb3+Db4:1.25", gain=0.4, pan=-0.3)
    piece.drum(band.timpani, "..x.", beats=2, gain=0.3, end=2)
    return piece


def good_roll():
    piece = short(160, 3)
    piece.line(band.harp, "G4:.25 A4 B4 C5 D5 E5 F#5 G5 B5:1", gain=0.6)
    piece.line(band.flute, "-:1 D6:.5 E6 G6:1", gain=0.3)
    piece.line(band.quick_strings, "-:2 G4+B4+D5:.75", gain=0.5)
    return piece


def bad_roll():
    piece = short(140, 3)
    piece.line(band.quick_strings, "Ab4:.25 G4 Gb4 F4 E4 Eb4 D4 Db4 C4:1", gain=0.5)
    piece.line(band.trombone, "-:2 C3+Gb3:.75", gain=0.5)
    piece.drum(band.timpani, "....x...", gain=0.3)
    return piece


def good_move():
    piece = short(152, 3.5)
    piece.line(band.horn, "C4:.5 E4 G4 C5:1.25", gain=0.6)
    piece.line(band.quick_strings, "C4:.25 D4 E4 F4 G4 A4 B4 C5 E5:.75", gain=0.4, pan=-0.3)
    return piece


def bad_move():
    piece = short(140, 3.5)
    piece.line(band.horn, "C4:.5 Ab3 F3 C3:1.25", gain=0.6)
    piece.line(band.quick_strings, "C5:.25 Bb4 Ab4 G4 F4 Eb4 D4 C4 B3:.75", gain=0.4, pan=-0.3)
    return piece


def good_point():
    piece = short(144, 2.5)
    piece.line(band.flute, "E5:.5 G5 C6:1", gain=0.35)
    piece.line(band.harp, "C4+E4:.5 E4+G4 G4+C5+E5:1", gain=0.6)
    piece.drum(band.triangle, "..x.", beats=2, gain=0.1, end=2)
    return piece


def bad_point():
    piece = short(132, 2.5)
    piece.line(band.oboe, "Eb5:.5 C5 Ab4:1", gain=0.35)
    piece.line(band.pizzicato, "C3:.5 Ab2 F2:1", gain=0.8)
    return piece


def lose_turn():
    piece = short(120, 2.5)
    piece.line(band.strings, "A3+C4+E4:.5 Ab3+C4+Eb4 G3+B3+D4:1.25", gain=0.45)
    piece.line(band.oboe, "E5:.5 Eb5 D5:1.25", gain=0.3)
    return piece


def extra_turn():
    piece = short(160, 3.5)
    piece.line(band.trumpet, "C5:.5 C5:.25 C5 E5:.5 C5 G5:1.25", gain=0.4)
    piece.line(band.horn, "E4:1 G4 C4+E4:1.25", gain=0.4)
    piece.drum(band.snare, "x.xxx.x.", gain=0.2, end=3)
    return piece


def won_game():
    piece = hall(112, 14, False, tail=1.8)
    bed(piece, "D G/A D", gain=0.3)
    piece.comp(band.strings, "D", "X", low=50, start=12, beats=3, gain=0.4)
    piece.line(band.trumpet, """
        D4:.5 A4:.25 A4 D5:1 F#5:.5 E5 D5:1 | G5:1 F#5:.5 E5 C#5:1 E5 | F#5:.5 D5 A4 F#5 A5:1 C#5 | D5+F#5+A5:3
        """, gain=0.28, pan=0.2)
    piece.line(band.horn, "D4:2 A4 | B4 A4 | D4 G4:1 E4 | D4+A4:3", gain=0.4, pan=-0.2)
    piece.line(band.trombone, "D3:4 G3:2 A3 D3:3 A2:1 D3:3", gain=0.25, pan=0.3)
    piece.drum(band.timpani, "X..xxxxx", gain=0.3, end=12)
    piece.drum(band.timpani, "X.......", gain=0.4, start=12)
    piece.drum(band.crash, "X...", gain=0.16, start=12)
    return piece
