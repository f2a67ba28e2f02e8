"""Questions answered by key and by click, and the game's help in rich text."""
import sys

import table
from desktop import Desktop


def main(build):
    with Desktop(build) as desktop:
        table.choose(desktop, "The Wonder Museum")
        table.close_tip(desktop)
        table.enter_players(desktop, ["Ann"])
        read_help(desktop)
        answer_cards(desktop)
        table.leave(desktop)
    print("quiz: help read, cards answered by key and by click")


def read_help(desktop):
    desktop.key("alt+h")
    desktop.wait_for("the help dialog", lambda: desktop.dialog("Help"))
    desktop.key("g")
    text = desktop.wait_for("the game's help", lambda: desktop.nodes("text", "Help text"))[0]
    assert "\\" not in (content := desktop.content(text)), content
    assert "the museum is looking for a new curator!" in content, content
    desktop.screenshot("help")
    desktop.key("Escape")
    desktop.wait_for("the help dialog again", lambda: desktop.dialog("Help"))
    desktop.key("Escape")
    desktop.wait_for("the board again", lambda: not desktop.dialog("Help"))


def answer_cards(desktop):
    """One card by its letters, one by clicks on them."""
    for press in (desktop.key, lambda letter: desktop.click(label(desktop, letter))):
        play_until_a_card_comes(desktop)
        desktop.screenshot("card")
        card = table.card(desktop)
        heard = card.get_description()  # read when it appears
        assert sorted(heard.splitlines()) == sorted(desktop.texts(card)), heard
        table.answer(desktop, press)


def play_until_a_card_comes(desktop):
    while not table.card(desktop):
        desktop.wait_for("a turn", lambda: table.turn_button(desktop))
        table.take_turn(desktop, by_key=True)
        table.finish_turn(desktop, at_card=None)


def label(desktop, letter):
    return desktop.nodes("label", letter.upper() + ")")[0]


if __name__ == "__main__":
    main(sys.argv[1])
