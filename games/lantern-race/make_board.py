#!/usr/bin/env python3
"""Makes the board of the Lantern Race: the picture and the table of its spaces, from one road.

    make_board.py FOLDER

reads spaces.tsv and scenery.svg beside this script and writes board.svg and spaces.xml into FOLDER. The rectangles
in spaces.xml are the very ones that are drawn, so a piece can't come to stand beside its space.
"""
import math
import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent))

from common.content import read_table, spaces_xml  # noqa: E402
from common.drawing import INK, SIGNS, figures, inside_of, middle, picture, sign  # noqa: E402

BOARD_WIDTH, BOARD_HEIGHT = 1440, 900
SPACE_WIDTH, SPACE_HEIGHT = 104, 78

# The colours of a space: its face and its edge.
GOOD, BAD = ("#FFE79A", "#F5B52E"), ("#FFC3B4", "#EE7A63")
QUIET, SPECIAL = ("#FFFBEF", "#EBDDBE"), ("#E3D3FA", "#A98BDD")
LOOKS = {
    "nothing": QUIET,
    "forward": GOOD,
    "extra-turns": GOOD,
    "go-to": GOOD,
    "back": BAD,
    "to-start": BAD,
    "lose-turns": BAD,
    "roll-double": SPECIAL,
    "roll-number": SPECIAL,
}

# The space towards which the arrow of a space points; the arrows above are drawn to point to the right.
TARGETS = {
    "forward": lambda number, space: number + 1,
    "back": lambda number, space: number - 1,
    "go-to": lambda number, space: int(space["data1"]),
}


def road():
    """The middle of the road in small steps: four rows joined by bends, from the harbour up to the tower."""
    left, right, rows = 168, 1276, (768, 584, 400, 216)
    points = []
    for number, y in enumerate(rows):
        start, end = (left, right) if number % 2 == 0 else (right, left)
        first = 92 if number == 0 else start
        last = 118 if number == len(rows) - 1 else end
        steps = 400
        for step in range(steps + 1):
            x = first + (last - first) * step / steps
            inside = max(0.0, min(1.0, (x - left) / (right - left)))
            wave = 13 * math.sin(inside * math.pi * 5) * math.sin(inside * math.pi) ** 0.5
            points.append((x, y + wave))
        if number < len(rows) - 1:
            radius = (y - rows[number + 1]) / 2
            outward = 1 if number % 2 == 0 else -1
            for step in range(1, 200):
                angle = math.pi * step / 200
                points.append((end + outward * radius * 1.04 * math.sin(angle), y - radius + radius * math.cos(angle)))
    return points


def size_of(index, count):
    return (130, 86) if index in (0, count - 1) else (SPACE_WIDTH, SPACE_HEIGHT)


def place(points, count, gap):
    """Puts spaces one after another on the road, each as soon as it is clear of the last two by the gap."""
    centres, at = [points[0]], 0
    while len(centres) < count:
        width, height = size_of(len(centres), count)
        while at < len(points):
            x, y = points[at]
            clear = True
            for back in (1, 2):
                if len(centres) < back:
                    continue
                other_x, other_y = centres[-back]
                other_width, other_height = size_of(len(centres) - back, count)
                if (
                    abs(x - other_x) < (width + other_width) / 2 + gap
                    and abs(y - other_y) < (height + other_height) / 2 + gap
                ):
                    clear = False
            if clear:
                break
            at += 1
        if at == len(points):
            return None
        centres.append(points[at])
    return centres


def rectangles(count):
    """The spaces as (left, top, width, height): spread out as far as the road allows."""
    points = road()
    tight, wide = 0.0, 60.0
    for _ in range(40):
        middle = (tight + wide) / 2
        if place(points, count, middle):
            tight = middle
        else:
            wide = middle
    centres = place(points, count, tight)
    centres[-1] = points[-1]
    result = []
    for index, (x, y) in enumerate(centres):
        width, height = size_of(index, count)
        result.append((round(x - width / 2), round(y - height / 2), width, height))
    return result


