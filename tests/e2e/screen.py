"""The screen changes its size in the middle of a game: everything on the board keeps its place on the picture."""
import sys

from gi.repository import Atspi

import table
from desktop import Desktop

TOLERANCE = 0.02  # of the board's width or height


def extents(node):
    return Atspi.Component.get_extents(node, Atspi.CoordType.SCREEN)


def board(desktop):
    return next(n for n in desktop.nodes("image") if " is on space " in (n.get_name() or ""))


def pieces(desktop):
    """Where the pieces stand, as shares of the board."""
    on = board(desktop)
    place = extents(on)
    found = [extents(n) for n in desktop.nodes("image", inside=on) if n.get_description() in ("Ann", "Ben")]
    assert len(found) == 2, found
    return sorted(((p.x - place.x) / place.width, (p.y - place.y) / place.height) for p in found)


def has_size(desktop, size):
    width, height = map(int, size.split("x"))
    window = extents(desktop.windows()[0])
    return (window.width, window.height) == (width, height)


def main(build):
    with Desktop(build, screen="1600x1200", resizable=True) as desktop:
        table.choose(desktop, "The Lantern Race")
        table.close_tip(desktop)
        table.enter_players(desktop, ["Ann", "Ben"])
        desktop.key("alt+r")
        table.finish_turn(desktop)
        before = pieces(desktop)
        for size in ("1024x768", "1600x1200", "1280x960"):
            desktop.resize(size)
            desktop.wait_for(f"a window of {size}", lambda: has_size(desktop, size))
            desktop.wait_for("the overview", lambda: table.turn_button(desktop))
            desktop.screenshot(size)
            for now, then in zip(pieces(desktop), before):
                assert all(abs(a - b) < TOLERANCE for a, b in zip(now, then)), (size, now, then)
    print("screen: the pieces keep their places")


if __name__ == "__main__":
    main(sys.argv[1])
