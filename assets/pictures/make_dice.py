#!/usr/bin/env python3
"""Draws the 24 pictures of a tumbling die.

    make_dice.py FOLDER

writes frame-1.svg to frame-24.svg into FOLDER, four to a face: 1 to 4 show one pip, 5 to 8 two, and so on. The
four differ in the way the die lies, so that any row of them looks like a die on its way across the table. The cube
is seen without perspective; each of its faces is then a plain square under one matrix, which every renderer of
small SVG can draw, and the face that counts is always the one turned most towards the players.
"""
import math
import pathlib
import sys

INK = "#1B2A41"
SIZE = 29.0  # half an edge of the cube, in units of the 100 x 100 picture

# Turns about the x, y and z axis in degrees. The first two are kept at or below 20, where the sides stay narrow.
POSES = ((17, -18, -10), (-16, -17, 16), (19, 15, 30), (-17, 20, -26))

PIPS = {
    1: ((0, 0),),
    2: ((-1, -1), (1, 1)),
    3: ((-1, -1), (0, 0), (1, 1)),
    4: ((-1, -1), (1, -1), (-1, 1), (1, 1)),
    5: ((-1, -1), (1, -1), (0, 0), (-1, 1), (1, 1)),
    6: ((-1, -1), (1, -1), (-1, 0), (1, 0), (-1, 1), (1, 1)),
}

LIGHT = (-0.45, -0.62, 0.64)  # from the top left, as in every picture of the program


def turned(vector, pose):
    x, y, z = vector
    ax, ay, az = (math.radians(degrees) for degrees in pose)
    y, z = y * math.cos(ax) - z * math.sin(ax), y * math.sin(ax) + z * math.cos(ax)
    x, z = x * math.cos(ay) + z * math.sin(ay), -x * math.sin(ay) + z * math.cos(ay)
    x, y = x * math.cos(az) - y * math.sin(az), x * math.sin(az) + y * math.cos(az)
    return x, y, z


def cube_faces(front):
    """The six faces as (pips, outward normal, direction of the face's x, direction of its y)."""
    right = {1: 2, 2: 3, 3: 1, 4: 5, 5: 6, 6: 4}[front]
    down = ({1, 2, 3, 4, 5, 6} - {front, 7 - front, right, 7 - right}).pop()
    return (
        (front, (0, 0, 1), (1, 0, 0), (0, 1, 0)),
        (7 - front, (0, 0, -1), (-1, 0, 0), (0, 1, 0)),
        (right, (1, 0, 0), (0, 0, -1), (0, 1, 0)),
        (7 - right, (-1, 0, 0), (0, 0, 1), (0, 1, 0)),
        (down, (0, 1, 0), (1, 0, 0), (0, 0, -1)),
        (7 - down, (0, -1, 0), (1, 0, 0), (0, 0, 1)),
    )


def shade(normal):
    """Ivory in full light, going to a warm brown where the light does not reach."""
    light = max(0.0, sum(a * b for a, b in zip(normal, LIGHT)))
    ivory, brown = (255, 248, 232), (214, 160, 112)
    return "#" + "".join(f"{round(b + (a - b) * min(1.0, 0.30 + 0.95 * light)):02X}" for a, b in zip(ivory, brown))


def frame(front, pose):
    faces = []
    for pips, normal, across, along in cube_faces(front):
        n = turned(normal, pose)
        if n[2] > 0.02:
            faces.append((n[2], pips, n, turned(across, pose), turned(along, pose)))
    faces.sort()  # the narrow ones first, the face that counts last

    def corner(n, u, v, i, j):
        return f"{50 + SIZE * (n[0] + i * u[0] + j * v[0]):.2f} {47 + SIZE * (n[1] + i * u[1] + j * v[1]):.2f}"

    outlines, squares = [], []
    for depth, pips, n, u, v in faces:
        path = "M" + "L".join(corner(n, u, v, i, j) for i, j in ((-1, -1), (1, -1), (1, 1), (-1, 1))) + "Z"
        fill = shade(n)
        outlines.append(f'<path d="{path}"/>')
        squares.append(f'<path d="{path}" fill="{fill}" stroke="{fill}" stroke-width="7"/>')
    for depth, pips, n, u, v in faces:
        counts = pips == front
        matrix = " ".join(f"{value:.4f}" for value in (u[0], u[1], v[0], v[1], 50 + SIZE * n[0], 47 + SIZE * n[1]))
        squares.append(f'<g transform="matrix({matrix})" fill="{INK if counts else "#C99C74"}">')
        if counts:
            squares.append(f'<rect x="-27" y="-27" width="54" height="54" rx="11" fill="{shade((-0.3, -0.4, 0.86))}"/>')
        red = counts and pips == 1  # a lone pip is larger and red, as on the dice of many countries
        radius = 8.5 if red else 5.8
        for x, y in PIPS[pips]:
            colour = ' fill="#D9402F"' if red else ""
            squares.append(f'<circle cx="{x * 15.5:g}" cy="{y * 15.5:g}" r="{radius}"{colour}/>')
        squares.append("</g>")
    lines = [
        '<svg xmlns="http://www.w3.org/2000/svg" viewBox="-4.5 -5 109 109">',  # a corner may stand far out
        f'<ellipse cx="52" cy="91" rx="34" ry="6" fill="{INK}" fill-opacity=".25"/>',
        f'<g fill="{INK}" stroke="{INK}" stroke-width="14" stroke-linejoin="round">',
        *outlines,
        "</g>",
        '<g stroke-linejoin="round">',
        *squares,
        "</g>",
        "</svg>",
        "",
    ]
    return "\n".join(lines)


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    for number in range(1, 25):
        front, pose = (number + 3) // 4, POSES[(number - 1) % 4]
        (folder / f"frame-{number}.svg").write_text(frame(front, pose), encoding="ascii")


if __name__ == "__main__":
    main()
