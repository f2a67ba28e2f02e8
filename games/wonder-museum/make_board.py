#!/usr/bin/env python3
"""Makes the board of the Wonder Museum and its tables: the picture, the spaces, and the decks with their cards.

    make_board.py FOLDER

reads the tables and scenery.svg beside this script and writes board.svg, spaces.xml, decks.xml and the cards*.xml into
FOLDER. The spaces run around the house, from the lower left corner to the right and against the clock.
"""
import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent))

from common.content import read_table, spaces_xml, write_decks  # noqa: E402
from common.drawing import INK, SIGNS, figures, inside_of, picture, sign  # noqa: E402

BOARD_WIDTH, BOARD_HEIGHT = 1440, 900
COLUMNS, ROWS = 10, 7
EDGE, GAP = 20, 10

# The colours of a tile: its face, its edge and the plate behind its sign. A deck has the colour of its hall.
HALLS = {
    1: ("#DDF0C6", "#6FB548", "#F6FBEF"),
    2: ("#C9E9F5", "#3FA7D6", "#F0FAFD"),
    3: ("#E3D9FA", "#8A6AD0", "#F7F3FE"),
    4: ("#FFD3C8", "#EE6F57", "#FFF3F0"),
}
GOOD = ("#FFE9A3", "#F5B52E", "#FFF8E0")
BAD = ("#D3D9E2", "#7F8CA3", "#F0F3F7")
QUIET = ("#FFFBEF", "#D9C49A", "#FFFFFF")
LOOKS = {
    "nothing": QUIET,
    "gain-points": GOOD,
    "extra-turns": GOOD,
    "go-to": GOOD,
    "lose-points": BAD,
    "lose-turns": BAD,
    "to-start": BAD,
}

# The signs of the decks, 28 by 28 as the others: leaf, globe, flask, palette.
HALL_SIGNS = {
    1: '<path d="M4 24Q0 6 24 4Q27 26 8 23Z" fill="#6FB548"/><path d="M4 25Q10 15 18 10M11 17L12 10M14 14L20 15" '
    'fill="none" stroke-width="2"/>',
    2: '<circle cx="14" cy="12" r="10.5" fill="#3FA7D6"/><path d="M6 7Q10 4 14 7T12 13T6 14Q3 10 6 7ZM17 12Q22 10 23 '
    '15Q20 21 17 19T17 12Z" fill="#9CD07B" stroke-width="1.6"/><path d="M14 23V26M7 27H21" fill="none"/>',
    3: '<path d="M10 3H18M11 3V11L4 23Q3 26 6 26H22Q25 26 24 23L17 11V3" fill="#F7F3FE"/><path d="M8.5 17H19.5L24 '
    '23Q25 26 22 26H6Q3 26 4 23Z" fill="#A98BDD" stroke-width="1.8"/><circle cx="12" cy="21" r="1.6" fill="#FFF6E3" '
    'stroke="none"/><circle cx="17" cy="23" r="1.2" fill="#FFF6E3" stroke="none"/>',
    4: '<path d="M14 3Q27 3 27 13Q27 19 20 18Q15 18 17 22Q18 26 13 26Q2 25 2 14Q3 4 14 3Z" fill="#F6D9A8"/>'
    '<g stroke-width="1.5"><circle cx="8" cy="12" r="2.6" fill="#F2705B"/><circle cx="14" cy="8" r="2.6" '
    'fill="#FFC83D"/><circle cx="21" cy="11" r="2.6" fill="#6FB548"/><circle cx="8" cy="19" r="2.6" '
    'fill="#3FA7D6"/></g>',
}

# Here points are lost to an alarm, not to the wind.
OWN_SIGNS = {
    **SIGNS,
    "lose-points": '<path d="M4 22Q7 20 7 13Q7 5 14 5T21 13Q21 20 24 22Z" fill="#F2705B"/><path d="M14 5V2M10 22Q14 29 '
    '18 22" fill="#FFC83D"/><path d="M2 10Q1 6 4 2M26 10Q27 6 24 2" fill="none"/>',
}


