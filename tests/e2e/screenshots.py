"""Walks through every form of the Player and takes its picture: screenshots.py BUILD FOLDER SCREEN SCALE DPI [WALK]"""
import hashlib
import pathlib
import shutil
import subprocess
import sys

import longest_game
import table
from desktop import Atspi, Desktop

NAMES = ["Léa de la Motte-Fouqué von Überlingen", "شهرزاد من بغداد", "🦊 Füchsin 🎲", "דוד המלך", "Al", "Robo the Unbeatable Machine"]


class Album:
    """The pictures of one walk, numbered in their order."""

    def __init__(self, desktop, folder, walk):
        self.desktop = desktop
        self.folder = pathlib.Path(folder)
        self.walk = walk
        self.count = 0

    def grab(self):
        """A window that goes in the very moment can spoil it."""
        return self.desktop.wait_for("picture", lambda: subprocess.run(
            ["import", "-window", "root", "png:-"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout)

    def take(self, name, settled=True):
        """What moves, such as a text cursor, may keep a picture from ever being the same twice."""
        picture = self.grab()
        for _ in range(4 if settled else 0):
            before, picture = hashlib.md5(picture).digest(), self.grab()
            if hashlib.md5(picture).digest() == before:
                break
        self.count += 1
        (self.folder / f"{self.walk}-{self.count:02}-{name}.png").write_bytes(picture)


def dialog(desktop, name):
    return desktop.wait_for(f"dialog {name}", lambda: desktop.dialog(name))


def closed(desktop, name):
    desktop.wait_for(f"{name} to close", lambda: not desktop.dialog(name))


def press(desktop, name, inside=None):
    desktop.click(desktop.wait_for(f"button {name}", lambda: desktop.button(name, inside)))


def choose_row(desktop, name):
    """Opens the list of games and takes a row of it; the picture between shows the open list."""
    desktop.click(desktop.nodes("combo box")[0])
    rows = desktop.wait_for("rows", lambda: desktop.nodes("list item", name))
    return rows[0]


def title_page(desktop, album, name, windows):
    """It stands for seconds only, over that many windows less one, when the chooser has gone."""
    desktop.wait_for("title page", lambda: len(desktop.windows()) == windows)
    album.take(name, settled=False)


def at_start(desktop, album):
    """The product's splash and the chooser over it, up to the players of the quiz."""
    desktop.wait_for("chooser", lambda: desktop.button("New Game"))
    album.take("splash-and-chooser")
    row = choose_row(desktop, "The Wonder Museum")
    album.take("chooser-open-list")
    desktop.click(row)
    press(desktop, "Install Game")
    dialog(desktop, "Install a Game")
    album.take("install")
    desktop.key("alt+c")
    closed(desktop, "Install a Game")
    press(desktop, "New Game")
    title_page(desktop, album, "title-page", 1)
    dialog(desktop, "Tip of the Day")
    album.take("tip")
    desktop.key("Escape")
    closed(desktop, "Tip of the Day")
    players(desktop, album)
    museum(desktop, album)


def add_player(desktop, name):
    box = desktop.nodes("text", inside=desktop.dialog("Players"))[0]
    Atspi.EditableText.set_text_contents(box, name)
    desktop.wait_for("add", lambda: desktop.button("Add"))
    desktop.key("Return")
    desktop.wait_for("row", lambda: desktop.nodes("label", name[:20], desktop.dialog("Players")))


def give_pieces(desktop, names):
    for i, name in enumerate(names):
        row = desktop.nodes("label", name[:20], desktop.dialog("Players"))[0]
        desktop.click(row)
        desktop.click(table.pieces(desktop, desktop.dialog("Players"))[i])


def seat_players(desktop, names):
    dialog(desktop, "Players")
    for name in names:
        add_player(desktop, name)
    give_pieces(desktop, names)


def begin(desktop):
    desktop.key("alt+o")
    closed(desktop, "Players")


def players(desktop, album):
    dialog(desktop, "Players")
    album.take("players-none")
    add_player(desktop, "Ann")
    desktop.key("alt+o")
    desktop.wait_for("box", lambda: desktop.button("OK"))
    album.take("system-message")
    desktop.key("Return")
    desktop.click(desktop.nodes("label", "Ann", desktop.dialog("Players"))[0])
    album.take("players-one")
    give_pieces(desktop, ["Ann"])
    add_player(desktop, "Ben")
    give_pieces(desktop, ["Ann", "Ben"])
    begin(desktop)


def turn(desktop, key, name):
    """Starts a turn, once it may be. The button can be pressed again before the turn's own dialog is there."""
    button = desktop.wait_for("turn", lambda: table.turn_button(desktop))
    if button.get_name() == "Pass":  # over at once
        desktop.key("alt+p")
        return
    desktop.key(key)
    desktop.wait_for(f"the {name} to begin", lambda: not desktop.enabled(button) or len(desktop.windows()) > 1)


def spin(desktop, album, name):
    """The slot machine stands for seconds only."""
    desktop.wait_for("turn", lambda: table.turn_button(desktop))
    desktop.key("alt+s")
    desktop.wait_for("the slot machine", lambda: len(desktop.windows()) > 1)
    album.take(name, settled=False)


def after_turn(desktop):
    """What waits for the user: "card", "message" or "turn"."""
    def waits():
        if desktop.dialog("Question"):
            return "card"
        return "message" if table.open_message(desktop) else table.turn_button(desktop) and "turn"
    return desktop.wait_for("what the turn brings", waits)


def play_until(desktop, wanted, key):
    while (waits := after_turn(desktop)) != wanted:
        if waits == "turn":
            turn(desktop, key, "turn")
        else:
            desktop.key("b" if waits == "card" else "Return")


def museum(desktop, album):
    desktop.wait_for("turn", lambda: table.turn_button(desktop))
    album.take("museum-begun", settled=False)
    turn(desktop, "alt+r", "roll")
    album.take("museum-dice", settled=False)
    play_until(desktop, "card", "alt+r")
    album.take("museum-card")
    desktop.key("a")
    desktop.wait_for("result", lambda: table.open_message(desktop))
    album.take("museum-answer")
    play_until(desktop, "turn", "alt+r")
    helps(desktop, album)
    chooser_in_play(desktop, album)


def helps(desktop, album):
    press(desktop, "Help")
    dialog(desktop, "Help")
    album.take("help")
    desktop.key("g")
    dialog(desktop, "Game Help")
    album.take("game-help-plain")
    desktop.key("Escape")
    dialog(desktop, "Help")
    desktop.key("c")
    closed(desktop, "Help")


def chooser_in_play(desktop, album):
    """Saves the game, and opens the chooser that shows it in its list."""
    desktop.key("alt+s")
    desktop.wait_for("question", lambda: desktop.button("Yes"))
    album.take("yes-no")
    press(desktop, "Yes")
    desktop.wait_for("message", lambda: table.open_message(desktop))
    desktop.key("Return")
    desktop.wait_for("the message to close", lambda: not table.open_message(desktop))
    desktop.key("alt+l")
    desktop.wait_for("question or chooser", lambda: desktop.button("Yes") or desktop.button("New Game"))
    if desktop.button("Yes"):
        press(desktop, "Yes")
    desktop.wait_for("chooser", lambda: desktop.button("New Game"))
    desktop.click(choose_row(desktop, "The Wonder Museum"))
    desktop.wait_for("chooser", lambda: desktop.button("New Game"))
    album.take("chooser-later")


def choose(desktop, album, game, title=None):
    """From the first chooser to the players' dialog of a game."""
    desktop.wait_for("chooser", lambda: desktop.button("New Game"))
    desktop.click(choose_row(desktop, game))
    press(desktop, "New Game")
    if title:
        title_page(desktop, album, title, 1)
    table.close_tip(desktop)


def comets(desktop, album):
    choose(desktop, album, "Comet Traders")
    seat_players(desktop, ["Ann", "Ben", "Cleo"])
    album.take("players-three")
    begin(desktop)
    desktop.wait_for("turn", lambda: table.turn_button(desktop))
    album.take("comets-begun", settled=False)
    spin(desktop, album, "slots-five")
    play_until(desktop, "message", "alt+s")
    album.take("comets-message")
    play_until(desktop, "turn", "alt+s")
    album.take("comets-moved", settled=False)


def longest(desktop, album):
    choose(desktop, album, longest_game.LONG_NAME, "title-page-default")
    seat_players(desktop, NAMES)
    album.take("players-six")
    begin(desktop)
    desktop.wait_for("turn", lambda: table.turn_button(desktop))
    album.take("longest-begun", settled=False)
    turn(desktop, "alt+s", "spin")
    desktop.wait_for("message", lambda: table.open_message(desktop))
    album.take("message-longest")


def alone(desktop, album):
    """One player meets every card, and wins."""
    choose(desktop, album, longest_game.LONG_NAME)
    seat_players(desktop, NAMES[:1])
    begin(desktop)
    turn(desktop, "alt+s", "spin")
    desktop.wait_for("message", lambda: table.open_message(desktop))
    desktop.key("Return")
    for answers in range(1, 5):
        turn(desktop, "alt+s", "spin")
        dialog(desktop, "Question")
        album.take(f"card-{answers}")
        if answers == 4:
            desktop.key("b")
            desktop.wait_for("tries", lambda: table.open_message(desktop))
            album.take("tries-left")
            desktop.key("Return")
            dialog(desktop, "Question")
        desktop.key("a")
        desktop.wait_for("result", lambda: table.open_message(desktop))
        desktop.key("Return")
    turn(desktop, "alt+s", "spin")
    desktop.wait_for("message", lambda: table.open_message(desktop))
    desktop.key("Return")
    desktop.wait_for("win", lambda: "Game Over!" in (table.open_message(desktop) or ""))
    album.take("won")
    desktop.key("Return")
    press(desktop, "Help")
    dialog(desktop, "Help")
    desktop.key("g")
    dialog(desktop, "Game Help")
    album.take("game-help-rich")
    desktop.key("Escape")
    dialog(desktop, "Help")
    desktop.key("c")
    closed(desktop, "Help")


def failing(desktop, album):
    choose(desktop, album, longest_game.FAILING_NAME)
    seat_players(desktop, ["Ann"])
    begin(desktop)
    spin(desktop, album, "slots-six")
    dialog(desktop, "Unexpected Error")
    album.take("error")
    for box, text in zip(desktop.nodes("text", inside=desktop.dialog("Unexpected Error")),
                         ["Léa de la Motte-Fouqué", "lea@example.org"]):
        Atspi.EditableText.set_text_contents(box, text)
    desktop.key("alt+s")
    desktop.wait_for("box or cause", lambda: desktop.button("OK") or desktop.dialog("Help Us"))
    if desktop.button("OK"):
        album.take("no-connection")
        press(desktop, "OK")
    dialog(desktop, "Help Us")
    album.take("error-cause")


WALKS = {walk.__name__: walk for walk in (at_start, comets, longest, alone, failing)}


def walk(build, folder, screen, scale, dpi, name):
    desktop = Desktop(build, screen=screen, scale=int(scale), dpi=int(dpi))
    gamepack = desktop.build / "bin/tabulon-gamepack"
    longest_game.make(gamepack, desktop.games, longest_game.LONG_KEY, longest_game.LONG_NAME, 1)
    longest_game.make(gamepack, desktop.games, longest_game.FAILING_KEY, longest_game.FAILING_NAME, 6)
    with desktop:
        longest_game.make(gamepack, desktop.games, "{00000000-0000-4000-8000-000000000003}",
                          longest_game.longest("Not installed")[:120], 1)
        WALKS[name](desktop, Album(desktop, folder, name))


def main(build, folder, *configuration):
    """Each walk has a desktop of its own: programs that were on it before stay in its accessibility tree."""
    shutil.rmtree(folder, ignore_errors=True)
    pathlib.Path(folder).mkdir(parents=True)
    for name in WALKS:
        subprocess.run(["dbus-run-session", "--", sys.executable, "-B", __file__, build, folder, *configuration, name],
                       check=True)
    print(f"{len(list(pathlib.Path(folder).iterdir()))} pictures in {folder}")


if __name__ == "__main__":
    (walk if len(sys.argv) == 7 else main)(*sys.argv[1:])
