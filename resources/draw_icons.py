#!/usr/bin/env python3
"""Draws the program's pictures and writes them next to this file, or into the folder
given on the command line. The same bytes come out on every run."""

import sys

sys.dont_write_bytecode = True

from math import sqrt
from pathlib import Path

from picture_files import bmp_8, icon_image_32, icon_image_8, ico, png
from raster import Both, Canvas, Grown, Polygon, RoundedRect, Without, circle, color, down

WHITE = color("#FFFFFF")
PAPER = color("#F1F5FA")
OUTLINE = color("#52647D")
SHADOW = color("#16243A")
BAR = color("#A3B0C1")
ACCENT_LIGHT = color("#4A90F0")
ACCENT = color("#1F5FC9")
ACCENT_DARK = color("#17489B")
CORAL = color("#E9624D")
AMBER = color("#F3AC2E")
GREEN = color("#35A56C")
VIOLET = color("#8B6BD6")
ROW_COLORS = (CORAL, WHITE, GREEN, AMBER, VIOLET)
BAR_LENGTHS = (0.80, 0.62, 1.00, 0.68, 0.84)

# Whole pixels for each size, so that rows and bars stay sharp at the small ones.
# rows, row height, icon in a row, bar height, panel width, left, top, border, corner
MENU_GRID = {
    16: (3, 4, 2, 2, 13, 1, 1, 1, 1.5),
    20: (3, 5, 3, 1, 16, 2, 1, 1, 2),
    24: (3, 6, 4, 2, 19, 2, 2, 1, 2),
    32: (4, 6, 4, 2, 24, 3, 2, 1, 2.5),
    40: (4, 8, 4, 2, 30, 4, 2, 1, 3),
    48: (4, 9, 5, 3, 36, 5, 4, 1, 4),
    64: (4, 12, 6, 4, 48, 7, 5, 2, 5),
    256: (4, 48, 26, 12, 192, 28, 22, 6, 20),
}


def panel(canvas, left, top, right, bottom, border, corner):
    """Draws a sheet with an outline and returns the shape inside the outline."""
    canvas.fill(RoundedRect(left, top, right, bottom, corner), OUTLINE)
    inside = RoundedRect(left + border, top + border, right - border, bottom - border,
                         max(0.0, corner - border))
    canvas.fill(inside, down(top, bottom, WHITE, PAPER))
    return inside


def soft_shadow(canvas, shape, scale, opacity=0.34):
    left, top, right, bottom = shape
    below = RoundedRect(left + 0.6 * scale, top + 1.4 * scale, right + 0.6 * scale,
                        bottom + 1.4 * scale, 2 * scale)
    canvas.shade(below, SHADOW, opacity, 1.7 * scale)


def entry(canvas, left, right, y, grid, number, bar_color):
    """Draws one row: a small icon, and a bar for its text."""
    _, row_height, icon, bar, *_ = grid
    pad = max(1, round(icon / 2))
    text_left = left + 2 * pad + icon
    round_icon = number == 2 and icon > 4
    y_icon, y_bar = y + (row_height - icon) / 2, y + (row_height - bar) / 2
    canvas.fill(RoundedRect(left + pad, y_icon, left + pad + icon, y_icon + icon,
                            icon / 2 if round_icon else icon / 5), ROW_COLORS[number])
    length = round((right - pad - text_left) * BAR_LENGTHS[number])
    canvas.fill(RoundedRect(text_left, y_bar, text_left + length, y_bar + bar, bar / 4), bar_color)


def menu_rows(canvas, inside, grid, arrow=True):
    """Draws the rows of a menu. The second row is selected."""
    rows, row_height, icon, *_ = grid
    left, top, right, _ = inside.box()
    for number in range(rows):
        y = top + number * row_height
        if number == 1:
            stripe = RoundedRect(left, y, right, y + row_height)
            canvas.fill(Both(stripe, inside), down(y, y + row_height, ACCENT_LIGHT, ACCENT))
            if arrow:
                submenu_arrow(canvas, right - round(icon / 2), y + row_height / 2, row_height)
        entry(canvas, left, right, y, grid, number, WHITE if number == 1 else BAR)


def submenu_arrow(canvas, right, middle, row_height):
    height = {6: 4, 9: 5, 12: 6}.get(row_height)
    if height is None:
        half = row_height * 0.22
        canvas.fill(Polygon([(right - half, middle - half), (right, middle),
                             (right - half, middle + half)]), WHITE)
        return
    # A slanted edge of two or three pixels would look blurred, so draw steps.
    left = right - (height + 1) // 2
    while height > 0:
        canvas.fill(RoundedRect(left, middle - height / 2, left + 1, middle + height / 2), WHITE)
        left, height = left + 1, height - 2


