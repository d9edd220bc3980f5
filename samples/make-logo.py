#!/usr/bin/env python3
"""Writes samples/logo.plt: a gear, the word MARK, a lens and a few strokes, 40 units to a
millimetre. Run it in this folder after changing the drawing."""

from math import cos, pi, sin


def circle(x, y, radius, points, clockwise=False):
    turn = -2 * pi if clockwise else 2 * pi
    ring = [(x + radius * cos(turn * i / points), y + radius * sin(turn * i / points))
            for i in range(points)]
    return ring + ring[:1]


def gear(x, y, root, tip, teeth):
    outline = []
    for tooth in range(teeth):
        middle = 2 * pi * tooth / teeth
        for offset, radius in ((-0.33, root), (-0.19, tip), (0.19, tip), (0.33, root)):
            angle = middle + offset * 2 * pi / teeth
            outline.append((x + radius * cos(angle), y + radius * sin(angle)))
    return outline + outline[:1]


def lens(left, right, y, rise, points):
    """Two arcs that meet in sharp tips."""
    upper = [(left + (right - left) * i / points, y + rise * sin(pi * i / points))
             for i in range(points)]
    lower = [(right - (right - left) * i / points, y - rise / 3 * sin(pi * i / points))
             for i in range(points)]
    return upper + lower + upper[:1]


def placed(outline, x, y):
    return [(x + px, y + py) for px, py in outline + outline[:1]]


# Letters 800 wide and 1000 high, strokes 200 wide.
M = [[(0, 0), (0, 1000), (220, 1000), (400, 620), (580, 1000), (800, 1000), (800, 0), (600, 0),
      (600, 600), (460, 300), (340, 300), (200, 600), (200, 0)]]
A = [[(0, 0), (290, 1000), (510, 1000), (800, 0), (590, 0), (530, 220), (270, 220), (210, 0)],
     [(320, 400), (480, 400), (400, 700)]]
R = [[(0, 0), (0, 1000), (480, 1000), (640, 960), (750, 850), (780, 690), (740, 540), (640, 440),
      (540, 400), (800, 0), (570, 0), (340, 380), (200, 380), (200, 0)],
     [(200, 560), (460, 560), (540, 600), (570, 690), (540, 780), (460, 820), (200, 820)]]
K = [[(0, 0), (0, 1000), (200, 1000), (200, 580), (530, 1000), (790, 1000), (420, 540), (800, 0),
      (560, 0), (290, 380), (200, 270), (200, 0)]]


def drawing():
    yield gear(1200, 1200, 900, 1150, 12)
    yield circle(1200, 1200, 560, 60, clockwise=True)
    yield circle(1200, 1200, 260, 36)
    for number, letter in enumerate((M, A, R, K)):
        for outline in letter:
            yield placed(outline, 2700 + 950 * number, 1150)
    yield lens(2700, 6350, 700, 240, 40)
    for i in range(15):
        x = 2900 + 232 * i
        yield [(x, 430), (x - 60, 180)]
    yield [(2700, 50), (6350, 50)]


def main():
    with open("logo.plt", "w", encoding="ascii", newline="\n") as file:
        file.write("IN;\nSP1;\n")
        for outline in drawing():
            for number, (x, y) in enumerate(outline):
                file.write(f"{'PD' if number else 'PU'}{round(x)} {round(y)};\n")
        file.write("PU;\nSP0;\n")


if __name__ == "__main__":
    main()
