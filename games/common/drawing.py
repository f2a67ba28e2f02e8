"""Parts of pictures that several boards show, in one hand: see docs/look.md."""
import pathlib
import re

INK = "#1B2A41"

# Signs for what a space orders, 28 by 28, without an outline of their own.
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


def middle(rectangle):
    left, top, width, height = rectangle
    return left + width / 2, top + height / 2


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


def sign(drawing, x, y, scale, turn=""):
    return (
        f'<g transform="translate({x} {y}) scale({scale}){turn}" stroke="{INK}" stroke-width="2.3" '
        f'stroke-linejoin="round" stroke-linecap="round">{drawing}</g>'
    )


def inside_of(path: pathlib.Path):
    """What stands inside of an SVG file, to be drawn into another picture."""
    return re.sub(r"<\?xml.*?\?>|</?svg[^>]*>", "", path.read_text(encoding="utf-8"))


def picture(width, height, *parts):
    return "\n".join(
        [
            '<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" '
            f'viewBox="0 0 {width} {height}" width="{width}" height="{height}">',
            *parts,
            "</svg>",
            "",
        ]
    )
