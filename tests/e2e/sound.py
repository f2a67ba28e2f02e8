"""What the device is given while a game is chosen, begun and silenced, held against the sounds themselves."""
import os
import pathlib
import subprocess
import sys

import table
from desktop import Desktop

RANDOM_GENRES = ("jazz", "kids", "orchestral", "rock", "techno")
BYTES_PER_SECOND = 4 * 44100


class Listener:
    """A sound device of SDL's that writes down what it is given."""

    def __init__(self, desktop, build):
        self.sounds = pathlib.Path(build) / "assets/music"
        self.file = desktop.folder / "heard.raw"
        os.environ["SDL_AUDIODRIVER"] = "disk"
        os.environ["SDL_DISKAUDIOFILE"] = str(self.file)

    def heard(self):
        return self.file.read_bytes() if self.file.exists() else b""

    def beginning(self, genre, event):
        """The first second of a sound."""
        decoded = subprocess.run(["oggdec", "-Q", "-R", "-o", "-", self.sounds / genre / f"{event}.ogg"], check=True,
                                 capture_output=True).stdout
        return decoded[:BYTES_PER_SECOND]

    def has(self, event, *genres):
        return any(self.beginning(genre, event) in self.heard() for genre in genres)

    def is_silent(self):
        """For the last half of a second."""
        return not any(self.heard()[-BYTES_PER_SECOND // 2:])


def unpacked(desktop):
    return sorted(file.name for file in desktop.games.glob("*.ogg"))


def main(build):
    listener = None

    def listen(desktop):
        nonlocal listener
        listener = Listener(desktop, build)

    with Desktop(build, listen) as desktop:
        desktop.wait_for("the opening music", lambda: listener.has("new_load_game", *RANDOM_GENRES))
        assert unpacked(desktop) == ["new_load_game.ogg"], unpacked(desktop)
        table.choose(desktop, "The Lantern Race")
        table.close_tip(desktop)
        desktop.wait_for("the music of the players' dialog", lambda: listener.has("player_icon", "latin"))
        table.enter_players(desktop, ["Ann", "Ben"])
        desktop.wait_for("the music of the beginning", lambda: listener.has("begin_game", "latin"))
        assert unpacked(desktop) == ["begin_game.ogg"], unpacked(desktop)
        desktop.click(desktop.wait_for("the button", lambda: desktop.button("Turn the sound off")))
        desktop.wait_for("silence", listener.is_silent)
        table.take_turn(desktop, by_key=True)
        table.finish_turn(desktop)
        assert listener.is_silent() and unpacked(desktop) == []
        table.leave(desktop)
    print("sound: each event was heard, and none with the sound off")


if __name__ == "__main__":
    main(sys.argv[1])
