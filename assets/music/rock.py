"""A rock band: drums, electric bass, two overdriven guitars, a lead guitar."""
import instruments as band
from score import Piece

STAGE = (1.0, 4000, 0.12)


def stage(bpm, beats, loop=True, **more):
    return Piece(bpm, beats, loop, room=STAGE, **more)


def drums(piece, kick="X..x.x..", snare="..X...X.", hat="xoxoxoxo", crash=16, start=0.0, end=None):
    piece.drum(band.kick, kick, gain=0.75, start=start, end=end)
    piece.drum(band.snare, snare, gain=0.7, start=start, end=end)
    piece.drum(band.hat, hat, gain=0.4, pan=0.3, start=start, end=end)
    if crash:
        piece.drum(band.crash, "X" + "." * (crash - 1), beats=crash, gain=0.35, pan=-0.3, start=start, end=end)


def guitars(piece, text, start=0.0, gain=0.42, instrument=band.power_guitar):
    """The same part from both sides; being played twice makes it wide."""
    end = piece.line(instrument, text, start, gain, -0.75, 0.6)
    piece.line(instrument, text, start + 0.02, gain, 0.75, 0.6)
    return end


def fifths(text):
    """Roots with their lengths, as chords of root, fifth and octave."""
    names = ["C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"]
    words = []
    for word in text.split():
        root, colon, beats = word.partition(":")
        if root not in ("-", "|"):
            step, octave = names.index(root[:-1]), int(root[-1])
            fifth, eighth = (step + 7) % 12, octave + 1
            root = f"{root}+{names[fifth]}{octave + (step + 7) // 12}+{names[step]}{eighth}"
        words.append(root + colon + beats)
    return " ".join(words)


def new_load_game():
    piece = stage(132, 64)
    drums(piece)
    riff = "E2:1 E2:.5 G2:1 A2:.5 E2:.5 D2 | E2:1 E2:.5 B2:1 A2:.5 G2 A2"
    for start in (0, 8, 16, 24):
        guitars(piece, fifths(riff), start)
        piece.line(band.electric_bass, riff, start, 0.36)
    chorus = "G2:1.5 G2:.5 D3:1.5 D3:.5 | A2:1.5 A2:.5 C3:1 D3:1"
    for start in (32, 40, 48):
        guitars(piece, fifths(chorus), start)
    guitars(piece, fifths("C3:1.5 C3:.5 A2:1.5 A2:.5 | B2:1.5 B2:.5 B2:1 D3:1"), 56)
    piece.bass(band.electric_bass, "G D A C/D G D A C/D G D A C/D C A B B", "RRRRRRRR", low=28, gain=0.34, start=32)
    piece.line(band.lead_guitar, """
        -:.5 B4 D5 E5 G5:1 E5 | D5:.5 E5 D5 B4 A4:1 G4 | -:.5 B4 D5 E5 G5:1 A5 | B5:3 -:1
        """, 16, 0.32, 0.1)
    piece.line(band.lead_guitar, """
        D5:1.5 E5:.5 F#5:1 D5 | E5:1 C5 G5:.5 F#5 E5 D5 | D5:1.5 E5:.5 F#5:1 A5 | G5:1 E5 F#5 D5
        B5:1.5 A5:.5 F#5:1 D5 | E5:1 A5 G5:.5 F#5 E5 D5 | E5:1 G5 A5 C6 | B5:2 F#5:1 D#5
        """, 32, 0.32, 0.1)
    piece.drum(band.tom, "xx..", beats=1, gain=0.6, start=31, end=32, pan=-0.2)
    piece.drum(band.low_tom, "..xx", beats=1, gain=0.6, start=31, end=32, pan=0.2)
    return piece


