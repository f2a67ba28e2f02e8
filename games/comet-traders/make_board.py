#!/usr/bin/env python3
"""Makes the board of Comet Traders and its tables: the picture, the spaces, and the deck of deals.

    make_board.py FOLDER

reads the tables and scenery.svg beside this script and writes board.svg, spaces.xml, decks.xml and cards1.xml into
FOLDER. The spaces are planets on one great orbit, from Home Port at the left over the top and round again.
"""
import math
import pathlib
import random
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent))

from common.content import read_table, spaces_xml, write_decks  # noqa: E402
from common.drawing import INK, SIGNS, figures, inside_of, picture, sign  # noqa: E402

BOARD_WIDTH, BOARD_HEIGHT = 1440, 900
RADIUS = 43

GOOD, BAD, DEAL, SPECIAL, QUIET = "good", "bad", "deal", "special", "quiet"
LOOKS = {
    "nothing": QUIET,
    "draw-card": DEAL,
    "gain-points": GOOD,
    "extra-turns": GOOD,
    "collect-from-each": GOOD,
    "go-to": SPECIAL,
    "lose-points": BAD,
    "lose-turns": BAD,
    "back": BAD,
    "pay-each-player": SPECIAL,
}
# The middle and the rim of a planet, and the ring of light around it.
COLOURS = {
    GOOD: ("#FFF3C4", "#FFC64A", "#FFE08A"),
    BAD: ("#FFD9CC", "#F2806A", "#FFB3A3"),
    DEAL: ("#D8F5EF", "#6CC7B8", "#A6EADF"),
    SPECIAL: ("#EBDFFF", "#B08BEA", "#D6C2FF"),
    QUIET: ("#FFFFFF", "#E6D6B4", "#FFF6E3"),
}

COIN = (
    '<circle cx="14" cy="14" r="11.5" fill="#FFC83D"/>'
    '<circle cx="14" cy="14" r="8" fill="#FFE27A" stroke-width="1.5"/>'
)
STAR = '<path d="M14 8L15.8 12.2L20 14L15.8 15.8L14 20L12.2 15.8L8 14L12.2 12.2Z" fill="#F0932B" stroke-width="1.2"/>'
# Signs of this game, 28 by 28: what is money elsewhere is a coin here, and a deal is a stall of the market.
OWN_SIGNS = {
    "draw-card": '<path d="M4 13H24V26H4Z" fill="#B9794F"/><path d="M1 11L5 2H23L27 11Q23.700 15 20.500 11Q17 15 14 '
    '11Q11 15 7.500 11Q4.300 15 1 11Z" fill="#FFF6E3"/><path d="M7.500 11L9.500 2H14V11Q11 15 7.500 11ZM20.500 11L18.5 '
    '2H23L27 11Q23.700 15 20.500 11Z" fill="#F2705B" stroke-width="1.6"/><path d="M8 20H20" fill="none"/>',
    "gain-points": COIN + STAR,
    "lose-points": COIN + '<path d="M9 14H19" fill="none" stroke="#C23B28" stroke-width="4.500"/>',
    "pay-each-player": '<circle cx="14" cy="14" r="6.500" fill="#FFC83D"/><path d="M14 6V1M11.500 3L14 .5L16.500 '
    '3M14 22V27M11.500 25L14 27.500L16.500 25M6 14H1M3 11.500L.5 14L3 16.500M22 14H27M25 11.500L27.500 14L25 16.500" '
    'fill="none"/>',
    "collect-from-each": '<circle cx="14" cy="14" r="6.500" fill="#FFC83D"/><path d="M14 .5V5.500M11.500 3.500L14 '
    '6L16.500 3.500M14 27.500V22.500M11.500 24.500L14 22L16.500 24.500M.5 14H5.500M3.500 11.500L6 14L3.500 '
    '16.500M27.500 14H22.500M24.500 11.500L22 14L24.500 16.500" fill="none"/>',
    "go-to": '<path d="M14 14Q16 11 19 14Q20 20 13 20Q6 19 7 12Q9 5 17 6Q25 8 24 17Q22 26 12 26" fill="none" '
    'stroke-width="3"/>',
    "extra-turns": '<path d="M16 1L5 16H12L10 27L23 11H15.500Z" fill="#FFC83D"/>',
    "lose-turns": '<path d="M18 2Q12 3 13 10L3 20Q1 24 4 26Q7 28 9 25L18 15Q26 16 26 9L21 12L17 11L16 7Z" '
    'fill="#C9D3E2"/>',
}
SHOWN = {**SIGNS, **OWN_SIGNS}