def menu(canvas, size, arrow):
    grid = MENU_GRID[size]
    rows, row_height, _, _, width, left, top, border, corner = grid
    bottom = top + rows * row_height + 2 * border
    soft_shadow(canvas, (left, top, left + width, bottom), size / 32)
    inside = panel(canvas, left, top, left + width, bottom, border, corner)
    menu_rows(canvas, inside, grid, arrow)


def pencil(canvas, tip_x, tip_y, length, width):
    """Draws a pencil at 45 degrees, with its point at the lower left."""
    step = sqrt(0.5)

    def at(along, across):
        return (tip_x + (along + across) * step, tip_y + (across - along) * step)

    def band(first, last, upper, lower):
        return Polygon([at(first, upper), at(last, upper), at(last, lower), at(first, lower)])

    half, wood, ferrule, rubber = width / 2, width * 1.05, length * 0.80, length * 0.86
    outline = Polygon([at(0, 0), at(wood, -half), at(length, -half), at(length, half),
                       at(wood, half)])
    canvas.shade(Grown(outline, width * 0.1), SHADOW, 0.35, width * 0.35)
    canvas.fill(Grown(outline, max(0.8, width * 0.16)), WHITE)
    canvas.fill(Grown(outline, max(0.25, width * 0.04)), color("#6B4A16"))
    canvas.fill(Polygon([at(0, 0), at(wood, -half), at(wood, half)]), color("#F6DDB4"))
    canvas.fill(Polygon([at(0, 0), at(wood * 0.42, -half * 0.42), at(wood * 0.42, half * 0.42)]),
                color("#33302E"))
    canvas.fill(band(wood, ferrule, -half, half), AMBER)
    canvas.fill(band(wood, ferrule, -half, -half * 0.4), color("#FFD36B"))
    canvas.fill(band(wood, ferrule, half * 0.4, half), color("#D98A14"))
    canvas.fill(band(ferrule, rubber, -half, half), color("#BFC8D2"))
    canvas.fill(band(rubber, length, -half, half), CORAL)


def application_icon(size):
    canvas = Canvas(size, size)
    menu(canvas, size, arrow=False)
    unit = size / 32
    pencil(canvas, 13.2 * unit, 30.2 * unit, 22.5 * unit, max(3.4, 5.4 * unit))
    return canvas


def default_menu_icon():
    """Its transparency has one bit, so the shadow is hard and no edge fades."""
    canvas = Canvas(32, 32)
    canvas.fill(RoundedRect(6, 5, 29, 30, 2), color("#BCC5D1"))
    canvas.fill(RoundedRect(5, 4, 28, 29, 2), color("#8E9AAC"))
    inside = panel(canvas, 3, 2, 27, 28, 1, 2)
    menu_rows(canvas, inside, MENU_GRID[32])
    return canvas


# centre, radius, half an arm's length, an arm's width
BADGE_GRID = {16: (11.5, 4, 2.5, 1), 32: (24, 6.8, 4, 2), 40: (30, 8.4, 5, 2),
              48: (36.5, 10, 5.5, 3), 64: (49, 13.4, 7, 4)}


def contents_icon(size):
    canvas = Canvas(size, size)
    menu(canvas, size, arrow=True)
    center, radius, arm, width = BADGE_GRID[size]
    canvas.fill(circle(center, center, radius + max(0.5, size / 36)), WHITE)
    canvas.fill(circle(center, center, radius),
                down(center - radius, center + radius, color("#4CC489"), color("#1F7F4E")))
    for across, along in ((arm, width / 2), (width / 2, arm)):
        canvas.fill(RoundedRect(center - across, center - along, center + across, center + along,
                                width / 5), WHITE)
    return canvas


def folder_icon(size):
    """A folder with a small menu in it."""
    canvas = Canvas(size, size)
    unit, line = size / 32, max(1, round(size / 32))

    def snap(value):
        return round(value * unit)

    left, top, right, bottom, fold = snap(2), snap(7), snap(30), snap(29), snap(15)
    corner, edge = 1.3 * unit, color("#B27C18")
    soft_shadow(canvas, (left, snap(10), right, bottom), unit)
    back = Polygon([(left + corner, bottom - corner), (left + corner, top + corner),
                    (snap(10), top + corner), (snap(13), snap(10) + corner),
                    (right - corner, snap(10) + corner), (right - corner, bottom - corner)])
    canvas.fill(Grown(back, corner), edge)
    canvas.fill(Grown(back, corner - line), down(top, bottom, color("#EBB040"), color("#D8942A")))
    inside = panel(canvas, snap(7), snap(2), snap(25), bottom - line, line, 1.5 * unit)
    rows = {16: (2, 3, 1, 1), 32: (2, 6, 4, 2), 40: (2, 8, 4, 2), 48: (2, 9, 5, 3),
            64: (2, 12, 6, 4)}[size]
    menu_rows(canvas, inside, rows, arrow=False)
    canvas.fill(RoundedRect(left, fold, right, bottom, corner), edge)
    front = RoundedRect(left + line, fold + line, right - line, bottom - line, corner - line)
    canvas.fill(front, down(fold, bottom, color("#FFDB80"), color("#F4B43A")))
    shine = RoundedRect(left, fold + line, right, fold + 2 * line)
    canvas.fill(Both(front, shine), color("#FFEDBE"))
    return canvas


