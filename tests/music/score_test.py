"""What a score means, and what a piece does at its end."""
import sys
import unittest

import numpy as np

sys.path.insert(0, sys.argv.pop(1))
import instruments  # noqa: E402
from loudness import integrated, limited  # noqa: E402
from score import LOUDNESS, Piece, changes, pitch, voicing  # noqa: E402
from synth import RATE, frequency, tone  # noqa: E402


def written(text, **more):
    """When a line plays which keys, in seconds."""
    piece = Piece(60, 8, **more)
    played = []
    piece.sound = lambda instrument, keys, duration: played.append((tuple(keys), round(duration, 3))) or np.zeros(1)
    times = []
    piece.add = lambda sound, beat, *rest: times.append(round(piece.place(beat) / RATE, 3))
    piece.line(None, text)
    return [(time, *note) for time, note in zip(times, played)]


def loudest(sound):
    """The pitch that is strongest in it."""
    spectrum = np.abs(np.fft.rfft(sound * np.hanning(len(sound))))
    return np.argmax(spectrum) * RATE / len(sound)


class Notation(unittest.TestCase):
    def test_pitches(self):
        for name, key in {"A4": 69, "C4": 60, "Bb3": 58, "F#5": 78, "C-1": 0}.items():
            self.assertEqual(pitch(name), key, name)

    def test_lines(self):
        rows = {
            "C4": [(0, (60,), 1)],
            "C4:.5 D4 E4:2": [(0, (60,), 0.5), (0.5, (62,), 0.5), (1, (64,), 2)],
            "-:1.5 C4+E4:1 | - D4": [(1.5, (60, 64), 1), (3.5, (62,), 1)],
        }
        for text, notes in rows.items():
            self.assertEqual(written(text), notes, text)

    def test_swing_delays_the_second_half_of_a_beat(self):
        self.assertEqual(written("C4:.5 D4 E4", swing=0.66), [(0, (60,), 0.66), (0.66, (62,), 0.34), (1, (64,), 0.66)])

    def test_chords(self):
        self.assertEqual(voicing("C", 60), [60, 64, 67])
        self.assertEqual(voicing("Am7", 60), [60, 64, 67, 69])
        self.assertEqual(list(changes("C F/G7")), [("C", 4), ("F", 2), ("G7", 2)])

    def test_bass_figures(self):
        rows = {("C", "R"): 36, ("C", "3"): 40, ("Cm", "3"): 39, ("C", "5"): 43, ("Bdim", "5"): 53, ("C7", "7"): 46,
                ("C", "8"): 48, ("C", "N"): 29, ("C", "A"): 28}
        for (name, letter), key in rows.items():
            low = 24 if letter in "NA" else 36
            self.assertEqual(Piece.bass_note(name, letter, "F", low), key, (name, letter))


class Sound(unittest.TestCase):
    def test_instruments_are_in_tune(self):
        for name in ("piano", "flute", "strings", "trumpet", "acid", "vibraphone", "lead_guitar", "upright_bass"):
            sound = getattr(instruments, name)([69], 1.0)[:RATE]
            ratio = loudest(sound) / frequency(69)
            self.assertAlmostEqual(ratio, max(round(ratio), 1), delta=0.02, msg=name)

    def test_a_loop_takes_what_rings_at_its_end_to_its_beginning(self):
        piece = Piece(120, 4, loop=True, room=(0.5, 4000, 0.2))
        piece.line(instruments.vibraphone, "-:3.5 A4:.5")
        stereo = piece.mixed()
        self.assertEqual(stereo.shape[1], 2 * RATE)
        self.assertGreater(np.std(stereo[:, :RATE // 4]), 0.1 * np.std(stereo[:, -RATE // 4:]))

    def test_a_sound_that_ends_ends_in_silence(self):
        piece = Piece(120, 2, loop=False, tail=0.5)
        piece.line(instruments.strings, "A4:2")
        stereo = piece.mixed()
        self.assertEqual(stereo.shape[1], RATE * 3 // 2)
        self.assertLess(np.max(np.abs(stereo[:, -100:])), 1e-3)

    def test_loudness_is_that_of_the_standard(self):
        wave = 0.1 * tone(lambda n: np.where(n == 1, 1.0, 0.0), 997, RATE * 3)
        wave = wave / np.max(np.abs(wave)) * 0.1
        self.assertAlmostEqual(integrated(np.array([wave, wave]), RATE), -20.0, delta=0.05)

    def test_pieces_come_out_equally_loud_and_below_the_ceiling(self):
        for instrument, text in ((instruments.harp, "C4:1 - - -"), (instruments.strings, "C3+G3:4"),
                                 (instruments.power_guitar, "E2:.5 - E2 -")):
            piece = Piece(120, 4)
            piece.line(instrument, text)
            stereo = piece.rendered()
            self.assertAlmostEqual(integrated(stereo, RATE), LOUDNESS, delta=0.3)
            self.assertLess(np.max(np.abs(stereo)), 0.8)

    def test_the_limiter_knows_that_a_loop_goes_round(self):
        wave = np.full((2, RATE), 0.1)
        wave[:, 0] = 1.0
        turned_down = limited(wave, RATE, 0.5, circular=True)
        self.assertAlmostEqual(turned_down[0, 0], 0.5, delta=0.001)
        self.assertAlmostEqual(turned_down[0, -1], 0.05, delta=0.001)
        self.assertAlmostEqual(turned_down[0, RATE // 2], 0.1)


if __name__ == "__main__":
    unittest.main()