def orbit_point(at):
    """A place on the orbit, a rounded oblong that is flown clockwise from the middle of its left side: AT is 0 to 1."""
    left, top, right, bottom, radius = 62, 60, 1378, 838, 172
    bend = math.pi * radius / 2
    middle = (top + bottom) / 2
    legs = (
        (middle - top - radius, lambda way: (left, middle - way)),
        (bend, lambda way: corner(left + radius, top + radius, radius, math.pi + way / radius)),
        (right - left - 2 * radius, lambda way: (left + radius + way, top)),
        (bend, lambda way: corner(right - radius, top + radius, radius, 1.5 * math.pi + way / radius)),
        (bottom - top - 2 * radius, lambda way: (right, top + radius + way)),
        (bend, lambda way: corner(right - radius, bottom - radius, radius, way / radius)),
        (right - left - 2 * radius, lambda way: (right - radius - way, bottom)),
        (bend, lambda way: corner(left + radius, bottom - radius, radius, 0.5 * math.pi + way / radius)),
        (bottom - radius - middle, lambda way: (left, bottom - radius - way)),
    )
    way = at * sum(length for length, _ in legs)
    for length, place in legs:
        if way <= length:
            return place(way)
        way -= length
    return left, middle


def corner(x, y, radius, angle):
    return x + radius * math.cos(angle), y + radius * math.sin(angle)


def orbit(count):
    """The middles of COUNT planets, evenly spread."""
    return [tuple(round(along) for along in orbit_point(number / count)) for number in range(count)]


def rectangle(middle):
    """Where the pieces stand: inside of the planet's own square, so that they stay on it and spaces in a bend of the
    orbit keep clear of each other."""
    return middle[0] - 34, middle[1] - 38, 66, 66


def gradients():
    return "<defs>" + "".join(
        f'<radialGradient id="planet-{look}" cx=".36" cy=".3" r=".85"><stop offset="0" stop-color="{light}"/>'
        f'<stop offset="1" stop-color="{rim}"/></radialGradient>'
        for look, (light, rim, _) in COLOURS.items()
    ) + "</defs>"


def stars():
    """The same stars at each run, for equal sources give an equal picture."""
    sky, drawn = random.Random(1859), []
    for _ in range(420):
        x, y, size = sky.uniform(0, BOARD_WIDTH), sky.uniform(0, BOARD_HEIGHT), sky.choice((0.8, 1.1, 1.1, 1.6))
        drawn.append(f'<circle cx="{x:.0f}" cy="{y:.0f}" r="{size}" fill-opacity="{sky.uniform(0.3, 0.95):.2f}"/>')
    for _ in range(46):
        x, y, size = sky.uniform(0, BOARD_WIDTH), sky.uniform(0, BOARD_HEIGHT), sky.uniform(4, 8)
        inner = size * 0.22
        drawn.append(
            f'<path d="M{x:.0f} {y - size:.1f}L{x + inner:.1f} {y - inner:.1f}L{x + size:.1f} {y:.0f}L{x + inner:.1f} '
            f'{y + inner:.1f}L{x:.0f} {y + size:.1f}L{x - inner:.1f} {y + inner:.1f}L{x - size:.1f} {y:.0f}'
            f'L{x - inner:.1f} {y - inner:.1f}Z" fill-opacity=".85"/>'
        )
    return f'<g fill="#FFF4D6">{"".join(drawn)}</g>'


def track():
    line = "M" + "L".join(f"{x:.0f} {y:.0f}" for x, y in orbit(400)) + "Z"
    return (
        f'<path d="{line}" fill="none" stroke="#7D6BD6" stroke-opacity=".35" stroke-width="30"/>'
        f'<path d="{line}" fill="none" stroke="#CFC2FF" stroke-opacity=".75" stroke-width="5" '
        'stroke-dasharray="1 13" stroke-linecap="round"/>'
    )


