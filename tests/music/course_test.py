"""What was told about each piece while it was mixed: course_test.py FOLDER."""
import json
import pathlib
import sys
import unittest

FOLDER = pathlib.Path(sys.argv.pop(1))
THEMES = ("new_load_game", "player_icon", "begin_game")


class Courses(unittest.TestCase):
    def pieces(self):
        for genre in ("jazz", "kids", "orchestral", "rock", "techno", "latin"):
            for event, facts in json.loads((FOLDER / f"{genre}.json").read_text()).items():
                with self.subTest(f"{genre} {event}"):
                    yield event, facts

    def test_the_tune_is_neither_drowned_nor_alone(self):
        for _, facts in self.pieces():
            self.assertTrue(-2 <= facts["lead over rest"] <= 4, facts["lead over rest"])

    def test_themes_have_sections_that_differ_and_drums_that_change(self):
        for event, facts in self.pieces():
            if event in THEMES:
                self.assertGreaterEqual(len({name for name, _ in facts["sections"]}), 3)
                self.assertGreaterEqual(facts["drum bars"], 4)


if __name__ == "__main__":
    unittest.main()
