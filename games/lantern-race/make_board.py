#!/usr/bin/env python3
"""Makes the board of the Lantern Race: the picture and the table of its spaces, from one road.

    make_board.py FOLDER

reads spaces.tsv and scenery.svg beside this script and writes board.svg and spaces.xml into FOLDER. The rectangles
in spaces.xml are the very ones that are drawn, so a piece can't come to stand beside its space.
"""
import csv
import math
import pathlib
import re
import sys
from xml.sax.saxutils import quoteattr

HERE = pathlib.Path(__file__).resolve().parent
BOARD_WIDTH, BOARD_HEIGHT = 1440, 900
SPACE_WIDTH, SPACE_HEIGHT = 104, 78
INK = "#1B2A41"

# What a space can order, and the number by which the Player knows it. It has no number for a quiet space but passes
# over those that it does not know, so quiet spaces get one that it will never give a meaning to.
ACTIONS = {
    "nothing": -1,
    "forward": 1,
    "back": 2,
    "go-to": 3,
    "to-start": 4,
    "lose-points": 5,
    "gain-points": 6,
    "pay-each-player": 7,
    "collect-from-each": 8,
    "lose-turns": 9,
    "extra-turns": 10,
    "roll-double": 11,
    "roll-number": 12,
}

# The colours of a space: its face and its edge.
GOOD, BAD = ("#FFE79A", "#F5B52E"), ("#FFC3B4", "#EE7A63")
QUIET, SPECIAL = ("#FFFBEF", "#EBDDBE"), ("#E3D3FA", "#A98BDD")
LOOKS = {
    "nothing": QUIET,
    "forward": GOOD,
    "gain-points": GOOD,
    "extra-turns": GOOD,
    "go-to": GOOD,
    "back": BAD,
    "to-start": BAD,
    "lose-points": BAD,
    "lose-turns": BAD,
    "pay-each-player": SPECIAL,
    "collect-from-each": GOOD,
    "roll-double": SPECIAL,
    "roll-number": SPECIAL,
}

# Signs in the lower right corner of a space, 28 by 28.
SIGNS = {
    "forward": '<path d="M3 9H13V3L26 14L13 25V19H3Z" fill="#6FB548"/>',
    "back": '<path d="M3 9H13V3L26 14L13 25V19H3Z" fill="#F2705B"/>',
    "go-to": '<path d="M3 24Q3 9 16 9V3L26 12L16 21V15Q9 15 8 24Z" fill="#3FA7D6"/>',
    "to-start": '<path d="M3 13L14 3L25 13H22V25H6V13Z" fill="#F2705B"/><path d="M11 25V17H17V25Z" fill="#FFF6E3"/>',
    "gain-points": '<path d="M14 1L17.5 10.5L27 14L17.5 17.5L14 27L10.5 17.5L1 14L10.5 10.5Z" fill="#FFC83D"/>',
    "lose-points": '<path d="M2 10H17Q22 10 22 6.500T17.5 3M2 16H23Q27 16 26 20T20 22M2 22H12" fill="none" '
    'stroke="#FFF6E3" stroke-width="6"/><path d="M2 10H17Q22 10 22 6.500T17.5 3M2 16H23Q27 16 26 20T20 22M2 22H12" '
    'fill="none"/>',
    "pay-each-player": '<path d="M14 25Q1 16 3 8Q7 0 14 8Q21 0 25 8Q27 16 14 25Z" fill="#F2705B"/>',
    "collect-from-each": '<path d="M9 6Q9 0 14 0T19 6" fill="none"/><path d="M7 9H21V24H7Z" fill="#FFC83D"/>'
    '<path d="M5 10L14 3L23 10ZM5 24H23V27H5Z" fill="#D9573F"/>',
    "lose-turns": '<path d="M17 2A12.5 12.5 0 1 0 26 19A10.5 10.5 0 0 1 17 2Z" fill="#8FB3E0"/>',
    "extra-turns": '<rect x="3" y="3" width="22" height="22" rx="5" fill="#FFF6E3"/><g fill="#1B2A41" stroke="none">'
    '<circle cx="9" cy="9" r="2.6"/><circle cx="19" cy="9" r="2.6"/><circle cx="14" cy="14" r="2.6"/>'
    '<circle cx="9" cy="19" r="2.6"/><circle cx="19" cy="19" r="2.6"/></g>',
    "roll-double": '<rect x="1" y="1" width="15" height="15" rx="4" fill="#FFF6E3"/>'
    '<rect x="12" y="12" width="15" height="15" rx="4" fill="#FFF6E3"/><g fill="#1B2A41" stroke="none">'
    '<circle cx="8.5" cy="8.5" r="2.5"/><circle cx="19.5" cy="19.5" r="2.5"/></g>',
    "roll-number": '<path d="M3 27V13Q3 2 14 2T25 13V27Z" fill="#7C5CBF"/><path d="M9 9H19L13 23" fill="none" '
    'stroke="#FFF6E3" stroke-width="3.5"/>',
}

