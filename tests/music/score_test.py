"""What a score means, which faults stop a build, and what a piece does at its end."""
import pathlib
import sys
import tempfile
import unittest

import numpy as np

sys.path.insert(0, sys.argv.pop(1))
FONT = sys.argv.pop(1)
import machines  # noqa: E402
from figures import Harmony, Task, bass, comp, walk, written  # noqa: E402
from loudness import integrated, limited  # noqa: E402
from mix import LOUDNESS, closed, mixed  # noqa: E402
from performance import strokes  # noqa: E402
from sampler import RATE, Orchestra  # noqa: E402
from score import Genre, check  # noqa: E402
from theory import Wrong, led, pitch, tones, voicing  # noqa: E402

BAND = "player tune 73 lead\nplayer bass 32 bass low=28\nplayer piano 0\nplayer drums 128:0 drums\n"


def genre(text):
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / "polka.score"
        path.write_text(BAND + text)
        return Genre(path)


def piece(text, head="piece dance bpm=60"):
    return genre(f"{head}\n{text}").pieces["dance"]


def task(chords, bars=1):
    player = genre("piece none\n").players["bass"]
    return Task(player, Harmony(chords.split(), 4), 0.0, 4.0 * bars, {}, np.random.default_rng(1))


class Notation(unittest.TestCase):
    def test_pitches(self):
        for name, key in {"A4": 69, "C4": 60, "Bb3": 58, "F#5": 78, "C-1": 0}.items():
            self.assertEqual(pitch(name), key, name)

    def test_lines(self):
        rows = {
            "C4:4": [(0, (60,), 4)],
            "C4:.5 D4 E4:3": [(0, (60,), 0.5), (0.5, (62,), 0.5), (1, (64,), 3)],
            "-:1.5 C4+E4:2.5": [(1.5, (60, 64), 2.5)],
            "C4:4 | ~:1 D4:3": [(0, (60,), 5), (5, (62,), 3)],
        }
        for text, notes in rows.items():
            played = written(text, task("C C", bars=text.count("|") + 1))
            self.assertEqual([(note.beat, note.keys, note.beats) for note in played], notes, text)

    def test_swing_delays_the_second_half_of_a_beat(self):
        dance = piece("tune C4:4", "piece dance bpm=60 swing=.66")
        self.assertEqual([round(dance.seconds(beat), 6) for beat in (0, 0.5, 1, 1.5)], [0, 0.66, 1, 1.66])

    def test_chords_move_as_little_as_they_can(self):
        self.assertEqual(voicing("C", 60), [60, 64, 67])
        self.assertEqual(led("F", [60, 64, 67], 60), [60, 65, 69])
        self.assertEqual(led("G7", [60, 65, 69], 60), [59, 62, 65, 67])

    def test_bass_figures(self):
        rows = {("C", "R"): 36, ("C", "3"): 40, ("Cm", "3"): 39, ("C", "5"): 43, ("Bdim", "5"): 41, ("C7", "7"): 46,
                ("C", "8"): 48, ("C^E", "R"): 28, ("C", "N"): 29, ("C", "A"): 28}
        for (name, letter), key in rows.items():
            note = next(bass([letter + "---"], task(f"{name} F")))
            self.assertEqual((note.keys[0], note.beats), (key, 4), (name, letter))

    def test_a_walking_bass_has_the_chord_on_strong_beats(self):
        for note in walk([], task("Dm7 G7 Cmaj9 A7b9", bars=4)):
            if note.beat % 2 == 0:
                self.assertIn(note.keys[0] % 12, tones("Dm7 G7 Cmaj9 A7b9".split()[int(note.beat // 4)]))

    def test_a_chord_may_come_early(self):
        early = list(comp(["x..>"], task("C F", bars=1)))
        self.assertEqual({key % 12 for key in early[1].keys}, tones("F"))

    def test_sections_take_over_from_others_and_end_in_a_fill(self):
        dance = genre("groove two\nkick x.x.\nfill\nsnare xxxx\npiece dance\nform A B\nsection A\nchords C F\ntune C5:4"
                      "\ndrums two\nsection B like A\ntune D5:4\n").pieces["dance"]
        self.assertEqual([note.keys[0] for note in dance.notes["tune"]], [72, 72, 74, 74])
        self.assertEqual([(note.beat, note.keys[0]) for note in dance.notes["drums"]][:6],
                         [(0, 36), (2, 36), (4, 38), (5, 38), (6, 38), (7, 38)])


class Faults(unittest.TestCase):
    def test_each_says_where_it_is(self):
        rows = {
            "tune C4:4 | D4:3": "polka, dance, section A, tune: bar 2, beat 4: the bar has 3 beats, not 4",
            "tune C4:3 D4:2": "polka, dance, section A, tune: bar 1, beat 6: the bar has 5 beats, not 4",
            "tune C4:4 | D4:4 E4:1": "polka, dance, section A, tune: bar 2, beat 5: E4:1 is behind the bar's end",
            "tune C4:4 | D4 | E4": "polka, dance, section A, tune: bar 3, beat 1: the line has 3 bars, its section 2",
            "tune H4:4": "polka, dance, section A, tune: bar 1, beat 1: 'H4' is no note",
            "bass C2:4 | C2:2 F#2": "polka, dance, bass: bar 2, beat 3: the bass is not of F",
            "piano X": "polka, dance, section A, piano: bar 1, beat 1: 'X' is no note",
        }
        for text, fault in rows.items():
            with self.assertRaises(Wrong) as caught:
                piece(f"chords C F\n{text}")
            self.assertEqual(str(caught.exception), fault, text)

    def test_a_bass_that_is_held_over_the_bar_must_be_of_the_next_chord(self):
        piece("chords C F\nbass bass R--5--N- ---5--5-")
        with self.assertRaisesRegex(Wrong, "bar 2, beat 1: the bass is not of F"):
            piece("chords C F\nbass bass R-----3- ---R----")

    def test_no_note_sounds_behind_the_end(self):
        with self.assertRaisesRegex(Wrong, "tune: bar 2, beat 4: a note behind the end"):
            dance = piece("chords C F\ntune C4:4")
            late = dance.notes["tune"][-1]._replace(beat=7, beats=2)
            dance.notes["tune"].append(late)
            check(dance)


class Playing(unittest.TestCase):
    TEXT = "chords C F\ndrums hat xxxxxxxx\nbass bass R-5-\ntune C5:1 D5 E5 F5"

    def test_hits_differ_and_are_the_same_in_each_run(self):
        first, second = (strokes(dance, dance.genre.players["drums"])
                         for dance in (piece(self.TEXT), piece(self.TEXT)))
        self.assertEqual(first, second)
        self.assertGreater(len({stroke.velocity for stroke in first}), 5)
        self.assertGreater(max(abs(stroke.at - round(stroke.at * 2) / 2) for stroke in first), 0.001)

    def test_a_key_is_up_before_it_is_struck_again(self):
        dance = piece("tune C5:.5 C5 C5 C5 C5 C5 C5 C5")
        dance.genre.players["tune"].length = 1.5
        played = strokes(dance, dance.genre.players["tune"])
        self.assertTrue(all(one.until < other.at for one, other in zip(played, played[1:])))


class Sound(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.orchestra = Orchestra(FONT)

    def test_a_piece_is_as_loud_as_all_others_and_its_tune_over_the_rest(self):
        for band in ("bass bass R-5-", "drums kick x.x.; hat oooo", "piano comp X---"):
            stereo, tracks = mixed(piece(f"chords C F\n{band}\ntune C5:1 D5 E5 F5"), self.orchestra)
            self.assertEqual(stereo.shape[1], 8 * RATE)
            self.assertAlmostEqual(integrated(stereo, RATE), LOUDNESS, delta=0.3)
            self.assertLess(np.max(np.abs(stereo)), 0.8)
            rest, lead = (integrated(track.sound, RATE) for track in sorted(tracks, key=lambda t: t.player.leads))
            self.assertAlmostEqual(lead - rest, 1.0, delta=0.1)

    def test_players_are_on_tracks_of_their_own_and_in_time(self):
        dance = piece("chords C\npiano -:2 C5+E5:2\ntune A4:2 -")
        parts = [(dance.genre.players[name].instrument, strokes(dance, dance.genre.players[name]))
                 for name in ("piano", "tune")]
        piano, tune = self.orchestra.play(parts, 4 * RATE)
        self.assertEqual(np.max(np.abs(piano[:, :int(1.9 * RATE)])), 0)
        self.assertGreater(np.std(piano[:, 2 * RATE:3 * RATE]), 0.001)
        spectrum = np.abs(np.fft.rfft(tune[0, RATE // 2:RATE // 2 + RATE] * np.hanning(RATE)))
        self.assertAlmostEqual(np.argmax(spectrum[400:480]) + 400, 440, delta=3)

    def test_machines_are_in_tune(self):
        for name in ("acid", "sub", "pluck", "supersaw", "pad"):
            sound = machines.MACHINES[name](69, 1.0)[:RATE]
            ratio = np.argmax(np.abs(np.fft.rfft(sound * np.hanning(len(sound))))) / 440
            self.assertAlmostEqual(ratio, max(round(ratio), 1), delta=0.02, msg=name)

    def test_a_loop_takes_what_rings_at_its_end_to_its_beginning(self):
        sound = np.arange(20.0).reshape(2, 10)
        looped = closed(sound.copy(), piece("tune C4:4"), 8)
        self.assertEqual(looped.tolist(), [[8, 10, 2, 3, 4, 5, 6, 7], [28, 30, 12, 13, 14, 15, 16, 17]])
        ended = closed(np.ones((2, RATE)), piece("tune C4:4", "piece dance once"), 8)
        self.assertLess(np.max(np.abs(ended[:, -10:])), 1e-3)

    def test_loudness_is_that_of_the_standard(self):
        wave = 0.1 * np.sin(2 * np.pi * 997 * np.arange(RATE * 3) / RATE)
        self.assertAlmostEqual(integrated(np.array([wave, wave]), RATE), -20.0, delta=0.05)
        self.assertAlmostEqual(integrated(np.array([wave, wave]), RATE, above=200), -20.0, delta=0.05)
        self.assertLess(integrated(np.array([wave, wave]), RATE, above=2000), -45)

    def test_the_limiter_knows_that_a_loop_goes_round(self):
        wave = np.full((2, RATE), 0.1)
        wave[:, 0] = 1.0
        turned_down = limited(wave, RATE, 0.5, circular=True)
        self.assertAlmostEqual(turned_down[0, 0], 0.5, delta=0.001)
        self.assertAlmostEqual(turned_down[0, -1], 0.05, delta=0.001)
        self.assertAlmostEqual(turned_down[0, RATE // 2], 0.1)


if __name__ == "__main__":
    unittest.main()
