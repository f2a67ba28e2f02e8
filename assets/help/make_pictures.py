"""Draws the pictures of the Player's help: make_pictures.py RSVG-CONVERT ASSETS OUT.

Each picture comes in two sizes, name.png and name@2x.png, for screens of ordinary and of doubled density. What the
program shows itself, its pieces and buttons, is taken from the program's own pictures.
"""
import pathlib
import re
import subprocess
import sys

INK, TEAL, NAVY, CREAM = "#1B2A41", "#17616B", "#123F55", "#FFF6E3"
YELLOW, CORAL, GREEN, MINT = "#FFC83D", "#F2705B", "#6FB548", "#8FD3C8"
BUTTONS = ("new", "roll", "spin", "pass", "save", "load", "help", "sound-on", "sound-off", "minimize", "quit")
BUTTON_SIDE = 44

# Signs of ten by fourteen units; lettering must not depend on the fonts of the machine.
SIGNS = {
    "1": "M3 3L6 0V14",
    "2": "M1 4Q1 0 5 0Q9 0 9 4Q9 7 1 14H9",
    "3": "M1 1H9L5 6Q9 6 9 10Q9 14 5 14Q2 14 1 12",
    "4": "M7 14V0L0 10H10",
    "5": "M9 0H2L1 6Q9 4 9 9Q9 14 4 14Q2 14 1 13",
    "6": "M8 0Q1 4 1 9Q1 14 5 14Q9 14 9 10Q9 6 5 6Q2 6 1 9",
    "7": "M0 0H9L3 14",
    "A": "M0 14L5 0L10 14M2 9H8",
    "B": "M1 0V14H5Q9 14 9 10.5Q9 7 5 7H1M5 7Q8 7 8 3.5Q8 0 5 0H1",
    "C": "M9 2Q7 0 5 0Q0 0 0 7Q0 14 5 14Q7 14 9 12",
    "D": "M1 0V14H4Q9 14 9 7Q9 0 4 0Z",
    "?": "M1 3Q1 0 5 0Q9 0 9 3.5Q9 6 5 8V10M5 13.5V14",
}


class Assets:
    """Pictures of the program, ready to be put into another one."""

    def __init__(self, folder):
        self.folder = folder
        self.count = 0

    def put(self, name, x, y, side):
        self.count += 1
        prefix = f"p{self.count}-"
        svg = (self.folder / "pictures" / f"{name}.svg").read_text()
        view = re.search(r'viewBox="([^"]+)"', svg).group(1)
        inner = re.search(r"<svg[^>]*>(.*)</svg>", svg, re.DOTALL).group(1)
        inner = re.sub(r'id="', f'id="{prefix}', inner)
        inner = re.sub(r"url\(#", f"url(#{prefix}", inner)
        inner = re.sub(r'href="#', f'href="#{prefix}', inner)
        return f'<svg x="{x}" y="{y}" width="{side}" height="{side}" viewBox="{view}">{inner}</svg>'


def box(x, y, width, height, fill, radius=8, line=3):
    return (f'<rect x="{x}" y="{y}" width="{width}" height="{height}" rx="{radius}" fill="{fill}" '
            f'stroke="{INK}" stroke-width="{line}"/>')


def words(x, y, width, colour=INK):
    """A bar that stands for text."""
    return f'<rect x="{x}" y="{y}" width="{width}" height="6" rx="3" fill="{colour}"/>'


def sign(name, x, y, colour=INK, scale=1.0):
    return (f'<path transform="translate({x} {y}) scale({scale})" d="{SIGNS[name]}" fill="none" stroke="{colour}" '
            'stroke-width="2.6" stroke-linecap="round" stroke-linejoin="round"/>')


def number(name, x, y):
    return (f'<circle cx="{x}" cy="{y}" r="15" fill="{YELLOW}" stroke="{INK}" stroke-width="3"/>' +
            sign(name, x - 5, y - 7))


