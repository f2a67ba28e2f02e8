"""What people do at the table: choose a game, enter players, take turns until somebody wins."""

from desktop import unless_gone


def choose(desktop, game=None):
    """Starts a new game from the first chooser."""
    chooser = desktop.wait_for("game chooser", lambda: desktop.button("New Game"))
    if game:
        box = desktop.nodes("combo box")[0]
        desktop.click(box)
        row = desktop.wait_for("the game's row", lambda: desktop.nodes("list item", game))[0]
        desktop.click(row)
        chooser = desktop.wait_for("game chooser", lambda: desktop.button("New Game"))
    desktop.click(chooser)


def close_tip(desktop):
    """The tip of the day that comes after the first choice."""
    desktop.wait_for("tip of the day", lambda: desktop.dialog("Tip of the Day"))
    desktop.key("Escape")
    desktop.wait_for("the tip to close", lambda: not desktop.dialog("Tip of the Day"))


def enter_players(desktop, names, computers=()):
    """Types the names, gives each a piece of the collection that shows, and ticks the computers."""
    dialog = desktop.wait_for("players dialog", lambda: desktop.dialog("Players"))
    for name in names:
        desktop.type(name)
        desktop.key("Return")
        desktop.wait_for(f"row of {name}", lambda: desktop.nodes("label", name, dialog))
    for i, name in enumerate(names):
        row = desktop.nodes("label", name, dialog)[0]
        desktop.click(row)
        if name in computers:
            box = desktop.nodes("check box", inside=dialog)[0]
            desktop.click(box)
        desktop.click(pieces(desktop, dialog)[i])
    desktop.key("alt+o")
    desktop.wait_for("the game to begin", lambda: not desktop.dialog("Players"))


def pieces(desktop, dialog):
    """The pieces to choose from stand right of the players' rows."""
    from gi.repository import Atspi
    left = Atspi.Component.get_extents(dialog, Atspi.CoordType.SCREEN)
    images = desktop.nodes("image", inside=dialog)
    places = [(Atspi.Component.get_extents(n, Atspi.CoordType.SCREEN), n) for n in images]
    return [n for place, n in places if place.x > left.x + left.width // 2 and place.width > 40]


def open_message(desktop):
    """The text of the message that waits for Ok, or nothing."""
    for dialog in desktop.nodes("dialog"):
        if desktop.button("Ok", dialog):
            return "\n".join(desktop.texts(dialog))
    return None


def close_messages(desktop):
    """Closes by key what waits for Ok, one after the other."""
    while message := open_message(desktop):
        desktop.key("Return")
        desktop.wait_for("the message to close", lambda: open_message(desktop) != message)


def turn_button(desktop):
    """The button of the turn, which cannot be used while a dialog is up."""
    if desktop.nodes("dialog"):
        return None
    return desktop.button("Roll dice") or desktop.button("Spin slots") or desktop.button("Pass")


def play_until_won(desktop, seconds=400):
    """Takes turns by key and by mouse in turn, closes messages by key; returns the winner's message."""
    by_key = True
    while True:
        desktop.wait_for("a turn or a message", lambda: open_message(desktop) or turn_button(desktop), seconds)
        message = open_message(desktop)
        if message:
            if "Game Over!" in message:
                desktop.screenshot("won")
                desktop.key("Return")
                return message
            desktop.key("Return")
            desktop.wait_for("the message to close", lambda: open_message(desktop) != message)
            continue
        take_turn(desktop, by_key)
        by_key = not by_key


def board(desktop):
    """The board in words."""
    names = [unless_gone(n.get_name) or "" for n in desktop.nodes("image")]
    return next((name for name in names if " is on space " in name), "")


def take_turn(desktop, by_key):
    """One turn. A roll has begun when its button cannot be pressed any more, and may be over before we look; a pass is
    over at once."""
    button = turn_button(desktop)
    if not button:
        return
    name, before = button.get_name(), board(desktop)
    if by_key:
        desktop.key({"Roll dice": "alt+r", "Spin slots": "alt+s"}.get(name, "alt+p"))
    else:
        desktop.click(button)
    if name != "Pass":
        desktop.wait_for("the turn to begin", lambda: not desktop.enabled(button) or board(desktop) != before)


def card(desktop):
    return desktop.dialog("Question")


def answer(desktop, press=None):
    """Tries one letter after the other, by key if not told otherwise, until the card is settled."""
    for letter in "abcd":
        (press or desktop.key)(letter)
        desktop.wait_for(f"what {letter} brings", lambda: open_message(desktop))
        close_messages(desktop)
        desktop.wait_for("the card or what comes after it", lambda: card(desktop) or open_message(desktop) or
                         turn_button(desktop))
        if not card(desktop):
            return
    raise AssertionError("no letter settles the card")


def finish_turn(desktop, at_card=answer):
    """Closes the messages of a turn that has begun, and settles its card, until the next turn can be taken. Without
    at_card it ends at a card."""
    while True:
        desktop.wait_for("the end of the turn", lambda: open_message(desktop) or card(desktop) or turn_button(desktop),
                         120)
        if open_message(desktop):
            close_messages(desktop)
        elif card(desktop) and at_card:
            at_card(desktop)
        else:
            return


def leave(desktop):
    """Quits; a game that goes on is given up."""
    desktop.click(desktop.wait_for("the quit button", lambda: desktop.button("Quit")))
    desktop.wait_for("a question or the end", lambda: desktop.has_ended() or desktop.button("Yes"))
    if not desktop.has_ended():
        desktop.key("alt+y")
    assert desktop.wait_for_end() == 0