def player_icon():
    piece = Piece(124, 48, swing=0.64, room=STAGE)
    drums(piece, kick="X...X.o.", snare="..X...X.", hat="x.o.x.oo", crash=48)
    shuffle = {"A": "A2+E3:.5 A2+E3 A2+F#3 A2+F#3 ", "D": "D3+A3:.5 D3+A3 D3+B3 D3+B3 ", "E": "E2+B2:.5 E2+B2 E2+C#3 E2+C#3 "}
    form = "A D A A D D A A E D A E"
    for bar, name in enumerate(form.split()):
        guitars(piece, shuffle[name] * 2, bar * 4, 0.36)
    piece.bass(band.electric_bass, "A7 D7 A7 A7 D7 D7 A7 A7 E7 D7 A7 E7", "R.3.5.7.", low=28, gain=0.36)
    piece.line(band.lead_guitar, """
        -:.5 A4 C5 D5 E5:1 -:1 | -:.5 G5 E5 D5 C5:.5 A4:1.5 | -:.5 A4 C5 D5 Eb5 E5 G5:1 | A5:2 -:2
        -:.5 D5 F5 G5 A5:1 -:1 | -:.5 C6 A5 G5 F5 D5:1.5 | -:.5 C5 E5 G5 A5:1 G5:.5 E5 | C#5:2 -:2
        B5:1 G#5:.5 E5 G5:1 E5 | A5:1 F5:.5 D5 C5:1 D5 | E5:.5 G5 E5 C5 A4:2 | -:.5 E4 G4 G#4 B4:2
        """, 0, 0.34, 0.1)
    return piece


def begin_game():
    piece = stage(172, 64)
    drums(piece, kick="X.x.X.xx", snare="..X...X.", hat="x.x.x.x.")
    piece.drum(band.open_hat, "x.x.x.x.", gain=0.2, pan=0.3, start=32)
    changes = "A E F# D A E D E A E F# D A E D E"
    text = " ".join(f"{name}{3 if name in 'DA' and name == 'D' else 2}:.5 " + f"{name}{3 if name == 'D' else 2} " * 7
                    for name in changes.split())
    guitars(piece, fifths(text), gain=0.34)
    piece.bass(band.electric_bass, changes.replace("F#", "F#m"), "RRRRRRR5", low=28, gain=0.34)
    piece.line(band.lead_guitar, """
        C#5:1.5 E5:.5 A5:2 | G#5:1 E5 B4:2 | A4:1 C#5 F#5:1.5 E5:.5 | D5:1 F#5 A5:2
        C#5:1.5 E5:.5 A5:1 B5 | G#5:1.5 B5:.5 E5:2 | F#5:1 E5 D5 F#5 | E5:2 B4:1 G#4
        """, 32, 0.32, 0.1)
    piece.line(band.lead_guitar, "A5:.5 E5 C#5 E5 A5 E5 C#5 E5 | G#5 E5 B4 E5 G#5 E5 B4 E5", 0, 0.22, 0.1)
    return piece


def draw_card():
    piece = stage(118, 32)
    riff = "E2:.5 E2 E2 G2 E2 E2 A#2 A2 | E2 E2 E2 G2 E2 D2 E2 F2"
    for start in (0, 8, 16, 24):
        guitars(piece, fifths(riff), start, 0.42, band.muted_guitar)
        piece.line(band.electric_bass, "E2:2 E2:1.5 A1:.5 | E2:2 E2:1 F2", start, 0.36)
    piece.drum(band.kick, "X...x...", gain=0.7)
    piece.drum(band.rim, "..x...x.", gain=0.4, pan=-0.2)
    piece.drum(band.hat, "xxoxxxox", gain=0.35, pan=0.3)
    piece.drum(band.low_tom, "......xx", beats=8, gain=0.5, pan=0.2)
    piece.line(band.lead_guitar, "B4:3 Bb4:1 | A4:2 G4 | B4:3 D5:1 | E5:4", 16, 0.28, 0.1)
    return piece


def short(bpm, beats, tail=0.5):
    return stage(bpm, beats, False, tail=tail)


def right_answer():
    piece = short(150, 3.25)
    guitars(piece, fifths("E3:.5 G3 A3 E3:1.5"), 0, 0.42)
    piece.line(band.lead_guitar, "B4:.5 D5 E5 B5:1.5", gain=0.3)
    drums(piece, crash=0, kick="x.xX....", snare="...X....", hat="........")
    piece.drum(band.crash, "...X", beats=2, gain=0.25, end=2)
    return piece


def wrong_answer():
    piece = short(150, 3.25, 0.4)
    guitars(piece, fifths("A#2:.5 A2 G#2 F2:1.5"), 0, 0.42)
    piece.line(band.electric_bass, "A#1:.5 A1 G#1 F1:1.5", gain=0.6)
    piece.drum(band.low_tom, "xxxX....", gain=0.6)
    return piece