def cells():
    """The places of the tiles as (column, row), from the lower left corner on."""
    yield from ((column, ROWS - 1) for column in range(COLUMNS))
    yield from ((COLUMNS - 1, row) for row in range(ROWS - 2, 0, -1))
    yield from ((column, 0) for column in range(COLUMNS - 1, -1, -1))
    yield from ((0, row) for row in range(1, ROWS - 1))


def rectangles():
    width, height = (BOARD_WIDTH - 2 * EDGE) / COLUMNS, (BOARD_HEIGHT - 2 * EDGE) / ROWS
    return [
        (round(EDGE + column * width + GAP / 2), round(EDGE + row * height + GAP / 2), round(width - GAP),
         round(height - GAP))
        for column, row in cells()
    ]


def sign_of(space, number, x, y):
    if space["action"] == "draw-card":
        return sign(HALL_SIGNS[int(space["data1"])], x, y, 1.75)
    if number == 1:
        return (
            f'<g transform="translate({x + 2} {y - 6})" stroke="{INK}" stroke-width="3" stroke-linejoin="round" '
            'stroke-linecap="round"><path d="M2 56V22Q2 2 23 2T44 22V56Z" fill="#B9794F"/><path d="M9 56V23Q9 9 23 '
            '9T37 23V56Z" fill="#FFE58A"/><path d="M23 9V56" stroke-width="2.5"/><circle cx="18" cy="36" r="2" '
            f'fill="{INK}" stroke="none"/><circle cx="28" cy="36" r="2" fill="{INK}" stroke="none"/></g>'
        )
    turn = " translate(28 0) scale(-1 1)" if space["action"] == "go-to" else ""
    return sign(OWN_SIGNS[space["action"]], x, y, 1.75, turn) if space["action"] in OWN_SIGNS else ""


def draw_space(number, space, rectangle):
    left, top, width, height = rectangle
    face, edge, plate = HALLS[int(space["data1"])] if space["action"] == "draw-card" else LOOKS[space["action"]]
    return "\n".join(
        [
            f'<rect x="{left}" y="{top + 5}" width="{width}" height="{height}" rx="15" fill="#0B2230" '
            'fill-opacity=".4"/>',
            f'<rect x="{left + 1.5}" y="{top + 1.5}" width="{width - 3}" height="{height - 3}" rx="14" fill="{edge}" '
            f'stroke="{INK}" stroke-width="3"/>',
            f'<rect x="{left + 8}" y="{top + 8}" width="{width - 16}" height="{height - 18}" rx="9" fill="{face}"/>',
            f'<circle cx="{left + width - 40}" cy="{top + height - 43}" r="32" fill="{plate}" fill-opacity=".85"/>',
            sign_of(space, number, left + width - 64, top + height - 67),
            figures(number, left + 17, top + height - 36, 20),
        ]
    )


def carpet():
    """The floor on which the tiles lie: diamonds, tone in tone."""
    diamonds = "".join(
        f"M{x} {y - 22}L{x + 22} {y}L{x} {y + 22}L{x - 22} {y}Z"
        for row, y in enumerate(range(0, BOARD_HEIGHT + 45, 45))
        for x in range(45 * (row % 2), BOARD_WIDTH + 90, 90)
    )
    return (
        f'<rect width="{BOARD_WIDTH}" height="{BOARD_HEIGHT}" fill="#17616B"/>'
        f'<path d="{diamonds}" fill="#1E6E75" stroke="#14555F" stroke-width="2"/>'
    )


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    spaces = read_table(HERE / "spaces.tsv")
    places = rectangles()
    tiles = (draw_space(number, space, place) for number, (space, place) in enumerate(zip(spaces, places), 1))
    board = picture(BOARD_WIDTH, BOARD_HEIGHT, carpet(), inside_of(HERE / "scenery.svg"), *tiles)
    (folder / "board.svg").write_text(board, encoding="utf-8")
    (folder / "spaces.xml").write_text(spaces_xml(spaces, places), encoding="utf-8")
    write_decks(HERE, folder, "points")


if __name__ == "__main__":
    main()