def draw_space(number, space, rects):
    count, (left, top, width, height) = len(rects), rects[number - 1]
    light, dark = LOOKS[space["action"]]
    if space["action"] == "go-to" and int(space["data1"]) < number:
        light, dark = BAD
    if number == count:
        light, dark = GOOD
    turn = ""
    if space["action"] in TARGETS:
        x, y = middle(rects[number - 1])
        to_x, to_y = middle(rects[TARGETS[space["action"]](number, space) - 1])
        if space["action"] == "go-to":
            turn = " translate(28 0) scale(-1 1)" if to_x < x else ""
        else:
            turn = f" rotate({round(math.degrees(math.atan2(to_y - y, to_x - x)) / 90) * 90} 14 14)"
    parts = [
        f'<rect x="{left}" y="{top + 5}" width="{width}" height="{height}" rx="17" fill="{INK}" fill-opacity=".35"/>',
        f'<rect x="{left + 1.5}" y="{top + 1.5}" width="{width - 3}" height="{height - 3}" rx="16" fill="{dark}" '
        f'stroke="{INK}" stroke-width="3"/>',
        f'<rect x="{left + 6}" y="{top + 5}" width="{width - 12}" height="{height - 14}" rx="12" fill="{light}"/>',
    ]
    if number == 1:
        parts.append(
            f'<g transform="translate({left + width - 62} {top + 22})" stroke="{INK}" stroke-width="3" '
            'stroke-linejoin="round" stroke-linecap="round"><path d="M6 50V2" fill="none" stroke-width="5"/>'
            '<path d="M8 4Q22 -3 30 4T52 4V28Q38 35 30 28T8 28Z" fill="#6FB548"/></g>'
        )
    elif number == count:
        parts.append(
            f'<g transform="translate({left + width - 54} {top + 26}) scale(1.75)" stroke="{INK}" stroke-width="2" '
            f'stroke-linejoin="round" stroke-linecap="round">{SIGNS["collect-from-each"]}'
            '<path d="M14 11Q19 16 17 20Q14 23 11 20Q9 16 14 11Z" fill="#FFF6E3" stroke="none"/></g>'
        )
    elif space["action"] in SIGNS:
        parts.append(sign(SIGNS[space["action"]], left + width - 43, top + height - 45, 1.2, turn))
    parts.append(figures(number, left + 13, top + height - 31, 19))
    return "\n".join(parts)


def trail(rects, begin, end):
    """A dotted line from one space to another, for the rides that leave the road: light ones lead onward."""
    (x1, y1), (x2, y2) = middle(rects[begin - 1]), middle(rects[end - 1])
    colour, bend = ("#FFE79A", -60) if end > begin else ("#CFE6F7", 60)
    path = f"M{x1:.0f} {y1:.0f}Q{(x1 + x2) / 2 + bend:.0f} {(y1 + y2) / 2:.0f} {x2:.0f} {y2:.0f}"
    return "".join(
        f'<path d="{path}" fill="none" stroke="{stroke}" stroke-width="{width}" stroke-dasharray="0 20" '
        'stroke-linecap="round"/>'
        for stroke, width in ((INK, 13), (colour, 8))
    )


def board_svg(spaces, rects):
    line = "M" + "L".join(f"{x:.0f} {y:.0f}" for x, y in road()[::8] + road()[-1:])
    behind, before = inside_of(HERE / "scenery.svg").split("<!-- road -->")
    road_strokes = "".join(
        f'<path d="{line}" fill="none" stroke="{colour}" stroke-width="{width}" stroke-linecap="round" '
        f'stroke-linejoin="round"{more}/>\n'
        for colour, width, more in (
            (INK, 74, ' stroke-opacity=".25" transform="translate(0 7)"'),
            (INK, 70, ""),
            ("#C99A62", 63, ""),
            ("#E6C08A", 50, ""),
        )
    )
    return picture(
        BOARD_WIDTH,
        BOARD_HEIGHT,
        behind,
        road_strokes,
        *(
            trail(rects, number, int(space["data1"]))
            for number, space in enumerate(spaces, 1)
            if space["action"] == "go-to"
        ),
        *(draw_space(number, space, rects) for number, space in enumerate(spaces, 1)),
        before,
    )


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    spaces = read_table(HERE / "spaces.tsv")
    rects = rectangles(len(spaces))
    (folder / "board.svg").write_text(board_svg(spaces, rects), encoding="utf-8")
    (folder / "spaces.xml").write_text(spaces_xml(spaces, rects), encoding="utf-8")


if __name__ == "__main__":
    main()
