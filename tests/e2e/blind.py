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


def go_to(desktop, name, key):
    """Presses the key until it has come there."""
    while not (focused(desktop) or "").startswith(name):
        before = focused(desktop)
        desktop.key(key)
        desktop.wait_for(f"{key} to move the focus", lambda: focused(desktop) != before)


def press(node):
    actions = [Atspi.Action.get_action_name(node, i) for i in range(Atspi.Action.get_n_actions(node))]
    Atspi.Action.do_action(node, actions.index("Press"))


def read_tips(desktop, ears):
    tip = desktop.wait_for("tip of the day", lambda: desktop.dialog("Tip of the Day"))
    before = desktop.texts(tip)
    desktop.key("n")
    text = desktop.wait_for("the next tip", lambda: set(desktop.texts(tip)) - set(before)).pop()
    ears.wait_for(desktop, text)
    assert ears.heard.count(text) == 1, ears.heard
    assert text in tip.get_description(), (text, tip.get_description())
    table.close_tip(desktop)


def add_player(desktop, ears, name, next_step):
    desktop.type(name)
    desktop.key("Return")
    ears.wait_for(desktop, next_step)
    dialog = desktop.dialog("Players")
    assert next_step in dialog.get_description(), dialog.get_description()
    return desktop.nodes("label", name, dialog)[0]


def enter_players(desktop, ears):
    """One with keys alone, one with what a screen reader presses."""
    add_player(desktop, ears, "Ann", "Enter the Second Player's Name:")
    ben = add_player(desktop, ears, "Ben", "Enter the Third Player's Name:")
    tab_to(desktop, "Ann")
    desktop.key("space")
    tab_to(desktop, "Cat")
    go_to(desktop, "Fox", "Right")
    desktop.key("space")
    tab_to(desktop, "Ann")
    go_to(desktop, "Ben", "Down")
    press(ben)
    desktop.wait_for("Ben to be chosen", lambda: "selected" in ben.get_name())
    press(desktop.nodes("image", "Owl", desktop.dialog("Players"))[0])
    desktop.wait_for("Ben's piece", lambda: ben.get_name() == "Ben, Owl")


def expect_no_second_buttons(desktop):
    buttons = [n.get_name() for n in desktop.nodes("push button")]
    assert len(buttons) == len(set(buttons)) and "Quit" in buttons, buttons


def main(build):
    with Desktop(build) as desktop:
        ears = Ears()
        table.choose(desktop, "The Lantern Race")
        read_tips(desktop, ears)
        desktop.wait_for("players dialog", lambda: desktop.dialog("Players"))
        enter_players(desktop, ears)
        desktop.key("alt+o")
        desktop.wait_for("the board in words", lambda: table.board(desktop).startswith(
            "It is Ann's turn. Ann is on space 1 of 48. Ben is on space 1 of 48."))
        expect_no_second_buttons(desktop)
        desktop.key("F6")
        desktop.wait_for("the board to be read", lambda: (focused(desktop) or "").startswith("It is Ann's turn."))
        desktop.key("F6")
        desktop.wait_for("the way back", lambda: focused(desktop) == "Roll dice")
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
