#!/usr/bin/env python3
"""Looks through a game folder, ready to be packed, for the mistakes that only show when a family plays.

    check_game.py FOLDER
"""
import pathlib
import re
import struct
import sys
import xml.etree.ElementTree as ElementTree

COLUMNS = {"Sequence", "Top", "Left", "Height", "Width", "ActionType", "Message", "Data1", "Data2"}
NUMBERS = ("Dice Used", "Finish Condition", "Font Size", "Goal Type", "Loop Board", "Lower Age Range", "Max Slot Value",
           "Tries", "Turn Device", "Upper Age Range")
TEXTS = ("Author", "Category", "Description", "Game Name", "Font", "Character Category", "Music Genre",
         "Preferred Resolution", "Board Image", "Splash", "Help File")
CLEANED_UP = {".jpg", ".bmp", ".gif"}  # other pictures would be left behind in the player's folder
FORWARD, BACK, GO_TO, TO_START, PAY_EACH, COLLECT, ROLL_NUMBER = 1, 2, 3, 4, 7, 8, 12

faults = []


def expect(holds, fault):
    if not holds:
        faults.append(fault)


def jpeg_size(path):
    data = path.read_bytes()
    at = 2
    while True:
        marker, length = data[at + 1], struct.unpack(">H", data[at + 2:at + 4])[0]
        if marker in (0xC0, 0xC1, 0xC2):
            height, width = struct.unpack(">HH", data[at + 5:at + 9])
            return width, height
        at += 2 + length


def read_settings(folder):
    settings_files = list(folder.glob("*.dat"))
    expect(len(settings_files) == 1, "there must be one settings file")
    key = settings_files[0].stem
    expect(re.fullmatch(r"\{[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\}", key), f"{key} is no key")
    settings = {}
    for line in settings_files[0].read_text(encoding="utf-8").splitlines():
        name, equals, value = line.partition("=")
        expect(equals and name in NUMBERS + TEXTS, f"no setting: {line}")
        expect(name not in settings, f"{name} is set twice")
        settings[name] = value
        if name in NUMBERS:
            expect(re.fullmatch(r"\d+", value), f"{name} is no number: {value}")
    for name in ("Game Name", "Board Image", "Goal Type", "Turn Device"):
        expect(settings.get(name), f"{name} is missing")
    for name in ("Board Image", "Splash", "Help File"):
        if settings[name] != "DEFAULT":
            expect((folder / settings[name]).is_file(), f"{name} names {settings[name]}, which is not in the folder")
    expect(pathlib.Path(settings["Board Image"]).suffix in CLEANED_UP, "the board is no picture of a kind cleaned up")
    return settings


def check_files(folder, settings):
    names = sorted(path.name for path in folder.iterdir())
    wanted = {settings["Board Image"], settings["Splash"], settings["Help File"], "spaces.xml"} - {"DEFAULT"}
    for name in names:
        expect(name in wanted or name.endswith(".dat") or re.fullmatch(r"decks\.xml|cards\d+\.xml", name),
               f"{name} has no business in the package")
        # A file is looked for by the beginning of its name.
        expect(not any(other != name and other.startswith(name) for other in names), f"{name} begins another name")


def check_spaces(folder, settings):
    rows = [row.attrib for row in ElementTree.parse(folder / "spaces.xml").iter("{#RowsetSchema}row")]
    count = len(rows)
    width, height = jpeg_size(folder / settings["Board Image"])
    rectangles = []
    for number, row in enumerate(rows, 1):
        expect(COLUMNS <= set(row), f"space {number} lacks columns")
        expect(int(row["Sequence"]) == number, f"space {number} is out of order")
        expect(1 <= len(row["Message"]) <= 254, f"the message of space {number} does not fit")
        left, top = int(row["Left"]), int(row["Top"])
        right, bottom = left + int(row["Width"]), top + int(row["Height"])
        expect(0 <= left < right <= width and 0 <= top < bottom <= height, f"space {number} is not on the board")
        for other, (l, t, r, b) in enumerate(rectangles, 1):
            expect(right <= l or left >= r or bottom <= t or top >= b, f"spaces {other} and {number} overlap")
        rectangles.append((left, top, right, bottom))
    if settings["Goal Type"] == "2" and settings["Loop Board"] == "0":
        check_race(rows, count, 6 * int(settings["Dice Used"]))


def check_race(rows, count, highest_roll):
    """A race must go forward for everybody and end on the last space by a roll."""
    for number, row in enumerate(rows[:-1], 1):
        action, amount = int(row["ActionType"]), float(row["Data1"])
        if action == FORWARD:
            furthest = number + (highest_roll if amount == -1 else amount)
            expect(furthest < count, f"space {number} can carry a piece to the end, or round to the start")
        if action == BACK:
            expect(number - amount >= 1, f"space {number} can carry a piece back to the end of the board")
        if action == GO_TO:
            expect(1 <= amount < count and amount != number, f"space {number} leads nowhere")
        if action == PAY_EACH:
            expect(amount <= 0, f"space {number} can put the player who pays out of the race")
        expect(action != COLLECT, f"space {number} puts players without points out of the race")
        if action == ROLL_NUMBER:
            expect(2 <= amount <= highest_roll, f"space {number} asks for a number that no roll gives")


def main():
    folder = pathlib.Path(sys.argv[1])
    settings = read_settings(folder)
    check_files(folder, settings)
    check_spaces(folder, settings)
    for fault in faults:
        print(fault)
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
