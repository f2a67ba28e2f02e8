#!/usr/bin/env python3
"""Looks through a game folder, ready to be packed, for the mistakes that only show when a family plays.

    check_game.py FOLDER
"""
import pathlib
import re
import struct
import sys

from check_cards import check_decks, rows_of

COLUMNS = {"Sequence", "Top", "Left", "Height", "Width", "ActionType", "Message", "Data1", "Data2"}
NUMBERS = ("Dice Used", "Finish Condition", "Font Size", "Goal Type", "Loop Board", "Lower Age Range", "Max Slot Value",
           "Tries", "Turn Device", "Upper Age Range")
TEXTS = ("Author", "Category", "Description", "Game Name", "Font", "Character Category", "Music Genre",
         "Preferred Resolution", "Board Image", "Splash", "Help File")
CLEANED_UP = {".jpg", ".bmp", ".gif"}  # other pictures would be left behind in the player's folder
FORWARD, BACK, GO_TO, TO_START, LOSE, GAIN, PAY_EACH, COLLECT, ROLL_DOUBLE, ROLL_NUMBER = 1, 2, 3, 4, 5, 6, 7, 8, 11, 12
END_OF_BOARD, DICE, REELS = "2", "0", "1"

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
    expect(settings.get("Tries", "0") != "0", "a computer that answers wrong would wait without end")
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
    rows = rows_of(folder / "spaces.xml")
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
    if settings["Goal Type"] == END_OF_BOARD:
        expect(settings["Loop Board"] == "0", "a race on a ring has no end")
        check_race(rows, count, 6 * int(settings["Dice Used"]))
    else:
        check_ring(rows, count, settings)
    return rows


def check_sentences(rows):
    spoken = {}
    for number, row in enumerate(rows, 1):
        for sentence in filter(None, re.split(r"(?<=[.!?])\s+", row["Message"].strip())):
            expect(spoken.setdefault(sentence, number) == number, f"spaces {spoken[sentence]} and {number} say: {sentence}")


def check_race(rows, count, highest_roll):
    """A race must go forward for everybody and end on the last space by a roll."""
    check_sentences(rows)
    for number, row in enumerate(rows[:-1], 1):
        action, amount = int(row["ActionType"]), float(row["Data1"])
        expect(action not in (LOSE, GAIN, PAY_EACH, COLLECT), f"space {number} deals in points, which a race does not show")
        if action == FORWARD:
            furthest = number + (highest_roll if amount == -1 else amount)
            expect(furthest < count, f"space {number} can carry a piece to the end, or round to the start")
        if action == BACK:
            expect(number - amount >= 1, f"space {number} can carry a piece back to the end of the board")
        if action == GO_TO:
            expect(1 <= amount < count and amount != number, f"space {number} leads nowhere")
        if action == ROLL_NUMBER:
            expect(2 <= amount <= highest_roll, f"space {number} asks for a number that no roll gives")


def check_ring(rows, count, settings):
    """A game for points or money must let everybody earn, and nobody lose before the first turn is over."""
    devices = int(settings["Dice Used"])
    expect(int(settings["Finish Condition"]) > 0, "everybody has won at once")
    expect(any(int(row["ActionType"]) == GAIN for row in rows), "no space brings anything in")
    expect(settings["Turn Device"] in (DICE, REELS), "nothing makes the pieces move")
    highest = devices * (int(settings["Max Slot Value"]) if settings["Turn Device"] == REELS else 6)
    if settings["Turn Device"] == REELS:
        expect(1 <= devices <= 5, "only one to five reels can run")
    expect(highest < count, "a single turn can go more than once round")
    for number, row in enumerate(rows, 1):
        action, amount = int(row["ActionType"]), float(row["Data1"])
        if action == GO_TO:
            expect(1 <= amount <= count and amount != number, f"space {number} leads nowhere")
        if action in (FORWARD, BACK):
            expect(amount == -1 or 1 <= amount < count, f"space {number} moves by {amount}")
        if action in (PAY_EACH, COLLECT):
            # Two turns bring everybody an income before anybody has to pay.
            expect(number > 2 * highest + 1, f"space {number} can put players out of the game too early")
        expect(action != ROLL_DOUBLE, f"space {number} binds another player than the one who stands on it")
        expect(action != ROLL_NUMBER, f"space {number} binds a player for the rest of the game")


def main():
    folder = pathlib.Path(sys.argv[1])
    settings = read_settings(folder)
    check_files(folder, settings)
    check_decks(folder, check_spaces(folder, settings), expect)
    for fault in faults:
        print(fault)
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
