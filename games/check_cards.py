"""Looks through the decks of a game folder, for check_game.py."""
import collections
import xml.etree.ElementTree as ElementTree

DECK_COLUMNS = {"Index", "Name", "Bitmap", "BitmapPath"}
OUTCOME = {"ActionType", "Message", "Data1", "Data2"}
ANSWERS = ("Answer1", "Answer2", "Answer3", "Answer4")
CARD_COLUMNS = {"DeckID", "Index", "Message", "CorrectAnswer", *ANSWERS} | {
    side + name for side in ("Correct", "Incorrect") for name in OUTCOME
}
DRAW_CARD, GO_TO = 0, 3
# The Player would give an extra turn to the player before the one who drew the card, and could put players out of the
# game when they pay for another's answer.
UNFIT_ACTIONS = {8: "takes money from everybody", 10: "gives its extra turn to somebody else", 12: "does nothing"}
LONGEST_ANSWER = 60  # what stands on one line of the card


def rows_of(path):
    return [row.attrib for row in ElementTree.parse(path).iter("{#RowsetSchema}row")]


def fits(text, longest):
    return 1 <= len(text.encode("utf-8")) <= longest and text == text.strip()


def check_outcome(card, side, place, spaces, expect):
    action, amount = int(card[side + "ActionType"]), float(card[side + "Data1"])
    expect(0 <= action <= 12, f"{place} orders what there is not: {action}")
    expect(action not in UNFIT_ACTIONS, f"{place} {UNFIT_ACTIONS.get(action)}")
    expect(action == 0 or amount >= 1, f"{place} orders an action without an amount")
    expect(action != GO_TO or amount <= spaces, f"{place} leads beyond the board")
    # A computer player would never close the card without a message.
    expect(fits(card[side + "Message"], 254), f"{place} lacks a message for this answer, or it does not fit")


def check_card(card, place, spaces, expect):
    expect(fits(card["Message"], 254), f"the question of {place} does not fit")
    answers = [card[name] for name in ANSWERS]
    expect(len({answer.casefold() for answer in answers}) == 4, f"{place} has the same answer twice")
    for answer in answers:
        expect(fits(answer, LONGEST_ANSWER), f"{place} has an answer that is blank or too long: {answer}")
    expect(0 <= int(card["CorrectAnswer"]) <= 3, f"{place} has no right answer")
    check_outcome(card, "Correct", place, spaces, expect)
    check_outcome(card, "Incorrect", place, spaces, expect)


def check_deck(folder, deck, spaces, expect):
    name = f"cards{deck}.xml"
    expect((folder / name).is_file(), f"there is no {name}")
    cards = rows_of(folder / name) if (folder / name).is_file() else []
    expect(cards, f"there are no cards in {name}")
    for number, card in enumerate(cards, 1):
        place = f"card {number} of {name}"
        expect(CARD_COLUMNS <= set(card), f"{place} lacks columns")
        if CARD_COLUMNS <= set(card):
            expect(int(card["DeckID"]) == deck, f"{place} belongs to another deck")
            expect(int(card["Index"]) == number, f"{place} is out of order")
            check_card(card, place, spaces, expect)
    questions = collections.Counter(card["Message"] for card in cards)
    for question, times in questions.items():
        expect(times == 1, f"{name} asks more than once: {question}")
    rights = collections.Counter(card["CorrectAnswer"] for card in cards)
    for letter in "0123":
        # Nobody shall win by one letter; computers never choose the first.
        expect(0 < rights[letter] <= len(cards) * 0.4, f"{name} is right too often or never with answer {letter}")
    expect(rights["0"] <= len(cards) * 0.2, f"{name} is too hard for the computer")


def check_decks(folder, space_rows, expect):
    """EXPECT(holds, fault) is told of each thing that was looked at."""
    drawn = {int(float(row["Data1"])) for row in space_rows if int(row["ActionType"]) == DRAW_CARD}
    path = folder / "decks.xml"
    decks = rows_of(path) if path.is_file() else []
    for deck in decks:
        expect(DECK_COLUMNS == set(deck), "a deck has not exactly its four columns")
        expect(fits(deck["Name"], 32), f"the name of a deck does not fit: {deck['Name']}")
    indexes = [int(deck["Index"]) for deck in decks]
    expect(indexes == list(range(1, len(decks) + 1)), "the decks are out of order")
    expect(drawn == set(indexes), f"spaces draw from the decks {sorted(drawn)}, and there are {indexes}")
    for deck in indexes:
        check_deck(folder, deck, len(space_rows), expect)
    files = {file.name for file in folder.glob("cards*.xml")}
    expect(files == {f"cards{deck}.xml" for deck in indexes}, "there are cards that belong to no deck")
