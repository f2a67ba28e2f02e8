"""A Caribbean band: clave, congas, cowbell, piano in syncopated figures, bass ahead of the beat, trumpets, flute."""
import instruments as band
from score import Piece

PATIO = (0.9, 5000, 0.15)
SON = "x..x..x...x.x..."        # the clave: three strokes, then two
BOSSA = "x..x..x...x..x.."
TUMBAO = "...5--N-"             # the bass skips the beat and comes in early


def patio(bpm, beats, loop=True, **more):
    return Piece(bpm, beats, loop, room=PATIO, **more)


def percussion(piece, clave=SON, start=0.0, end=None, bell=True):
    piece.drum(band.clave, clave, beats=8, gain=0.4, pan=0.4, start=start, end=end)
    piece.drum(band.conga, "o.....xx", gain=0.45, pan=-0.3, start=start, end=end)
    piece.drum(band.low_conga, "....o...........", beats=8, gain=0.4, pan=-0.3, start=start, end=end)
    piece.drum(band.conga_slap, "..X.....", gain=0.3, pan=-0.3, start=start, end=end)
    piece.drum(band.shaker, "xoxoxoxo", gain=0.25, pan=0.3, start=start, end=end)
    if bell:
        piece.drum(band.cowbell, "X.x.Xxx.X.x.x.xx", beats=8, gain=0.28, pan=0.2, start=start, end=end)


def montuno(piece, changes, start=0.0, gain=0.4):
    piece.arpeggio(band.piano, changes, "0-21-2-1-2-1-21-", 0.5, low=57, gain=gain, pan=-0.35, start=start, length=0.9)
    piece.arpeggio(band.piano, changes, "3-21-5-4-2-1-54-", 0.5, low=69, gain=gain * 0.7, pan=-0.35, start=start,
                   length=0.9)


def new_load_game():
    piece = patio(192, 96)
    changes = "Am Dm E7 Am " * 4 + "F G C E7 F Dm E7 Am"
    piece.bass(band.upright_bass, changes, TUMBAO, low=33, gain=0.6)
    montuno(piece, changes)
    percussion(piece)
    piece.drum(band.timbale, "....x.xx" + "." * 24, beats=16, gain=0.3, pan=0.3)
    piece.line(band.trumpet, """
        -:1 E5 A5:1.5 G5:.5 | F5:1.5 E5:.5 D5:2 | -:1 B4 E5:1.5 D5:.5 | C5:1.5 B4:.5 A4:2
        -:1 A5 C6:1.5 B5:.5 | A5:1.5 F5:.5 D5:2 | E5:.5 F5 E5 D5 B4:1 G#4 | A4:3 -:1
        """, 0, 0.28, 0.15)
    piece.line(band.flute, """
        C6:.5 B5 A5 - E6:1 C6 | D6:.5 C6 A5 - F6:1 D6 | E6:.5 D6 B5 - G#5:1 B5 | A5:1.5 C6:.5 E6:2
        C6:.5 B5 A5 - E6:1 A6 | F6:.5 E6 D6 - A5:1 D6 | B5:.5 C6 D6 E6 F6 D6 B5 G#5 | A5:2 -
        """, 32, 0.26, -0.1)
    chorus = """
        C5:1.5 F5:.5 A5:2 | B4:1.5 D5:.5 G5:2 | E5:1 G5 C6 B5 | G#5:3 -:1
        A5:1.5 C6:.5 A5:1 F5 | D5:1 F5 A5 F5 | E5 G#5 B5 D6 | C6:1 - A5 -
        """
    piece.line(band.trumpet, chorus, 64, 0.26, 0.15, length=0.9)
    piece.line(band.trombone, chorus, 64, 0.2, 0.3, shift=-12, length=0.9)
    return piece


def player_icon():
    piece = patio(124, 48)
    changes = "Gm7 C9 Gm7 C9 Gm7 C9 Gm7 D7b9 Cm7 F9 Bbmaj7 D7b9"
    piece.bass(band.upright_bass, changes, "R..5R.A.", low=31, gain=0.6)
    piece.comp(band.piano, changes, "..x.x...", low=58, gain=0.5, pan=-0.35, hold=0.4)
    piece.drum(band.shaker, "X.xxX.xx", gain=0.35, pan=0.35)
    piece.drum(band.cowbell, "x.x.", gain=0.25, pan=0.2)
    piece.drum(band.conga, "..o...xx", gain=0.5, pan=-0.3)
    piece.drum(band.conga_slap, "..x.....", gain=0.3, pan=-0.3)
    piece.drum(band.bongo, "xoooxooo" * 2, beats=4, gain=0.16, pan=0.4)
    piece.line(band.flute, """
        D5:.5 G5 - Bb5 A5:1 G5:.5 F5 | E5:1 G5:.5 Bb5 A5:2 | D5:.5 G5 - Bb5 D6:1 C6:.5 Bb5 | A5:1.5 G5:.5 E5:2
        F5:.5 G5 - D6 C6:1 Bb5:.5 A5 | G5:.5 E5 C5 E5 G5:2 | Bb5:.5 A5 G5 F5 D5:1 G5 | F#5:1.5 Eb5:.5 C5:2
        Eb5:.5 G5 Bb5 D6 C6:2 | A5:.5 C6 Eb6 D6 C6:1 A5 | Bb5:.5 F5 D5 F5 A5:2 | F#5:.5 A5 C6 Eb6 D6:1 -
        """, 0, 0.34, 0.1, length=0.85)
    return piece