def good_roll():
    piece = short(170, 3.5)
    piece.drum(band.tom, "xxxx....", beats=2, gain=0.7, end=2)
    piece.drum(band.low_tom, "....xxxx", beats=2, gain=0.7, end=2)
    guitars(piece, fifths("-:2 A2:1.5"), 0, 0.46)
    piece.line(band.lead_guitar, "-:1.5 C#5:.25 E5 A5:1.5", gain=0.3)
    piece.drum(band.crash, "..X.", gain=0.3)
    return piece


def bad_roll():
    piece = short(150, 3)
    guitars(piece, fifths("E2:.25 E2 E2 E2 A#2:.5 F2:1.25"), 0, 0.4, band.muted_guitar)
    guitars(piece, fifths("-:1.5 F2:1.25"), 0, 0.42)
    piece.drum(band.snare, "x.xX....", gain=0.5)
    return piece


def good_move():
    piece = short(160, 3.5)
    guitars(piece, fifths("A2:.5 A2 C3 D3 E3:1.25"), 0, 0.42)
    piece.line(band.electric_bass, "A1:.5 A1 C2 D2 E2:1.25", gain=0.6)
    drums(piece, crash=0)
    return piece


def bad_move():
    piece = short(150, 3.25)
    guitars(piece, fifths("E3:.5 D3 C3 A2 G#2:1"), 0, 0.42)
    piece.line(band.electric_bass, "E2:.5 D2 C2 A1 G#1:1", gain=0.6)
    drums(piece, crash=0, kick="X.X.X...", snare=".x.x.X..", hat="........")
    return piece


def good_point():
    piece = short(150, 2.5)
    piece.line(band.lead_guitar, "E5:.5 G5 B5:1.25", gain=0.35)
    guitars(piece, fifths("-:1 E3:1.25"), 0, 0.4)
    drums(piece, crash=0, kick="x.X.....", snare="........", hat="xxx.....")
    return piece


def bad_point():
    piece = short(140, 2.5)
    piece.line(band.lead_guitar, "D5:.5 Bb4 E4:1.25", gain=0.35)
    guitars(piece, fifths("-:1 E2:1.25"), 0, 0.4)
    drums(piece, crash=0, kick="x.X.....", snare=".x......", hat="........")
    return piece


def lose_turn():
    piece = short(126, 2.75)
    piece.line(band.lead_guitar, "G4:.5 F4 Eb4 C4:1", gain=0.35)
    piece.line(band.electric_bass, "C2:.5 Bb1 Ab1 G1:1", gain=0.6)
    piece.drum(band.rim, "x.x.x...", gain=0.4)
    return piece


def extra_turn():
    piece = short(172, 4)
    guitars(piece, fifths("E2:.5 E2:.25 E2 G2:.5 A2 E3:1.5"), 0, 0.42)
    piece.line(band.lead_guitar, "-:2 B5:1.5", gain=0.25)
    drums(piece, crash=0, kick="X.x.X...", snare="..x.X...", hat="xxxxX...")
    return piece


def won_game():
    piece = stage(144, 16, False, tail=1.6)
    guitars(piece, fifths("A2:1.5 A2:.5 D3:1 E3 | F2:1.5 F2:.5 G2:2 | A2:1.5 A2:.5 D3:1 E3 | A2:3"), 0, 0.42)
    piece.line(band.electric_bass, "A1:1.5 A1:.5 D2:1 E2 | F1:1.5 F1:.5 G1:2 | A1:1.5 A1:.5 D2:1 E2 | A1:3", gain=0.36)
    piece.line(band.lead_guitar, "E5:.5 A5 C#6 A5 F#5:1 G#5 | A5:.5 C6 A5 F5 B5:1 D6 | C#6:.5 A5 E5 A5 D6:1 B5 | C#6:3",
               gain=0.34, pan=0.1)
    drums(piece, crash=4, end=12)
    piece.drum(band.crash, "X...", gain=0.4, start=12)
    piece.drum(band.kick, "X...", gain=0.8, start=12)
    piece.drum(band.tom, "xxxx", beats=1, gain=0.6, start=11, end=12)
    return piece
