"""Help from the board: tips, a game's help in its three formats, and the Player's own help in its viewer."""
import pathlib
import shutil
import subprocess
import sys

import table
from desktop import Desktop
from gi.repository import Atspi

RACE = "{4329823B-C888-406D-B263-DFDC9898627C}"
OWN_HELP = "Tabulon Player Help"
RULES = "Sample Rules"


def main(build):
    build = pathlib.Path(build).resolve()
    with Desktop(build, lambda desktop: give_compiled_help(desktop, build)) as desktop:
        begin(desktop, "The Lantern Race")
        step_through_tips(desktop)
        read_compiled_help(desktop)
        read_own_help(desktop)
        leave_own_help_open(desktop)
        table.leave(desktop)
        assert not runs(desktop.folder / "bin/tabulon-help"), "the help viewer ends with the Player"
        for game, words in (("The Wonder Museum", "museum"), ("Comet Traders", "comet")):
            desktop.start()
            begin(desktop, game)
            read_text(desktop, words)
            table.leave(desktop)
    print("help: read in three formats, and the Player's own")


def give_compiled_help(desktop, build):
    """The race with a compiled help file in the place of its text."""
    folder = desktop.folder / "race"
    shutil.copytree(build / "games/lantern-race", folder)
    shutil.copy2(build / "tests/help/sample.chm", folder / "Rules.CHM")
    settings = folder / f"{RACE}.dat"
    settings.write_text(settings.read_text().replace("Help File=help.txt", "Help File=Rules.CHM"))
    package = desktop.games / f"{RACE}.gam"
    package.unlink()
    subprocess.run([build / "bin/tabulon-gamepack", "pack", folder, package], check=True, stdout=subprocess.DEVNULL)
    (desktop.games / "settings.db").unlink()  # where the race stands with the help that it came with
    desktop.set_up()


def begin(desktop, game):
    table.choose(desktop, game)
    table.close_tip(desktop)
    table.enter_players(desktop, ["Ann"])
    desktop.wait_for("the turn button", lambda: table.turn_button(desktop))


def open_help(desktop):
    desktop.key("alt+h")
    return desktop.wait_for("the help dialog", lambda: desktop.dialog("Help"))


def close_help(desktop):
    desktop.key("Escape")
    desktop.wait_for("the help dialog to close", lambda: not desktop.dialog("Help"))


def step_through_tips(desktop):
    open_help(desktop)
    desktop.key("i")
    dialog = desktop.wait_for("a tip", lambda: desktop.dialog("Tip of the Day"))
    first = desktop.texts(dialog)
    desktop.key("n")
    desktop.wait_for("the next tip", lambda: desktop.texts(dialog) != first)
    desktop.screenshot("tip")
    desktop.key("b")
    desktop.wait_for("the tip before", lambda: desktop.texts(dialog) == first)
    desktop.key("Escape")
    desktop.wait_for("the help dialog again", lambda: desktop.dialog("Help"))
    close_help(desktop)


def viewers(desktop, title):
    return desktop.nodes("frame", title)


def viewer(desktop, title):
    return desktop.wait_for(f"the window {title}", lambda: (viewers(desktop, title) or [None])[0])


def page(desktop, title):
    """The page of that title in a viewer."""
    return desktop.wait_for(f"the page {title}", lambda: (desktop.nodes("label", title) or [None])[0])


def read_compiled_help(desktop):
    open_help(desktop)
    desktop.key("g")
    viewer(desktop, RULES)
    assert "Throw the dice" in desktop.content(page(desktop, "Sample rules"))
    desktop.screenshot("game")
    desktop.key("alt+c")
    desktop.key("Down", "Return")
    assert "Penguins move" in desktop.content(page(desktop, "Counting penguins"))
    desktop.key("Escape")
    desktop.wait_for("the game's help to close", lambda: not viewers(desktop, RULES))
    desktop.wait_for("the help dialog again", lambda: desktop.dialog("Help"))


def read_own_help(desktop):
    desktop.click(desktop.wait_for("the button of the Player's help", lambda: desktop.button("Player Help")))
    window = viewer(desktop, OWN_HELP)
    page(desktop, "Welcome to the Tabulon Player")
    desktop.wait_for("the index", lambda: desktop.nodes("list item", "first game", window))
    desktop.screenshot("own")
    desktop.key("alt+c")
    desktop.wait_for("the contents", lambda: desktop.nodes("table cell", "Answering a card", window))
    desktop.key("F6", "Tab", "Return")
    assert "Five steps" in desktop.content(page(desktop, "Your first game"))
    desktop.screenshot("link")
    desktop.key("alt+s")
    desktop.type("saved games")
    desktop.key("Return")
    desktop.wait_for("pages found", lambda: desktop.nodes("list item", "Saving a game", window))
    desktop.screenshot("search")
    desktop.key("alt+Left")
    page(desktop, "Welcome to the Tabulon Player")
    ask_once_more(desktop)
    desktop.key("Escape")
    desktop.wait_for("the Player's help to close", lambda: not viewers(desktop, OWN_HELP))
    close_help(desktop)


def leave_own_help_open(desktop):
    open_help(desktop)
    desktop.click(desktop.wait_for("the button of the Player's help", lambda: desktop.button("Player Help")))
    viewer(desktop, OWN_HELP)
    raise_player(desktop)
    close_help(desktop)


def runs(program):
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            if (process / "exe").readlink() == program:
                return True
        except OSError:
            pass  # it has ended, or is somebody else's
    return False


def ask_once_more(desktop):
    """The window is not modal, and there is one for a file."""
    raise_player(desktop)
    desktop.key("p")
    desktop.wait_for("the one window in front", lambda: is_active(viewers(desktop, OWN_HELP)))
    assert len(viewers(desktop, OWN_HELP)) == 1


def raise_player(desktop):
    dialog = desktop.dialog("Help")
    assert dialog, "the help dialog waits behind the viewer"
    subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^Help$", "windowactivate", "--sync"], check=True)
    desktop.wait_for("the dialog in front", lambda: is_active([desktop.dialog("Help")]))


def is_active(nodes):
    return any(node and node.get_state_set().contains(Atspi.StateType.ACTIVE) for node in nodes)


def read_text(desktop, words):
    open_help(desktop)
    desktop.key("g")
    dialog = desktop.wait_for("the game's help", lambda: desktop.dialog("Game Help"))
    texts = [desktop.content(node) for node in desktop.nodes("text", inside=dialog)]
    assert any(words in text.lower() for text in texts), texts
    desktop.screenshot(words)
    desktop.key("Escape")
    desktop.wait_for("the help dialog again", lambda: desktop.dialog("Help"))
    close_help(desktop)


if __name__ == "__main__":
    main(sys.argv[1])