def die(x, y, side, pips, turn):
    places = {1: [(50, 50)], 3: [(25, 25), (50, 50), (75, 75)],
              5: [(25, 25), (25, 75), (50, 50), (75, 25), (75, 75)]}[pips]
    spots = "".join(f'<circle cx="{px}" cy="{py}" r="9" fill="{INK}"/>' for px, py in places)
    return (f'<g transform="translate({x} {y}) scale({side / 100}) rotate({turn} 50 50)">'
            f'<rect x="4" y="4" width="92" height="92" rx="20" fill="{CREAM}" stroke="{INK}" stroke-width="5"/>'
            f'<path d="M18 24Q20 16 32 14" fill="none" stroke="#fff" stroke-width="6" stroke-linecap="round"/>{spots}</g>')


def ground(width, height):
    return (f'<defs><radialGradient id="wash" cx=".34" cy=".28" r=".95"><stop offset="0" stop-color="#1E6E75"/>'
            f'<stop offset="1" stop-color="{NAVY}"/></radialGradient></defs>' +
            box(2, 2, width - 4, height - 4, "url(#wash)", 16))


def path_of_spaces(points):
    colours = (CREAM, YELLOW, CORAL, MINT, GREEN)
    line = "M" + "L".join(f"{x} {y}" for x, y in points)
    return (f'<path d="{line}" fill="none" stroke="{INK}" stroke-width="5" stroke-dasharray="2 10" stroke-linecap="round"/>' +
            "".join(f'<circle cx="{x}" cy="{y}" r="19" fill="{colours[i % 5]}" stroke="{INK}" stroke-width="3"/>'
                    for i, (x, y) in enumerate(points)))


def welcome(assets):
    points = [(50, 170), (104, 150), (158, 168), (212, 150), (262, 118), (316, 102), (370, 118), (422, 146), (476, 136), (516, 96)]
    return (560, 220, ground(560, 220) + path_of_spaces(points) + assets.put("pieces/aliens-3", 66, 74, 84) +
            assets.put("pieces/animals-1", 174, 72, 84) + assets.put("pieces/objects-2", 330, 38, 84) +
            assets.put("pieces/professions-4", 438, 60, 84) + die(232, 22, 56, 5, -14) + die(290, 30, 46, 3, 18))


def chooser(assets):
    rows = ((20, "Installed"), (70, "Saved"))
    lists = "".join(words(24, y + 20, 76, CREAM) + box(112, y, 284, 40, CREAM) + words(126, y + 17, 130) +
                    f'<path d="M368 {y + 16}L376 {y + 25}L384 {y + 16}" fill="none" stroke="{INK}" stroke-width="3" '
                    'stroke-linecap="round" stroke-linejoin="round"/>' for y, _ in rows)
    buttons = "".join(box(x, y, 130, 44, CREAM) + words(x + 30, y + 19, 70)
                      for x in (24, 166) for y in (132, 188))
    return 420, 254, ground(420, 254) + lists + buttons + assets.put("buttons/cancel", 316, 146, 76)


