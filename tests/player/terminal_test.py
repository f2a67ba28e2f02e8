"""Runs the built Player where there is no display: it plays a game in the terminal, and leaves nothing behind.

    terminal_test.py BUILD_FOLDER
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

BUILD = pathlib.Path(sys.argv.pop()).resolve()
DISPLAYS = ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")


class Terminal(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.prefix = pathlib.Path(folder.name)
        (self.prefix / "share").symlink_to(BUILD / "share")
        shutil.copytree(BUILD / "var", self.prefix / "var", ignore=lambda *_: ["settings.db"])
        (self.prefix / "bin").mkdir()
        for program in ("tabulon-player", "tabulon-setup"):
            shutil.copy2(BUILD / "bin" / program, self.prefix / "bin")
        self.run_program("tabulon-setup")

    def run_program(self, name, **displays):
        clean = {key: value for key, value in os.environ.items() if key not in DISPLAYS}
        return subprocess.run([self.prefix / "bin" / name], env=dict(clean, XDG_RUNTIME_DIR=str(self.prefix), **displays),
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)

    def test_a_display_that_is_not_there_gives_a_game_in_the_terminal(self):
        games = self.prefix / "var/games/tabulon"
        before = sorted(games.iterdir())
        for displays in ({}, {"DISPLAY": ":59999"}, {"WAYLAND_DISPLAY": "nobody"}, {"QT_QPA_PLATFORM": "nothing"}):
            with self.subTest(displays):
                played = self.run_program("tabulon-player", **displays)
                self.assertIn("There is no display to open a window on", played.stdout)
                self.assertTrue(played.stdout.endswith("The game is over.\n"), played.stdout[-200:])
                self.assertEqual(played.returncode, 0)
                self.assertEqual(sorted(games.iterdir()), before)


if __name__ == "__main__":
    unittest.main()