def wormhole(begin, end):
    """The way through space from one planet to another, below the market."""
    (x1, y1), (x2, y2) = begin, end
    path = f"M{x1} {y1}C{x1 - 150} {y1 - 190} {x2 + 150} {y2 - 190} {x2} {y2}"
    return "".join(
        f'<path d="{path}" fill="none" stroke="{stroke}" stroke-width="{width}" stroke-linecap="round"{more}/>'
        for stroke, width, more in (
            ("#B08BEA", 30, ' stroke-opacity=".22"'),
            ("#D6C2FF", 14, ' stroke-opacity=".3"'),
            ("#FFF6E3", 8, ' stroke-dasharray="0 22"'),
        )
    )


def draw_space(number, space, middle):
    x, y = middle
    look = LOOKS[space["action"]]
    radius = RADIUS + 9 if number == 1 else RADIUS
    parts = [
        f'<circle cx="{x}" cy="{y}" r="{radius + 4}" fill="none" stroke="{COLOURS[look][2]}" stroke-opacity=".5" '
        'stroke-width="5"/>',
        f'<circle cx="{x}" cy="{y}" r="{radius}" fill="url(#planet-{look})" stroke="{INK}" stroke-width="3.5"/>',
        f'<path d="M{x - radius + 9} {y - 6}A{radius - 9} {radius - 9} 0 0 1 {x - 4} {y - radius + 9}" fill="none" '
        'stroke="#FFFFFF" stroke-opacity=".8" stroke-width="4" stroke-linecap="round"/>',
    ]
    if number == 1:
        parts.append(
            f'<g transform="translate({x} {y + 4})" stroke="{INK}" stroke-width="3" stroke-linejoin="round"><path '
            'd="M-30 26V6H30V26Z" fill="#8FD3C8"/><path d="M-12 6V-10H12V6Z" fill="#FFF6E3"/><path d="M-20 -10L0 '
            '-28L20 -10Z" fill="#F2705B"/><path d="M-6 26V14H6V26Z" fill="#5B3A22"/><path d="M-22 12H-14V19H-22ZM14 '
            '12H22V19H14Z" fill="#FFC83D" stroke-width="2"/><path d="M0 -28V-40L12 -35L0 -31" fill="#FFC83D"/></g>'
        )
    elif space["action"] in SHOWN:
        lower = 20 if space["action"] == "back" else 16
        parts.append(sign(SHOWN[space["action"]], x - 14, y - lower, 1.6))
    return "\n".join(parts)


def draw_number(number, middle):
    x, y = middle
    width = 14 if number < 10 else 20
    return (
        f'<rect x="{x - 32 - width}" y="{y + 18}" width="{2 * width}" height="27" rx="13" fill="#FFF6E3" '
        f'stroke="{INK}" stroke-width="2.5"/>' + figures(number, x - 32 - (7 if number < 10 else 13), y + 23.5, 16)
    )


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    spaces = read_table(HERE / "spaces.tsv")
    middles = orbit(len(spaces))
    behind, before = inside_of(HERE / "scenery.svg").split("<!-- orbit -->")
    trails = (
        wormhole(middles[number], middles[int(space["data1"]) - 1])
        for number, space in enumerate(spaces)
        if space["action"] == "go-to"
    )
    planets = (draw_space(number, space, at) for number, (space, at) in enumerate(zip(spaces, middles), 1))
    numbers = (draw_number(number, at) for number, at in enumerate(middles, 1))
    sky = (gradients(), behind, stars(), track(), *trails, before)
    board = picture(BOARD_WIDTH, BOARD_HEIGHT, *sky, *planets, *numbers)
    (folder / "board.svg").write_text(board, encoding="utf-8")
    (folder / "spaces.xml").write_text(spaces_xml(spaces, [rectangle(middle) for middle in middles]), encoding="utf-8")
    write_decks(HERE, folder, "coins")


if __name__ == "__main__":
    main()