def players(assets):
    names = "".join(box(24, y, 180, 36, CREAM, 6) + words(36, y + 15, width, CORAL if chosen else INK)
                    for y, width, chosen in ((70, 84, False), (112, 64, True), (154, 100, False)))
    given = "".join(assets.put(name, 212, y, 36) for name, y in
                    (("pieces/animals-2", 70), ("pieces/animals-9", 154)))
    shown = "".join(assets.put(f"pieces/animals-{i + 1}", 272 + i % 3 * 58, 70 + i // 3 * 58, 50) for i in range(9))
    ring = f'<rect x="327" y="125" width="54" height="54" rx="8" fill="none" stroke="{YELLOW}" stroke-width="4"/>'
    return (470, 290, ground(470, 290) + box(24, 22, 226, 36, CREAM, 6) + words(36, 37, 60) +
            box(272, 22, 174, 36, CREAM, 6) + words(284, 37, 84) + names + given + shown + ring +
            box(24, 234, 110, 38, CREAM) + words(52, 250, 54) + box(144, 234, 110, 38, CREAM) + words(172, 250, 54))


def screen(assets):
    board = path_of_spaces([(60, 330), (60, 270), (60, 210), (112, 176), (172, 176), (232, 176), (292, 190), (332, 238),
                            (300, 286), (240, 300), (180, 300)])
    plates = "".join(assets.put(name, 424, y, 44) + words(476, y + 12, width, colour) + words(476, y + 28, 40, CREAM)
                     for name, y, width, colour in (("pieces/aliens-2", 160, 62, "#96FF96"),
                                                    ("pieces/animals-5", 212, 46, CREAM),
                                                    ("pieces/objects-7", 264, 70, CREAM)))
    buttons = "".join(assets.put(f"buttons/{name}", 176 + i * 44, 46, 40)
                      for i, name in enumerate(("new", "roll", "save", "load", "help")))
    return (570, 400, ground(570, 400) + words(28, 46, 110, CREAM) + box(28, 72, 120, 26, CREAM, 6, 2) + words(46, 82, 84) +
            buttons + assets.put("buttons/sound-on", 352, 12, 30) + box(10, 120, 390, 270, "#CFE8D8", 8) + board +
            assets.put("pieces/aliens-2", 148, 138, 46) + assets.put("pieces/animals-5", 276, 256, 46) +
            die(150, 218, 42, 5, -10) + die(204, 222, 40, 3, 14) +
            box(424, 44, 112, 84, "#CFE8D8", 6) +
            f'<rect x="460" y="70" width="16" height="16" fill="{CORAL}" stroke="{INK}" stroke-width="2"/>' +
            words(440, 20, 60, CREAM) + assets.put("buttons/minimize", 508, 8, 26) + assets.put("buttons/quit", 538, 8, 26) +
            plates + number("1", 24, 26) + number("2", 330, 26) + number("3", 424, 100) + number("4", 418, 22) +
            number("5", 30, 140) + number("6", 548, 236) + number("7", 540, 52))


def dice(_assets):
    return 220, 110, (f'<ellipse cx="110" cy="98" rx="88" ry="8" fill="{INK}" fill-opacity=".22"/>' +
                      die(22, 10, 84, 5, -10) + die(114, 14, 80, 3, 12))


def card(_assets):
    rows = "".join(f'<circle cx="48" cy="{y + 17}" r="16" fill="{YELLOW}" stroke="{INK}" stroke-width="3"/>' +
                   sign(letter, 43, y + 10) + box(76, y, 312, 34, CREAM, 6) + words(92, y + 14, width)
                   for letter, y, width in (("A", 92, 160), ("B", 134, 210), ("C", 176, 130), ("D", 218, 184)))
    return (420, 272, ground(420, 272) + box(24, 20, 372, 56, CREAM, 10) + words(44, 36, 270) + words(44, 54, 190) +
            sign("?", 352, 32, CORAL, 2.2) + rows)


def draw(converter, name, size, drawing, out):
    width, height = size
    svg = f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" viewBox="0 0 {width} {height}">{drawing}</svg>'
    for suffix, scale in (("", 1), ("@2x", 2)):
        subprocess.run([converter, "-z", str(scale), "-o", str(out / f"{name}{suffix}.png")], input=svg.encode(), check=True)


def main(converter, assets_folder, out):
    out = pathlib.Path(out)
    out.mkdir(parents=True, exist_ok=True)
    assets = Assets(pathlib.Path(assets_folder))
    for picture in (welcome, chooser, players, screen, dice, card):
        width, height, drawing = picture(assets)
        draw(converter, picture.__name__, (width, height), drawing, out)
    for name in BUTTONS:
        draw(converter, f"button-{name}", (BUTTON_SIDE, BUTTON_SIDE), assets.put(f"buttons/{name}", 0, 0, BUTTON_SIDE), out)


if __name__ == "__main__":
    main(*sys.argv[1:])