# The space towards which the arrow of a space points; the arrows above are drawn to point to the right.
TARGETS = {
    "forward": lambda number, space: number + 1,
    "back": lambda number, space: number - 1,
    "go-to": lambda number, space: int(space["data1"]),
}

# Figures as strokes in a box of 10 by 14: no font of the machine has a say in the board.
FIGURES = (
    "M5 1C0 1 0 13 5 13S10 1 5 1Z",
    "M2 4L5.5 1V13",
    "M1.5 4C1.5 0 8.5 0 8.5 4.500C8.5 8 1.5 10 1.5 13H9",
    "M1.5 2.500C3.5 .2 8.3 .6 8.3 3.800C8.3 6.5 5.5 6.7 4 6.700C6 6.7 9 7 9 10C9 13.8 3 13.9 1.2 11.4",
    "M7.2 13V1L1 9.600H9.5",
    "M8.4 1H2.600L2 6.500C4 5 9 5 9 9C9 13.7 3 13.9 1.2 11.6",
    "M7.8 1C3 2.5 1.2 6.5 1.2 9.200C1.2 14.2 9 14.2 9 9.300C9 5 2.6 5 1.4 8.8",
    "M1.2 1H9L4 13",
    "M5 1C.8 1 .9 5.7 5 6.500S9.5 13 5 13S.9 7.3 5 6.500S9.2 1 5 1Z",
    "M8.7 4.900C7.5 8.7 1 8.7 1 4.700C1 0 8.8 0 8.8 4.700C8.8 8 7 11.5 3 13",
)


def read_spaces():
    with open(HERE / "spaces.tsv", encoding="utf-8", newline="") as file:
        return list(csv.DictReader(file, delimiter="\t", quoting=csv.QUOTE_NONE))


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


def middle(rectangle):
    left, top, width, height = rectangle
    return left + width / 2, top + height / 2


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


def figures(number, x, y, height):
    scale = height / 14
    strokes = "".join(
        f'<path d="{FIGURES[int(digit)]}" transform="translate({place * 11.5} 0)"/>'
        for place, digit in enumerate(str(number))
    )
    return (
        f'<g transform="translate({x} {y}) scale({scale:.3f})" fill="none" stroke="{INK}" stroke-width="2.5" '
        f'stroke-linecap="round" stroke-linejoin="round">{strokes}</g>'
    )


