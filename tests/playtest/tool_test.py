"""Runs the built tool: what it leaves behind, and what it takes from the Player that it is installed with.

    tool_test.py BUILD_FOLDER
"""
import json
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import unittest
import zipfile

BUILD = pathlib.Path(sys.argv.pop())
TOOL = BUILD / "bin" / "tabulon-playtest"
GAME = "{00000000-0000-4000-8000-000000000002}"
SETTINGS = "Game Name=Idle\r\nSplash=DEFAULT\r\nGoal Type=2\r\nLoop Board=1\r\nDice Used=1\r\n"
SPACES = "<xml xmlns:rs='urn:schemas-microsoft-com:rowset'><rs:data/></xml>"


class Tool(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.work = self.folder / "work"
        self.work.mkdir()
        self.package = self.folder / (GAME + ".gam")
        with zipfile.ZipFile(self.package, "w") as package:
            package.writestr(GAME + ".dat", SETTINGS)
            package.writestr("spaces.xml", SPACES)

    def start(self, *arguments, **streams):
        return subprocess.Popen([TOOL, *arguments], stderr=subprocess.PIPE, text=True,
                                env=dict(os.environ, TMPDIR=str(self.work)), **streams)

    def script(self, steps=0):
        script = self.folder / "script.json"
        script.write_text(json.dumps({"package": self.package.name, "clock": "2026-01-05T14:30:00", "random": [0.5],
                                      "players": [{"name": "Ann", "piece": "(Animals) 1"}],
                                      "steps": steps * [{"click": "cmdSoundOn"}]}))
        return script

    def start_waiting_script(self):
        """A script under way that waits for somebody to read its trace."""
        tool = self.start("--script", self.script(steps=2000), stdout=subprocess.PIPE)
        tool.stdout.read(1)
        self.assertEqual(len(list(self.work.iterdir())), 1)
        return tool

    def test_default_title_page_comes_with_the_player(self):
        trace, _ = self.start("--script", self.script(), stdout=subprocess.PIPE).communicate()
        failed = {json.loads(line).get("procedure") for line in trace.splitlines()}
        self.assertIn("frmMain:LoadGameBoard", failed)  # the game has no board
        self.assertNotIn("frmSplash:SetUp", failed)

    def test_a_closed_pipe_is_told(self):
        end, pipe = os.pipe()
        os.close(end)
        tool = self.start(self.package, "--games", "1", stdout=pipe)
        os.close(pipe)
        self.assertIn("the output cannot be written", tool.communicate()[1])
        self.assertEqual(tool.returncode, 1)

    def test_nothing_is_left_behind_by_who_is_interrupted(self):
        tool = self.start(self.package, "--games", "1000000000", stdout=subprocess.DEVNULL)
        while not list(self.work.glob("*/*.gam")):
            self.assertIsNone(tool.poll())
        tool.send_signal(signal.SIGINT)
        tool.communicate()
        self.assertEqual(tool.returncode, -signal.SIGINT)
        self.assertEqual(list(self.work.iterdir()), [])

    def test_a_script_that_is_interrupted_leaves_nothing_behind(self):
        tool = self.start_waiting_script()
        tool.terminate()
        tool.communicate()
        self.assertEqual(tool.returncode, -signal.SIGTERM)
        self.assertEqual(list(self.work.iterdir()), [])

    def test_what_a_killed_script_left_goes_with_the_next_run(self):
        tool = self.start_waiting_script()
        tool.kill()
        tool.communicate()
        left = list(self.work.iterdir())
        self.start("--script", self.script(), stdout=subprocess.DEVNULL).communicate()
        self.assertEqual((len(left), list(self.work.iterdir())), (1, []))

    def test_a_run_leaves_the_folders_of_others_alone(self):
        tool = self.start_waiting_script()
        used = list(self.work.iterdir())
        self.start("--script", self.script(), stdout=subprocess.DEVNULL).communicate()
        self.assertEqual(list(self.work.iterdir()), used)
        tool.communicate()
        self.assertEqual(tool.returncode, 0)


if __name__ == "__main__":
    unittest.main()
