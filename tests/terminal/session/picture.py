"""Draws what a terminal shows: its texts, colours and cursor, as SVG and as PNG."""

import re
import subprocess
from html import escape

CELL_WIDTH, CELL_HEIGHT, FONT_SIZE, BASELINE, MARGIN = 9, 19, 15, 14, 8
FONT = "DejaVu Sans Mono"
BACKGROUND, TEXT = "#1c1f26", "#d8dee4"
COLOURS = {"default": TEXT, "red": "#ff8f87", "blue": "#82b7ff"}


def is_exact(text):
    """Whether the font gives these characters the width of a cell: letters, and lines of boxes."""
    return all(character.isascii() or "\u2500" <= character <= "\u259f" for character in text)


def runs_of(screen, number):
    """The parts of a row that look alike: first column, columns, text and looks. Words in other
    scripts are parts of their own, because their font may have another width."""
    row, column = screen.buffer[number], 0
    while column < screen.columns:
        start, text, looks = column, "", row[column]._replace(data="")
        exact = is_exact(row[column].data)
        while (column < screen.columns and row[column]._replace(data="") == looks
               and (not row[column].data or is_exact(row[column].data) == exact)):
            text += row[column].data
            column += 1
        yield start, column - start, text, looks


def svg(screen):
    width = screen.columns * CELL_WIDTH + 2 * MARGIN
    height = screen.lines * CELL_HEIGHT + 2 * MARGIN
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}">',
             f'<rect width="100%" height="100%" rx="6" fill="{BACKGROUND}"/>',
             f'<g font-family="{FONT}" font-size="{FONT_SIZE}">']
    for number in range(screen.lines):
        top = number * CELL_HEIGHT + MARGIN
        for start, columns, text, looks in runs_of(screen, number):
            left = start * CELL_WIDTH + MARGIN
            colour = COLOURS.get(looks.fg, TEXT)
            if looks.reverse:
                parts.append(f'<rect x="{left}" y="{top}" width="{columns * CELL_WIDTH}"'
                             f' height="{CELL_HEIGHT}" fill="{colour}"/>')
                colour = BACKGROUND
            # Blanks part what must not drift from its cell.
            for piece in re.finditer(r"\S+(?: \S+)*", text) if text.strip() else []:
                at = left + (piece.start() * CELL_WIDTH if is_exact(text) else 0)
                style = (' font-weight="bold"' if looks.bold else "") + (
                    ' text-decoration="underline"' if looks.underscore else "")
                parts.append(f'<text x="{at}" y="{top + BASELINE}" fill="{colour}"{style}>'
                             f'{escape(piece[0])}</text>')
    cursor = screen.cursor
    if not cursor.hidden:
        parts.append(f'<rect x="{cursor.x * CELL_WIDTH + MARGIN}" y="{cursor.y * CELL_HEIGHT + MARGIN}"'
                     f' width="{CELL_WIDTH}" height="{CELL_HEIGHT}" fill="none" stroke="#ffd479"/>')
    return "\n".join([*parts, "</g></svg>"])


def save_png(screen, path):
    subprocess.run(["rsvg-convert", "--output", path], input=svg(screen).encode(), check=True)
