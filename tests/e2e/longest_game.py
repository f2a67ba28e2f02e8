"""Games made for looking at: texts as long as the format allows, in several scripts, and a game that fails."""
import pathlib
import shutil
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "games"))
from common.content import CARD_COLUMNS, CARD_ACTIONS, DECK_COLUMNS, SPACE_COLUMNS, SPACE_ACTIONS  # noqa: E402
from common.recordset import recordset  # noqa: E402

LONGEST = 254
LONG_KEY = "{00000000-0000-4000-8000-000000000001}"
FAILING_KEY = "{00000000-0000-4000-8000-000000000002}"
LONG_NAME = "Ångström & Zoë’s Überlong Journey — 世界一周"
FAILING_NAME = "Six Reels"
SENTENCE = "Die weiße Füchsin Ærø zählt 🦊 1234567890 Äpfel & “naïve” crêpes im Łódź-Café, während שלום und مرحبا warten. "


def longest(start):
    """A text of the greatest length that a package may hold."""
    return (start + " " + SENTENCE * 4)[:LONGEST]


def space(number, action, data=0, message=""):
    left, top = 40 + (number - 1) % 4 * 250, 40 + (number - 1) // 4 * 300
    return {"Sequence": number, "Top": top, "Left": left, "Height": 200, "Width": 200,
            "ActionType": SPACE_ACTIONS[action], "Message": message, "Data1": data, "Data2": 0}


def card(deck, answers, message):
    texts = [*answers, "", "", "", ""][:4]
    return {"DeckID": deck, "Index": 1, "Message": message, "CorrectActionType": CARD_ACTIONS["nothing"],
            "CorrectMessage": longest("Right!"), "CorrectData1": 0, "CorrectData2": 0,
            "IncorrectActionType": CARD_ACTIONS["nothing"], "IncorrectMessage": longest("Wrong!"),
            "IncorrectData1": 0, "IncorrectData2": 0, "CorrectAnswer": 0,
            **{f"Answer{i}": text for i, text in enumerate(texts, 1)}}


CARDS = [
    card(1, ["Yes"], "Ready?"),
    card(2, ["A hen", "An egg"], "Which came first?"),
    card(3, [longest("A"), "Short", longest("C")], longest("Three")),
    card(4, [longest(f"Answer {letter}") for letter in "ABCD"], longest("Four")),
]


def settings(name, description, reels):
    return "\n".join([
        f"Game Name={name}", "Author=Zoë Ångström & Søn", "Category=Test", f"Description={description}",
        "Lower Age Range=3", "Upper Age Range=99", "Goal Type=1", "Finish Condition=100", "Loop Board=1",
        "Turn Device=1", f"Dice Used={reels}", "Max Slot Value=1", "Tries=3", "Board Image=board.png", "Splash=",
        "Help File=help.rtf", "Font=Comic Neue", "Font Size=18", "Character Category=Aliens", "Music Genre=",
        "Preferred Resolution=1280 x 800", ""])


def write_content(folder):
    spaces = [space(1, "nothing"), space(2, "nothing", 0, longest("Space two.")),
              *(space(2 + deck, "draw-card", deck) for deck in (1, 2, 3, 4)),
              space(7, "gain-points", 500, "A treasure: 500 coins!"), space(8, "nothing")]
    (folder / "spaces.xml").write_text(recordset(SPACE_COLUMNS, spaces), encoding="utf-8")
    decks = [{"Index": i, "Name": f"Deck {i}", "Bitmap": "", "BitmapPath": ""} for i in (1, 2, 3, 4)]
    (folder / "decks.xml").write_text(recordset(DECK_COLUMNS, decks), encoding="utf-8")
    for i, row in enumerate(CARDS, 1):
        (folder / f"cards{i}.xml").write_text(recordset(CARD_COLUMNS, [row]), encoding="utf-8")


def write_help(folder):
    words = "".join(f"\\u{ord(c)}?" if ord(c) > 127 else c for c in "The longest journey — naïve crêpes & all")
    (folder / "help.rtf").write_text(
        "{\\rtf1\\ansi\\ansicpg1252{\\fonttbl{\\f0 Comic Neue;}}{\\colortbl;\\red194\\green59\\blue40;}"
        f"\\qc\\f0\\fs36\\b\\cf1 {words}\\b0\\cf0\\fs24\\par\\pard\\par "
        + "Spin the reel, go one space on, and read what comes. \\i Patience!\\i0\\par " * 12 + "}", encoding="ascii")


def make(gamepack, target, key, name, reels):
    """Packs a game of that many reels into the folder `target`."""
    folder = pathlib.Path(target) / "source" / key
    folder.mkdir(parents=True)
    (folder / f"{key}.dat").write_text(settings(name, longest("A journey."), reels), encoding="utf-8")
    subprocess.run(["convert", "-size", "1040x640", "gradient:#FFE9B0-#8FD3C8", folder / "board.png"], check=True)
    write_content(folder)
    write_help(folder)
    subprocess.run([gamepack, "pack", folder, pathlib.Path(target) / f"{key}.gam"], check=True,
                   stdout=subprocess.DEVNULL)
    shutil.rmtree(folder)