def begin_game():
    piece = patio(208, 64)
    changes = "D D A7 A7 A7 A7 D D G A7 F#m7 Bm7 Em7 A7 D D"
    piece.bass(band.upright_bass, changes, TUMBAO, low=33, gain=0.6)
    montuno(piece, changes, gain=0.36)
    percussion(piece)
    piece.drum(band.kick, "x.x.", gain=0.3)
    piece.line(band.trumpet, """
        A4:.5 D5 F#5 A5 - F#5 D5:1 | F#5:.5 A5 - F#5 D5:2 | A4:.5 C#5 E5 G5 - E5 C#5:1 | E5:.5 G5 - E5 C#5:2
        A4:.5 C#5 E5 G5 - B5 A5:1 | G5:.5 E5 - C#5 A4:2 | D5:.5 F#5 A5 D6 - A5 F#5:1 | D5:1 - - -
        """, 0, 0.26, 0.15, length=0.85)
    piece.line(band.trombone, "D4:4 F#4 E4 G4 C#4 E4 F#4:2 A4 D4:4", 0, 0.2, 0.3, length=0.5)
    piece.line(band.flute, """
        B5:1 D6:.5 B5 G5:2 | C#6:1 E6:.5 C#6 A5:2 | A5:1 C#6:.5 A5 F#5:2 | B5:1 D6:.5 B5 F#5:2
        G5:.5 B5 E6 D6 B5:1 G5 | A5:.5 C#6 E6 G6 E6:1 C#6 | D6:1.5 F#6:.5 A5:2 | D6:1 - - -
        """, 32, 0.3, -0.1)
    piece.line(band.trumpet, "-:2 B4+D5 | -:2 C#5+E5 | -:2 A4+C#5 | -:2 B4+D5 | -:2 G4+B4 | -:2 A4+C#5 | D5+F#5:1 - A4+D5 -",
               32, 0.2, 0.2, length=0.4)
    return piece


def draw_card():
    piece = patio(126, 32)
    changes = "Am9 Am9 Dm9 E7b9 Am9 Fmaj7 Bm7b5 E7b9"
    piece.comp(band.nylon, changes, "x.x..x.x", low=57, gain=0.6, pan=-0.25, hold=0.6)
    piece.bass(band.upright_bass, changes, "R--5R--5", low=33, gain=0.6)
    piece.drum(band.rim, BOSSA, beats=8, gain=0.3, pan=0.3)
    piece.drum(band.shaker, "xoxoxoxo", gain=0.28, pan=0.4)
    piece.drum(band.kick, "x..xx..x", gain=0.3)
    piece.line(band.vibraphone, """
        -:1 E5:.5 G5 B5:2 | -:1 A5:.5 G5 E5:2 | -:1 F5:.5 A5 C6:1.5 A5:.5 | G#5:1.5 F5:.5 D5:2
        -:1 E5:.5 G5 B5:1 C6 | A5:1.5 C6:.5 E5:2 | D5:.5 F5 A5 F5 B4:2 | D5:1 F5 G#4 -
        """, 0, 0.5, 0.2)
    return piece


def short(bpm, beats, tail=0.5):
    return patio(bpm, beats, False, tail=tail)


def right_answer():
    piece = short(180, 4)
    piece.line(band.trumpet, "C5:.5 E5 G5 - G5+C6:1.5", gain=0.4, length=0.9)
    piece.line(band.piano, "C4+E4+G4:.5 - - C4+E4+G4+C5 - E4+G4+C5:1", gain=0.5)
    piece.drum(band.clave, "x..x..x.", gain=0.4)
    piece.drum(band.conga, "..x.xx..", gain=0.5)
    return piece


