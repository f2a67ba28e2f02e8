"""A game of slots that is saved, left, and gone on with in a new run of the program."""
import sys

import table
from desktop import Desktop

PLAYERS = ["Ann", "Ben"]


def main(build):
    with Desktop(build) as desktop:
        table.choose(desktop, "Comet Traders")
        table.close_tip(desktop)
        table.enter_players(desktop, PLAYERS)
        spin_twice(desktop)
        plates = save(desktop)
        table.leave(desktop)

        desktop.start()
        table.choose(desktop, "Comet Traders")
        table.close_tip(desktop)
        desktop.wait_for("players dialog", lambda: desktop.dialog("Players"))
        desktop.key("alt+c")
        resume(desktop)
        desktop.screenshot("resumed")
        shown = plates_of(desktop)
        assert shown == plates, f"saved with {plates}, resumed with {shown}"
        table.take_turn(desktop, by_key=True)
        table.finish_turn(desktop)
        table.leave(desktop)
    print("trade: saved, left, resumed and played on")


def spin_twice(desktop):
    for by_key in (True, False):
        desktop.wait_for("a turn", lambda: table.turn_button(desktop))
        table.take_turn(desktop, by_key)
        table.finish_turn(desktop)


def plates_of(desktop):
    """What stands on the players' plates."""
    return [text for text in desktop.texts(None) if text in PLAYERS or text.startswith("Money: ")]


def save(desktop):
    button = desktop.wait_for("the save button", lambda: desktop.button("Save game"))
    plates = plates_of(desktop)
    desktop.click(button)
    desktop.wait_for("the question", lambda: desktop.button("Yes"))
    desktop.key("alt+y")
    message = desktop.wait_for("the answer to saving", lambda: table.open_message(desktop))
    assert "Game saved!" in message, message
    desktop.key("Return")
    desktop.wait_for("the message to close", lambda: not table.open_message(desktop))
    return plates


def resume(desktop):
    """The chooser opens on the first game, which is the one that was played."""
    desktop.click(desktop.wait_for("the load button", lambda: desktop.button("Load game")))
    desktop.click(desktop.wait_for("the saved games", lambda: desktop.nodes("combo box", "Saved games"))[0])
    desktop.click(desktop.wait_for("the saved game", lambda: saved_rows(desktop))[0])
    button = desktop.wait_for("the game to be ready to load", lambda: desktop.button("Load Game"))
    desktop.screenshot("chooser")
    desktop.click(button)
    desktop.wait_for("the game", lambda: table.turn_button(desktop))


def saved_rows(desktop):
    """A saved game is named by its day and its time with AM or PM."""
    return [row for row in desktop.nodes("list item") if row.get_name().endswith("M")]


if __name__ == "__main__":
    main(sys.argv[1])
