"""The contents of a game, from the tables that its author writes to the files that the Player reads."""
import csv

from common.recordset import INT, SINGLE, recordset, text

# What a space or card can order, and the number by which the Player knows it.
ACTIONS = {
    "draw-card": 0,
    "forward": 1,
    "back": 2,
    "go-to": 3,
    "to-start": 4,
    "lose-points": 5,
    "gain-points": 6,
    "pay-each-player": 7,
    "collect-from-each": 8,
    "lose-turns": 9,
    "extra-turns": 10,
    "roll-double": 11,
    "roll-number": 12,
}

# There is no number for doing nothing. The Player passes over a space's action that it does not know, so quiet spaces
# get one that it will never give a meaning to; on a card the first action has no effect.
SPACE_ACTIONS = {"nothing": -1, **ACTIONS}
CARD_ACTIONS = {**{name: number for name, number in ACTIONS.items() if number != 0}, "nothing": 0}

SPACE_COLUMNS = (
    ("Sequence", SINGLE),
    ("Top", INT),
    ("Left", INT),
    ("Height", INT),
    ("Width", INT),
    ("ActionType", INT),
    ("Message", text(254)),
    ("Data1", SINGLE),
    ("Data2", INT),
)
DECK_COLUMNS = (("Index", SINGLE), ("Name", text(32)), ("Bitmap", text(128)), ("BitmapPath", text(128)))
CARD_COLUMNS = (
    ("DeckID", INT),
    ("Index", SINGLE),
    ("Message", text(254)),
    ("CorrectActionType", INT),
    ("CorrectMessage", text(254)),
    ("CorrectData1", SINGLE),
    ("CorrectData2", INT),
    ("IncorrectActionType", INT),
    ("IncorrectMessage", text(254)),
    ("IncorrectData1", SINGLE),
    ("IncorrectData2", INT),
    ("CorrectAnswer", INT),
    ("Answer1", text(254)),
    ("Answer2", text(254)),
    ("Answer3", text(254)),
    ("Answer4", text(254)),
)

PRAISE = ("Right!", "Well done!", "Yes!", "Exactly!", "Bravo!")
OUTCOMES = {
    "nothing": "",
    "forward": "Go forward {amount} {spaces}.",
    "back": "Go back {amount} {spaces}.",
    "lose-points": "You lose {amount} {unit}.",
    "gain-points": "You gain {amount} {unit}.",
    "lose-turns": "Miss {amount} {turns}.",
}


def read_table(path):
    with open(path, encoding="utf-8", newline="") as file:
        return list(csv.DictReader(file, delimiter="\t", quoting=csv.QUOTE_NONE))


def spaces_xml(spaces, rectangles):
    """RECTANGLES are (left, top, width, height), one for each space."""
    return recordset(
        SPACE_COLUMNS,
        (
            {
                "Sequence": number,
                "Top": top,
                "Left": left,
                "Height": height,
                "Width": width,
                "ActionType": SPACE_ACTIONS[space["action"]],
                "Message": space["message"],
                "Data1": space["data1"],
                "Data2": space["data2"],
            }
            for number, (space, (left, top, width, height)) in enumerate(zip(spaces, rectangles), 1)
        ),
    )


def outcome(order, unit):
    """What an order such as "gain-points 15" is, as a sentence, an action's number and its amount."""
    action, _, amount = order.partition(" ")
    amount = int(amount or 0)
    several = "" if amount == 1 else "s"
    sentence = OUTCOMES[action].format(
        amount="one" if amount == 1 else amount, unit=unit, spaces="space" + several, turns="turn" + several
    )
    return sentence, CARD_ACTIONS[action], amount


def card_row(deck, number, card, unit):
    right_sentence, right_action, right_amount = outcome(card["if right"], unit)
    wrong_sentence, wrong_action, wrong_amount = outcome(card["if wrong"], unit)
    praise = PRAISE[(number + deck) % len(PRAISE)]
    return {
        "DeckID": deck,
        "Index": number,
        "Message": card["question"],
        "CorrectActionType": right_action,
        "CorrectMessage": f"{praise} {card['explanation']} {right_sentence}".strip(),
        "CorrectData1": right_amount,
        "CorrectData2": 0,
        "IncorrectActionType": wrong_action,
        "IncorrectMessage": f"Not this time. {card['explanation']} {wrong_sentence}".strip(),
        "IncorrectData1": wrong_amount,
        "IncorrectData2": 0,
        "CorrectAnswer": "ABCD".index(card["right"]),
        **{f"Answer{place}": card[letter] for place, letter in enumerate("ABCD", 1)},
    }


def write_decks(source, folder, unit):
    """Writes decks.xml and the cards of each deck that decks.tsv names."""
    decks = read_table(source / "decks.tsv")
    rows = ({"Index": deck["deck"], "Name": deck["name"], "Bitmap": "", "BitmapPath": ""} for deck in decks)
    (folder / "decks.xml").write_text(recordset(DECK_COLUMNS, rows), encoding="utf-8")
    for deck in decks:
        index = int(deck["deck"])
        cards = enumerate(read_table(source / deck["cards"]), 1)
        rows = (card_row(index, number, card, unit) for number, card in cards)
        (folder / f"cards{index}.xml").write_text(recordset(CARD_COLUMNS, rows), encoding="utf-8")