def wrong_answer():
    piece = short(160, 3.5)
    piece.line(band.trombone, "E4:.5 Eb4 - D4 C#4:1.5", gain=0.4)
    piece.line(band.trumpet, "Bb4:.5 A4 - Ab4 G4:1.5", gain=0.25)
    piece.drum(band.conga_slap, "xx.xX...", gain=0.4)
    piece.drum(band.cowbell, "....x...", gain=0.25)
    return piece


def good_roll():
    piece = short(200, 4)
    piece.drum(band.timbale, "xxxxxxX.", gain=0.4)
    piece.line(band.trumpet, "-:2 E5:.5 G5 C6:1", gain=0.35)
    piece.line(band.piano, "C4+E4:.5 E4+G4 G4+C5 C5+E5 - G4+C5+E5:1", gain=0.5)
    piece.drum(band.cowbell, "x.x.x...", gain=0.25)
    return piece


def bad_roll():
    piece = short(180, 4)
    piece.line(band.piano, "E5+G#5:.5 D5+F5 B4+D5 - G#4+B4 F4+Ab4:1.5", gain=0.5)
    piece.line(band.upright_bass, "E3:.5 D3 B2 - F2:1.5", gain=0.6)
    piece.drum(band.low_conga, "x.x.x...", gain=0.5)
    return piece


def good_move():
    piece = short(180, 4)
    piece.line(band.flute, "A5:.5 C6 - E6 D6 E6 A6:1", gain=0.35)
    piece.line(band.upright_bass, "A2:.5 - - E2 - - A2:1", gain=0.6)
    piece.drum(band.conga, "x.oxx.xx", gain=0.5)
    piece.drum(band.clave, "x..x..x.", gain=0.35)
    return piece


def bad_move():
    piece = short(180, 4)
    piece.line(band.flute, "E6:.5 C6 - A5 G#5 F5 E5:1", gain=0.35)
    piece.line(band.upright_bass, "A2:.5 - - F2 - - E2:1", gain=0.6)
    piece.drum(band.conga_slap, "x..x..x.", gain=0.4)
    return piece


def good_point():
    piece = short(180, 3.5)
    piece.line(band.vibraphone, "G5:.5 B5 - D6+G6:1.5", gain=0.6)
    piece.line(band.nylon, "G3+B3+D4:.5 - - G3+B3+D4+G4:1.5", gain=0.6)
    piece.drum(band.bongo, "xx.x.x..", gain=0.35)
    return piece


def bad_point():
    piece = short(170, 3.25)
    piece.line(band.nylon, "E4+G4:.5 Eb4+Gb4 - D4+F4:1.5", gain=0.7)
    piece.line(band.trombone, "-:1.5 B3:1.25", gain=0.25)
    piece.drum(band.low_conga, "x..x....", gain=0.5)
    return piece


def lose_turn():
    piece = short(150, 3.25)
    piece.line(band.trumpet, "A4:.5 G4 F4 - E4:1.25", gain=0.35)
    piece.line(band.nylon, "-:2 E3+B3+D4+G#4:1.25", gain=0.6)
    piece.drum(band.shaker, "xoxox...", gain=0.4)
    return piece


def extra_turn():
    piece = short(200, 4.5)
    piece.line(band.trumpet, "C5:.5 - E5 G5 - A5 C6:1.5", gain=0.35)
    piece.line(band.trombone, "C4:.5 - C4 E4 - F4 G4:1.5", gain=0.25)
    piece.drum(band.cowbell, "x.xxx.x.", gain=0.25)
    piece.drum(band.conga, "x.x.xxx.", gain=0.45)
    return piece


def won_game():
    piece = patio(200, 24, False, tail=1.2)
    changes = "C G7 G7 C F/G7"
    piece.bass(band.upright_bass, changes, TUMBAO, low=33, gain=0.55)
    montuno(piece, changes)
    percussion(piece, end=20)
    piece.line(band.trumpet, """
        G4:.5 C5 E5 G5 - E5 G5:1 | F5:.5 D5 B4 D5 F5:2 | G4:.5 B4 D5 F5 - D5 F5:1 | E5:.5 C5 G4 C5 E5:2
        F5:.5 A5 C6 A5 B5 G5 D6 B5 | E5+C6:.5 - E5+C6 - G5+C6:2""", gain=0.26, pan=0.15)
    piece.line(band.trombone, "E4:2 C4 | D4 B3 | D4 B3 | C4 E4 | F4 G4 | G3+E4:.5 - G3+E4 - C4+E4:2", gain=0.18, pan=0.3)
    piece.line(band.piano, "C4+E4+G4:.5 - C4+E4+G4 - C4+E4+G4+C5:2", 20, 0.5, -0.3)
    piece.line(band.upright_bass, "C2:1 C2 C2:2", 20, 0.6)
    piece.drum(band.timbale, "x.x.X...", gain=0.35, start=20)
    return piece
