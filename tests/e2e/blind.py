"""A turn of the race by keyboard and ear: what has the focus, what is read out, and the board in words."""
import sys

import table
from desktop import Atspi, Desktop, GLib


class Ears:
    """What is read out as it appears."""

    def __init__(self):
        self.heard = []
        self.listener = Atspi.EventListener.new(self.listen)
        self.listener.register("object:state-changed:showing")

    def listen(self, event):
        if event.detail1 and event.source.get_role_name() == "notification":
            self.heard.append(event.source.get_name())

    def wait_for(self, desktop, words):
        def said():
            while GLib.MainContext.default().iteration(False):
                pass
            return next((text for text in self.heard if words in text), None)
        return desktop.wait_for(f"to hear {words}", said)


def focused(desktop):
    for node in desktop.nodes():
        if node.get_state_set().contains(Atspi.StateType.FOCUSED):
            return node.get_name()
    return None


def tab_to(desktop, name):
    """Goes from stop to stop; comes round to where it began when there is no such stop."""
    first = focused(desktop)
    for _ in range(60):
        before = focused(desktop)
        if (before or "").startswith(name):
            return
        desktop.key("Tab")
        desktop.wait_for("the focus to move", lambda: focused(desktop) != before)
    raise AssertionError(f"Tab does not come from {first} to {name}")


def enter_player(desktop, name, piece):
    desktop.type(name)
    desktop.key("Return")
    desktop.wait_for(f"row of {name}", lambda: desktop.nodes("label", name, desktop.dialog("Players")))
    tab_to(desktop, name)
    desktop.key("space")
    tab_to(desktop, piece)
    desktop.key("space")
    tab_to(desktop, "Player's name")
    desktop.key("BackSpace")


def main(build):
    with Desktop(build) as desktop:
        ears = Ears()
        table.choose(desktop, "The Lantern Race")
        table.close_tip(desktop)
        desktop.wait_for("players dialog", lambda: desktop.dialog("Players"))
        enter_player(desktop, "Ann", "Cat")
        enter_player(desktop, "Ben", "Owl")
        desktop.key("alt+o")
        desktop.wait_for("the board in words", lambda: table.board(desktop).startswith(
            "It is Ann's turn. Ann is on space 1 of 48. Ben is on space 1 of 48."))
        desktop.key("alt+r")
        number = ears.wait_for(desktop, "Ann has ").split()[2]
        assert 2 <= int(number) <= 12, number
        message = desktop.wait_for("a message or the next turn",
                                   lambda: table.open_message(desktop) or "Ben's turn" in table.board(desktop))
        if message is not True:
            box = next(n for n in desktop.nodes("dialog") if desktop.button("Ok", n))
            assert box.get_description() in message, (box.get_description(), message)
            desktop.key("Return")
    print("blind: entered players and took a turn by keyboard and ear")


if __name__ == "__main__":
    main(sys.argv[1])