def draw_space(number, space, rects):
    count, (left, top, width, height) = len(rects), rects[number - 1]
    light, dark = LOOKS[space["action"]]
    if space["action"] == "go-to" and int(space["data1"]) < number:
        light, dark = BAD
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
            f'stroke-linejoin="round" stroke-linecap="round">{SIGNS[space["action"]]}'
            '<path d="M14 11Q19 16 17 20Q14 23 11 20Q9 16 14 11Z" fill="#FFF6E3" stroke="none"/></g>'
        )
    elif space["action"] in SIGNS:
        parts.append(
            f'<g transform="translate({left + width - 43} {top + height - 45}) scale(1.2){turn}" stroke="{INK}" '
            f'stroke-width="2.3" stroke-linejoin="round" stroke-linecap="round">{SIGNS[space["action"]]}</g>'
        )
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
    scenery = re.sub(r"<\?xml.*?\?>|</?svg[^>]*>", "", (HERE / "scenery.svg").read_text(encoding="utf-8"))
    behind, before = scenery.split("<!-- road -->")
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
    return "\n".join(
        [
            '<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" '
            f'viewBox="0 0 {BOARD_WIDTH} {BOARD_HEIGHT}" width="{BOARD_WIDTH}" height="{BOARD_HEIGHT}">',
            behind,
            road_strokes,
            *(
                trail(rects, number, int(space["data1"]))
                for number, space in enumerate(spaces, 1)
                if space["action"] == "go-to"
            ),
            *(draw_space(number, space, rects) for number, space in enumerate(spaces, 1)),
            before,
            "</svg>",
            "",
        ]
    )


COLUMNS = (
    # name, type in the recordset, further facts of the type
    ("Sequence", "r4", "dt:maxLength='4' rs:precision='7' rs:fixedlength='true'"),
    ("Top", "int", "dt:maxLength='4' rs:precision='10' rs:fixedlength='true'"),
    ("Left", "int", "dt:maxLength='4' rs:precision='10' rs:fixedlength='true'"),
    ("Height", "int", "dt:maxLength='4' rs:precision='10' rs:fixedlength='true'"),
    ("Width", "int", "dt:maxLength='4' rs:precision='10' rs:fixedlength='true'"),
    ("ActionType", "int", "dt:maxLength='4' rs:precision='10' rs:fixedlength='true'"),
    ("Message", "string", "rs:dbtype='str' dt:maxLength='254'"),
    ("Data1", "r4", "dt:maxLength='4' rs:precision='7' rs:fixedlength='true'"),
    ("Data2", "int", "dt:maxLength='4' rs:precision='10' rs:fixedlength='true'"),
)


def spaces_xml(spaces, rects):
    lines = [
        "<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'",
        "\txmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882'",
        "\txmlns:rs='urn:schemas-microsoft-com:rowset'",
        "\txmlns:z='#RowsetSchema'>",
        "<s:Schema id='RowsetSchema'>",
        "\t<s:ElementType name='row' content='eltOnly'>",
    ]
    for number, (name, kind, facts) in enumerate(COLUMNS, 1):
        lines += [
            f"\t\t<s:AttributeType name='{name}' rs:number='{number}' rs:write='true'>",
            f"\t\t\t<s:datatype dt:type='{kind}' {facts} rs:maybenull='false'/>",
            "\t\t</s:AttributeType>",
        ]
    lines += ["\t\t<s:extends type='rs:rowbase'/>", "\t</s:ElementType>", "</s:Schema>", "<rs:data>"]
    for number, (space, (left, top, width, height)) in enumerate(zip(spaces, rects), 1):
        lines.append(
            f"\t<z:row Sequence='{number}' Top='{top}' Left='{left}' Height='{height}' Width='{width}' "
            f"ActionType='{ACTIONS[space['action']]}' Message={quoteattr(space['message'] or ' ')} "
            f"Data1='{space['data1']}' Data2='{space['data2']}'/>"
        )
    return "\n".join([*lines, "</rs:data>", "</xml>", ""])


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    spaces = read_spaces()
    rects = rectangles(len(spaces))
    (folder / "board.svg").write_text(board_svg(spaces, rects), encoding="utf-8")
    (folder / "spaces.xml").write_text(spaces_xml(spaces, rects), encoding="utf-8")


if __name__ == "__main__":
    main()