def letter_a(canvas, center, top, bottom):
    height = bottom - top

    def at(across, y):
        return (center + across * height, top + y * height)

    outline = Polygon([at(-0.145, 0), at(0.145, 0), at(0.58, 1), at(0.305, 1), at(0.215, 0.78),
                       at(-0.215, 0.78), at(-0.305, 1), at(-0.58, 1)])
    counter = Polygon([at(0, 0.25), at(0.125, 0.575), at(-0.125, 0.575)])
    canvas.fill(Without(outline, counter), down(top, bottom, ACCENT_LIGHT, ACCENT_DARK))


# letter's top and bottom, swatches' top, their size, the gap between them
APPEARANCE_GRID = {16: (3, 9, 10, 2, 1), 32: (5, 18, 20, 5, 2), 40: (6, 23, 25, 6, 3),
                   48: (8, 27, 30, 7, 3), 64: (10, 36, 40, 10, 4)}


def appearance_icon(size):
    """A letter and some colours."""
    canvas = Canvas(size, size)
    unit = size / 32
    left, top, right, bottom = (round(value * unit) for value in (3, 2, 28, 28))
    soft_shadow(canvas, (left, top, right, bottom), unit)
    panel(canvas, left, top, right, bottom, max(1, round(unit)), 2.5 * unit)
    letter_top, letter_bottom, y, swatch, gap = APPEARANCE_GRID[size]
    center = (left + right) / 2
    letter_a(canvas, center, letter_top, letter_bottom)
    x = left + (right - left - 3 * swatch - 2 * gap) // 2
    for paint in (CORAL, AMBER, GREEN):
        canvas.fill(RoundedRect(x, y, x + swatch, y + swatch, swatch / 5), paint)
        x += swatch + gap
    return canvas


def pointer(canvas, x, y, scale):
    corners = ((0, 0), (0, 16), (3.7, 12.6), (6.2, 18.3), (9, 17.1), (6.5, 11.5), (11.4, 11.3))
    shape = Polygon([(x + px * scale, y + py * scale) for px, py in corners])
    canvas.shade(shape, SHADOW, 0.4, 2 * scale)
    canvas.fill(Grown(shape, 0.9 * scale), color("#22304A"))
    canvas.fill(shape, WHITE)


def wizard_banner():
    """The picture of the wizard: a new entry above a menu."""
    canvas = Canvas(164, 314)
    canvas.fill(RoundedRect(0, 0, 164, 314), down(0, 314, color("#3F82DC"), color("#173F80")))
    for x, y, radius in ((150, 30, 120), (20, 120, 95), (140, 300, 130)):
        canvas.fill(circle(x, y, radius), WHITE, 0.045)
    grid = (4, 24, 12, 6)
    soft_shadow(canvas, (27, 160, 137, 258), 5, 0.4)
    inside = panel(canvas, 27, 160, 137, 258, 1, 6)
    menu_rows(canvas, inside, grid)
    soft_shadow(canvas, (44, 96, 142, 122), 4, 0.4)
    tile = panel(canvas, 44, 96, 142, 122, 1, 6)
    left, top, right, _ = tile.box()
    entry(canvas, left, right, top, grid, 4, BAR)
    pointer(canvas, 124, 112, 1.2)
    return canvas


def icon_file(draw, sizes, packed):
    """`packed` sizes are stored as PNG, which Windows reads in icons since Vista."""
    images = []
    for size in sizes:
        canvas = draw(size)
        images.append((size, size, 32, (png if size in packed else icon_image_32)(canvas)))
    return ico(images)


def pictures():
    # 100, 125, 150 and 200 % of a standard icon, and a small one.
    decoration = (16, 32, 40, 48, 64)
    packed = (48, 64)
    return {
        "default_menu.ico": ico([(32, 32, 8, icon_image_8(default_menu_icon()))]),
        "application.ico": icon_file(application_icon, (16, 20, 24, 32, 40, 48, 64, 256),
                                     (64, 256)),
        "contents.ico": icon_file(contents_icon, decoration, packed),
        "folder.ico": icon_file(folder_icon, decoration, packed),
        "appearance.ico": icon_file(appearance_icon, decoration, packed),
        "wizard.bmp": bmp_8(wizard_banner()),
    }


def main():
    folder = Path(sys.argv[1] if len(sys.argv) > 1 else __file__).resolve()
    folder = folder if folder.is_dir() else folder.parent
    for name, data in pictures().items():
        (folder / name).write_bytes(data)


if __name__ == "__main__":
    main()
